#include "history/door/ForwardProcess.h"

#include <QCoreApplication>
#include <QDebug>

using namespace std::chrono_literals;

ForwardProcess::ForwardProcess(const QString &store, const QString &server) : m_store(store), m_server(server)
{
    m_process.setProgram(QCoreApplication::applicationDirPath() + QStringLiteral("/KestForward"));
    m_process.setArguments({QStringLiteral("--follow"), m_store, m_server});
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            qWarning("Runs are not sent to the server: %s: %s", qUtf8Printable(m_process.program()),
                     qUtf8Printable(m_process.errorString()));
        }
    });
    // It ends only when somebody ends it.
    constexpr auto restartPause = 1s;
    m_restart.setInterval(restartPause);
    connect(&m_restart, &QTimer::timeout, this, &ForwardProcess::start);
    m_restart.start();
    start();
}

ForwardProcess::~ForwardProcess()
{
    m_restart.stop();
    // Whatever it is doing, it can be ended at any moment.
    m_process.kill();
    m_process.waitForFinished();
}

void ForwardProcess::wake()
{
    if (m_process.state() == QProcess::Running) {
        m_process.write("\n");
    }
}

void ForwardProcess::start()
{
    if (m_process.state() != QProcess::NotRunning || !m_pause.isDue()) {
        return;
    }
    m_pause.noteFailure();
    m_process.start();
}
