#pragma once

/// How an item's requests to the camera ended: the first one that was not answered, else the last one.
struct RequestEnd
{
    enum class Kind { Answered, NoReply, Refused, WrongSize };

    Kind kind = Kind::Answered;
    int code = 0;     ///< the camera's own, when it refused; else 0
    int attempts = 1; ///< 1, and as many as the item's queries had to be sent again
};
