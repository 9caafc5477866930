#include "exampleRecord.h"
#include "history/query/pruneRuns.h"
#include "history/query/questions.h"
#include "history/store/Store.h"
#include "PostgresServer.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <QFileInfo>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(Limit)
Q_DECLARE_METATYPE(RunFilter)
Q_DECLARE_METATYPE(StatisticsFilter)

/// What a store of each engine answers about a dozen runs, and what is left of them after pruning.
class tst_questions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void finds_data();
    void finds();
    void findsPageByPage_data() { addEngines(); }
    void findsPageByPage();
    void findsBeginningsOfMany();
    void findsIds_data();
    void findsIds();
    void counts_data() { addEngines(); }
    void counts();
    void countsWithinBounds_data();
    void countsWithinBounds();
    void describesMeasurements_data() { addEngines(); }
    void describesMeasurements();
    void countsWhatIsOutsideItsLimits_data();
    void countsWhatIsOutsideItsLimits();
    void namesFailedCameras_data() { addEngines(); }
    void namesFailedCameras();
    void prunesAsIfTheyHadNeverBeen_data();
    void prunesAsIfTheyHadNeverBeen();
    void prunesUntilAsked();
    void givesSpaceBack();

private:
    static void addEngines();
    std::unique_ptr<Store> open(const QString &engine, const QString &name = QStringLiteral("runs.sqlite"));
    std::unique_ptr<Store> openWithRuns(const QString &engine);
    Store *shared(const QString &engine);

    PostgresServer m_server;
    QString m_noServer;
    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_function;
    std::map<QString, std::unique_ptr<Store>> m_shared; ///< by engine
};

namespace {
struct Made
{
    int day; ///< of November 2026
    const char *mac;
    Outcome outcome;
    const char *station;
    const char *firmware;
    double voltage;
};

constexpr const char *first = "60:60:1F:00:00:01";
constexpr const char *second = "60:60:1F:00:00:02";
constexpr const char *other = "AA:60:1F:00:00:03";

/// In the order of time: run 0 to 7, each an hour after the one before where they are of one day.
constexpr std::array runs = {
    Made{1, first, Outcome::Failed, "left", "1.2.3", 4.36},  Made{1, first, Outcome::Passed, "left", "1.2.3", 4.2},
    Made{2, second, Outcome::Passed, "right", "1.2.3", 4.1}, Made{3, "", Outcome::Passed, "right", "1.2.3", 4.0},
    Made{4, other, Outcome::Stopped, "left", "1.2.4", 3.9},  Made{5, other, Outcome::Failed, "right", "1.2.4", 4.36},
    Made{5, first, Outcome::Passed, "left", "1.2.4", 3.8},   Made{6, second, Outcome::Failed, "left", "1.2.4", 4.4},
};

RunRecord madeRun(int number)
{
    const Made &made = runs.at(static_cast<std::size_t>(number));
    RunRecord run = exampleRecord();
    run.id = QUuid::createUuidV5(QUuid(), QString::number(number));
    run.begin = QDateTime(QDate(2026, 11, made.day), QTime(10 + number, 0), Qt::OffsetFromUTC, 0);
    run.end = run.begin.addSecs(1);
    run.duration = std::chrono::seconds(1);
    run.camera.mac = QString::fromLatin1(made.mac);
    run.camera.firmware = QString::fromLatin1(made.firmware);
    run.serial = QStringLiteral("KC%1").arg(QString::fromLatin1(made.mac).right(2));
    run.station.name = QString::fromLatin1(made.station);
    run.batch = QStringLiteral("47");
    run.outcome = made.outcome;
    ItemRecord &info = run.components[1].items[1];
    info.measurements[0].value = made.voltage;
    const bool fails = made.outcome == Outcome::Failed;
    info.verdict = fails ? Verdict::Failed : Verdict::Passed;
    run.components[1].verdict = info.verdict;
    run.reason = fails ? info.key : QString();
    return run;
}

QVector<RunRows> madeRows(int from, int to)
{
    QVector<RunRows> rows;
    for (int i = from; i < to; ++i) {
        rows.append(runRows(madeRun(i)));
    }
    return rows;
}

/// "7 5 0"
QString numbers(const QList<RunSummary> &found)
{
    QStringList texts;
    for (const RunSummary &run : found) {
        for (int i = 0; i < static_cast<int>(runs.size()); ++i) {
            if (run.id == madeRun(i).id) {
                texts.append(QString::number(i));
            }
        }
    }
    return texts.join(QLatin1Char(' '));
}

QString sumsText(const TallySums &sums)
{
    return QStringLiteral("%1 runs %2+ %3- %4s %5e %6ms %7 cameras %8 %9")
        .arg(sums.runs)
        .arg(sums.passed)
        .arg(sums.failed)
        .arg(sums.stopped)
        .arg(sums.error)
        .arg(sums.durationMs)
        .arg(sums.cameras)
        .arg(sums.firstPassed)
        .arg(sums.finalPassed);
}

QString groupsText(const QList<RunGroup> &groups)
{
    QStringList texts;
    for (const RunGroup &group : groups) {
        texts.append(QStringLiteral("%1:%2/%3").arg(group.name).arg(group.sums.passed).arg(group.sums.runs));
    }
    return texts.join(QLatin1Char(' '));
}

/// Everything that a table holds, in the order of its columns.
QStringList content(Store *store, const QString &table)
{
    QSqlQuery query(store->connection().database());
    QStringList rows;
    if (!query.exec(QStringLiteral("SELECT * FROM ") + table)) {
        return {QStringLiteral("cannot be read")};
    }
    while (query.next()) {
        QStringList cells;
        for (int i = 0; i < query.record().count(); ++i) {
            const QVariant value = query.value(i);
            cells.append(value.type() == QVariant::ByteArray ? QString::fromLatin1(value.toByteArray().toHex())
                                                             : value.toString());
        }
        rows.append(cells.join(QLatin1Char('|')));
    }
    rows.sort();
    return rows;
}
} // namespace

void tst_questions::initTestCase()
{
    m_noServer = m_server.start();
}

/// The rows of a test that only ask share a store.
void tst_questions::init()
{
    const QByteArray function = QTest::currentTestFunction();
    if (function != m_function) {
        m_shared.clear();
        m_folder = std::make_unique<QTemporaryDir>();
        m_function = function;
    }
}

Store *tst_questions::shared(const QString &engine)
{
    std::unique_ptr<Store> &store = m_shared[engine];
    if (!store) {
        store = openWithRuns(engine);
    }
    return store.get();
}

void tst_questions::addEngines()
{
    QTest::addColumn<QString>("engine");
    QTest::newRow("SQLite") << "sqlite";
    QTest::newRow("PostgreSQL") << "postgresql";
}

std::unique_ptr<Store> tst_questions::open(const QString &engine, const QString &name)
{
    QString reason;
    StoreError error;
    const bool isFile = engine == QLatin1String("sqlite");
    std::unique_ptr<Store> store = Store::open(isFile ? StoreAddress::file(m_folder->filePath(name))
                                                      : *StoreAddress::server(m_server.url(), &reason),
                                               {}, &error);
    if (!store) {
        qWarning("%s", qPrintable(error.text));
    }
    return store;
}

/// Null after a failure.
std::unique_ptr<Store> tst_questions::openWithRuns(const QString &engine)
{
    if (engine == QLatin1String("postgresql")) {
        m_server.empty();
    } else {
        m_folder = std::make_unique<QTemporaryDir>();
    }
    std::unique_ptr<Store> store = open(engine);
    const int all = static_cast<int>(runs.size());
    return store && store->insert(madeRows(0, all)) == all ? std::move(store) : nullptr;
}

#define SKIP_WITHOUT_ENGINE()                                                                                          \
    QFETCH(QString, engine);                                                                                           \
    if (engine == QLatin1String("postgresql") && !m_noServer.isEmpty()) {                                              \
        QSKIP(qPrintable(m_noServer));                                                                                 \
    }

void tst_questions::finds_data()
{
    QTest::addColumn<QString>("engine");
    QTest::addColumn<RunFilter>("filter");
    QTest::addColumn<QString>("found");
    for (const char *engine : {"sqlite", "postgresql"}) {
        const auto row = [engine](const char *title, const std::function<void(RunFilter &)> &change,
                                  const char *found) {
            RunFilter filter;
            change(filter);
            QTest::addRow("%s: %s", engine, title)
                << QString::fromLatin1(engine) << filter << QString::fromLatin1(found);
        };
        row(
            "everything, the latest first", [](RunFilter &) {}, "7 6 5 4 3 2 1 0");
        row(
            "the latest two", [](RunFilter &filter) { filter.limit = 2; }, "7 6");
        row(
            "all by no limit", [](RunFilter &filter) { filter.limit = 0; }, "7 6 5 4 3 2 1 0");
        row(
            "a camera", [](RunFilter &filter) { filter.mac = QString::fromLatin1(first); }, "6 1 0");
        row(
            "a camera as it is typed", [](RunFilter &filter) { filter.mac = QStringLiteral("60601f000001"); }, "6 1 0");
        row(
            "the beginning of a MAC", [](RunFilter &filter) { filter.mac = QStringLiteral("6060"); }, "7 6 2 1 0");
        row(
            "a MAC that never was", [](RunFilter &filter) { filter.mac = QStringLiteral("60:60:1F:00:00:09"); }, "");
        row(
            "a serial", [](RunFilter &filter) { filter.serial = QStringLiteral("KC02"); }, "7 2");
        row(
            "the beginning of a serial", [](RunFilter &filter) { filter.serial = QStringLiteral("KC0"); },
            "7 6 5 4 2 1 0");
        row(
            "a serial in other letters", [](RunFilter &filter) { filter.serial = QStringLiteral("kc02"); }, "");
        row(
            "a serial that is SQL", [](RunFilter &filter) { filter.serial = QStringLiteral("' OR 1=1 --"); }, "");
        row(
            "a serial with a placeholder", [](RunFilter &filter) { filter.serial = QStringLiteral("%"); }, "");
        row(
            "from a moment on, which is included",
            [](RunFilter &filter) { filter.since = QDateTime(QDate(2026, 11, 5), QTime(15, 0), Qt::UTC); }, "7 6 5");
        row(
            "up to a moment, which is not",
            [](RunFilter &filter) { filter.until = QDateTime(QDate(2026, 11, 2), QTime(12, 0), Qt::UTC); }, "1 0");
        row(
            "a station", [](RunFilter &filter) { filter.station = QStringLiteral("right"); }, "5 3 2");
        row(
            "a firmware", [](RunFilter &filter) { filter.firmware = QStringLiteral("1.2.4"); }, "7 6 5 4");
        row(
            "a batch that never was", [](RunFilter &filter) { filter.batch = QStringLiteral("48"); }, "");
        row(
            "failed", [](RunFilter &filter) { filter.outcome = Outcome::Failed; }, "7 5 0");
        row(
            "stopped", [](RunFilter &filter) { filter.outcome = Outcome::Stopped; }, "4");
        row(
            "an item", [](RunFilter &filter) { filter.item = QStringLiteral("battery.info"); }, "7 5 0");
        row(
            "an item that never failed", [](RunFilter &filter) { filter.item = QStringLiteral("camera.video"); }, "");
        row(
            "an item of a camera at a station",
            [](RunFilter &filter) {
                filter.item = QStringLiteral("battery.info");
                filter.mac = QStringLiteral("60:60");
                filter.station = QStringLiteral("left");
                filter.limit = 1;
            },
            "7");
    }
}

void tst_questions::finds()
{
    SKIP_WITHOUT_ENGINE()
    QFETCH(RunFilter, filter);
    Store *store = shared(engine);
    QVERIFY(store);
    const std::optional<QList<RunSummary>> found = findRuns(*store, filter);
    QVERIFY2(found, qPrintable(store->error().text));
    QTEST(numbers(*found), "found");
}

void tst_questions::findsPageByPage()
{
    SKIP_WITHOUT_ENGINE()
    const std::unique_ptr<Store> store = openWithRuns(engine);
    QVERIFY(store);
    // Two that began at the same moment as run 2.
    QVector<RunRows> sameMoment = madeRows(2, 3) + madeRows(2, 3);
    for (RunRows &run : sameMoment) {
        run.id = QUuid::createUuid();
    }
    QCOMPARE(store->insert(sameMoment), std::optional<int>(2));
    RunFilter filter;
    filter.limit = 3;
    QList<QUuid> seen;
    for (int page = 0; page < 5; ++page) {
        const QList<RunSummary> found = findRuns(*store, filter).value_or(QList<RunSummary>());
        for (const RunSummary &run : found) {
            QVERIFY(!seen.contains(run.id));
            seen.append(run.id);
        }
        if (found.isEmpty()) {
            break;
        }
        filter.olderThan = RunPlace{found.constLast().begin.toMSecsSinceEpoch(), found.constLast().id};
    }
    QCOMPARE(seen.size(), 10);
    const QList<RunSummary> one = findRuns(*store, {}).value_or(QList<RunSummary>());
    const RunSummary &run = one.constLast();
    QCOMPARE(run.begin, madeRun(0).begin);
    QCOMPARE(run.duration.count(), qint64{1000000});
    QCOMPARE(run.outcome, Outcome::Failed);
    QCOMPARE(QStringList({run.mac, run.serial, run.station, run.location, run.batch, run.firmware, run.operatorName,
                          run.reason, run.firstFinding}),
             QStringList({QStringLiteral("60:60:1F:00:00:01"), QStringLiteral("KC01"), QStringLiteral("left"),
                          QStringLiteral("Hall 3"), QStringLiteral("47"), QStringLiteral("1.2.3"),
                          QStringLiteral("王芳"), QStringLiteral("battery.info"), QStringLiteral("battery.info")}));
    QCOMPARE(run.failedItems, 1);
}

/// Where so many begin alike that the index is of no use, the answer is the same.
void tst_questions::findsBeginningsOfMany()
{
    const std::unique_ptr<Store> store = open(QStringLiteral("sqlite"));
    QVERIFY(store);
    QVector<RunRows> rows;
    const RunRows like = runRows(madeRun(0));
    for (int i = 0; i < 3500; ++i) {
        rows.append(like);
        rows.last().id = QUuid::createUuid();
        rows.last().beginMs += i * qint64{1000};
        rows.last().mac = QStringLiteral("60:60:1F:%1:00:00").arg(i % 64, 2, 16, QLatin1Char('0')).toUpper();
        rows.last().measurements.clear();
    }
    QCOMPARE(store->insert(rows), std::optional<int>(3500));
    RunFilter filter;
    filter.mac = QStringLiteral("60:60:1F:1");
    filter.limit = 0;
    QList<RunSummary> found = findRuns(*store, filter).value_or(QList<RunSummary>());
    QCOMPARE(found.size(), 880); // 55 or 54 of each of the 16
    // All are of that station; but no index tells that, and the runs are looked at in the order of time.
    for (const QString &station : {QString(), QStringLiteral("left")}) {
        filter = {};
        filter.mac = QStringLiteral("60:60:1F");
        filter.limit = 100;
        filter.station = station;
        found = findRuns(*store, filter).value_or(QList<RunSummary>());
        QCOMPARE(found.size(), 100);
        QCOMPARE(found.constFirst().id, rows.constLast().id);
        QCOMPARE(found.constLast().id, rows.at(3400).id);
        filter.olderThan = RunPlace{rows.at(3400).beginMs, rows.at(3400).id};
        found = findRuns(*store, filter).value_or(QList<RunSummary>());
        QCOMPARE(found.size(), 100);
        QCOMPARE(found.constFirst().id, rows.at(3399).id);
        QCOMPARE(found.constLast().id, rows.at(3300).id);
    }
}

void tst_questions::findsIds_data()
{
    QTest::addColumn<QString>("engine");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    const QString id = madeRun(3).id.toString(QUuid::WithoutBraces);
    for (const char *engine : {"sqlite", "postgresql"}) {
        const auto row = [engine](const char *title, const QString &text, int count) {
            QTest::addRow("%s: %s", engine, title) << QString::fromLatin1(engine) << text << count;
        };
        row("whole", id, 1);
        row("in braces and capital letters", QLatin1Char('{') + id.toUpper() + QLatin1Char('}'), 1);
        row("its first eight digits", id.left(8), 1);
        row("beyond the first hyphen", id.left(11), 1);
        row("too short", id.left(3), 0);
        row("another one", QStringLiteral("00000000"), 0);
        row("no digits", QStringLiteral("latest"), 0);
        row("too long", id + QLatin1Char('0'), 0);
        row("empty", {}, 0);
    }
}

void tst_questions::findsIds()
{
    SKIP_WITHOUT_ENGINE()
    QFETCH(QString, text);
    QFETCH(int, count);
    Store *store = shared(engine);
    QVERIFY(store);
    const std::optional<QList<QUuid>> ids = findRunIds(*store, text);
    QVERIFY2(ids, qPrintable(store->error().text));
    QCOMPARE(ids->size(), count);
    if (count == 1) {
        QCOMPARE(ids->constFirst(), madeRun(3).id);
    }
}

void tst_questions::counts()
{
    SKIP_WITHOUT_ENGINE()
    const std::unique_ptr<Store> store = openWithRuns(engine);
    QVERIFY(store);
    const std::optional<Statistics> statistics = readStatistics(*store, {});
    QVERIFY2(statistics, qPrintable(store->error().text));
    QCOMPARE(sumsText(statistics->total), QStringLiteral("8 runs 4+ 3- 1s 0e 8000ms 3 cameras 1 1"));
    QCOMPARE(statistics->first, QDate(2026, 11, 1));
    QCOMPARE(statistics->last, QDate(2026, 11, 6));
    QCOMPARE(groupsText(statistics->byDay), QStringLiteral("2026-11-01:1/2 2026-11-02:1/1 2026-11-03:1/1 "
                                                           "2026-11-04:0/1 2026-11-05:1/2 2026-11-06:0/1"));
    QCOMPARE(groupsText(statistics->byStation), QStringLiteral("left:2/5 right:2/3"));
    QCOMPARE(groupsText(statistics->byBatch), QStringLiteral("47:4/8"));
    QCOMPARE(groupsText(statistics->byFirmware), QStringLiteral("1.2.3:3/4 1.2.4:1/4"));
    QCOMPARE(statistics->items.size(), 1);
    QCOMPARE(statistics->items.constFirst().item, QStringLiteral("battery.info"));
    QCOMPARE(statistics->items.constFirst().sums.ran, qint64{8});
    QCOMPARE(statistics->items.constFirst().sums.failed, qint64{3});
    QCOMPARE(statistics->items.constFirst().sums.warned, qint64{0});
}

void tst_questions::countsWithinBounds_data()
{
    QTest::addColumn<StatisticsFilter>("filter");
    QTest::addColumn<QString>("sums");
    const auto row = [](const char *title, const StatisticsFilter &filter, const char *sums) {
        QTest::newRow(title) << filter << QString::fromLatin1(sums);
    };
    row("from a day on", {QDate(2026, 11, 5), {}, {}, {}, {}}, "3 runs 1+ 2- 0s 0e 3000ms 1 cameras 0 0");
    row("up to a day", {{}, QDate(2026, 11, 1), {}, {}, {}}, "2 runs 1+ 1- 0s 0e 2000ms 1 cameras 0 1");
    row("a station", {{}, {}, QStringLiteral("right"), {}, {}}, "3 runs 2+ 1- 0s 0e 3000ms 2 cameras 1 0");
    row("a firmware", {{}, {}, {}, {}, QStringLiteral("1.2.4")}, "4 runs 1+ 2- 1s 0e 4000ms 1 cameras 0 0");
    row("nothing", {QDate(2027, 1, 1), {}, {}, {}, {}}, "0 runs 0+ 0- 0s 0e 0ms 0 cameras 0 0");
}

void tst_questions::countsWithinBounds()
{
    QFETCH(StatisticsFilter, filter);
    const std::unique_ptr<Store> store = openWithRuns(QStringLiteral("sqlite"));
    QVERIFY(store);
    const std::optional<Statistics> statistics = readStatistics(*store, filter);
    QVERIFY(statistics);
    QTEST(sumsText(statistics->total), "sums");
    QCOMPARE(statistics->first.isValid(), statistics->total.runs > 0);
}

void tst_questions::describesMeasurements()
{
    SKIP_WITHOUT_ENGINE()
    const std::unique_ptr<Store> store = openWithRuns(engine);
    QVERIFY(store);
    const auto summary = [&store](const StatisticsFilter &filter) {
        QStringList texts;
        const QList<Distribution> all = readDistributions(*store, filter).value_or(QList<Distribution>());
        for (const Distribution &entry : all) {
            texts.append(QStringLiteral("%1 %2 %3 n=%4 out=%5 %6..%7 mean=%8")
                             .arg(entry.item, entry.name, entry.unit)
                             .arg(entry.count)
                             .arg(entry.outside)
                             .arg(entry.least)
                             .arg(entry.most)
                             .arg(entry.mean, 0, 'f', 4));
        }
        return texts;
    };
    QCOMPARE(summary({}),
             QStringList({QStringLiteral("battery.info battery.temperature °C n=8 out=0 25.34..25.34 "
                                         "mean=25.3400"),
                          QStringLiteral("battery.info battery.voltage V n=8 out=3 3.8..4.4 mean=4.1400")}));
    QCOMPARE(summary({QDate(2026, 11, 4), QDate(2026, 11, 5), QStringLiteral("left"), {}, {}}),
             QStringList({QStringLiteral("battery.info battery.temperature °C n=2 out=0 25.34..25.34 mean=25.3400"),
                          QStringLiteral("battery.info battery.voltage V n=2 out=0 3.8..3.9 mean=3.8500")}));
    const QList<Distribution> all = readDistributions(*store, {}).value_or(QList<Distribution>());
    QVERIFY(all.value(1).limit == Limit({3.6, 4.35, {}}));
}

void tst_questions::countsWhatIsOutsideItsLimits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<Limit>("limit");
    QTest::addColumn<int>("outside");
    const Limit both{3.6, 4.35, {}};
    QTest::newRow("below") << 3.5 << both << 1;
    QTest::newRow("at the least") << 3.6 << both << 0;
    QTest::newRow("within") << 4.0 << both << 0;
    QTest::newRow("at the most") << 4.35 << both << 0;
    QTest::newRow("above") << 4.4 << both << 1;
    QTest::newRow("below the only bound") << 3.5 << Limit{3.6, {}, {}} << 1;
    QTest::newRow("above the only bound") << 4.4 << Limit{{}, 4.35, {}} << 1;
    QTest::newRow("above a least") << 9.0 << Limit{3.6, {}, {}} << 0;
    QTest::newRow("below a most") << -9.0 << Limit{{}, 4.35, {}} << 0;
}

void tst_questions::countsWhatIsOutsideItsLimits()
{
    QFETCH(const double, value);
    QFETCH(const Limit, limit);
    RunRecord run = madeRun(0);
    Measurement &voltage = run.components[1].items[1].measurements[0];
    voltage.value = value;
    voltage.limit = limit;
    const QTemporaryDir folder;
    StoreError error;
    const std::unique_ptr<Store> store =
        Store::open(StoreAddress::file(folder.filePath(QStringLiteral("one.sqlite"))), {}, &error);
    QVERIFY2(store && store->insert({runRows(run)}), qPrintable(error.text));
    const QList<Distribution> all = readDistributions(*store, {}).value_or(QList<Distribution>());
    const auto found = std::find_if(all.begin(), all.end(), [&voltage](const Distribution &distribution) {
        return distribution.name == voltage.name;
    });
    QVERIFY(found != all.end());
    QTEST(static_cast<int>(found->outside), "outside");
}

void tst_questions::namesFailedCameras()
{
    SKIP_WITHOUT_ENGINE()
    const std::unique_ptr<Store> store = openWithRuns(engine);
    QVERIFY(store);
    const std::optional<QList<FailedCamera>> failed = readFailedCameras(*store, {});
    QVERIFY2(failed, qPrintable(store->error().text));
    QList<RunSummary> of;
    for (const FailedCamera &camera : *failed) {
        of.append(camera.run);
        QCOMPARE(camera.findings.size(), 1);
        const FindingRow &finding = camera.findings.constFirst();
        QCOMPARE(
            QStringList({finding.item, finding.verdict, finding.message, finding.measurement, finding.limits}),
            QStringList({QStringLiteral("battery.info"), QStringLiteral("failed"), QStringLiteral("获取电池信息成功"),
                         QStringLiteral("battery.voltage"), QStringLiteral("3.6..4.35")}));
    }
    // The first camera passed in the end.
    QCOMPARE(numbers(of), QStringLiteral("7 5"));
    QCOMPARE(failed->at(0).findings.constFirst().value, QStringLiteral("4.4"));
    QCOMPARE(failed->at(1).findings.constFirst().value, QStringLiteral("4.36"));
    QCOMPARE(readFailedCameras(*store, {QDate(2026, 11, 6), {}, {}, {}, {}})->size(), 1);
    QCOMPARE(readFailedCameras(*store, {{}, {}, QStringLiteral("right"), {}, {}})->size(), 1);
}

void tst_questions::prunesAsIfTheyHadNeverBeen_data()
{
    QTest::addColumn<QString>("engine");
    QTest::addColumn<QDate>("day");
    QTest::addColumn<int>("removed");
    for (const char *engine : {"sqlite", "postgresql"}) {
        const auto row = [engine](const char *title, const QDate &day, int removed) {
            QTest::addRow("%s: %s", engine, title) << QString::fromLatin1(engine) << day << removed;
        };
        row("nothing", {2026, 11, 1}, 0);
        row("a camera's first judgement", {2026, 11, 2}, 2);
        row("half of them", {2026, 11, 4}, 4);
        row("a run that judged nothing", {2026, 11, 5}, 5);
        row("all but one", {2026, 11, 6}, 7);
        row("all", {2026, 11, 7}, 8);
    }
}

void tst_questions::prunesAsIfTheyHadNeverBeen()
{
    SKIP_WITHOUT_ENGINE()
    QFETCH(QDate, day);
    QFETCH(int, removed);
    const std::unique_ptr<Store> store = openWithRuns(engine);
    QVERIFY(store);
    const std::unique_ptr<Store> never = open(QStringLiteral("sqlite"), QStringLiteral("never-%1.sqlite").arg(removed));
    QVERIFY(never);
    QVERIFY(never->insert(madeRows(removed, static_cast<int>(runs.size()))));
    QCOMPARE(countUnsentBefore(*store, day).value_or(-1), qint64{engine == QLatin1String("sqlite") ? removed : 0});

    qint64 shown = 0;
    const std::optional<qint64> count = pruneRuns(*store, day, {[&shown](qint64 done, qint64) {
        shown = done;
        return true;
    }});
    QVERIFY2(count, qPrintable(store->error().text));
    QCOMPARE(*count, qint64{removed});
    QCOMPARE(shown, qint64{removed});
    if (engine == QLatin1String("sqlite")) {
        for (const char *table :
             {"run", "record", "finding", "measurement", "camera", "tally", "item_tally", "unsent"}) {
            QCOMPARE(content(store.get(), QString::fromLatin1(table)),
                     content(never.get(), QString::fromLatin1(table)));
        }
    }
    const std::optional<Statistics> left = readStatistics(*store, {});
    const std::optional<Statistics> expected = readStatistics(*never, {});
    QVERIFY(left && expected);
    QCOMPARE(sumsText(left->total), sumsText(expected->total));
    QCOMPARE(groupsText(left->byDay), groupsText(expected->byDay));
    // And what comes back is counted as what comes for the first time.
    QCOMPARE(store->insert(madeRows(0, removed)).value_or(-1), removed);
    QCOMPARE(sumsText(readStatistics(*store, {})->total), QStringLiteral("8 runs 4+ 3- 1s 0e 8000ms 3 cameras 1 1"));
}

void tst_questions::prunesUntilAsked()
{
    const std::unique_ptr<Store> store = openWithRuns(QStringLiteral("sqlite"));
    QVERIFY(store);
    const std::optional<qint64> removed =
        pruneRuns(*store, QDate(2026, 11, 7), {[](qint64 done, qint64) { return done < 3; }});
    QCOMPARE(removed.value_or(-1), qint64{3});
    QCOMPARE(numbers(findRuns(*store, {}).value_or(QList<RunSummary>())), QStringLiteral("7 6 5 4 3"));
}

void tst_questions::givesSpaceBack()
{
    const std::unique_ptr<Store> store = open(QStringLiteral("sqlite"));
    QVERIFY(store);
    QVector<RunRows> rows;
    for (int i = 0; i < 2000; ++i) {
        rows.append(runRows(madeRun(i % 8)));
        rows.last().id = QUuid::createUuid();
    }
    QVERIFY(store->insert(rows));
    const auto size = [this] {
        return QFileInfo(m_folder->filePath(QStringLiteral("runs.sqlite"))).size() +
               QFileInfo(m_folder->filePath(QStringLiteral("runs.sqlite-wal"))).size();
    };
    const qint64 before = size();
    QVERIFY(pruneRuns(*store, QDate(2026, 11, 7), {[](qint64, qint64) { return true; }}));
    QVERIFY2(size() < before / 5, qPrintable(QStringLiteral("%1 of %2").arg(size()).arg(before)));
}

QTEST_GUILESS_MAIN(tst_questions)
#include "tst_questions.moc"
