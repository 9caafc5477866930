#pragma once

#include "emulator/scenario/Scenario.h"
#include "emulator/services/ServiceProcess.h"

#include <memory>
#include <QHostAddress>
#include <QObject>
#include <QString>

namespace emulator {

/// The camera's FTP server: pyftpdlib, read-only, with the folder as its root.
class FtpService : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FtpService)

public:
    FtpService(const Ftp &ftp, const QString &directory, bool verbose);

    /// Returns an empty text, or why it cannot be served.
    QString start(const QHostAddress &address, quint16 port);
    void stop() { m_process.reset(); }

signals:
    void ended(const QString &reason);

private:
    Ftp m_ftp;
    QString m_directory;
    bool m_verbose;
    std::unique_ptr<ServiceProcess> m_process;
};

} // namespace emulator
