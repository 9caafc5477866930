#include "platform/plainLocale.h"

#include <clocale>
#include <cstring>

bool localeIsPlain()
{
    const char *name = std::setlocale(LC_CTYPE, nullptr); // NOLINT(concurrency-mt-unsafe): no other thread is there yet
    return name == nullptr || std::strcmp(name, "C") == 0 || std::strcmp(name, "POSIX") == 0;
}
