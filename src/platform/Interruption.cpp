#include "platform/Interruption.h"

#include <csignal>

namespace {
volatile std::sig_atomic_t wanted = 0;

void note(int number)
{
    wanted = 1;
    std::signal(number, SIG_DFL);
}
} // namespace

void Interruption::watch()
{
    std::signal(SIGINT, note);
    std::signal(SIGTERM, note);
}

bool Interruption::isWanted()
{
    return wanted != 0;
}
