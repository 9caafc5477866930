// A datagram from the network: checked, parsed, and made a valid frame of, which has to survive a round trip.

#include "camera/codec/PacketCodec.h"
#include "require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {
using Bytes = std::vector<std::uint8_t>;

/// The reflected CRCs bit by bit, independent of the codec's tables.
template <class Register>
Register bitwiseCrc(Register crc, Register polynomial, const Bytes &bytes)
{
    for (const std::uint8_t byte : bytes) {
        crc = static_cast<Register>(crc ^ byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = static_cast<Register>((crc & 1) != 0 ? (crc >> 1) ^ polynomial : crc >> 1);
        }
    }
    return crc;
}

std::uint16_t frameChecksum(const Bytes &bytes)
{
    return static_cast<std::uint16_t>(~bitwiseCrc<std::uint16_t>(0xFFFF, 0xA001, bytes));
}

void checkChecksums(const Bytes &bytes)
{
    if (bytes.empty()) {
        return;
    }
    const auto length = static_cast<unsigned int>(bytes.size());
    require(getcrc16(bytes.data(), static_cast<int>(length), nullptr) == frameChecksum(bytes), "CRC-16 as defined");
    require(mapi_eeprom_crc32(bytes.data(), length) == bitwiseCrc<std::uint32_t>(length, 0xEDB88320, bytes),
            "CRC-32 as defined");
}

void readDatagram(Bytes datagram)
{
    const auto length = static_cast<int>(datagram.size());
    if (packetCheck(datagram.data(), length)) {
        require(length <= 4095, "a frame's length has 12 bits");
    }
    if (length >= protocol::headerSize) {
        KestDataPacket packet;
        parsePacket(datagram.data(), length, &packet);
        require(isRequest(packet) != isAck(packet), "a frame is a request or a reply");
    }
}

void roundTrip(Bytes frame)
{
    const std::size_t length = frame.size();
    frame[0] = protocol::startMark;
    frame[1] = static_cast<std::uint8_t>((frame[1] & 0xF0) | (length >> 8));
    frame[2] = static_cast<std::uint8_t>(length & 0xFF);
    frame[6] = 0;
    frame[7] = 0;
    const std::uint16_t checksum = frameChecksum(frame);
    frame[6] = static_cast<std::uint8_t>(checksum >> 8);
    frame[7] = static_cast<std::uint8_t>(checksum & 0xFF);

    Bytes received = frame;
    require(packetCheck(received.data(), static_cast<int>(length)), "a valid frame is accepted");
    KestDataPacket packet;
    parsePacket(received.data(), static_cast<int>(length), &packet);
    Bytes encoded(protocol::maxFrameSize);
    int encodedLength = 0;
    dataPacket2CharArray(packet, encoded.data(), &encodedLength);
    encoded.resize(static_cast<std::size_t>(encodedLength));
    require(encoded == frame, "encoding what was parsed gives the frame");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Bytes datagram(data, data + std::min<std::size_t>(size, 65535));
    checkChecksums(datagram);
    readDatagram(datagram);
    if (datagram.size() >= protocol::headerSize && datagram.size() <= protocol::maxFrameSize) {
        roundTrip(datagram);
    }
    return 0;
}
