#pragma once

#include "detector/store/CheckItemLog.h"

// Every request of an item goes through one of these, so that its record tells whether the camera answered; of a poll
// that is repeated only the last one does. They hand the request's result on.

/// `result`: a `requestResult`, or the camera's own code, with which it has refused. `Camera` has counted the request
/// in the thread's tally, each poll of it.
int noteRequest(CheckItemLog &item, int result);
/// `result`: 0, or -1 for a shell that did not come back with its prompt, which this counts in the thread's tally.
int noteShellCall(CheckItemLog &item, int result);
