#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// The camera's command service over a plain UDP socket: one frame out, one frame in, nothing looked at.
class RawCommands
{
public:
    RawCommands();
    ~RawCommands();
    RawCommands(const RawCommands &) = delete;
    RawCommands &operator=(const RawCommands &) = delete;

    /// Sends a finished frame and waits for an answer; the answer's size.
    std::size_t exchange(const std::vector<std::uint8_t> &frame);

private:
    int m_socket;
    std::array<std::uint8_t, 2048> m_answer{};
};

/// A finished request frame (`docs/protocol.md`).
std::vector<std::uint8_t> requestFrame(std::uint8_t receiver, std::uint8_t commandSet, std::uint16_t commandId,
                                       const std::vector<std::uint8_t> &payload = {});
