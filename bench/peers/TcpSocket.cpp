#include "peers/TcpSocket.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace {
constexpr timeval answerLimit{20, 0};
} // namespace

void giveUp(const char *what)
{
    std::perror(what);
    std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe): there is one thread
}

TcpSocket::TcpSocket(const std::string &address, std::uint16_t port) : m_socket(socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in peer{};
    peer.sin_family = AF_INET;
    peer.sin_port = htons(port);
    const int on = 1;
    if (m_socket < 0 || inet_pton(AF_INET, address.c_str(), &peer.sin_addr) != 1 ||
        connect(m_socket, reinterpret_cast<const sockaddr *>(&peer), sizeof peer) != 0 ||
        setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on) != 0 ||
        setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &answerLimit, sizeof answerLimit) != 0) {
        giveUp("connect");
    }
}

TcpSocket::~TcpSocket()
{
    close(m_socket);
}

void TcpSocket::write(std::string_view bytes) const
{
    if (send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(bytes.size())) {
        giveUp("send");
    }
}

std::size_t TcpSocket::read(char *buffer, std::size_t size) const
{
    const ssize_t count = recv(m_socket, buffer, size, 0);
    if (count < 0) {
        giveUp("recv");
    }
    return static_cast<std::size_t>(count);
}

void TcpSocket::readUntil(std::string_view end, std::string *text) const
{
    static std::array<char, 65536> buffer;
    std::size_t from = text->size();
    while (text->find(end, from) == std::string::npos) {
        from = std::max(from, text->size() - std::min(text->size(), end.size()));
        const std::size_t count = read(buffer.data(), buffer.size());
        if (count == 0) {
            std::fputs("the peer closed the connection\n", stderr);
            std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe): there is one thread
        }
        text->append(buffer.data(), count);
    }
}
