#pragma once

#include <cstdint>
#include <string>

/// How a `UDPTransciever` is set up.
struct UDPortArgs
{
    std::uint16_t localPort = 0; ///< the PC-side port that the socket binds
    std::int16_t peerPort = 0;   ///< the camera's command port; replies must come from it
    std::string peerIp;          ///< the camera's usual address; the facade's camera address is used instead
};
