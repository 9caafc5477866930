#include "platform/terminal.h"

#include <unistd.h>

bool isErrorOutputTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}
