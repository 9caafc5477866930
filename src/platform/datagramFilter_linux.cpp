#include "platform/datagramFilter.h"

#include <array>
#include <linux/filter.h>
#include <QUdpSocket>
#include <sys/socket.h>

namespace {
constexpr std::uint32_t udpHeaderSize = 8;
constexpr std::uint32_t sourcePortOffset = 0;
constexpr std::uint32_t keepAll = 0xFFFFFFFF;
constexpr std::uint32_t drop = 0;
} // namespace

bool dropForeignDatagrams(QUdpSocket *socket, std::uint16_t peerPort, std::uint32_t longestFrame)
{
    // socket(7), SO_ATTACH_FILTER: the program sees a datagram from its UDP header (RFC 768) on.
    std::array<sock_filter, 6> program{{
        BPF_STMT(BPF_LD | BPF_H | BPF_ABS, sourcePortOffset),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, peerPort, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_LEN, 0),
        BPF_JUMP(BPF_JMP | BPF_JGT | BPF_K, udpHeaderSize + longestFrame, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, keepAll),
        BPF_STMT(BPF_RET | BPF_K, drop),
    }};
    const sock_fprog filter{program.size(), program.data()};
    return setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_ATTACH_FILTER, &filter,
                      sizeof filter) == 0;
}
