#include "platform/DatagramReader.h"

#include <array>
#include <netinet/in.h>
#include <poll.h>
#include <QUdpSocket>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
constexpr int pollLimitMs = 5;
} // namespace

/// The kernel lets the reading run beside a send: nobody has to wait for the other.
struct DatagramReader::System
{
    const int descriptor;                                           ///< of the socket; -1 when it has no port at all
    const int stopEvent = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK); ///< written to end the wait

    void wait() const
    {
        // poll(2) leaves out a negative descriptor.
        std::array<pollfd, 2> entries{pollfd{descriptor, POLLIN, 0}, pollfd{stopEvent, POLLIN, 0}};
        const int limit = stopEvent < 0 ? pollLimitMs : -1;
        if (::poll(entries.data(), entries.size(), limit) > 0 && (entries[0].revents & ~POLLIN) != 0) {
            // A socket in error is always ready: it is left alone for as long as one without news.
            ::poll(nullptr, 0, pollLimitMs);
        }
    }
};

DatagramReader::DatagramReader(QUdpSocket *socket, std::mutex *)
    : m_system(new System{static_cast<int>(socket->socketDescriptor())})
{
}

DatagramReader::~DatagramReader()
{
    if (m_system->stopEvent >= 0) {
        ::close(m_system->stopEvent);
    }
}

int DatagramReader::read(std::vector<std::uint8_t> *buffer, Sender *sender)
{
    m_system->wait();
    sockaddr_storage from{};
    socklen_t fromSize = sizeof from;
    auto *const fromAddress = reinterpret_cast<sockaddr *>(&from);
    const ssize_t size =
        ::recvfrom(m_system->descriptor, buffer->data(), buffer->size(), MSG_DONTWAIT, fromAddress, &fromSize);
    if (size <= 0) {
        return 0;
    }
    const in_port_t port = from.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6 *>(&from)->sin6_port
                                                      : reinterpret_cast<const sockaddr_in *>(&from)->sin_port;
    sender->address.setAddress(fromAddress);
    sender->port = ntohs(port);
    return static_cast<int>(size);
}

void DatagramReader::stop()
{
    if (m_system->stopEvent >= 0) {
        ::eventfd_write(m_system->stopEvent, 1);
    }
}
