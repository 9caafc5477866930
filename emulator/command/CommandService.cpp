#include "emulator/command/CommandService.h"

#include "emulator/command/CameraDevice.h"
#include "emulator/command/FaultPlan.h"
#include "emulator/command/Frame.h"
#include "emulator/later.h"

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <mutex>
#include <QEventLoop>
#include <QNetworkDatagram>
#include <QtEndian>
#include <QUdpSocket>

namespace emulator {

namespace {
std::optional<Command> commandOf(const Frame &frame)
{
    for (const CommandRow &row : commandTable) {
        if (row.set == frame.commandSet && row.id == frame.commandId) {
            return row.command;
        }
    }
    return std::nullopt;
}

Frame replyTo(const Frame &request, const QByteArray &payload)
{
    Frame reply;
    reply.version = request.version;
    reply.flags = Frame::replyFlag;
    reply.sequence = request.sequence;
    reply.sender = request.receiver;
    reply.receiver = request.sender;
    reply.commandSet = request.commandSet;
    reply.commandId = request.commandId;
    reply.payload = payload;
    return reply;
}

std::optional<int> eepromAddress(Command command, const Frame &request)
{
    if (command != Command::ReadEEPROM || request.payload.size() != rowOf(command).requestSize) {
        return std::nullopt;
    }
    return qFromLittleEndian<std::uint16_t>(request.payload.constData());
}

/// The result byte stays; the data behind it grow or shrink.
QByteArray withWrongLength(QByteArray payload, int change)
{
    const auto size = static_cast<int>(qBound(1, payload.size() + change, Frame::maxPayload));
    const auto grown = static_cast<int>(size - payload.size());
    payload.resize(size);
    if (grown > 0) {
        payload.replace(size - grown, grown, QByteArray(grown, '\0'));
    }
    return payload;
}

QString describe(const Fault &fault)
{
    return QStringLiteral(", reply %1 (%2)").arg(QLatin1String(rowOf(fault.kind).logText)).arg(fault.value);
}
} // namespace

/// Serves in one thread at a time; between two of them the devices and the fault lists keep their state.
class CommandService::Worker
{
    Q_DISABLE_COPY(Worker)

public:
    Worker(const Scenario &scenario, Log log) : m_camera(scenario), m_faults(scenario), m_log(std::move(log)) {}

    /// Serves until `stop`. Gives an empty text to `started` once it listens, or why it cannot, and then returns.
    void serve(const QHostAddress &address, quint16 wantedPort, std::promise<QString> &started);
    /// From any thread; does nothing when nobody serves.
    void stop();

    std::atomic<bool> answering{true};
    std::atomic<quint16> port{0};
    std::array<std::atomic<int>, commandTable.size()> requestCounts{};

private:
    void readRequests();
    void handle(const QNetworkDatagram &datagram);
    void reply(const Frame &frame, const std::optional<Fault> &fault, const QHostAddress &address, quint16 toPort);

    CameraDevice m_camera;
    FaultPlan m_faults;
    Log m_log;
    std::unique_ptr<QUdpSocket> m_socket;
    std::unique_ptr<QUdpSocket> m_otherSocket; ///< for replies from another port

    std::mutex m_loopMutex;
    QEventLoop *m_loop = nullptr; ///< of `serve`; guarded by m_loopMutex
    bool m_stopRequested = false; ///< guarded by m_loopMutex
};

void CommandService::Worker::serve(const QHostAddress &address, quint16 wantedPort, std::promise<QString> &started)
{
    QEventLoop loop;
    m_socket = std::make_unique<QUdpSocket>();
    m_otherSocket = std::make_unique<QUdpSocket>();
    QString error;
    if (!m_socket->bind(address, wantedPort, QAbstractSocket::DontShareAddress)) {
        error = m_socket->errorString();
    } else if (!m_otherSocket->bind(address, 0, QAbstractSocket::DontShareAddress)) {
        error = m_otherSocket->errorString();
    }
    if (error.isEmpty()) {
        QObject::connect(m_socket.get(), &QUdpSocket::readyRead, m_socket.get(), [this] { readRequests(); });
        m_camera.reset();
        port = m_socket->localPort();
        std::unique_lock<std::mutex> lock(m_loopMutex);
        m_loop = &loop;
        m_stopRequested = false;
        started.set_value({});
        while (!m_stopRequested) {
            lock.unlock();
            loop.processEvents(QEventLoop::WaitForMoreEvents);
            lock.lock();
        }
        m_loop = nullptr;
        port = 0;
    }
    m_socket.reset();
    m_otherSocket.reset();
    if (!error.isEmpty()) {
        started.set_value(error);
    }
}

void CommandService::Worker::stop()
{
    const std::lock_guard<std::mutex> lock(m_loopMutex);
    m_stopRequested = true;
    if (m_loop != nullptr) {
        m_loop->wakeUp();
    }
}

void CommandService::Worker::readRequests()
{
    while (m_socket && m_socket->hasPendingDatagrams()) {
        handle(m_socket->receiveDatagram());
    }
}

void CommandService::Worker::handle(const QNetworkDatagram &datagram)
{
    if (!answering) {
        return;
    }
    const std::optional<Frame> request = decodeFrame(datagram.data());
    const std::optional<Command> command = request && !request->isReply() ? commandOf(*request) : std::nullopt;
    if (!command) {
        if (m_log) {
            m_log(QStringLiteral("not a known request: %1").arg(QLatin1String(datagram.data().toHex(' '))));
        }
        return;
    }
    ++requestCounts[commandIndex(*command)];
    const QByteArray payload = m_camera.answer(*command, request->payload);
    const std::optional<Fault> fault = m_faults.next(*command, eepromAddress(*command, *request));
    if (m_log) {
        m_log(QStringLiteral("%1 #%2 %3 -> result %4, %5 data bytes%6")
                  .arg(QLatin1String(rowOf(*command).name))
                  .arg(request->sequence)
                  .arg(QLatin1String(request->payload.toHex(' ')))
                  .arg(static_cast<std::uint8_t>(payload.at(0)))
                  .arg(payload.size() - 1)
                  .arg(fault ? describe(*fault) : QString()));
    }
    reply(replyTo(*request, payload), fault, datagram.senderAddress(), static_cast<quint16>(datagram.senderPort()));
}

void CommandService::Worker::reply(const Frame &frame, const std::optional<Fault> &fault, const QHostAddress &address,
                                   quint16 toPort)
{
    const auto sendFrom = [&address, toPort](QUdpSocket &socket, const QByteArray &bytes) {
        socket.writeDatagram(bytes, address, toPort);
    };
    if (!fault) {
        sendFrom(*m_socket, encodeFrame(frame));
        return;
    }
    Frame spoilt = frame;
    switch (fault->kind) {
    case FaultKind::drop:
        return;
    case FaultKind::delay:
        // Owned by the socket, so that a reply that waits when the service stops is never sent.
        later(m_socket.get(), std::chrono::milliseconds(fault->value),
              [socket = m_socket.get(), bytes = encodeFrame(frame), address, toPort] {
                  socket->writeDatagram(bytes, address, toPort);
              });
        return;
    case FaultKind::duplicate:
        sendFrom(*m_socket, encodeFrame(frame));
        sendFrom(*m_socket, encodeFrame(frame));
        return;
    case FaultKind::corruptChecksum: {
        QByteArray bytes = encodeFrame(frame);
        constexpr int checksumLowByte = 7;
        bytes[checksumLowByte] = static_cast<char>(bytes.at(checksumLowByte) ^ 0x01);
        sendFrom(*m_socket, bytes);
        return;
    }
    case FaultKind::wrongLength:
        spoilt.payload = withWrongLength(frame.payload, fault->value);
        sendFrom(*m_socket, encodeFrame(spoilt));
        return;
    case FaultKind::resultCode:
        spoilt.payload = QByteArray(1, static_cast<char>(fault->value));
        sendFrom(*m_socket, encodeFrame(spoilt));
        return;
    case FaultKind::otherPort:
        sendFrom(*m_otherSocket, encodeFrame(frame));
        return;
    case FaultKind::asRequest:
        spoilt.flags = static_cast<std::uint8_t>(frame.flags & ~Frame::replyFlag);
        sendFrom(*m_socket, encodeFrame(spoilt));
        return;
    }
}

CommandService::CommandService(const Scenario &scenario, Log log)
    : m_worker(std::make_unique<Worker>(scenario, std::move(log)))
{
}

CommandService::~CommandService()
{
    stop();
}

QString CommandService::start(const QHostAddress &address, quint16 port)
{
    stop();
    std::promise<QString> started;
    std::future<QString> outcome = started.get_future();
    m_thread = std::thread(
        [this, address, port, promise = std::move(started)]() mutable { m_worker->serve(address, port, promise); });
    return outcome.get();
}

void CommandService::stop()
{
    m_worker->stop();
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

quint16 CommandService::port() const
{
    return m_worker->port;
}

void CommandService::setAnswering(bool answering)
{
    m_worker->answering = answering;
}

int CommandService::requestCount(Command command) const
{
    return m_worker->requestCounts[commandIndex(command)];
}

} // namespace emulator
