#pragma once

#include "detector/store/RunLabels.h"
#include "plan/Questions.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QDialog;
class QLabel;
class QLineEdit;

/// Asks the operator who tests which device, in one small dialog for a barcode scanner: each field ends with Enter, and
/// the last one ends the dialog. Escape gives it up. The window takes no input meanwhile, but everything else goes on:
/// the dialog has no event loop of its own. GUI thread only.
class LabelQuestion : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(LabelQuestion)

public:
    explicit LabelQuestion(QWidget *window);

    /// Opens the dialog. The serial number is empty at first, the other fields hold `labels`. Does nothing while it is
    /// open.
    void ask(const Questions &questions, const RunLabels &labels);
    /// Closes the dialog unanswered.
    void withdraw();

signals:
    /// Everything is there, and the serial number, if asked for, matches. What was not asked for is as it was.
    void answered(const RunLabels &labels);

private:
    void addField(Question question);
    void fieldEnded(int field);
    bool isComplete(int field) const;
    void stayAt(int field);
    void finish();

    QWidget *const m_window;
    QPointer<QDialog> m_dialog; ///< null unless the dialog is open
    QLabel *m_hint = nullptr;
    QList<QLineEdit *> m_fields; ///< one for each question
    Questions m_questions;
    RunLabels m_labels;
};
