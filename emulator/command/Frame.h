#pragma once

#include <cstdint>
#include <optional>
#include <QByteArray>

namespace emulator {

/// One frame of the command protocol, which travels as one UDP datagram of 12 to 1023 bytes. `version`, `sender`,
/// `receiver` and `commandSet` have 4 bits on the wire, `commandId` has 12.
struct Frame
{
    static constexpr int headerSize = 12;
    static constexpr int maxSize = 1023;
    static constexpr int maxPayload = maxSize - headerSize;
    static constexpr std::uint8_t replyFlag = 0x01;

    std::uint8_t version = 0;
    std::uint8_t flags = 0;
    std::uint16_t sequence = 0;
    std::uint8_t reserved = 0;
    std::uint8_t sender = 0; ///< 1 camera, 2 gimbal, 4 battery, 6 PC
    std::uint8_t receiver = 0;
    std::uint8_t commandSet = 0;
    std::uint16_t commandId = 0;
    QByteArray payload;

    bool isReply() const { return (flags & replyFlag) != 0; }
};

/// CRC-16/USB (check value 0xB4C8 for "123456789"): over a whole frame with its checksum bytes 6 and 7 zero.
std::uint16_t frameChecksum(const QByteArray &bytes);

/// The frame as a datagram. The payload must not be longer than `Frame::maxPayload`.
QByteArray encodeFrame(const Frame &frame);

/// Empty when the datagram is not exactly one frame, of at most `Frame::maxSize` bytes, with a matching length and
/// checksum.
std::optional<Frame> decodeFrame(const QByteArray &datagram);

} // namespace emulator
