#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QNetworkDatagram>
#include <QUdpSocket>

/// A PC that sends datagrams to the emulated camera and sees what comes back.
class CommandPeer
{
public:
    CommandPeer(const QHostAddress &camera, quint16 port) : m_camera(camera), m_port(port)
    {
        m_socket.bind(QHostAddress(QHostAddress::LocalHost), 0);
    }

    void send(const QByteArray &bytes) { m_socket.writeDatagram(bytes, m_camera, m_port); }

    /// The next datagram; invalid when none comes within the time (ms).
    QNetworkDatagram receive(int limit = 5000)
    {
        if (!m_socket.hasPendingDatagrams()) {
            m_socket.waitForReadyRead(limit);
        }
        return m_socket.hasPendingDatagrams() ? m_socket.receiveDatagram() : QNetworkDatagram();
    }

    QByteArray ask(const QByteArray &bytes)
    {
        send(bytes);
        return receive().data();
    }

private:
    QHostAddress m_camera;
    quint16 m_port;
    QUdpSocket m_socket;
};
