#include "EmulatorProcess.h"

#include <csignal>
#include <QElapsedTimer>

namespace {
constexpr int hangLimit = 30000;
}

EmulatorProcess::~EmulatorProcess()
{
    stop();
}

bool EmulatorProcess::start(const QStringList &arguments, const QString &program, const QStringList &programArguments)
{
    m_process.start(program.isEmpty() ? programPath() : program,
                    program.isEmpty() ? arguments : programArguments + QStringList{programPath()} + arguments);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!m_process.canReadLine() && elapsed.elapsed() < hangLimit) {
        if (!m_process.waitForReadyRead(hangLimit) && m_process.state() == QProcess::NotRunning) {
            return false;
        }
    }
    m_readyLine = QString::fromUtf8(m_process.readLine()).trimmed();
    return m_readyLine.startsWith(QLatin1String("ready"));
}

bool EmulatorProcess::run(const QStringList &arguments)
{
    m_process.start(programPath(), arguments);
    return m_process.waitForFinished(hangLimit);
}

void EmulatorProcess::send(int signal) const
{
    ::kill(static_cast<pid_t>(m_process.processId()), signal);
}

bool EmulatorProcess::waitForEnd()
{
    return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(hangLimit);
}

bool EmulatorProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning) {
        return true;
    }
    m_process.terminate();
    return waitForEnd();
}

QString EmulatorProcess::programPath()
{
    return QStringLiteral(CAMERA_EMULATOR);
}
