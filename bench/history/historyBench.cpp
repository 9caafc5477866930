// A store of runs of our own making, and how quickly it answers.
//
//   historyBench lines COUNT           the records as JSON, one a line, on standard output
//   historyBench fill STORE COUNT      a store with them, unless it is there already
//   historyBench ask STORE COUNT       p95 of each question in milliseconds, as JSON

#include "history/madeRuns.h"
#include "history/query/questions.h"
#include "history/store/Store.h"
#include "record/recordJson.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {
using Clock = std::chrono::steady_clock;

int fail(const QString &text)
{
    std::fprintf(stderr, "historyBench: %s\n", qUtf8Printable(text));
    return EXIT_FAILURE;
}

int writeLines(qint64 count)
{
    for (qint64 i = 0; i < count; ++i) {
        const QByteArray line = toJson(madeRun(i, count), JsonLayout::Line);
        std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    }
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

std::unique_ptr<Store> openStore(const QString &path, Connection::Access access)
{
    Store::Options options;
    options.access = access;
    StoreError error;
    std::unique_ptr<Store> store = Store::open(StoreAddress::file(path), options, &error);
    if (!store) {
        fail(error.text);
    }
    return store;
}

int fill(const QString &path, qint64 count)
{
    if (QFile::exists(path)) {
        return EXIT_SUCCESS;
    }
    constexpr qint64 pieceSize = 2000;
    const std::unique_ptr<Store> store = openStore(path, Connection::Access::Write);
    if (!store) {
        return EXIT_FAILURE;
    }
    const auto make = [count](qint64 from) {
        QVector<RunRows> rows;
        for (qint64 i = from; i < std::min(from + pieceSize, count); ++i) {
            rows.append(runRows(madeRun(i, count)));
        }
        return rows;
    };
    std::future<QVector<RunRows>> next = std::async(std::launch::async, make, 0);
    for (qint64 from = 0; from < count; from += pieceSize) {
        const QVector<RunRows> rows = next.get();
        next = std::async(std::launch::async, make, from + pieceSize);
        if (!store->insert(rows, false)) {
            return fail(store->error().text);
        }
    }
    return EXIT_SUCCESS;
}

/// The 95th of 100 times, in milliseconds.
template <class Question>
double p95(int times, Question question)
{
    std::vector<double> taken;
    for (int i = 0; i < times; ++i) {
        const auto begin = Clock::now();
        question(i);
        taken.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    }
    std::sort(taken.begin(), taken.end());
    return taken.at(static_cast<std::size_t>(times) * 95 / 100);
}

int ask(const QString &path, qint64 count)
{
    const std::unique_ptr<Store> store = openStore(path, Connection::Access::Read);
    if (!store) {
        return EXIT_FAILURE;
    }
    bool isSound = true;
    const auto searches = [&](const char *name, auto fillFilter) {
        const double time = p95(100, [&](int i) {
            RunFilter filter;
            fillFilter(madeRun((i * count / 100 + i * qint64{7}) % count, count), &filter);
            const std::optional<QList<RunSummary>> runs = findRuns(*store, filter);
            isSound = isSound && runs && !runs->isEmpty();
        });
        std::printf("\"%s\": %.3f, ", name, time);
    };
    std::printf("{");
    searches("mac", [](const RunRecord &run, RunFilter *filter) { filter->mac = run.camera.mac; });
    searches("macBeginning", [](const RunRecord &run, RunFilter *filter) { filter->mac = run.camera.mac.left(11); });
    searches("serial", [](const RunRecord &run, RunFilter *filter) { filter->serial = run.serial; });
    searches("serialBeginning", [](const RunRecord &run, RunFilter *filter) { filter->serial = run.serial.left(4); });
    searches("latest", [](const RunRecord &, RunFilter *) {});
    searches("failed", [](const RunRecord &, RunFilter *filter) { filter->outcome = Outcome::Failed; });
    searches("item", [](const RunRecord &, RunFilter *filter) { filter->item = QStringLiteral("gimbal.motion"); });
    searches("stationAndFailed", [](const RunRecord &run, RunFilter *filter) {
        filter->station = run.station.name;
        filter->outcome = Outcome::Failed;
    });
    const auto statistics = [&](const char *name, const StatisticsFilter &filter) {
        const double time = p95(20, [&](int) {
            const std::optional<Statistics> read = readStatistics(*store, filter);
            isSound = isSound && read && read->total.runs > 0;
        });
        std::printf("\"%s\": %.3f, ", name, time);
    };
    statistics("statistics30Days", {QDate(2026, 10, 22), QDate(2026, 11, 20), {}, {}, {}});
    statistics("statisticsOfAll", {});
    std::printf("\"runs\": %lld}\n", static_cast<long long>(count));
    return isSound ? EXIT_SUCCESS : fail(QStringLiteral("a question was not answered"));
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString what = arguments.value(1);
    if (what == QLatin1String("lines") && arguments.size() == 3) {
        return writeLines(arguments.at(2).toLongLong());
    }
    if (what == QLatin1String("fill") && arguments.size() == 4) {
        return fill(arguments.at(2), arguments.at(3).toLongLong());
    }
    if (what == QLatin1String("ask") && arguments.size() == 4) {
        return ask(arguments.at(2), arguments.at(3).toLongLong());
    }
    return fail(QStringLiteral("lines COUNT, fill STORE COUNT, or ask STORE COUNT"));
}
