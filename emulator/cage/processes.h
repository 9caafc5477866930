#pragma once

namespace emulator {

/// Kills (SIGKILL) and reaps every descendant of the calling process, those included that orphans have become through
/// PR_SET_CHILD_SUBREAPER. Returns false when some are still there after five seconds.
bool killDescendants();

} // namespace emulator
