#include "places/Places.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {
/// The folder for what a program keeps from one start to the next (XDG Base Directory 0.8): one that is
/// not absolute does not count.
QString userState()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(named) ? named : QDir::home().filePath(QStringLiteral(".local/state"));
}

QString ownFolder(const QString &above)
{
    return QDir::cleanPath(above) + QStringLiteral("/KestDetector");
}
} // namespace

Places::Places(const QString &programFolder)
    : m_program(programFolder), m_state(programFolder), m_results(programFolder)
{
    if (!QFileInfo(programFolder).isWritable()) {
        m_state = ownFolder(userState());
        m_results = ownFolder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    }
}

const Places &Places::ofProgram()
{
    static const Places places = [] {
        Places found(QCoreApplication::applicationDirPath());
        QDir().mkpath(found.state());
        return found;
    }();
    return places;
}

QString Places::settings() const
{
    return m_program + QStringLiteral("/option.ini");
}
