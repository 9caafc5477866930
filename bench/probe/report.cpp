#include "probe/report.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <QByteArray>
#include <QtGlobal>
#include <unistd.h>

namespace {
std::int64_t clockNs(clockid_t clock)
{
    constexpr std::int64_t nsPerSecond = 1'000'000'000;
    timespec time{};
    clock_gettime(clock, &time);
    return time.tv_sec * nsPerSecond + time.tv_nsec;
}
} // namespace

std::int64_t monotonicNs()
{
    return clockNs(CLOCK_MONOTONIC);
}

std::int64_t processorNs()
{
    return clockNs(CLOCK_PROCESS_CPUTIME_ID);
}

std::int64_t threadProcessorNs()
{
    return clockNs(CLOCK_THREAD_CPUTIME_ID);
}

void report(const char *event, std::int64_t value)
{
    static const int file = open(qgetenv("KEST_BENCH_REPORT").constData(), O_WRONLY | O_APPEND | O_CLOEXEC);
    if (file < 0) {
        return;
    }
    std::array<char, 128> line{};
    const int length = std::snprintf(line.data(), line.size(), "%s %lld\n", event, static_cast<long long>(value));
    if (write(file, line.data(), static_cast<std::size_t>(length)) != length) {
        qWarning("The probe's report is not complete");
    }
}

void reportNow(const char *event)
{
    report(event, monotonicNs());
}
