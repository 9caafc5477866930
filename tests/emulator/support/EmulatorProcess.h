#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// The camera-emulator program, stopped at the latest with this object.
class EmulatorProcess
{
public:
    ~EmulatorProcess();

    /// Waits for the "ready" line; false when the program ends or hangs instead.
    bool start(const QStringList &arguments, const QString &program = {}, const QStringList &programArguments = {});
    /// Runs it to its end; false when it hangs.
    bool run(const QStringList &arguments);
    /// Sends a signal to it.
    void send(int signal) const;
    /// Waits for its end; false when it hangs.
    bool waitForEnd();
    /// SIGTERM and the end.
    bool stop();

    QString readyLine() const { return m_readyLine; }
    QString errors() { return QString::fromUtf8(m_process.readAllStandardError()); }
    int exitCode() const { return m_process.exitCode(); }
    bool endedNormally() const { return m_process.exitStatus() == QProcess::NormalExit; }
    qint64 pid() const { return m_process.processId(); }
    static QString programPath();

private:
    QProcess m_process;
    QString m_readyLine;
};
