// A record of ten rows added to an event log that already has `rows` rows: the slot alone, and the slot with what the
// window then does to show it.

#include "detector/store/checkLog.h"
#include "ui/window/KestDetectorUI.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <QApplication>

namespace {
constexpr int rowsPerRecord = 10; ///< the heading and nine items

checkLog record()
{
    checkLog log;
    log.component = 2;
    for (int i = 1; i < rowsPerRecord; ++i) {
        log.itemLogs.append({0, QStringLiteral("相机电池通信OK\n"), QStringLiteral("voltage:3.85V\n")});
    }
    return log;
}

template <class Add>
void fill(benchmark::State &state, Add add)
{
    KestDetectorUI window(nullptr);
    window.show();
    QApplication::processEvents();
    const checkLog log = record();
    double slowest = 0;
    for (std::int64_t rows = 0; rows < state.range(0); rows += rowsPerRecord) {
        window.slot_showCheckLog(log);
    }
    QApplication::processEvents();
    for ([[maybe_unused]] const auto &turn : state) {
        const auto begin = std::chrono::steady_clock::now();
        add(window, log);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        state.SetIterationTime(time.count());
        slowest = std::max(slowest, time.count());
        QApplication::processEvents();
    }
    state.counters["slowest_ms"] = slowest * 1e3;
}

void add(benchmark::State &state)
{
    fill(state, [](KestDetectorUI &window, const checkLog &log) { window.slot_showCheckLog(log); });
}

void addAndShow(benchmark::State &state)
{
    fill(state, [](KestDetectorUI &window, const checkLog &log) {
        window.slot_showCheckLog(log);
        QApplication::processEvents();
    });
}

/// The table grows by ten rows in each turn: few of them keep it near its size.
constexpr int turns = 20;

void rowCounts(benchmark::internal::Benchmark *benchmark)
{
    benchmark->UseManualTime()->Iterations(turns)->Arg(0)->Arg(1000)->Arg(5000)->Arg(10000);
}

BENCHMARK(add)->Apply(rowCounts);
BENCHMARK(addAndShow)->Apply(rowCounts);
} // namespace

int main(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
    qRegisterMetaType<checkLog>("checkLog");
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
