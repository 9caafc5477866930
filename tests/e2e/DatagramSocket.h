#pragma once

#include <QByteArray>
#include <QtGlobal>

/// A UDP socket of the loopback, as any program of the PC or of its network could have one. It belongs to the network
/// of the thread that makes it.
class DatagramSocket
{
    Q_DISABLE_COPY(DatagramSocket)

public:
    enum class Sharing { exclusive, shared };

    DatagramSocket(const char *address, quint16 port, Sharing sharing = Sharing::exclusive);
    ~DatagramSocket();

    /// Whether the socket could be bound.
    bool isValid() const { return m_bound; }
    bool send(const QByteArray &datagram, const char *address, quint16 port) const;

private:
    int m_descriptor;
    bool m_bound = false;
};
