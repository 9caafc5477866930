// Records of the diagnostic log below and above the size at which it is trimmed, and plain appends of the same bytes to
// an open file.

#include "log/MyDebug.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <fcntl.h>
#include <QCoreApplication>
#include <QFile>
#include <string>
#include <unistd.h>

namespace {
constexpr std::int64_t kib = 1024;
constexpr std::int64_t mib = 1024 * kib;
constexpr int trimSize = 2048000;
constexpr int stampSize = 22; ///< "yyyy.MM.dd hh:mm:ss : "

QString logFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/log.txt");
}

/// Runs `record` and keeps the time of the slowest as a counter.
template <class Record>
void measure(benchmark::State &state, Record record)
{
    double slowest = 0;
    for ([[maybe_unused]] const auto &turn : state) {
        const auto begin = std::chrono::steady_clock::now();
        record();
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(time.count());
        slowest = std::max(slowest, time.count());
    }
    state.counters["slowest_ms"] = slowest * 1e3;
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

/// `state.range(0)`: characters of a record's text.
void records(benchmark::State &state, bool aboveTrimSize)
{
    QFile file(logFile());
    file.remove();
    if (aboveTrimSize) {
        if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(trimSize, 'x')) != trimSize) {
            state.SkipWithError("cannot write the log");
            return;
        }
        file.close();
    }
    const QString text(static_cast<int>(state.range(0)), QLatin1Char('t'));
    int written = 0;
    measure(state, [&] {
        MyDebug() << text << MyDebug::terminator();
        written += text.size();
        if (!aboveTrimSize && written > trimSize / 2) {
            // Stays below: what has been written is taken away again. Truncating an unlinked name costs next to
            // nothing.
            QFile::remove(logFile());
            written = 0;
        }
    });
}

void below(benchmark::State &state)
{
    records(state, false);
}

void above(benchmark::State &state)
{
    records(state, true);
}

void plainAppend(benchmark::State &state)
{
    const std::string record(static_cast<std::size_t>(state.range(0)) + stampSize + 7, 't');
    const std::string name = QFile::encodeName(logFile() + QStringLiteral(".plain")).toStdString();
    const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0644);
    if (file < 0) {
        state.SkipWithError("cannot write the plain file");
        return;
    }
    std::size_t written = 0;
    measure(state, [&] {
        if (write(file, record.data(), record.size()) == static_cast<ssize_t>(record.size())) {
            written += record.size();
        }
        if (written > trimSize) {
            written = ftruncate(file, 0) == 0 ? 0 : written;
        }
    });
    close(file);
    unlink(name.c_str());
}

void recordSizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->UseManualTime()->Arg(100)->Arg(4 * kib)->Arg(mib);
}

BENCHMARK(below)->Apply(recordSizes);
BENCHMARK(above)->Apply(recordSizes);
BENCHMARK(plainAppend)->Apply(recordSizes);
} // namespace

int main(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    const QCoreApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
