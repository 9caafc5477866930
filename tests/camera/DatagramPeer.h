#pragma once

#include "emulator/command/Frame.h"

#include <functional>
#include <QByteArray>
#include <QList>
#include <QObject>
#include <QUdpSocket>

/// The camera's end of the command protocol, in the hands of a test: listens on 127.0.0.10 in this thread's event loop,
/// keeps the requests and lets the test answer them, or not.
class DatagramPeer : public QObject
{
    Q_OBJECT

public:
    explicit DatagramPeer(quint16 port = 9999);

    bool isListening() const { return m_socket.state() == QAbstractSocket::BoundState; }
    /// Datagrams received so far, as they came.
    QList<QByteArray> datagrams() const { return m_datagrams; }
    QList<emulator::Frame> requests() const;
    void clear() { m_datagrams.clear(); }

    /// Sends raw bytes to the station, by default to its own port.
    void send(const QByteArray &datagram, quint16 port = 7777);
    /// A well-formed reply to `request`: result code and data.
    static emulator::Frame replyTo(const emulator::Frame &request, const QByteArray &payload);

    /// Called with each well-formed request.
    std::function<void(const emulator::Frame &request)> onRequest;

private:
    void read();

    QUdpSocket m_socket;
    QList<QByteArray> m_datagrams;
};
