#include "emulator/services/ShellService.h"

#include "emulator/cage/CagedLogin.h"

#include <QCoreApplication>
#include <QFile>

namespace emulator {

ShellService::ShellService(const RootFileSystem &files, const QString &runDirectory, bool verbose)
    : m_root(files.path()), m_launcher(runDirectory + QLatin1Char('/') + QLatin1String(CagedLogin::programName)),
      m_issue(runDirectory + QStringLiteral("/issue")), m_verbose(verbose)
{
}

QString ShellService::start(const QHostAddress &address, quint16 port)
{
    QFile::remove(m_launcher);
    QFile issue(m_issue);
    if (!QFile::link(QCoreApplication::applicationFilePath(), m_launcher) || !issue.open(QIODevice::WriteOnly)) {
        return QStringLiteral("cannot write %1").arg(m_launcher);
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(CagedLogin::rootVariable), m_root);
    QString problem = cageProblem(environment);
    if (!problem.isEmpty()) {
        return problem;
    }
    m_process = std::make_unique<ServiceProcess>(QStringLiteral("shell"), m_verbose);
    m_process->setEnvironment(environment);
    connect(m_process.get(), &ServiceProcess::ended, this, &ShellService::ended);
    return m_process->start(RootFileSystem::busyBox(),
                            {QStringLiteral("telnetd"), QStringLiteral("-F"), QStringLiteral("-K"),
                             QStringLiteral("-b"), address.toString(), QStringLiteral("-p"), QString::number(port),
                             QStringLiteral("-f"), m_issue, QStringLiteral("-l"), m_launcher},
                            address, port);
}

void ShellService::stop()
{
    m_process.reset();
}

/// What the system refuses shows here, instead of in a connection that closes at once.
QString ShellService::cageProblem(const QProcessEnvironment &environment) const
{
    QProcessEnvironment probe = environment;
    probe.insert(QLatin1String(CagedLogin::probeVariable), QStringLiteral("1"));
    QProcess process;
    process.setProcessEnvironment(probe);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(m_launcher, {});
    if (process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return {};
    }
    return QStringLiteral("the shell's cage cannot be built: %1 %2")
        .arg(process.errorString(), QString::fromUtf8(process.readAllStandardError()).trimmed());
}

} // namespace emulator
