#include "platform/networkAddress.h"

#include <arpa/inet.h>
#include <QString>

std::uint32_t networkAddress(const QString &address)
{
    return inet_addr(qPrintable(address));
}
