#include "DatagramSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
sockaddr_in endpoint(const char *address, quint16 port)
{
    sockaddr_in result{};
    result.sin_family = AF_INET;
    result.sin_port = htons(port);
    inet_pton(AF_INET, address, &result.sin_addr);
    return result;
}
} // namespace

DatagramSocket::DatagramSocket(const char *address, quint16 port, Sharing sharing)
    : m_descriptor(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    const int share = sharing == Sharing::shared ? 1 : 0;
    setsockopt(m_descriptor, SOL_SOCKET, SO_REUSEADDR, &share, sizeof share);
    const sockaddr_in own = endpoint(address, port);
    m_bound = bind(m_descriptor, reinterpret_cast<const sockaddr *>(&own), sizeof own) == 0;
}

DatagramSocket::~DatagramSocket()
{
    close(m_descriptor);
}

bool DatagramSocket::send(const QByteArray &datagram, const char *address, quint16 port) const
{
    const sockaddr_in target = endpoint(address, port);
    return sendto(m_descriptor, datagram.constData(), static_cast<std::size_t>(datagram.size()), 0,
                  reinterpret_cast<const sockaddr *>(&target), sizeof target) == datagram.size();
}
