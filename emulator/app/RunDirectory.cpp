#include "emulator/app/RunDirectory.h"

#include "emulator/services/RootFileSystem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace emulator {

RunDirectory::RunDirectory(const QString &wanted)
{
    if (wanted.isEmpty()) {
        const QString beside = QCoreApplication::applicationDirPath();
        // An installed program's folder belongs to root.
        QTemporaryDir fresh((QFileInfo(beside).isWritable() ? beside : QDir::tempPath()) +
                            QStringLiteral("/camera-emulator-run-XXXXXX"));
        fresh.setAutoRemove(false);
        m_made = fresh.isValid();
        m_path = fresh.path();
        m_error = m_made ? QString() : fresh.errorString();
        return;
    }
    QDir directory(QDir(wanted).absolutePath());
    m_path = directory.path();
    m_made = !directory.exists();
    if (!directory.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot) && !m_made) {
        m_error = QStringLiteral("%1 is not empty").arg(m_path);
    } else if (!directory.mkpath(QStringLiteral("."))) {
        m_error = QStringLiteral("cannot make %1").arg(m_path);
    }
}

RunDirectory::~RunDirectory()
{
    if (!m_error.isEmpty()) {
        return;
    }
    if (m_made) {
        removeTree(m_path);
        return;
    }
    const QDir directory(m_path);
    const QStringList names =
        directory.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        removeTree(directory.filePath(name));
    }
}

} // namespace emulator
