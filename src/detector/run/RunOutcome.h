#pragma once

#include "detector/store/RunExchange.h"
#include "record/RunRecord.h"

/// How a run went, beyond what its components said.
struct RunOutcome
{
    bool passed = true;
    bool complete = true; ///< every task was begun, and none was cut short by a stop or the program's closing
    bool tested = false;  ///< a component was run behind which there is something
    int unanswered = 0;   ///< requests of the components with a verdict that got no usable answer
    int resent = 0;       ///< queries that had to be sent again
    RunEnd end;
};

/// The outcome that the run's record tells, and from which an unattended run's exit code is made. A run has passed only
/// when something was tested and every request was answered, safeguards or not.
Outcome outcomeOf(const RunOutcome &run);
