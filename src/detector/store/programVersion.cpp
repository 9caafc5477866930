#include "detector/store/programVersion.h"

const char *programVersion()
{
    return KEST_VERSION;
}
