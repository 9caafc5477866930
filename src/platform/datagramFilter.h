#pragma once

#include <cstdint>

class QUdpSocket;

/// Keeps a flood from anybody on the network from pushing the camera's replies out of the receive queue of a bound
/// socket. Where the system can do so, it drops the datagrams that can be no frame from `peerPort` before they take up
/// room there: those from another port and those longer than `longestFrame` bytes. Elsewhere the queue gets more room.
/// False when the system refuses.
bool dropForeignDatagrams(QUdpSocket *socket, std::uint16_t peerPort, std::uint32_t longestFrame);
