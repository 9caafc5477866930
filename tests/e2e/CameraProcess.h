#pragma once

#include "LogFile.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// The emulated camera as a process. It ends with the object.
class CameraProcess
{
    Q_DISABLE_COPY(CameraProcess)

public:
    CameraProcess() = default;
    ~CameraProcess();

    /// Starts the camera with a scenario (JSON) and waits until all of its services listen. False with a message in
    /// the test's output when it does not come up.
    bool start(const QByteArray &scenario = "{}", const QStringList &options = {});
    /// As `start`, with a shipped scenario.
    bool startShipped(const QString &name);
    /// Ends the camera as a user would; true when it left with exit code 0.
    bool stop();
    /// SIGUSR1 makes it reboot, SIGUSR2 switches its radio off or on.
    void signal(int number) const;
    /// Sends a signal to every process of the camera, or only to those that run `program` ("python3" is the FTP server,
    /// "busybox" the shell's).
    void signalAll(int number, const QByteArray &program = {}) const;

    /// The root directory of the camera's own file system.
    QString root() const;
    /// One line for each request ("getBatteryInfo #5 ...") and event; complete whether or not the camera still runs.
    const LogFile &log() const { return m_log; }
    /// Waits for the `times`-th request of a command.
    bool waitForRequest(const QByteArray &command, int times = 1) const { return m_log.waitFor(command + " #", times); }
    int requests(const QByteArray &command) const { return m_log.count(command + " #"); }

private:
    bool launch(const QStringList &options);

    QTemporaryDir m_folder;
    LogFile m_log{m_folder.filePath(QStringLiteral("log"))};
    QProcess m_process;
};
