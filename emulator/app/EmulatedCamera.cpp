#include "emulator/app/EmulatedCamera.h"

#include "emulator/cage/processes.h"

#include <cstdio>
#include <QDir>

namespace emulator {

namespace {
void printLine(const QString &text)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

QString madeFolder(const QString &path)
{
    QDir().mkpath(path);
    return path;
}
} // namespace

EmulatedCamera::EmulatedCamera(const Options &options, const Scenario &scenario, const QString &runDirectory)
    : m_options(options), m_scenario(scenario), m_runDirectory(runDirectory),
      m_files(madeFolder(runDirectory + QStringLiteral("/rootfs"))),
      m_commands(scenario, options.verbose ? CommandService::Log(printLine) : CommandService::Log())
{
    if (options.ftpPort != 0) {
        m_scenario.ftp.port = options.ftpPort;
    }
    m_rebootTimer.setSingleShot(true);
    connect(&m_rebootTimer, &QTimer::timeout, this, &EmulatedCamera::startAgain);
}

EmulatedCamera::~EmulatedCamera()
{
    stop();
}

QString EmulatedCamera::start()
{
    if (!m_filesBuilt) {
        QString error = m_files.build(m_scenario);
        if (!error.isEmpty()) {
            return error;
        }
        m_filesBuilt = true;
    }
    QString error = m_commands.start(m_options.address, m_options.commandPort);
    if (!error.isEmpty()) {
        return QStringLiteral("cannot listen on UDP port %1 of %2: %3")
            .arg(m_options.commandPort)
            .arg(m_options.address.toString(), error);
    }
    error = startShell();
    return error.isEmpty() ? startFtp() : error;
}

void EmulatedCamera::stop()
{
    m_rebootTimer.stop();
    m_commands.stop();
    m_shell.reset();
    m_ftp.reset();
    m_faultyShell.reset();
    m_faultyFtp.reset();
    killDescendants();
}

QString EmulatedCamera::description() const
{
    QString text = QStringLiteral("%1 commands %2/udp").arg(m_options.address.toString()).arg(m_options.commandPort);
    if (m_shell || m_faultyShell) {
        text += QStringLiteral(", shell %1/tcp").arg(m_options.shellPort);
    }
    if (m_ftp || m_faultyFtp) {
        text += QStringLiteral(", FTP %1/tcp").arg(m_scenario.ftp.port);
    }
    return text;
}

void EmulatedCamera::reboot()
{
    note(QStringLiteral("reboot: off"));
    stop();
    m_rebootTimer.start(m_scenario.rebootSeconds * 1000);
}

void EmulatedCamera::toggleRadio()
{
    m_inRange = !m_inRange;
    m_commands.setAnswering(m_inRange);
    note(m_inRange ? QStringLiteral("radio: back in range") : QStringLiteral("radio: out of range"));
}

QString EmulatedCamera::startShell()
{
    if (!m_options.shell || m_scenario.shell.fault == ShellFault::refuse) {
        return {};
    }
    if (m_scenario.shell.fault != ShellFault::none) {
        return startFaultyShell();
    }
    m_shell = std::make_unique<ShellService>(m_files, m_runDirectory, m_options.verbose);
    connect(m_shell.get(), &ShellService::ended, this, &EmulatedCamera::failed);
    return m_shell->start(m_options.address, m_options.shellPort);
}

QString EmulatedCamera::startFaultyShell()
{
    QString problem = listeningProblem(m_options.address, m_options.shellPort);
    if (!problem.isEmpty()) {
        return problem;
    }
    m_faultyShell = std::make_unique<FaultyShell>(m_scenario.shell.fault);
    return m_faultyShell->start(m_options.address, m_options.shellPort);
}

QString EmulatedCamera::startFtp()
{
    if (!m_options.ftp || m_scenario.ftp.fault == FtpFault::refuse) {
        return {};
    }
    if (m_scenario.ftp.fault != FtpFault::none && m_scenario.ftp.fault != FtpFault::wrongPassword) {
        return startFaultyFtp();
    }
    m_ftp = std::make_unique<FtpService>(m_scenario.ftp, m_files.archivePath(), m_options.verbose);
    connect(m_ftp.get(), &FtpService::ended, this, &EmulatedCamera::failed);
    return m_ftp->start(m_options.address, m_scenario.ftp.port);
}

QString EmulatedCamera::startFaultyFtp()
{
    QString problem = listeningProblem(m_options.address, m_scenario.ftp.port);
    if (!problem.isEmpty()) {
        return problem;
    }
    m_faultyFtp = std::make_unique<FaultyFtp>(m_scenario.ftp.fault);
    return m_faultyFtp->start(m_options.address, m_scenario.ftp.port);
}

void EmulatedCamera::startAgain()
{
    const QString error = start();
    if (!error.isEmpty()) {
        emit failed(error);
        return;
    }
    note(QStringLiteral("reboot: back"));
}

void EmulatedCamera::note(const QString &text) const
{
    if (m_options.verbose) {
        printLine(text);
    }
}

} // namespace emulator
