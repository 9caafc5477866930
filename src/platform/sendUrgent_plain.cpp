#include "platform/sendUrgent.h"

bool sendUrgent(QAbstractSocket *, unsigned char)
{
    return false;
}
