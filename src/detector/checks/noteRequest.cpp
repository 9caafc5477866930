#include "detector/checks/noteRequest.h"

#include "camera/client/Camera.h"
#include "detector/store/requestTally.h"

namespace {
using Kind = RequestEnd::Kind;

RequestEnd endOfRequest(int result)
{
    switch (result) {
    case requestResult::success:
        return {Kind::Answered};
    case requestResult::noReply:
        return {Kind::NoReply};
    case requestResult::wrongSize:
        return {Kind::WrongSize};
    default:
        return {Kind::Refused, result};
    }
}

/// The first request that was not answered stays; else the last one counts.
void note(CheckItemLog &item, const RequestEnd &end)
{
    if (!item.request || item.request->kind == Kind::Answered) {
        item.request = end;
    }
}
} // namespace

int noteRequest(CheckItemLog &item, int result)
{
    note(item, endOfRequest(result));
    return result;
}

int noteShellCall(CheckItemLog &item, int result)
{
    if (result != 0) {
        noteUnansweredRequest();
    }
    note(item, {result == 0 ? Kind::Answered : Kind::NoReply});
    return result;
}
