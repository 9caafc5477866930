#pragma once

#include "camera/client/Reply.h"
#include "camera/client/UDPortArgs.h"
#include "platform/DatagramReader.h"
#include "threads/WorkerThread.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <QHostAddress>
#include <QObject>
#include <QString>
#include <vector>

class QUdpSocket;
struct KestDataPacket;

/// The UDP socket between the PC and the camera's command service: sends request frames and runs the receive thread,
/// which hands on each well-formed reply from the camera.
///
/// Any thread may send. One mutex guards the sending side: the socket object and the send buffer. All transceivers of a
/// process number their frames together.
class UDPTransciever : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(UDPTransciever)

public:
    /// Takes a reply. Called on the receive thread.
    using DeliverReply = std::function<void(const Reply &reply)>;

    /// The process-wide instance, set up with the system's ports on first use.
    static std::shared_ptr<UDPTransciever> Get();
    /// The same instance; `args` count only in the call that creates it.
    static std::shared_ptr<UDPTransciever> Create(const UDPortArgs &args);

    /// Binds the local port and starts the receive thread. The peer is the camera address that the facade holds now;
    /// it is kept as long as the transceiver lives. A port that cannot be bound is logged, nothing more.
    UDPTransciever(QObject *parent, const UDPortArgs &args, DeliverReply deliver);
    /// Likewise, with `Camera::Get()` for the replies.
    UDPTransciever(QObject *parent, const UDPortArgs &args);
    ~UDPTransciever() override;

    /// Sends raw bytes as one datagram; the bytes written, or -1.
    int send(const char *bytes, int length);
    /// Gives `packet` the next sequence number (the first is 1) and sends it as one frame; the bytes written, or -1.
    /// Aborts the process, in every build, when `packet.len` is 1024 or more.
    int sendPacket(KestDataPacket &packet);

    /// Judges one datagram from the camera and hands on a good reply; drops anything else. Zeroes the checksum in
    /// `datagram`. Called on the receive thread.
    void handleDatagram(std::uint8_t *datagram, int length) const;

    /// Stops and joins the receive thread. Further calls do nothing.
    void killThread();

public slots:
    /// Does nothing: only the receive thread reads.
    void slot_udpReadyRead();

private:
    /// Makes `m_socket` ready to send and to be read, and returns it.
    QUdpSocket *openSocket();
    void rx_func();
    int write(const char *bytes, int length);
    /// Waits for the next datagram, takes it into `buffer` and returns its size; 0 when there is none, or none of the
    /// camera's command port.
    int receive(std::vector<std::uint8_t> *buffer);

    const DeliverReply m_deliver;
    std::uint16_t localPort;
    std::int16_t peerPort;
    QString peerIp;
    QHostAddress m_peerAddress; ///< `peerIp`, read once
    QUdpSocket *m_socket = nullptr;
    std::mutex m_socketMutex;
    std::array<std::uint8_t, 1024> m_sendBuffer{};
    int m_sendLength = 0;
    DatagramReader m_reader;

    WorkerThread m_receiver; ///< last: it starts when everything else is in place
};
