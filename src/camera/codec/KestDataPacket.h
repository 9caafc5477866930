#pragma once

#include "camera/codec/protocol.h"

#include <array>
#include <cstdint>

/// One command frame in memory, filled field by field by whoever builds a request. The checksum is not part of it: it
/// exists in the wire frame only. Fields of 4 or 12 bits lose their higher bits on the wire.
struct KestDataPacket
{
    std::uint8_t head = protocol::startMark;
    std::uint8_t ver = 0;                         ///< 4 bits
    std::uint16_t len = protocol::headerSize;     ///< bytes of the whole frame, 12 to 1023; 12 bits
    std::uint8_t flags = protocol::flag::request; ///< bits of `protocol::flag`
    std::uint16_t seq = 0;                        ///< set by the transport when it sends
    std::uint8_t reserved = 0;
    std::uint8_t sender = 0;                                   ///< a `protocol::Device`; 4 bits
    std::uint8_t receiver = 0;                                 ///< a `protocol::Device`; 4 bits
    std::uint8_t cmdSet = 0;                                   ///< a `protocol::CommandSet`; 4 bits
    std::uint16_t cmdId = 0;                                   ///< 12 bits
    std::array<std::uint8_t, protocol::maxPayloadSize> data{}; ///< payload, `len` - 12 bytes of it in use
};
