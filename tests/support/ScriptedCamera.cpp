#include "support/ScriptedCamera.h"

#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "detector/store/KestDetectorFace.h"

#include <arpa/inet.h>
#include <array>
#include <boost/crc.hpp>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
constexpr auto cameraAddress = "127.0.0.10";
constexpr quint16 commandPort = 9999;
constexpr int pollMs = 20;
constexpr int headerSize = 12;
constexpr char refused = 77;
constexpr int factorySet = 6;
constexpr int readEepromId = 0x21;

/// The frame's checksum, which is computed over zeroes at its own place.
quint16 checksum(QByteArray frame)
{
    frame[6] = 0;
    frame[7] = 0;
    boost::crc_optimal<16, 0x8005, 0xFFFF, 0xFFFF, true, true> crc;
    crc.process_bytes(frame.constData(), static_cast<std::size_t>(frame.size()));
    return crc.checksum();
}

int byteAt(const QByteArray &bytes, int position)
{
    return static_cast<quint8>(bytes.at(position));
}

int wordAt(const QByteArray &bytes, int position)
{
    return byteAt(bytes, position) | byteAt(bytes, position + 1) << 8;
}

char low(int value)
{
    return static_cast<char>(value & 0xFF);
}

bool isIntact(const QByteArray &frame)
{
    return frame.size() >= headerSize && byteAt(frame, 0) == 0xAA &&
           ((byteAt(frame, 1) & 0x0F) << 8 | byteAt(frame, 2)) == frame.size() &&
           (byteAt(frame, 6) << 8 | byteAt(frame, 7)) == checksum(frame);
}

/// The frame that answers `request`: the same command and number, from its receiver to its sender.
QByteArray replyFrame(const QByteArray &request, const QByteArray &payload)
{
    const int length = headerSize + static_cast<int>(payload.size());
    const int ends = byteAt(request, 9);
    QByteArray frame = request.left(headerSize);
    frame[1] = low(length >> 8);
    frame[2] = low(length);
    frame[3] = 0x01;
    frame[9] = low(ends << 4 | ends >> 4);
    frame += payload;
    const quint16 crc = checksum(frame);
    frame[6] = low(crc >> 8);
    frame[7] = low(crc);
    return frame;
}

sockaddr_in endpoint()
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(commandPort);
    inet_pton(AF_INET, cameraAddress, &address.sin_addr);
    return address;
}
} // namespace

ScriptedCamera::ScriptedCamera()
{
    m_socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    const sockaddr_in address = endpoint();
    if (::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) {
        ::close(m_socket);
        m_socket = -1;
        return;
    }
    m_thread = std::thread(&ScriptedCamera::serve, this);
    // The transceiver keeps the address that it finds here; later on the camera client overwrites it with what its
    // settings say.
    KestDetectorFace::Get()->cameraAddress = QLatin1String(cameraAddress);
    UDPTransciever::Get();
}

ScriptedCamera::~ScriptedCamera()
{
    if (m_socket < 0) {
        return;
    }
    Camera::Get()->killThread();
    UDPTransciever::Get()->killThread();
    m_running = false;
    m_thread.join();
    ::close(m_socket);
}

void ScriptedCamera::answer(int commandSet, int commandId, const QByteArray &data)
{
    const QByteArray payload = QByteArray(1, 0) + data;
    reply(commandSet, commandId, [payload](const Payload &) { return Payload(payload); });
}

void ScriptedCamera::refuse(int commandSet, int commandId, quint8 code)
{
    reply(commandSet, commandId, [code](const Payload &) { return QByteArray(1, static_cast<char>(code)); });
}

void ScriptedCamera::reply(int commandSet, int commandId, Reply reply)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_replies[{commandSet, commandId}] = std::move(reply);
}

void ScriptedCamera::storeEeprom(quint16 address, const QByteArray &bytes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_eeprom[address] = bytes;
}

void ScriptedCamera::fallSilent()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_silent = true;
}

void ScriptedCamera::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_silent = false;
    m_replies.clear();
    m_eeprom.clear();
    m_requests.clear();
}

QList<QByteArray> ScriptedCamera::requests(int commandSet, int commandId) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_requests.find({commandSet, commandId});
    return found == m_requests.end() ? QList<QByteArray>() : found->second;
}

void ScriptedCamera::serve()
{
    std::array<char, 2048> buffer{};
    while (m_running) {
        pollfd readable{m_socket, POLLIN, 0};
        if (::poll(&readable, 1, pollMs) <= 0) {
            continue;
        }
        sockaddr_in peer{};
        socklen_t peerSize = sizeof peer;
        auto *peerAddress = reinterpret_cast<sockaddr *>(&peer);
        const ssize_t size = ::recvfrom(m_socket, buffer.data(), buffer.size(), 0, peerAddress, &peerSize);
        const QByteArray answer = handle(QByteArray(buffer.data(), static_cast<int>(size)));
        if (!answer.isEmpty()) {
            ::sendto(m_socket, answer.constData(), static_cast<std::size_t>(answer.size()), 0, peerAddress, peerSize);
        }
    }
}

QByteArray ScriptedCamera::handle(const QByteArray &frame)
{
    if (!isIntact(frame)) {
        return {};
    }
    const int commandSet = byteAt(frame, 10) >> 4;
    const int commandId = (byteAt(frame, 10) & 0x0F) << 8 | byteAt(frame, 11);
    const Payload request = frame.mid(headerSize);

    const std::lock_guard<std::mutex> lock(m_mutex);
    m_requests[{commandSet, commandId}].append(request);
    if (m_silent) {
        return {};
    }
    const auto scripted = m_replies.find({commandSet, commandId});
    if (scripted != m_replies.end()) {
        return replyFrame(frame, scripted->second(request));
    }
    const bool reads = commandSet == factorySet && commandId == readEepromId;
    return replyFrame(frame, reads ? readEeprom(request) : Payload(1, refused));
}

ScriptedCamera::Payload ScriptedCamera::readEeprom(const Payload &request) const
{
    const auto block = m_eeprom.find(static_cast<quint16>(wordAt(request, 0)));
    if (block == m_eeprom.end()) {
        return Payload(1, refused);
    }
    const QByteArray bytes = block->second.left(wordAt(request, 2));
    const int size = static_cast<int>(bytes.size());
    return Payload(1, 0) + low(size) + low(size >> 8) + bytes;
}
