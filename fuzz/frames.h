#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Frames made here, not by the codec, so that a mistake in the codec cannot hide in what it is fed with.

using Bytes = std::vector<std::uint8_t>;

inline constexpr std::size_t frameHeaderSize = 12;
inline constexpr std::size_t longestDatagram = 65507; ///< what UDP over IPv4 can carry

/// The reflected CRCs bit by bit.
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

inline std::uint16_t frameChecksum(const Bytes &bytes)
{
    return static_cast<std::uint16_t>(~bitwiseCrc<std::uint16_t>(0xFFFF, 0xA001, bytes));
}

/// `frame` (12 bytes or more) with start mark, length and checksum as they have to be; the version and the rest stay.
/// Of a length above 4095 the header's 12 bits hold the lower ones.
inline Bytes validFrame(Bytes frame)
{
    const std::size_t length = frame.size();
    frame[0] = 0xAA;
    frame[1] = static_cast<std::uint8_t>((frame[1] & 0xF0) | (length >> 8 & 0x0F));
    frame[2] = static_cast<std::uint8_t>(length & 0xFF);
    frame[6] = 0;
    frame[7] = 0;
    const std::uint16_t checksum = frameChecksum(frame);
    frame[6] = static_cast<std::uint8_t>(checksum >> 8);
    frame[7] = static_cast<std::uint8_t>(checksum & 0xFF);
    return frame;
}
