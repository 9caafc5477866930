#include "telnet/sync/SyncCondMutexData.h"

#include <algorithm>
#include <chrono>

void SyncCondMutexData::complete(std::int32_t outcome)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        result = outcome;
        done = true;
        completions = std::min(completions + 1, waits);
    }
    cond.notify_all();
}

bool SyncCondMutexData::isAbandoned()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return abandoned;
}

bool SyncCondMutexData::isUnwanted()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return abandoned || (unwanted && unwanted());
}

void SyncCondMutexData::abandon()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        abandoned = true;
    }
    cond.notify_all();
}

bool SyncCondMutexData::waitForCompletion(std::unique_lock<std::mutex> &lock, int seconds)
{
    const std::uint64_t own = ++waits;
    cond.wait_for(lock, std::chrono::seconds(seconds), [&] { return abandoned || completions >= own; });
    return completions >= own;
}
