#include "emulator/services/FtpService.h"

namespace emulator {

FtpService::FtpService(const Ftp &ftp, const QString &directory, bool verbose)
    : m_ftp(ftp), m_directory(directory), m_verbose(verbose)
{
}

QString FtpService::start(const QHostAddress &address, quint16 port)
{
    const QString password =
        m_ftp.fault == FtpFault::wrongPassword ? m_ftp.password + QStringLiteral("-changed") : m_ftp.password;
    m_process = std::make_unique<ServiceProcess>(QStringLiteral("FTP"), m_verbose);
    connect(m_process.get(), &ServiceProcess::ended, this, &FtpService::ended);
    // Debian's interpreter by its path: another python3 in the PATH has no pyftpdlib.
    return m_process->start(QStringLiteral("/usr/bin/python3"),
                            {QStringLiteral("-m"), QStringLiteral("pyftpdlib"), QStringLiteral("-i"),
                             address.toString(), QStringLiteral("-p"), QString::number(port), QStringLiteral("-u"),
                             m_ftp.user, QStringLiteral("-P"), password, QStringLiteral("-d"), m_directory},
                            address, port);
}

} // namespace emulator
