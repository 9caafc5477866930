#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

struct ProgramEnd
{
    int exitCode;
    QString output; ///< standard output and standard error
};

/// Runs a program that is not ours to its end. A program that cannot be started has the exit code -1.
inline ProgramEnd runOutside(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        return {-1, process.errorString()};
    }
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}
