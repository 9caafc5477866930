#include "platform/terminal.h"

bool isErrorOutputTerminal()
{
    return false;
}
