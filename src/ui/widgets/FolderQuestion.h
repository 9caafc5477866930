#pragma once

#include <memory>
#include <QObject>
#include <QString>

class QFileDialog;

/// Asks the operator for a folder: the application's other windows take no input meanwhile, but everything else goes
/// on. The dialog has no event loop of its own, because a loop above a wait for the camera would keep that wait from
/// ending. GUI thread only.
class FolderQuestion : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FolderQuestion)

public:
    explicit FolderQuestion(QObject *parent);
    ~FolderQuestion() override;

    /// Opens the dialog, each time in `startFolder`. Does nothing while it is open.
    void ask(const QString &startFolder);
    /// Closes the dialog unanswered.
    void withdraw();

signals:
    /// The operator has chosen; never sent when the dialog is cancelled or withdrawn.
    void answered(const QString &folder);

private:
    std::unique_ptr<QFileDialog> m_dialog; ///< null unless the dialog is open
};
