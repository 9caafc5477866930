#pragma once

#include "telnet/sync/FairMutex.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
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
    std::uint64_t waits = 0;        ///< waits begun so far
    std::uint64_t completions = 0;  ///< waits answered so far, whether or not the caller was still there
    bool abandoned = false;         ///< the program is closing: present and later waits give up
    std::function<bool()> unwanted; ///< of the call under way: whether its result is wanted no more; from any thread

    /// Caller side: one whole call. Posts the request with `post()` and, once it is answered, lets `collect()` take
    /// what the worker has left. Calls that share `oneCall` are made one at a time. Returns the worker's result, or -1
    /// when `seconds` ran out or the program is closing.
    ///
    /// Once `stopSign()` is true, nothing is posted any more, and the worker is to answer what has been: the call does
    /// not leave it behind, and the next one finds it free. A call that waits for its turn leaves when `oneCall` is
    /// woken.
    template <class Post, class Collect>
    int call(FairMutex &oneCall, int seconds, const std::function<bool()> &stopSign, Post post, Collect collect);

    /// Worker side: stores the result, sets `done` and wakes all waiters.
    void complete(std::int32_t outcome);
    /// Worker side: whether the caller has left, since the program is closing.
    bool isAbandoned();
    /// Worker side: whether to answer now, as nobody wants the result.
    bool isUnwanted();
    /// Closing side: every present and later wait ends at once.
    void abandon();
    /// Caller side, with `lock` held on `mutex` since before the request was posted: waits for the request's
    /// completion. False when `seconds` ran out or the wait was abandoned.
    bool waitForCompletion(std::unique_lock<std::mutex> &lock, int seconds);
};

template <class Post, class Collect>
int SyncCondMutexData::call(FairMutex &oneCall, int seconds, const std::function<bool()> &stopSign, Post post,
                            Collect collect)
{
    if (!oneCall.lockUnless(stopSign)) {
        return -1;
    }
    const std::lock_guard<FairMutex> alone(oneCall, std::adopt_lock);
    std::unique_lock<std::mutex> lock(mutex);
    unwanted = stopSign;
    if (abandoned || unwanted()) {
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
