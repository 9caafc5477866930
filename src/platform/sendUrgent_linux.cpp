#include "platform/sendUrgent.h"

#include <QAbstractSocket>
#include <sys/socket.h>

bool sendUrgent(QAbstractSocket *socket, unsigned char byte)
{
    return ::send(static_cast<int>(socket->socketDescriptor()), &byte, 1, MSG_OOB | MSG_NOSIGNAL) == 1;
}
