#pragma once

#include <cstdint>

/// Has the system drop, before they take up room in the socket's receive queue, the datagrams that can be no frame from
/// `peerPort`: those from another port and those longer than a frame may be. Without it, a flood from
/// anybody on the network would push the camera's replies out. False when the system refuses.
bool dropForeignDatagrams(int udpSocket, std::uint16_t peerPort);
