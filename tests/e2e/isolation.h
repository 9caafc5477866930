#pragma once

/// Namespaces (Linux) for the calling thread and for the processes that it starts. They need root, or a user namespace
/// of the whole test as the test command makes it; where they are forbidden the functions return false and change
/// nothing. They end with the thread and its processes.

/// A network with a loopback interface and nothing else: the fixed ports of the station and of the camera are free.
bool enterPrivateNetwork();

/// Mounts that nobody else sees.
bool enterPrivateMounts();
/// Inside private mounts: an empty file system of `kibibytes` over an existing folder.
bool mountSmallDisk(const char *folder, int kibibytes);
/// Inside private mounts: an existing folder that nobody, not even root, can write to.
bool mountReadOnly(const char *folder);
/// Inside private mounts: undoes one of the above.
bool unmount(const char *folder);

/// Whether the calling thread has entered a network of its own.
bool isInPrivateNetwork();
/// Inside a private network: replaces the loopback interface's address (of 127.0.0.0/8).
bool setLoopbackAddress(const char *address);
/// Inside a private network: takes the loopback interface down or up.
bool setLoopbackUp(bool up);
