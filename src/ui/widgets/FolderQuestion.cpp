#include "ui/widgets/FolderQuestion.h"

#include <QFileDialog>

FolderQuestion::FolderQuestion(QObject *parent) : QObject(parent) {}

FolderQuestion::~FolderQuestion() = default;

void FolderQuestion::ask(const QString &startFolder)
{
    if (m_dialog != nullptr) {
        return;
    }
    m_dialog = std::make_unique<QFileDialog>(nullptr, QString(), startFolder);
    m_dialog->setFileMode(QFileDialog::Directory);
    m_dialog->setOption(QFileDialog::ShowDirsOnly);
    m_dialog->setSupportedSchemes({QStringLiteral("file")});
    m_dialog->setModal(true); // not open(): without a parent that would lock no other window
    connect(m_dialog.get(), &QDialog::finished, this, [this](int result) {
        const QString folder = m_dialog->selectedFiles().value(0);
        m_dialog.release()->deleteLater(); // it is in the middle of its signal
        if (result == QDialog::Accepted && !folder.isEmpty()) {
            emit answered(folder);
        }
    });
    m_dialog->show();
}

void FolderQuestion::withdraw()
{
    m_dialog.reset();
}
