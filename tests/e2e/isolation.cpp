#include "isolation.h"

#include <arpa/inet.h>
#include <cstring>
#include <net/if.h>
#include <netinet/in.h>
#include <sched.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
thread_local bool inPrivateNetwork = false;

/// Applies one request of netdevice(7) to the loopback interface.
bool changeLoopback(unsigned long request, ifreq *change)
{
    std::strcpy(change->ifr_name, "lo");
    const int any = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const bool done = ioctl(any, request, change) == 0;
    close(any);
    return done;
}
} // namespace

bool enterPrivateNetwork()
{
    inPrivateNetwork = unshare(CLONE_NEWNET) == 0 && setLoopbackUp(true);
    return inPrivateNetwork;
}

bool isInPrivateNetwork()
{
    return inPrivateNetwork;
}

bool setLoopbackUp(bool up)
{
    ifreq change{};
    change.ifr_flags = static_cast<short>(up ? IFF_UP | IFF_RUNNING : 0);
    return changeLoopback(SIOCSIFFLAGS, &change);
}

bool enterPrivateMounts()
{
    return unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool mountSmallDisk(const char *folder, int kibibytes)
{
    return mount("none", folder, "tmpfs", 0, ("size=" + std::to_string(kibibytes) + 'k').c_str()) == 0;
}

bool mountReadOnly(const char *folder)
{
    return mount(folder, folder, nullptr, MS_BIND, nullptr) == 0 &&
           mount(nullptr, folder, nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

bool unmount(const char *folder)
{
    return umount2(folder, MNT_DETACH) == 0;
}

bool setLoopbackAddress(const char *address)
{
    sockaddr_in value{};
    value.sin_family = AF_INET;
    if (inet_pton(AF_INET, address, &value.sin_addr) != 1) {
        return false;
    }
    ifreq change{};
    std::memcpy(&change.ifr_addr, &value, sizeof value);
    return changeLoopback(SIOCSIFADDR, &change);
}
