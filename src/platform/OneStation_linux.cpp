#include "platform/OneStation.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// A name in the abstract namespace for sockets: each network namespace has one, no file is left behind, and the kernel
/// gives the name back when the process ends, however it ends.
struct OneStation::Hold
{
    int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ~Hold()
    {
        if (descriptor >= 0) {
            ::close(descriptor);
        }
    }
};

OneStation::OneStation() : m_hold(std::make_unique<Hold>())
{
    constexpr char name[] = "\0KestDetector station"; // the leading zero makes it abstract
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name, sizeof name - 1);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + sizeof name - 1);
    m_alone =
        ::bind(m_hold->descriptor, reinterpret_cast<const sockaddr *>(&address), size) == 0 || errno != EADDRINUSE;
}

OneStation::~OneStation() = default;
