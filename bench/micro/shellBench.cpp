// `telnet()` of a command that prints a file, with the diagnostic log on, and the same command over a plain socket.
// The files /data/bench/<size> are laid into the emulated camera by `measure.py`.

#include "micro/session.h"
#include "peers/RawShell.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {
constexpr std::int64_t kib = 1024;
constexpr std::int64_t mib = 1024 * kib;
constexpr int anyStep = 3;

std::string printCommand(const benchmark::State &state)
{
    return "cat /data/bench/" + std::to_string(state.range(0)) + "\n";
}

void noteSize(benchmark::State &state, std::size_t replySize)
{
    // Line ends arrive as two bytes, and the command's echo and the prompt belong to the reply.
    if (static_cast<std::int64_t>(replySize) < state.range(0)) {
        state.SkipWithError("the reply is too short");
        return;
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

void telnet(benchmark::State &state)
{
    TelnetInteractiveFace *shell = TelnetInteractiveFace::Get();
    static const int loggedIn = shell->telnetConnectToHost();
    if (loggedIn != 0) {
        state.SkipWithError("no login");
        return;
    }
    const QString command = QString::fromStdString(printCommand(state));
    QString reply;
    for ([[maybe_unused]] const auto &turn : state) {
        if (shell->telnet(command, anyStep, &reply) != 0) {
            state.SkipWithError("no prompt");
            return;
        }
    }
    noteSize(state, static_cast<std::size_t>(reply.size()));
}

void rawTelnet(benchmark::State &state)
{
    static const RawShell shell;
    const std::string command = printCommand(state);
    std::string reply;
    for ([[maybe_unused]] const auto &turn : state) {
        reply = shell.run(command);
    }
    noteSize(state, reply.size());
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->UseRealTime()->Arg(kib)->Arg(64 * kib)->Arg(256 * kib)->Arg(mib)->Arg(4 * mib);
}

BENCHMARK(telnet)->Apply(sizes);
BENCHMARK(rawTelnet)->Apply(sizes);
} // namespace

int main(int argc, char *argv[])
{
    return runBenchmarksBesideSession(argc, argv);
}
