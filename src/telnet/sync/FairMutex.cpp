#include "telnet/sync/FairMutex.h"

void FairMutex::lock()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const std::uint64_t own = m_taken++;
    m_cond.wait(lock, [&] { return m_serving == own; });
}

void FairMutex::unlock()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++m_serving;
    }
    m_cond.notify_all();
}
