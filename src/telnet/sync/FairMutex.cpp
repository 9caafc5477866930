#include "telnet/sync/FairMutex.h"

#include <algorithm>

void FairMutex::lock()
{
    lockUnless([] { return false; });
}

bool FairMutex::lockUnless(const std::function<bool()> &givesUp)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const std::uint64_t own = m_turns++;
    m_line.push_back(own);
    const auto isNext = [&] { return m_line.front() == own; };
    m_cond.wait(lock, [&] { return isNext() || givesUp(); });
    if (isNext()) {
        return true;
    }
    m_line.erase(std::find(m_line.begin(), m_line.end(), own)); // not the front: nobody's turn comes by it
    return false;
}

void FairMutex::unlock()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_line.pop_front();
    }
    m_cond.notify_all();
}

void FairMutex::wake()
{
    // Passing through the mutex makes sure that a waiter has either asked after the change or is already waiting.
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
    }
    m_cond.notify_all();
}
