#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <QMetaType>

/// The state of one blocking call across threads: a caller waits on it, a worker on another thread completes it.
///
/// The mutex guards every other field. The caller holds it from before the request is posted until the wait begins,
/// so that no completion can slip in between. The counters give every wait its own completion: neither a spurious
/// wake-up nor the late answer to a request whose caller has given up ends somebody else's wait.
struct SyncCondMutexData
{
    std::int32_t result = 0; ///< 0 = success, -1 = failure or time-out; written by the worker
    bool done = false;       ///< set by the worker when `result` is final
    std::mutex mutex;
    std::condition_variable cond;
    std::uint64_t waits = 0;       ///< waits begun so far
    std::uint64_t completions = 0; ///< waits answered so far, whether or not the caller was still there
    bool abandoned = false;        ///< the program is closing: present and later waits give up

    /// Caller side: one whole call. Posts the request with `post()` and, once it is answered, lets `collect()` take
    /// what the worker has left. Calls that share `oneCall` are made one at a time. Returns the worker's result, or -1
    /// when `seconds` ran out or the program is closing.
    template <class Mutex, class Post, class Collect>
    int call(Mutex &oneCall, int seconds, Post post, Collect collect);

    /// Worker side: stores the result, sets `done` and wakes all waiters.
    void complete(std::int32_t outcome);
    /// Worker side: whether the caller has left, since the program is closing.
    bool isAbandoned();
    /// Closing side: every present and later wait ends at once.
    void abandon();
    /// Caller side, with `lock` held on `mutex` since before the request was posted: waits for the request's
    /// completion. False when `seconds` ran out or the wait was abandoned.
    bool waitForCompletion(std::unique_lock<std::mutex> &lock, int seconds);
};

template <class Mutex, class Post, class Collect>
int SyncCondMutexData::call(Mutex &oneCall, int seconds, Post post, Collect collect)
{
    const std::lock_guard<Mutex> alone(oneCall);
    std::unique_lock<std::mutex> lock(mutex);
    if (abandoned) {
        return -1;
    }
    post();
    if (!waitForCompletion(lock, seconds)) {
        return -1;
    }
    collect();
    return result;
}

Q_DECLARE_METATYPE(SyncCondMutexData *)
