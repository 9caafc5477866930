// A store of runs of our own making, and how quickly it answers.
//
//   historyBench lines COUNT           the records as JSON, one a line, on standard output
//   historyBench fill STORE COUNT      a store with them, unless it is there already
//   historyBench ask STORE COUNT       p95 of each question in milliseconds, as JSON
//   historyBench commit FOLDER COUNT   p50 and p99 of a run that is committed, and of a plain transaction of its rows

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
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTextStream>
#include <vector>

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
    const QString part = path + QStringLiteral(".part"); // another one was interrupted
    for (const char *file : {"", "-wal", "-shm"}) {
        QFile::remove(part + QLatin1String(file));
    }
    std::unique_ptr<Store> store = openStore(part, Connection::Access::Write);
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
    store.reset();
    return QFile::rename(part, path) ? EXIT_SUCCESS : fail(QStringLiteral("%1 cannot be renamed").arg(part));
}

/// So many of 100 are quicker.
double percentile(std::vector<double> taken, std::size_t percent)
{
    std::sort(taken.begin(), taken.end());
    return taken.at(taken.size() * percent / 100);
}

template <class Work>
double milliseconds(Work work)
{
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

template <class Question>
double p95(int times, Question question)
{
    std::vector<double> taken;
    taken.reserve(static_cast<std::size_t>(times));
    for (int i = 0; i < times; ++i) {
        taken.push_back(milliseconds([&] { question(i); }));
    }
    return percentile(taken, 95);
}

/// A row as it is, with the statement that puts it into another store of the same schema.
struct PlainRow
{
    QString statement;
    QVariantList values;
};

/// Every row that holds a run, but for the names of its measurements, which are there from the first run on.
QVector<PlainRow> rowsOf(Store &store, const RunRows &run)
{
    struct Table
    {
        const char *name;
        const char *condition;
        QVariantList values;
    };
    const QVariant id = store.connection().idValue(run.id);
    const QVariantList key = {run.tally.day, run.tally.station, run.tally.batch, run.tally.firmware};
    const auto ofKey = "day = ? AND station = ? AND batch = ? AND firmware = ?";
    const Table tables[] = {
        {"run", "id = ?", {id}},
        {"record", "run = ?", {id}},
        {"unsent", "begin_ms = ? AND run = ?", {run.beginMs, id}},
        {"finding", "run = ?", {id}},
        {"measurement", "series IN (SELECT id FROM series) AND begin_ms = ? AND run = ?", {run.beginMs, id}},
        {"camera", "mac = ?", {run.mac}},
        {"tally", ofKey, key},
        {"item_tally", ofKey, key},
    };
    QVector<PlainRow> rows;
    for (const Table &table : tables) {
        QSqlQuery query(store.connection().database());
        query.prepare(
            QStringLiteral("SELECT * FROM %1 WHERE %2").arg(QLatin1String(table.name), QLatin1String(table.condition)));
        for (const QVariant &value : table.values) {
            query.addBindValue(value);
        }
        query.exec();
        while (query.next()) {
            PlainRow row;
            for (int i = 0; i < query.record().count(); ++i) {
                row.values.append(query.value(i));
            }
            const QString list = QStringLiteral("?,").repeated(static_cast<int>(row.values.size()));
            row.statement =
                QStringLiteral("INSERT OR REPLACE INTO %1 VALUES (%2)").arg(QLatin1String(table.name), list.chopped(1));
            rows.append(row);
        }
    }
    return rows;
}

int commit(const QString &folder, qint64 count)
{
    const std::unique_ptr<Store> store = openStore(folder + QStringLiteral("/ours.sqlite"), Connection::Access::Write);
    const std::unique_ptr<Store> other = openStore(folder + QStringLiteral("/plain.sqlite"), Connection::Access::Write);
    if (!store || !other) {
        return EXIT_FAILURE;
    }
    Connection &plain = other->connection();
    std::vector<double> ours;
    std::vector<double> floor;
    bool isSound = true;
    constexpr qint64 aYear = 100000; // of runs
    for (qint64 i = 0; i < count; ++i) {
        const RunRecord run = madeRun(i, aYear);
        ours.push_back(milliseconds([&] { isSound = store->insert({runRows(run)}) && isSound; }));
        const QVector<PlainRow> rows = rowsOf(*store, runRows(run));
        isSound = isSound && rows.size() > 50;
        floor.push_back(milliseconds([&] {
            isSound = plain.transaction([&] {
                return std::all_of(rows.begin(), rows.end(), [&](const PlainRow &row) {
                    QSqlQuery *query = plain.prepared(row.statement);
                    for (const QVariant &value : row.values) {
                        query->addBindValue(value);
                    }
                    return plain.run(query);
                });
            }) && isSound;
        }));
    }
    std::printf(R"({"p50": %.3f, "p99": %.3f, "plainP50": %.3f, "plainP99": %.3f})"
                "\n",
                percentile(ours, 50), percentile(ours, 99), percentile(floor, 50), percentile(floor, 99));
    return isSound ? EXIT_SUCCESS : fail(QStringLiteral("a run was not kept"));
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
    if (what == QLatin1String("commit") && arguments.size() == 4) {
        return commit(arguments.at(2), arguments.at(3).toLongLong());
    }
    return fail(QStringLiteral("lines COUNT, fill STORE COUNT, ask STORE COUNT, or commit FOLDER COUNT"));
}
