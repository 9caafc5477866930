#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

/// A mutex whose waiters take turns: who has waited longest is next. A `std::mutex` is mostly taken again by the thread
/// that has just released it, and who calls in a row would keep everybody else out.
class FairMutex
{
public:
    void lock();
    void unlock();

private:
    std::mutex m_mutex; ///< guards what follows, never held for long
    std::condition_variable m_cond;
    std::uint64_t m_taken = 0;   ///< turns handed out
    std::uint64_t m_serving = 0; ///< whose turn it is
};
