#pragma once

#include <QHostAddress>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <qt/versions.h>

namespace emulator {

/// A server program that belongs to the emulated camera: it dies with the emulator, and what it prints goes to the
/// emulator's standard error, each line behind the service's name.
class ServiceProcess : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ServiceProcess)

public:
    ServiceProcess(const QString &name, bool verbose);
    ~ServiceProcess() override;

    void setEnvironment(const QProcessEnvironment &environment) { m_process.setProcessEnvironment(environment); }
    void setWorkingDirectory(const QString &directory) { m_process.setWorkingDirectory(directory); }
    /// Starts the program and waits until something listens on the TCP port. Returns an empty text, or what went wrong.
    QString start(const QString &program, const QStringList &arguments, const QHostAddress &address, quint16 port);
    /// Kills it. Further calls do nothing.
    void stop();

signals:
    /// The program has ended without `stop`.
    void ended(const QString &reason);

private:
    void forwardOutput();

    QString m_name;
    bool m_verbose;
    bool m_stopping = false;
    QByteArray m_lastOutput;
    PreparedProcess m_process;
};

/// Why a TCP port cannot be listened on; empty when it can.
QString listeningProblem(const QHostAddress &address, quint16 port);

} // namespace emulator
