#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// A thread that runs one loop until it is told to stop.
///
/// To be the last member of its owner: the loop starts when everything that it uses is in place, and has ended before
/// anything of it goes. Its begin and its end are told in the debug output. The loop asks `running` in each round and
/// waits with `pause`.
class WorkerThread
{
public:
    /// Starts `loop` on a thread of its own; throws what `std::thread` throws where that is impossible. A loop that
    /// needs longer than `patience` to end is named by `name` in the debug output.
    WorkerThread(const char *name, std::chrono::milliseconds patience, std::function<void()> loop);
    WorkerThread(const WorkerThread &) = delete;
    WorkerThread &operator=(const WorkerThread &) = delete;
    ~WorkerThread();

    /// Whether the loop is to go on. From any thread.
    bool running() const { return m_running; }
    /// Waits `time`, or until the thread is told to stop. For the loop.
    void pause(std::chrono::milliseconds time);

    /// Tells the loop to end, wakes it from `pause` and with `wake` from whatever else it waits for, and joins it.
    /// Where `patience` ends first, that is reported: the loop waits for something that should have given up before.
    /// Further calls do nothing. Not from the loop itself.
    void stop(const std::function<void()> &wake = {});

private:
    const char *const m_name;
    const std::chrono::milliseconds m_patience;
    std::atomic<bool> m_running{true};
    std::mutex m_mutex; ///< guards `m_exited`, and `m_running` against a wait that is just about to begin
    std::condition_variable m_cond;
    bool m_exited = false;
    std::thread m_thread; ///< last, as in the owner
};
