#pragma once

/// How the requests of one thread to the camera have fared, since the thread began: who wants to know what became of
/// the requests of one item or component takes the difference.
struct RequestTally
{
    int unanswered = 0; ///< ended without a usable answer: none in time, one of the wrong size, no prompt of the shell
    int resent = 0;     ///< sendings beyond the first one

    friend RequestTally operator-(const RequestTally &after, const RequestTally &before)
    {
        return {after.unanswered - before.unanswered, after.resent - before.resent};
    }
};

/// Of the calling thread.
RequestTally requestTally();
void noteUnansweredRequest();
void noteResentRequest();
