#include "threads/WorkerThread.h"

#include <QtGlobal>
#include <utility>

namespace {
/// Told by the thread that starts the worker: so the lines stand in the order in which the workers were started.
const char *announced(const char *name)
{
    qDebug("The %s thread begins", name);
    return name;
}
} // namespace

WorkerThread::WorkerThread(const char *name, std::chrono::milliseconds patience, std::function<void()> loop)
    : m_name(announced(name)), m_patience(patience), m_thread([this, loop = std::move(loop)] {
          loop();
          const std::lock_guard<std::mutex> lock(m_mutex);
          m_exited = true;
          m_cond.notify_all();
      })
{
}

WorkerThread::~WorkerThread()
{
    stop();
}

void WorkerThread::pause(std::chrono::milliseconds time)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_cond.wait_for(lock, time, [this] { return !m_running; });
}

void WorkerThread::stop(const std::function<void()> &wake)
{
    if (!m_thread.joinable()) {
        return;
    }
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_running = false;
        m_cond.notify_all();
        if (wake) {
            wake();
        }
        if (!m_cond.wait_for(lock, m_patience, [this] { return m_exited; })) {
            qWarning("The %s thread has not ended within %lld ms", m_name, static_cast<long long>(m_patience.count()));
        }
    }
    m_thread.join();
    qDebug("The %s thread has ended", m_name);
}
