#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>

/// A mutex whose waiters take turns: who has waited longest is next. A `std::mutex` is mostly taken again by the thread
/// that has just released it, and who calls in a row would keep everybody else out.
class FairMutex
{
public:
    void lock();
    void unlock();

    /// Like `lock`, but leaves the line when `givesUp()` is true: asked at once and after each `wake`. True: taken,
    /// which may be so although `givesUp()` is true. `givesUp` must not use this mutex.
    bool lockUnless(const std::function<bool()> &givesUp);
    /// Has everybody in the line look again whether to leave it. From any thread.
    void wake();

private:
    std::mutex m_mutex; ///< guards what follows, never held for long
    std::condition_variable m_cond;
    std::uint64_t m_turns = 0;        ///< handed out so far
    std::deque<std::uint64_t> m_line; ///< in front the turn of whoever holds the mutex
};
