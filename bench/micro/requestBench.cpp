// A `Camera` request from call to result, and the same exchange over a plain UDP socket. Reports the 50th and the 99th
// percentile in microseconds.

#include "camera/client/Camera.h"
#include "camera/client/EEPromBuf.h"
#include "camera/client/UDPTransciever.h"
#include "micro/session.h"
#include "peers/RawCommands.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <vector>

namespace {
constexpr int requestCount = 10000;
constexpr int blockAddress = 0x16C0;
constexpr int blockLength = 720;

double percentile(std::vector<double> &samples, double part)
{
    const auto index = static_cast<std::ptrdiff_t>(part * static_cast<double>(samples.size() - 1));
    std::nth_element(samples.begin(), samples.begin() + index, samples.end());
    return samples[static_cast<std::size_t>(index)];
}

/// `exchange` returns whether it got its answer.
template <class Exchange>
void measure(benchmark::State &state, Exchange exchange)
{
    std::vector<double> samples;
    samples.reserve(requestCount);
    for ([[maybe_unused]] const auto &turn : state) {
        const auto begin = std::chrono::steady_clock::now();
        const bool answered = exchange();
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        if (!answered) {
            state.SkipWithError("no answer from the camera");
            return;
        }
        state.SetIterationTime(time.count());
        samples.push_back(time.count() * 1e6);
    }
    state.counters["p50_us"] = percentile(samples, 0.50);
    state.counters["p99_us"] = percentile(samples, 0.99);
}

void ping(benchmark::State &state)
{
    measure(state, [] { return Camera::Get()->Ping() == requestResult::success; });
}

void rawPing(benchmark::State &state)
{
    RawCommands camera;
    const auto frame = requestFrame(1, 6, 0x22);
    measure(state, [&] { return camera.exchange(frame) == 13; });
}

void eeprom(benchmark::State &state)
{
    EEPromBuf buffer;
    measure(state, [&] {
        return Camera::Get()->ReadEEPROM(blockAddress, blockLength, &buffer) == requestResult::success &&
               buffer.length() == blockLength;
    });
}

void rawEeprom(benchmark::State &state)
{
    RawCommands camera;
    const auto frame = requestFrame(1, 6, 0x21, {0xC0, 0x16, 0xD0, 0x02});
    measure(state, [&] { return camera.exchange(frame) == 13 + 2 + blockLength; });
}

BENCHMARK(ping)->Iterations(requestCount)->UseManualTime();
BENCHMARK(rawPing)->Iterations(requestCount)->UseManualTime();
BENCHMARK(eeprom)->Iterations(requestCount)->UseManualTime();
BENCHMARK(rawEeprom)->Iterations(requestCount)->UseManualTime();
} // namespace

int main(int argc, char *argv[])
{
    const int exitCode = runBenchmarksBesideSession(argc, argv, [] { Camera::Get(); });
    UDPTransciever::Get()->killThread();
    Camera::Get()->killThread();
    return exitCode;
}
