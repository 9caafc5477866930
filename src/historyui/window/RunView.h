#pragma once

#include "history/query/RunSummary.h"
#include "record/RunRecord.h"

#include <optional>
#include <QString>
#include <QWidget>

class FolderQuestion;
class HistoryReader;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

/// One run with its components, items and measurements, what failed first. GUI thread only.
class RunView : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(RunView)

public:
    /// `results`: the folder that was chosen for results at the station; the operator is asked when nothing is found
    /// below it.
    RunView(HistoryReader *reader, const QString &results, QWidget *parent = nullptr);

    /// Nothing: no run is chosen.
    void setRun(const std::optional<RunSummary> &run);
    /// Shows the run's folder in the desktop's file manager.
    void openFolder();
    /// The whole run as a text.
    void copy();

signals:
    /// For the status bar.
    void told(const QString &text);

private:
    void show(const RunRecord &run);
    void showHead();
    void showDetail();
    void lookIn(const QString &results);

    HistoryReader *const m_reader;
    FolderQuestion *const m_question;
    QString m_results;
    std::optional<RunSummary> m_run;
    RunRecord m_record; ///< of the run, once it has come

    QLabel *m_outcome;
    QLabel *m_head;
    QTreeWidget *m_tree;
    QPlainTextEdit *m_detail;
    QPushButton *m_open;
    QPushButton *m_copy;
};
