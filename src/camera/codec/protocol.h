#pragma once

#include <cstdint>

/// The numbers of the camera's command protocol: one binary frame in each UDP datagram, see `docs/protocol.md`.
namespace protocol {
inline constexpr std::uint16_t pcPort = 7777;     ///< the station's end
inline constexpr std::uint16_t cameraPort = 9999; ///< the camera's command service

inline constexpr std::uint8_t startMark = 0xAA;
inline constexpr int headerSize = 12;
inline constexpr int maxFrameSize = 1023;                         ///< header included
inline constexpr int maxPayloadSize = maxFrameSize - headerSize;  ///< 1011
inline constexpr int replyDataOffset = 1;                         ///< payload byte 0 of a reply is the result code
inline constexpr int minReplySize = headerSize + replyDataOffset; ///< a reply's data are its length less this
inline constexpr int maxReplyData = maxFrameSize - minReplySize;  ///< 1010

/// Bits of a frame's `flags`.
namespace flag {
inline constexpr std::uint8_t acknowledgement = 0x01; ///< a reply; clear in a request
inline constexpr std::uint8_t wantsAck = 0x02;        ///< the sender waits for a reply
inline constexpr std::uint8_t request = 0x12;         ///< what every request of the station carries; the camera
                                                      ///< expects bit 4, whose meaning it does not tell
} // namespace flag

/// Ends of a frame, 4 bits on the wire.
enum class Device : std::uint8_t {
    Camera = 1,
    Gimbal = 2,
    Sdk = 3,
    Battery = 4,
    App = 5,
    Pc = 6,
    Broadcast = 15,
};

/// Families of commands, 4 bits on the wire.
enum class CommandSet : std::uint8_t {
    Universal = 0,
    Camera = 1,
    Gimbal = 2,
    Sdk = 3,
    Battery = 4,
    Interact = 5,
    Factory = 6,
};

/// A command: its set and its number within the set (12 bits on the wire).
struct Command
{
    CommandSet set;
    std::uint16_t id;
};

constexpr bool operator==(Command left, Command right)
{
    return left.set == right.set && left.id == right.id;
}

constexpr bool operator!=(Command left, Command right)
{
    return !(left == right);
}
} // namespace protocol
