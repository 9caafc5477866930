#include "telnet/engine/KestTelnetAuthNull.h"

#include "telnet/engine/KestTelnetCodes.h"

QByteArray KestTelnetAuthNull::authStep(const QByteArray &data)
{
    if (data.size() < 2 || static_cast<uchar>(data.at(1)) != telnetSubOption::send) {
        return {};
    }
    authState = Success;
    // IAC SB AUTHENTICATION IS NULL 0 IAC SE
    return QByteArrayLiteral("\xFF\xFA\x25\x00\x00\x00\xFF\xF0");
}
