// Preloaded into a program, lets its wall clock jump by KEST_CLOCK_JUMP seconds as soon as the file
// KEST_CLOCK_JUMP_FILE exists. The monotonic clock goes on as it is, as it does when somebody sets the time.

#include <cstdlib>
#include <ctime>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {
long jumpSeconds()
{
    const char *const file = std::getenv("KEST_CLOCK_JUMP_FILE"); // NOLINT(concurrency-mt-unsafe): nobody sets it
    const char *const seconds = std::getenv("KEST_CLOCK_JUMP");   // NOLINT(concurrency-mt-unsafe): nobody sets it
    return file != nullptr && seconds != nullptr && access(file, F_OK) == 0 ? std::strtol(seconds, nullptr, 10) : 0;
}
} // namespace

extern "C" {
int clock_gettime(clockid_t clock, timespec *result) noexcept
{
    const long status = syscall(SYS_clock_gettime, clock, result);
    if (status == 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE)) {
        result->tv_sec += jumpSeconds();
    }
    return static_cast<int>(status);
}

int gettimeofday(timeval *result, void *) noexcept
{
    timespec now{};
    const int status = clock_gettime(CLOCK_REALTIME, &now);
    result->tv_sec = now.tv_sec;
    result->tv_usec = now.tv_nsec / 1000;
    return status;
}

time_t time(time_t *result) noexcept
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (result != nullptr) {
        *result = now.tv_sec;
    }
    return now.tv_sec;
}
}
