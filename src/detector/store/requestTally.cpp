#include "detector/store/requestTally.h"

namespace {
thread_local RequestTally tally;
}

RequestTally requestTally()
{
    return tally;
}

void noteUnansweredRequest()
{
    ++tally.unanswered;
}

void noteResentRequest()
{
    ++tally.resent;
}
