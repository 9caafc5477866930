#include "platform/datagramFilter.h"

#include <QUdpSocket>
#include <QVariant>

namespace {
constexpr int roomyQueue = 1 << 20; // bytes; a system may grant less
} // namespace

bool dropForeignDatagrams(QUdpSocket *socket, std::uint16_t, std::uint32_t)
{
    socket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, roomyQueue);
    return socket->socketOption(QAbstractSocket::ReceiveBufferSizeSocketOption).toInt() > 0;
}
