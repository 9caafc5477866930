#include "DatagramPeer.h"

#include <QHostAddress>
#include <QNetworkDatagram>

DatagramPeer::DatagramPeer(quint16 port)
{
    connect(&m_socket, &QUdpSocket::readyRead, this, &DatagramPeer::read);
    m_socket.bind(QHostAddress(QStringLiteral("127.0.0.10")), port);
}

void DatagramPeer::read()
{
    while (m_socket.hasPendingDatagrams()) {
        m_datagrams.append(m_socket.receiveDatagram().data());
        const auto request = emulator::decodeFrame(m_datagrams.constLast());
        if (request && onRequest) {
            onRequest(*request);
        }
    }
}

QList<emulator::Frame> DatagramPeer::requests() const
{
    QList<emulator::Frame> frames;
    for (const QByteArray &datagram : m_datagrams) {
        if (const auto frame = emulator::decodeFrame(datagram)) {
            frames.append(*frame);
        }
    }
    return frames;
}

void DatagramPeer::send(const QByteArray &datagram, quint16 port)
{
    m_socket.writeDatagram(datagram, QHostAddress(QStringLiteral("127.0.0.1")), port);
}

emulator::Frame DatagramPeer::replyTo(const emulator::Frame &request, const QByteArray &payload)
{
    emulator::Frame reply = request;
    reply.flags = emulator::Frame::replyFlag;
    reply.sender = request.receiver;
    reply.receiver = request.sender;
    reply.payload = payload;
    return reply;
}
