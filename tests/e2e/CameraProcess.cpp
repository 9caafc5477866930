#include "CameraProcess.h"

#include "support/fileContent.h"

#include <csignal>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QtDebug>
#include <QVector>

namespace {
constexpr int startLimitMs = 30000;
constexpr int stopLimitMs = 15000;

/// The process and all that it has started, from /proc/PID/task/TID/children (proc(5)).
QVector<pid_t> familyOf(pid_t process)
{
    QVector<pid_t> family{process};
    for (int i = 0; i < family.size(); ++i) {
        QDirIterator tasks(QStringLiteral("/proc/%1/task").arg(family.at(i)), QDir::Dirs | QDir::NoDotAndDotDot);
        while (tasks.hasNext()) {
            const QByteArray children = fileContent(tasks.next() + QStringLiteral("/children"), {});
            const QList<QByteArray> numbers = children.simplified().split(' ');
            for (const QByteArray &child : numbers) {
                if (!child.isEmpty()) {
                    family.append(static_cast<pid_t>(child.toInt()));
                }
            }
        }
    }
    return family;
}
} // namespace

CameraProcess::~CameraProcess()
{
    stop();
}

bool CameraProcess::start(const QByteArray &scenario, const QStringList &options)
{
    QFile file(m_folder.filePath(QStringLiteral("scenario.json")));
    if (!file.open(QIODevice::WriteOnly) || file.write(scenario) != scenario.size()) {
        return false;
    }
    file.close();
    return launch(QStringList{QStringLiteral("--scenario"), file.fileName()} + options);
}

bool CameraProcess::startShipped(const QString &name)
{
    return launch({QStringLiteral("--scenario"),
                   QStringLiteral(KEST_SOURCE_DIR "/emulator/scenarios/") + name + QStringLiteral(".json")});
}

bool CameraProcess::launch(const QStringList &options)
{
    m_process.setStandardErrorFile(m_log.path());
    m_process.start(QStringLiteral(KEST_BIN_DIR "/camera-emulator"),
                    QStringList{QStringLiteral("--verbose"), QStringLiteral("--run-dir"),
                                m_folder.filePath(QStringLiteral("run"))} +
                        options);
    QByteArray output;
    QElapsedTimer clock;
    clock.start();
    while (!output.contains("ready") && clock.elapsed() < startLimitMs && m_process.waitForReadyRead(startLimitMs)) {
        output += m_process.readAllStandardOutput();
    }
    if (!output.contains("ready")) {
        qWarning("The emulated camera did not start: %s", m_log.content().constData());
        return false;
    }
    return true;
}

bool CameraProcess::stop()
{
    if (m_process.state() == QProcess::NotRunning) {
        return false;
    }
    m_process.terminate();
    return m_process.waitForFinished(stopLimitMs) && m_process.exitStatus() == QProcess::NormalExit &&
           m_process.exitCode() == 0;
}

void CameraProcess::signal(int number) const
{
    ::kill(static_cast<pid_t>(m_process.processId()), number);
}

void CameraProcess::signalAll(int number, const QByteArray &program) const
{
    const QVector<pid_t> family = familyOf(static_cast<pid_t>(m_process.processId()));
    for (const pid_t process : family) {
        const LogFile name(QStringLiteral("/proc/%1/comm").arg(process));
        if (program.isEmpty() || name.content().trimmed() == program) {
            ::kill(process, number);
        }
    }
}

QString CameraProcess::root() const
{
    // The folder that holds the camera's login program is its root.
    QDirIterator entries(m_folder.filePath(QStringLiteral("run")), {QStringLiteral("data")}, QDir::Dirs,
                         QDirIterator::Subdirectories);
    return entries.hasNext() ? QFileInfo(entries.next()).path() : QString();
}
