#pragma once

/// Turns Ctrl+C and the wish of others that the program ends (SIGINT, SIGTERM) into a question that long work asks
/// between two steps. A second signal ends the program at once; what a transaction had begun is then not in the store.
namespace Interruption {
void watch();
bool isWanted();
} // namespace Interruption
