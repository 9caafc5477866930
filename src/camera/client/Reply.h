#pragma once

#include "camera/codec/protocol.h"

#include <cstdint>

/// A well-formed reply from the camera. It points into the datagram: good only for the call that hands it on.
struct Reply
{
    protocol::Command command;
    std::uint16_t sequence; ///< of the request, where the camera copies it
    int code;               ///< the camera's result code
    const std::uint8_t *data;
    int length;
};
