#pragma once

#include <cstdint>

// What a probe tells `measure.py`: lines of "<event> <number>" in the file that KEST_BENCH_REPORT names. Without that
// variable nothing is written. From any thread.

void report(const char *event, std::int64_t value);
/// With the time of CLOCK_MONOTONIC in nanoseconds.
void reportNow(const char *event);
std::int64_t monotonicNs();
/// Processor time of the whole process so far, in nanoseconds.
std::int64_t processorNs();
/// Of the calling thread.
std::int64_t threadProcessorNs();
