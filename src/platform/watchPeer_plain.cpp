#include "platform/watchPeer.h"

#include <QAbstractSocket>

bool watchPeer(QAbstractSocket *socket)
{
    socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    return socket->socketDescriptor() >= 0;
}
