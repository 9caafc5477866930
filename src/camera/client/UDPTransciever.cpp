#include "camera/client/UDPTransciever.h"

#include "camera/client/Camera.h"
#include "camera/codec/PacketCodec.h"
#include "detector/store/KestDetectorFace.h"
#include "platform/datagramFilter.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <QUdpSocket>
#include <utility>
#include <vector>

namespace {
constexpr std::size_t largestDatagram = 65536;
constexpr std::chrono::milliseconds exitLimit(2000);

std::uint16_t nextSequenceNumber()
{
    static std::atomic<std::uint16_t> counter{0};
    return static_cast<std::uint16_t>(++counter); // the number after 65535 is 0
}

void deliverToTheClient(const Reply &reply)
{
    Camera::Get()->handleReply(reply);
}
} // namespace

std::shared_ptr<UDPTransciever> UDPTransciever::Get()
{
    return Create({protocol::pcPort, static_cast<std::int16_t>(protocol::cameraPort), "192.168.88.10"});
}

std::shared_ptr<UDPTransciever> UDPTransciever::Create(const UDPortArgs &args)
{
    static const auto ptr = std::make_shared<UDPTransciever>(nullptr, args);
    return ptr;
}

UDPTransciever::UDPTransciever(QObject *parent, const UDPortArgs &args)
    : UDPTransciever(parent, args, deliverToTheClient)
{
}

UDPTransciever::UDPTransciever(QObject *parent, const UDPortArgs &args, DeliverReply deliver)
    : QObject(parent), m_deliver(std::move(deliver)), localPort(args.localPort), peerPort(args.peerPort),
      peerIp(KestDetectorFace::Get()->cameraAddress), m_peerAddress(peerIp), m_socket(new QUdpSocket(this)),
      m_reader(openSocket(), &m_socketMutex), m_receiver("receive", exitLimit, [this] { rx_func(); })
{
}

QUdpSocket *UDPTransciever::openSocket()
{
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, true);
    m_socket->setSocketOption(QAbstractSocket::KeepAliveOption, true);
    if (m_socket->bind(localPort, QAbstractSocket::ShareAddress | QAbstractSocket::ReuseAddressHint)) {
        connect(m_socket, &QUdpSocket::readyRead, this, &UDPTransciever::slot_udpReadyRead);
    } else {
        qWarning("UDP port %d: %s", localPort, qPrintable(m_socket->errorString()));
        // A camera that answers to where a request came from is reached from any port.
        m_socket->bind();
    }
    if (m_socket->socketDescriptor() >= 0 &&
        !dropForeignDatagrams(m_socket, static_cast<std::uint16_t>(peerPort), protocol::maxFrameSize)) {
        qWarning("UDP port %d: no filter against floods", localPort);
    }
    // The receive thread reads; no event loop may: without a thread of its own the socket gets no notifiers.
    if (parent() == nullptr) {
        moveToThread(nullptr);
    }
    return m_socket;
}

UDPTransciever::~UDPTransciever()
{
    killThread();
}

void UDPTransciever::killThread()
{
    m_receiver.stop([this] { m_reader.stop(); });
}

int UDPTransciever::write(const char *bytes, int length)
{
    return static_cast<int>(
        m_socket->writeDatagram(bytes, length, m_peerAddress, static_cast<std::uint16_t>(peerPort)));
}

int UDPTransciever::send(const char *bytes, int length)
{
    const std::lock_guard<std::mutex> lock(m_socketMutex);
    return write(bytes, length);
}

int UDPTransciever::sendPacket(KestDataPacket &packet)
{
    if (packet.len > protocol::maxFrameSize) {
        std::fputs("camera/UDPTransciever.cpp: sendPacket: Assertion `packet.len < 1024' failed.\n", stderr);
        std::abort();
    }
    const std::lock_guard<std::mutex> lock(m_socketMutex);
    packet.seq = nextSequenceNumber();
    dataPacket2CharArray(packet, m_sendBuffer.data(), &m_sendLength);
    return write(reinterpret_cast<const char *>(m_sendBuffer.data()), m_sendLength);
}

void UDPTransciever::slot_udpReadyRead() {}

void UDPTransciever::rx_func()
{
    std::vector<std::uint8_t> datagram(largestDatagram);
    while (m_receiver.running()) {
        const int size = receive(&datagram);
        if (size > 0) {
            handleDatagram(datagram.data(), size);
        }
    }
}

int UDPTransciever::receive(std::vector<std::uint8_t> *buffer)
{
    DatagramReader::Sender sender;
    const int size = m_reader.read(buffer, &sender);
    const bool fromCamera =
        sender.port == static_cast<std::uint16_t>(peerPort) && sender.address.toString().contains(peerIp);
    return fromCamera ? size : 0;
}

void UDPTransciever::handleDatagram(std::uint8_t *datagram, int length) const
{
    // The header's length field could say 4095, but no frame is that long, and no record holds it.
    if (length > protocol::maxFrameSize || !packetCheck(datagram, length)) {
        return;
    }
    KestDataPacket packet;
    packet.sender = static_cast<std::uint8_t>(protocol::Device::Pc);
    packet.receiver = static_cast<std::uint8_t>(protocol::Device::Camera);
    packet.cmdSet = static_cast<std::uint8_t>(protocol::CommandSet::Factory);
    parsePacket(datagram, length, &packet);
    if (isRequest(packet) || packet.len < protocol::minReplySize) {
        return;
    }
    m_deliver({{static_cast<protocol::CommandSet>(packet.cmdSet), packet.cmdId},
               packet.seq,
               packet.data[0],
               packet.data.data() + protocol::replyDataOffset,
               packet.len - protocol::minReplySize});
}
