#include "camera/client/Completion.h"

#include "camera/codec/protocol.h"
#include "camera/codec/requestResult.h"

#include <algorithm>

namespace {
bool contains(const std::vector<std::uint16_t> &numbers, std::uint16_t number)
{
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

bool countsItself(const std::uint8_t *data, int length)
{
    constexpr int countSize = 2;
    return length >= countSize && length <= protocol::maxReplyData && (data[0] | data[1] << 8) + countSize == length;
}

bool fits(int replySize, const std::uint8_t *data, int length)
{
    switch (replySize) {
    case replyData::ignored:
        return true;
    case replyData::counted:
        return countsItself(data, length);
    default:
        return length == replySize;
    }
}
} // namespace

void Completion::complete(int code, const std::uint8_t *data, int length)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        result = code;
        if (code == requestResult::success && !fits(command.replySize, data, length)) {
            result = requestResult::wrongSize;
        }
        if (result == requestResult::success) {
            WireReader in(data);
            read(in);
        }
        ++completions;
    }
    cond.notify_all();
}

bool Completion::isStale(std::uint16_t number)
{
    const std::lock_guard<std::mutex> lock(mutex);
    return contains(staleNumbers, number) && !contains(numbers, number);
}
