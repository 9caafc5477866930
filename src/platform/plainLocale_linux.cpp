#include "platform/plainLocale.h"

#include <cstring>
#include <langinfo.h>

bool localeIsPlain()
{
    const char *codeset = nl_langinfo(CODESET); // NOLINT(concurrency-mt-unsafe): no other thread is there yet
    return std::strcmp(codeset, "ANSI_X3.4-1968") == 0;
}
