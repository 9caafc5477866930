#include "peers/RawCommands.h"

#include "peers/camera.h"
#include "peers/TcpSocket.h"

#include <algorithm>
#include <arpa/inet.h>
#include <ctime>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace {
constexpr std::uint8_t startMark = 0xAA;
constexpr std::uint8_t requestFlags = 0x12;
constexpr std::uint8_t pc = 6;
constexpr timeval answerLimit{2, 0};

/// CRC-16/USB, bit by bit: it is not part of what is measured.
std::uint16_t checksum(const std::vector<std::uint8_t> &bytes)
{
    unsigned crc = 0xFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xA001U : 0U);
        }
    }
    return static_cast<std::uint16_t>(~crc);
}

std::uint8_t byteOf(unsigned value)
{
    return static_cast<std::uint8_t>(value & 0xFF);
}
} // namespace

RawCommands::RawCommands() : m_socket(socket(AF_INET, SOCK_DGRAM, 0))
{
    sockaddr_in peer{};
    peer.sin_family = AF_INET;
    peer.sin_port = htons(camera::commandPort);
    if (m_socket < 0 || inet_pton(AF_INET, camera::address, &peer.sin_addr) != 1 ||
        connect(m_socket, reinterpret_cast<const sockaddr *>(&peer), sizeof peer) != 0 ||
        setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &answerLimit, sizeof answerLimit) != 0) {
        giveUp("UDP socket");
    }
}

RawCommands::~RawCommands()
{
    close(m_socket);
}

std::size_t RawCommands::exchange(const std::vector<std::uint8_t> &frame)
{
    if (send(m_socket, frame.data(), frame.size(), 0) != static_cast<ssize_t>(frame.size())) {
        giveUp("send");
    }
    const ssize_t size = recv(m_socket, m_answer.data(), m_answer.size(), 0);
    if (size < 0) {
        giveUp("no answer from the command service");
    }
    return static_cast<std::size_t>(size);
}

std::vector<std::uint8_t> requestFrame(std::uint8_t receiver, std::uint8_t commandSet, std::uint16_t commandId,
                                       const std::vector<std::uint8_t> &payload)
{
    const auto length = static_cast<unsigned>(12 + payload.size());
    const std::array<std::uint8_t, 12> header{startMark,
                                              byteOf(length >> 8),
                                              byteOf(length),
                                              requestFlags,
                                              0, // sequence number
                                              1,
                                              0, // checksum
                                              0,
                                              0,
                                              byteOf((pc << 4U) | receiver),
                                              byteOf((static_cast<unsigned>(commandSet) << 4) | (commandId >> 8U)),
                                              byteOf(commandId)};
    std::vector<std::uint8_t> frame(length);
    std::copy(payload.begin(), payload.end(), std::copy(header.begin(), header.end(), frame.begin()));
    const std::uint16_t crc = checksum(frame);
    frame[6] = byteOf(crc >> 8U);
    frame[7] = byteOf(crc);
    return frame;
}
