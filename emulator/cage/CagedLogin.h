#pragma once

namespace emulator {

/// What telnetd starts for each connection: `login` in a cage, on the terminal that is the standard input.
///
/// The cage is the root file system in $CAMERA_CAGE_ROOT, and as many namespaces of its own (mounts, host name, IPC,
/// network, processes) as the system grants. Its processes run as an otherwise unused user where the caller is root,
/// without capabilities, and cannot get any back. When the connection ends, they all die.
///
/// With $CAMERA_CAGE_PROBE set, builds the cage, starts nothing in it and says on the standard error what is missing.
///
/// The result is the process's exit code. Expects a process with one thread.
class CagedLogin
{
public:
    static constexpr const char *programName = "caged-login"; ///< the last part of argv[0]
    static constexpr const char *rootVariable = "CAMERA_CAGE_ROOT";
    static constexpr const char *probeVariable = "CAMERA_CAGE_PROBE";
    static constexpr unsigned userId = 21023; ///< owner of what the shell may write to

    static int run();
};

} // namespace emulator
