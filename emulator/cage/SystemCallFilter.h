#pragma once

namespace emulator {

/// Lets the calling process and all that it starts believe that they are root: asking for a user or group number
/// gives 0, and setting one succeeds without any effect. `login` insists on both, and the camera's prompt is root's.
/// Calls that make namespaces, mounts, sockets and the like, or that look into other processes, are forbidden.
///
/// Sets no_new_privs. False where the kernel has no system call filters.
bool installSystemCallFilter();

} // namespace emulator
