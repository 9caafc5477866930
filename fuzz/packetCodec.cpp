// A datagram from the network: checked, parsed, and made a valid frame of, which has to survive a round trip. Valid
// frames are also made longer than any frame may be, up to the longest datagram.

#include "camera/codec/PacketCodec.h"
#include "frames.h"
#include "require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {
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

void roundTrip(const Bytes &frame)
{
    const auto length = static_cast<int>(frame.size());
    Bytes received = frame;
    require(packetCheck(received.data(), length), "a valid frame is accepted");
    KestDataPacket packet;
    parsePacket(received.data(), length, &packet);
    Bytes encoded(protocol::maxFrameSize);
    int encodedLength = 0;
    dataPacket2CharArray(packet, encoded.data(), &encodedLength);
    encoded.resize(static_cast<std::size_t>(encodedLength));
    require(encoded == frame, "encoding what was parsed gives the frame");
}

/// The bytes over and over, up to the length that the last two of them say: no input is as long as a datagram may be.
Bytes stretched(const Bytes &bytes)
{
    const std::size_t said = bytes.back() | static_cast<std::size_t>(bytes[bytes.size() - 2]) << 8;
    Bytes longer(std::min(std::max(said, bytes.size()), longestDatagram));
    for (std::size_t i = 0; i < longer.size(); ++i) {
        longer[i] = bytes[i % bytes.size()];
    }
    return longer;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Bytes datagram(data, data + std::min<std::size_t>(size, 65535));
    checkChecksums(datagram);
    readDatagram(datagram);
    if (datagram.size() < frameHeaderSize) {
        return 0;
    }
    if (datagram.size() <= protocol::maxFrameSize) {
        roundTrip(validFrame(datagram));
    }
    // Long frames take long to make: one input in eight is enough.
    if ((datagram[0] & 7) == 0) {
        readDatagram(validFrame(stretched(datagram)));
    }
    return 0;
}
