#include "detector/run/RunOutcome.h"

Outcome outcomeOf(const RunOutcome &run)
{
    if (!run.complete) {
        return Outcome::Stopped;
    }
    if (run.end.camera != RunEnd::Camera::Kept) {
        return Outcome::Error;
    }
    return run.passed && run.tested && run.unanswered == 0 ? Outcome::Passed : Outcome::Failed;
}
