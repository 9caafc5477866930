#include "platform/networkAddress.h"

#include <QHostAddress>
#include <QtEndian>

std::uint32_t networkAddress(const QString &address)
{
    bool isOne = false;
    const quint32 number = QHostAddress(address).toIPv4Address(&isOne);
    return isOne ? qToBigEndian(number) : 0xFFFFFFFF;
}
