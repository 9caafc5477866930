#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// A blocking TCP connection with nothing around it. Every failure ends the program: a peer that does not work has no
/// time worth reporting.
class TcpSocket
{
public:
    /// `address` is an IPv4 address in dotted form.
    TcpSocket(const std::string &address, std::uint16_t port);
    ~TcpSocket();
    TcpSocket(const TcpSocket &) = delete;
    TcpSocket &operator=(const TcpSocket &) = delete;

    void write(std::string_view bytes) const;
    /// At least one byte, or 0 when the peer has closed.
    std::size_t read(char *buffer, std::size_t size) const;
    /// Appends what arrives to `text` until `end` is in it, not counting what `text` held before.
    void readUntil(std::string_view end, std::string *text) const;

private:
    int m_socket;
};

/// Ends the program with the reason that the system gives for the last failure.
[[noreturn]] void giveUp(const char *what);
