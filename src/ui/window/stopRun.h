#pragma once

/// Stops the run that is posted or under way, for the operator: whatever its thread waits for gives up, and the run
/// ends soon. What it needs stays ready for the next one. False: there is none. GUI thread.
bool stopRun();
