#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <QHostAddress>
#include <vector>

class QUdpSocket;

/// Reads a socket on a thread of its own, while other threads send by the same socket.
class DatagramReader
{
public:
    struct Sender
    {
        QHostAddress address;
        std::uint16_t port = 0;
    };

    /// Of a `socket` that is set up and does not go before the reader; one without a port has nothing to be read.
    /// `sending` is what everybody holds who sends by it; the reader takes it only where the system needs that.
    DatagramReader(QUdpSocket *socket, std::mutex *sending);
    DatagramReader(const DatagramReader &) = delete;
    DatagramReader &operator=(const DatagramReader &) = delete;
    ~DatagramReader();

    /// Waits until a datagram may be there, or the reader is stopped, and takes it into `buffer`: its size in bytes, of
    /// which those beyond the buffer's size are lost, and who has sent it; 0 when there was none. For one thread only.
    int read(std::vector<std::uint8_t> *buffer, Sender *sender);
    /// Ends the present and every later wait. From any thread.
    void stop();

private:
    struct System;
    const std::unique_ptr<System> m_system;
};
