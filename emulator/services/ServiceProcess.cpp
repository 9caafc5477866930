#include "emulator/services/ServiceProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <netinet/in.h>
#include <QElapsedTimer>
#include <QTcpSocket>
#include <QThread>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace emulator {

namespace {
constexpr int startLimit = 10000; // ms: only a program that hangs takes longer

bool listens(const QHostAddress &address, quint16 port)
{
    QTcpSocket probe;
    probe.connectToHost(address, port);
    return probe.waitForConnected(startLimit);
}
} // namespace

QString listeningProblem(const QHostAddress &address, quint16 port)
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(port);
    target.sin_addr.s_addr = htonl(address.toIPv4Address());
    QString problem;
    if (bind(listener, reinterpret_cast<const sockaddr *>(&target), sizeof target) != 0 || listen(listener, 1) != 0) {
        const int error = errno;
        problem = QStringLiteral("cannot listen on TCP port %1 of %2: %3")
                      .arg(port)
                      .arg(address.toString(), qt_error_string(error));
        if (error == EACCES) {
            problem +=
                QStringLiteral("\nPorts below net.ipv4.ip_unprivileged_port_start need a right. One of these helps:"
                               "\n  run it as root"
                               "\n  run it (and the station) in a network of their own: unshare -r -n sh -c "
                               "'ip link set lo up; exec sh'"
                               "\n  sysctl net.ipv4.ip_unprivileged_port_start=23");
        }
    }
    close(listener);
    return problem;
}

ServiceProcess::ServiceProcess(const QString &name, bool verbose)
    : m_name(name), m_verbose(verbose), m_process([] { prctl(PR_SET_PDEATHSIG, SIGKILL); })
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyRead, this, &ServiceProcess::forwardOutput);
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this, [this] {
        forwardOutput();
        if (!m_stopping) {
            emit ended(QStringLiteral("the %1 service has ended: %2").arg(m_name, QString::fromUtf8(m_lastOutput)));
        }
    });
}

ServiceProcess::~ServiceProcess()
{
    stop();
}

QString ServiceProcess::start(const QString &program, const QStringList &arguments, const QHostAddress &address,
                              quint16 port)
{
    QString problem = listeningProblem(address, port);
    if (!problem.isEmpty()) {
        return problem;
    }
    m_stopping = true; // an early end is this function's result
    m_process.start(program, arguments);
    QElapsedTimer elapsed;
    elapsed.start();
    constexpr unsigned long pause = 10;
    while (m_process.waitForStarted() && elapsed.elapsed() < startLimit && !m_process.waitForFinished(0)) {
        if (listens(address, port)) {
            m_stopping = false;
            return {};
        }
        QThread::msleep(pause);
    }
    forwardOutput();
    stop();
    return QStringLiteral("the %1 service does not start: %2 %3")
        .arg(m_name, m_process.errorString(), QString::fromUtf8(m_lastOutput));
}

void ServiceProcess::stop()
{
    m_stopping = true;
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void ServiceProcess::forwardOutput()
{
    const QByteArray output = m_process.readAll();
    const QByteArrayList lines = output.split('\n');
    for (const QByteArray &line : lines) {
        if (line.isEmpty()) {
            continue;
        }
        m_lastOutput = line;
        if (m_verbose) {
            std::fprintf(stderr, "%s: %s\n", qUtf8Printable(m_name), line.constData());
        }
    }
}

} // namespace emulator
