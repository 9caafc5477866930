#include "telnet/session/TelnetInteractiveFace.h"

#include "detector/store/KestDetectorFace.h"
#include "telnet/session/TelnetInteractive.h"

#include <QThread>

namespace {
// A safety net only: the worker answers every request within its own limit.
constexpr int waitSeconds = 5000;
} // namespace

TelnetInteractiveFace *TelnetInteractiveFace::Get()
{
    static auto *ptr = new TelnetInteractiveFace;
    return ptr;
}

TelnetInteractiveFace::TelnetInteractiveFace()
{
    const auto *worker = TelnetInteractive::Get();
    connect(this, &TelnetInteractiveFace::signal_telnetConnectToHost, worker,
            &TelnetInteractive::slot_telnetConnectToHost);
    connect(this, &TelnetInteractiveFace::signal_telnetDisConnectToHost, worker,
            &TelnetInteractive::slot_telnetDisConnectToHost);
    connect(this, &TelnetInteractiveFace::signal_telnet, worker, &TelnetInteractive::slot_telnet);
    connect(worker, &TelnetInteractive::signal_connected, this, &TelnetInteractiveFace::slot_connected);
    connect(worker, &TelnetInteractive::signal_connectionLost, this, &TelnetInteractiveFace::signal_connectionLost);
}

template <class Post, class Collect>
int TelnetInteractiveFace::call(SyncCondMutexData &sync, Post post, Collect collect)
{
    if (QThread::currentThread() == thread()) {
        qWarning("A shell call from the thread that has to serve it");
        return -1;
    }
    return sync.call(m_oneCall, waitSeconds, KestDetectorFace::Get()->run.stopSign(), post, collect);
}

int TelnetInteractiveFace::telnetConnectToHost()
{
    return call(
        m_connect, [this] { emit signal_telnetConnectToHost(&m_connect); }, [] {});
}

int TelnetInteractiveFace::telnetDisConnectToHost()
{
    return call(
        m_disconnect, [this] { emit signal_telnetDisConnectToHost(&m_disconnect); }, [] {});
}

int TelnetInteractiveFace::telnet(const QString &cmd, int step, QString *reply)
{
    reply->clear();
    return call(
        m_command, [&] { emit signal_telnet(cmd, &m_command, step, &m_reply); }, [&] { *reply = m_reply; });
}

void TelnetInteractiveFace::giveUp()
{
    for (SyncCondMutexData *sync : {&m_command, &m_connect, &m_disconnect}) {
        sync->abandon();
    }
}

void TelnetInteractiveFace::heedStop()
{
    m_oneCall.wake();
}
