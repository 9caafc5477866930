#pragma once

#include <functional>

/// Runs the registered benchmarks on a thread of their own, as the station's blocking calls want it, while the main
/// thread serves the sessions. Sets the facade up for the emulated camera, makes the shell session and calls `prepare`,
/// which makes further services that live on the main thread. Returns the program's exit code.
int runBenchmarksBesideSession(int &argc, char **argv, const std::function<void()> &prepare = {});
