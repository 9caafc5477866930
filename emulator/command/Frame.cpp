#include "emulator/command/Frame.h"

#include <boost/crc.hpp>
#include <QtEndian>

namespace emulator {

namespace {
constexpr char startMark = '\xAA';
constexpr int checksumOffset = 6;

void putBigEndian(QByteArray &bytes, int offset, std::uint16_t value)
{
    qToBigEndian(value, bytes.data() + offset);
}

std::uint16_t bigEndianAt(const QByteArray &bytes, int offset)
{
    return qFromBigEndian<std::uint16_t>(bytes.constData() + offset);
}

std::uint8_t byteAt(const QByteArray &bytes, int offset)
{
    return static_cast<std::uint8_t>(bytes.at(offset));
}

/// Version and length, sender and receiver, command set and id each share their bytes: 4 high bits and the rest.
std::uint16_t nibbleAnd12Bits(std::uint8_t nibble, std::uint16_t rest)
{
    return static_cast<std::uint16_t>((nibble & 0x0F) << 12 | (rest & 0x0FFF));
}
} // namespace

std::uint16_t frameChecksum(const QByteArray &bytes)
{
    boost::crc_optimal<16, 0x8005, 0xFFFF, 0xFFFF, true, true> crc;
    crc.process_bytes(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return crc.checksum();
}

QByteArray encodeFrame(const Frame &frame)
{
    Q_ASSERT(frame.payload.size() <= Frame::maxPayload);
    const auto length = static_cast<std::uint16_t>(Frame::headerSize + frame.payload.size());
    QByteArray bytes(Frame::headerSize, '\0');
    bytes[0] = startMark;
    putBigEndian(bytes, 1, nibbleAnd12Bits(frame.version, length));
    bytes[3] = static_cast<char>(frame.flags);
    putBigEndian(bytes, 4, frame.sequence);
    bytes[8] = static_cast<char>(frame.reserved);
    bytes[9] = static_cast<char>((frame.sender & 0x0F) << 4 | (frame.receiver & 0x0F));
    putBigEndian(bytes, 10, nibbleAnd12Bits(frame.commandSet, frame.commandId));
    bytes.append(frame.payload);
    putBigEndian(bytes, checksumOffset, frameChecksum(bytes));
    return bytes;
}

std::optional<Frame> decodeFrame(const QByteArray &datagram)
{
    if (datagram.size() < Frame::headerSize || datagram.size() > Frame::maxSize || datagram.at(0) != startMark) {
        return std::nullopt;
    }
    const std::uint16_t versionAndLength = bigEndianAt(datagram, 1);
    if ((versionAndLength & 0x0FFF) != datagram.size()) {
        return std::nullopt;
    }
    QByteArray covered = datagram;
    putBigEndian(covered, checksumOffset, 0);
    if (frameChecksum(covered) != bigEndianAt(datagram, checksumOffset)) {
        return std::nullopt;
    }

    const std::uint16_t command = bigEndianAt(datagram, 10);
    Frame frame;
    frame.version = static_cast<std::uint8_t>(versionAndLength >> 12);
    frame.flags = byteAt(datagram, 3);
    frame.sequence = bigEndianAt(datagram, 4);
    frame.reserved = byteAt(datagram, 8);
    frame.sender = byteAt(datagram, 9) >> 4;
    frame.receiver = byteAt(datagram, 9) & 0x0F;
    frame.commandSet = static_cast<std::uint8_t>(command >> 12);
    frame.commandId = command & 0x0FFF;
    frame.payload = datagram.mid(Frame::headerSize);
    return frame;
}

} // namespace emulator
