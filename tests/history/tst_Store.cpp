#include "history/store/schema.h"
#include "history/store/ServerCopy.h"
#include "history/store/Store.h"
#include "hostileTexts.h"
#include "language/Language.h"
#include "manyRuns.h"
#include "PostgresServer.h"

#include <algorithm>
#include <memory>
#include <QDir>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <thread>

using namespace std::chrono_literals;
Q_DECLARE_METATYPE(StoreError::Kind)

/// A store of each engine.
class tst_Store : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void givesBackWhatItWasGiven_data();
    void givesBackWhatItWasGiven();
    void keepsARunOnce_data() { addEngines(); }
    void keepsARunOnce();
    void keepsAllOfATransactionOrNothing_data() { addEngines(); }
    void keepsAllOfATransactionOrNothing();
    void cutsLongTextsInColumnsAlone();
    void goesOnAfterRowsThatWereRefused_data();
    void goesOnAfterRowsThatWereRefused();
    void tellsOfAServerThatHasGone();
    void answersQuestionsWithoutTheRecord_data() { addEngines(); }
    void answersQuestionsWithoutTheRecord();
    void keepsTextsInColumnsAsTheyAre();
    void keepsNumbersInColumnsAsTheyAre_data() { addEngines(); }
    void keepsNumbersInColumnsAsTheyAre();
    void knowsTheCamera_data() { addEngines(); }
    void knowsTheCamera();
    void knowsEveryCameraOfManyRuns_data() { addEngines(); }
    void knowsEveryCameraOfManyRuns();
    void countsACameraOnceInWhateverOrderItsRunsCome_data();
    void countsACameraOnceInWhateverOrderItsRunsCome();
    void twoWritersCountTogether_data() { addEngines(); }
    void twoWritersCountTogether();
    void queuesForTheServer();
    void refusesARunWithoutIdOrTime();
    void tellsWhyItDoesNotOpen_data();
    void tellsWhyItDoesNotOpen();
    void bringsEverySchemaUpToDate_data();
    void bringsEverySchemaUpToDate();
    void looksWithoutWriting();
    void tellsOfADamagedRecord();
    void packsOneRecordAfterTheOther();
    void keepsErrorsInNoLanguage_data();
    void keepsErrorsInNoLanguage();

private:
    static void addEngines();
    bool isMissing(const QString &engine) const;
    std::unique_ptr<Store> open(const QString &engine, Connection::Access access = Connection::Access::Write);
    StoreAddress address(const QString &engine) const;
    /// Makes the store that `sql` is the dump of.
    bool restore(const QString &engine, const QByteArray &sql);
    /// Tables, columns and indexes.
    static QString structure(const QString &engine, Store *store);
    /// The answer's rows, line by line.
    static QString values(Store *store, const char *question);

    PostgresServer m_server;
    QString m_noServer; ///< why there is none
    std::unique_ptr<QTemporaryDir> m_folder;
    StoreError m_error;
};

void tst_Store::initTestCase()
{
    m_noServer = m_server.start();
}

void tst_Store::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    if (m_noServer.isEmpty()) {
        m_server.empty();
    }
}

bool tst_Store::isMissing(const QString &engine) const
{
    return engine == QLatin1String("postgresql") && !m_noServer.isEmpty();
}

void tst_Store::addEngines()
{
    QTest::addColumn<QString>("engine");
    QTest::newRow("SQLite") << "sqlite";
    QTest::newRow("PostgreSQL") << "postgresql";
}

StoreAddress tst_Store::address(const QString &engine) const
{
    QString reason;
    return engine == QLatin1String("sqlite") ? StoreAddress::file(m_folder->filePath(QStringLiteral("记录.sqlite")))
                                             : *StoreAddress::server(m_server.url(), &reason);
}

std::unique_ptr<Store> tst_Store::open(const QString &engine, Connection::Access access)
{
    Store::Options options;
    options.access = access;
    return Store::open(address(engine), options, &m_error);
}

QString tst_Store::values(Store *store, const char *question)
{
    QSqlQuery query(store->connection().database());
    if (!query.exec(QLatin1String(question))) {
        return query.lastError().text();
    }
    QStringList lines;
    while (query.next()) {
        QStringList cells;
        for (int i = 0; i < query.record().count(); ++i) {
            cells.append(query.isNull(i) ? QString() : query.value(i).toString());
        }
        lines.append(cells.join(QLatin1Char('|')));
    }
    return lines.join(QLatin1Char('\n'));
}

void tst_Store::givesBackWhatItWasGiven_data()
{
    addHostileTexts();
}

void tst_Store::givesBackWhatItWasGiven()
{
    QFETCH(QString, text);
    QFETCH(QString, json);
    const RunRecord run = recordWithText(text);
    for (const char *engine : {"sqlite", "postgresql"}) {
        if (isMissing(QLatin1String(engine))) {
            continue;
        }
        const std::unique_ptr<Store> store = open(QLatin1String(engine));
        QVERIFY2(store, qUtf8Printable(m_error.text));
        QVERIFY2(store->insert({runRows(run)}), qUtf8Printable(store->error().text));
        const std::optional<RunRecord> back = store->read(run.id);
        QVERIFY2(back, qUtf8Printable(store->error().text));
        QVERIFY(*back == recordWithText(json));
    }
}

void tst_Store::keepsARunOnce()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    const RunRows run = runRows(exampleRecord());
    const RunRows other = runRows(runOf(QStringLiteral("60:60:1F:0A:5F:2B"), 10, Outcome::Passed));
    QCOMPARE(store->insert({run, run}), std::optional<int>(1));
    QCOMPARE(store->insert({run, other}), std::optional<int>(1));
    QCOMPARE(store->insert({run, other}), std::optional<int>(0));
    // A server has no other one to send them to.
    QCOMPARE(values(store.get(), "SELECT (SELECT count(*) FROM run), (SELECT count(*) FROM record), "
                                 "(SELECT sum(runs) FROM tally), (SELECT sum(runs) FROM camera), "
                                 "(SELECT count(*) FROM unsent)"),
             engine == QLatin1String("sqlite") ? QStringLiteral("2|2|2|2|2") : QStringLiteral("2|2|2|2|0"));
}

void tst_Store::keepsAllOfATransactionOrNothing()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    QVERIFY(store->connection().execute(QStringLiteral("DROP TABLE item_tally")));
    const RunRows run = runRows(exampleRecord());
    QVERIFY(!store->insert({run}));
    QVERIFY(store->error().text.contains(QLatin1String("item_tally")));
    QCOMPARE(values(store.get(), "SELECT (SELECT count(*) FROM run), (SELECT count(*) FROM record), "
                                 "(SELECT count(*) FROM measurement), (SELECT count(*) FROM tally), "
                                 "(SELECT count(*) FROM camera WHERE runs > 0)"),
             QStringLiteral("0|0|0|0|0"));
    QVERIFY(
        store->connection().execute(inWordsOf(store->connection().address().engine, "ALTER TABLE tally RENAME TO t")));
    QVERIFY(!store->insert({run}));
}

void tst_Store::cutsLongTextsInColumnsAlone()
{
    const std::unique_ptr<Store> store = open(QStringLiteral("sqlite"));
    QVERIFY2(store, qUtf8Printable(m_error.text));
    RunRecord run = exampleRecord();
    run.serial = QString(200, QLatin1Char('x')) + QLatin1Char('y');
    QVERIFY(store->insert({runRows(run)}));
    QCOMPARE(values(store.get(), "SELECT serial FROM run"), QString(200, QLatin1Char('x')));
    QCOMPARE(store->read(run.id), std::optional<RunRecord>(run));
}

void tst_Store::goesOnAfterRowsThatWereRefused_data()
{
    QTest::addColumn<QByteArray>("refuse");
    QTest::addColumn<QByteArray>("accept");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("no such table") << QByteArray("ALTER TABLE record RENAME TO away")
                                   << QByteArray("ALTER TABLE away RENAME TO record")
                                   << QByteArray("relation \"record\" does not exist");
    QTest::newRow("no such column") << QByteArray("ALTER TABLE finding RENAME COLUMN limits TO away")
                                    << QByteArray("ALTER TABLE finding RENAME COLUMN away TO limits")
                                    << QByteArray("column \"limits\" of relation \"finding\" does not exist");
    QTest::newRow("a row that may not be")
        << QByteArray("ALTER TABLE measurement ADD CONSTRAINT few CHECK (place < 3)")
        << QByteArray("ALTER TABLE measurement DROP CONSTRAINT few") << QByteArray("violates check constraint \"few\"");
    QTest::newRow("a value of another type")
        << QByteArray("ALTER TABLE finding ALTER COLUMN value TYPE DATE USING DATE '2026-11-21'")
        << QByteArray("ALTER TABLE finding ALTER COLUMN value TYPE TEXT")
        << QByteArray("invalid input syntax for type date: \"4.36\"");
}

void tst_Store::goesOnAfterRowsThatWereRefused()
{
    if (!m_noServer.isEmpty()) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    QFETCH(const QByteArray, refuse);
    QFETCH(const QByteArray, accept);
    QFETCH(const QByteArray, reason);
    const std::unique_ptr<Store> store = open(QStringLiteral("postgresql"));
    QVERIFY2(store, qUtf8Printable(m_error.text));
    const RunRows run = runRows(exampleRecord());
    QVERIFY(store->connection().execute(QLatin1String(refuse)));
    QVERIFY(!store->insert({run}));
    QCOMPARE(store->error().kind, StoreError::Kind::Other);
    QVERIFY2(store->error().text.contains(QLatin1String(reason)), qUtf8Printable(store->error().text));
    QVERIFY(store->connection().execute(QLatin1String(accept)));
    QCOMPARE(values(store.get(), "SELECT (SELECT count(*) FROM run), (SELECT count(*) FROM record), "
                                 "(SELECT count(*) FROM finding), (SELECT count(*) FROM measurement)"),
             QStringLiteral("0|0|0|0"));
    QCOMPARE(store->insert({run}), std::optional<int>(1));
    QCOMPARE(store->read(run.id), std::optional<RunRecord>(exampleRecord()));
    // Also what had been put in before the refusal, and was taken back with everything else.
    QCOMPARE(values(store.get(), "SELECT count(*) FROM measurement JOIN series ON series.id = measurement.series"),
             QStringLiteral("6"));
}

void tst_Store::tellsOfAServerThatHasGone()
{
    if (!m_noServer.isEmpty()) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    const std::unique_ptr<Store> store = open(QStringLiteral("postgresql"));
    QVERIFY2(store, qUtf8Printable(m_error.text));
    ServerCopy copy(store->connection().database(), QStringLiteral("series (id, item, name, unit)"));
    QVERIFY(copy.put({1, QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}, 4));
    m_server.kill();
    // What the library still takes does not arrive.
    const QVector<QVariant> row = {2, QString(1000, QLatin1Char('x')), QStringLiteral("b"), QStringLiteral("c")};
    constexpr int mostRows = 10000;
    int rows = 0;
    while (rows < mostRows && copy.put(row, 4)) {
        ++rows;
    }
    QVERIFY(!copy.end());
    QCOMPARE(storeError(copy.error(), QStringLiteral("line")).kind, StoreError::Kind::Unreachable);
    QVERIFY(m_server.resume());
}

void tst_Store::answersQuestionsWithoutTheRecord()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    RunRecord run = exampleRecord();
    run.camera.mac = QStringLiteral(" 60:60:1f:0a:5f:2a");
    QVERIFY(store->insert({runRows(run)}));
    QCOMPARE(values(store.get(), "SELECT begin_ms, offset_s, day, end_ms, duration_us, outcome, mac, serial, station, "
                                 "location, batch, firmware, operator_name, wifi_name, link, program_version, reason, "
                                 "failed_items, first_finding FROM run"),
             QStringLiteral("1795249800250|3600|2026-11-21|1795249800731|481250|failed|60:60:1F:0A:5F:2A|KC0012345|"
                            "line-2-left|Hall 3|2026-47|1.2.3|王芳|Camera-5F2A|wifi|1.0.3|battery.info|1|"
                            "battery.info"));
    QCOMPARE(values(store.get(), "SELECT item, begin_ms, place, verdict, message, measurement, value, limits "
                                 "FROM finding"),
             QStringLiteral("battery.info|1795249800250|2|failed|获取电池信息成功|battery.voltage|4.36|3.6..4.35"));
    QCOMPARE(values(store.get(), "SELECT item, name, unit, place, number, text, least, most FROM measurement "
                                 "JOIN series ON series.id = measurement.series ORDER BY place"),
             QStringLiteral("camera.video|camera.statusWord||0||0x000000000008001a||\n"
                            "battery.info|battery.voltage|V|1|4.36||3.6|4.35\n"
                            "battery.info|battery.current|mA|2|-250|||\n"
                            "battery.info|battery.temperature|°C|3|25.34|||45\n"
                            "battery.info|battery.softwareVersion||4||1.2.3.4||\n"
                            "log.version|firmware||5||1.2.3||"));
    QCOMPARE(values(store.get(), "SELECT * FROM tally"),
             QStringLiteral("2026-11-21|line-2-left|2026-47|1.2.3|1|0|1|0|0|481|1|0|0"));
    QCOMPARE(values(store.get(), "SELECT item, ran, failed, warned FROM item_tally ORDER BY item"),
             QStringLiteral("battery.info|1|1|0\nbattery.link|1|0|0\ncamera.video|1|0|0\nlog.version|1|0|0"));
}

void tst_Store::keepsTextsInColumnsAsTheyAre()
{
    for (const char *engine : {"sqlite", "postgresql"}) {
        if (isMissing(QLatin1String(engine))) {
            continue;
        }
        const std::unique_ptr<Store> store = open(QLatin1String(engine));
        QVERIFY2(store, qUtf8Printable(m_error.text));
        const QStringList texts = {QStringLiteral("NULL"),
                                   QStringLiteral("null"),
                                   QString(),
                                   QStringLiteral("{a,\"b\",NULL}'),\\"),
                                   QStringLiteral("a\\\\\"b'"),
                                   QStringLiteral("  a\tb\n"),
                                   QStringLiteral("a\r\nb\\"),
                                   QStringLiteral("\\N"),
                                   QStringLiteral("\\."),
                                   QStringLiteral("\\t\\x41"),
                                   QStringLiteral("相机")};
        QVector<RunRows> runs; // in one statement
        for (const QString &text : texts) {
            RunRecord run = recordWithText(text);
            run.id = QUuid::createUuid();
            run.begin = run.begin.addMSecs(runs.size());
            runs.append(runRows(run));
        }
        QCOMPARE(store->insert(runs), std::optional<int>(static_cast<int>(texts.size())));
        QCOMPARE(values(store.get(), "SELECT serial FROM run ORDER BY begin_ms"), texts.join(QLatin1Char('\n')));
        QCOMPARE(values(store.get(), "SELECT text FROM measurement JOIN series ON series.id = measurement.series "
                                     "WHERE series.name = 'battery.softwareVersion' ORDER BY begin_ms"),
                 texts.join(QLatin1Char('\n')));
    }
}

void tst_Store::keepsNumbersInColumnsAsTheyAre()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    const QVector<double> numbers = {0.1,   -250, 0.30000000000000004, 4.9406564584124654e-324, 1.7976931348623157e308,
                                     -1e-7, 1e21, 123456789012345680};
    RunRows run = runRows(exampleRecord());
    const MeasurementRow first = run.measurements.first();
    run.measurements.clear();
    for (const double number : numbers) {
        MeasurementRow row = first;
        row.place = static_cast<int>(run.measurements.size());
        row.text.clear();
        row.number = number;
        row.least = -number;
        run.measurements.append(row);
    }
    QCOMPARE(store->insert({run}), std::optional<int>(1));
    QSqlQuery query(store->connection().database());
    QVERIFY(query.exec(QStringLiteral("SELECT number, least FROM measurement ORDER BY place")));
    for (const double number : numbers) {
        QVERIFY(query.next());
        QVERIFY2(query.value(0).toDouble() == number, qPrintable(query.value(0).toString()));
        QVERIFY2(query.value(1).toDouble() == -number, qPrintable(query.value(1).toString()));
    }
    QVERIFY(!query.next());
}

void tst_Store::knowsTheCamera()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    const QString mac = QStringLiteral("60:60:1F:00:00:01");
    QCOMPARE(store->camera(mac)->runs, 0);
    QVERIFY(store->camera(mac)->lastRun.isNull());
    const RunRecord first = runOf(mac, 0, Outcome::Passed);
    const RunRecord last = runOf(mac, 60, Outcome::Stopped);
    const RunRecord between = runOf(mac, 30, Outcome::Failed);
    QVERIFY(store->insert({runRows(last)}));
    QVERIFY(store->insert({runRows(first), runRows(between)}));
    const std::optional<CameraRow> camera = store->camera(QStringLiteral("60:60:1f:00:00:01"));
    QVERIFY(camera);
    QCOMPARE(camera->runs, 3);
    QCOMPARE(camera->lastRun, last.id);
    QCOMPARE(camera->lastOutcome, QStringLiteral("stopped"));
    QCOMPARE(camera->lastBeginMs, last.begin.toMSecsSinceEpoch());
    QVERIFY(camera->first->passed);
    QVERIFY(!camera->last->passed);
    QCOMPARE(values(store.get(), "SELECT count(*) FROM camera"), QStringLiteral("1"));
}

void tst_Store::knowsEveryCameraOfManyRuns()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    QStringList macs = {QStringLiteral("NULL"),      QStringLiteral("{A,\"B\",NULL}'),\\"),
                        QStringLiteral("A\\\\\"B'"), QStringLiteral("A\tB"),
                        QStringLiteral(":0"),        QStringLiteral("?"),
                        QStringLiteral("%1"),        QStringLiteral("相机")};
    constexpr int moreThanOneStatementTakes = 1100;
    for (int i = static_cast<int>(macs.size()); i < moreThanOneStatementTakes; ++i) {
        macs.append(QStringLiteral("60:60:1F:00:%1").arg(i, 4, 16, QLatin1Char('0')).toUpper());
    }
    for (const Outcome outcome : {Outcome::Passed, Outcome::Failed}) {
        QVector<RunRows> runs;
        for (const QString &mac : qAsConst(macs)) {
            runs.append(runRows(runOf(mac, outcome == Outcome::Passed ? 0 : 60, outcome)));
        }
        QCOMPARE(store->insert(runs), std::optional<int>(moreThanOneStatementTakes));
    }
    QCOMPARE(values(store.get(), "SELECT count(*), min(runs), max(runs), min(first_passed), max(final_passed) "
                                 "FROM camera"),
             QStringLiteral("1100|2|2|1|0"));
    for (const QString &mac : qAsConst(macs)) {
        const std::optional<CameraRow> camera = store->camera(mac);
        QVERIFY2(camera, qUtf8Printable(store->error().text));
        QCOMPARE(camera->mac, mac);
        QCOMPARE(camera->runs, 2);
        QCOMPARE(camera->lastOutcome, QStringLiteral("failed"));
    }
    QCOMPARE(values(store.get(), "SELECT runs, cameras, first_passed, final_passed FROM tally"),
             QStringLiteral("2200|1100|1100|0"));
}

void tst_Store::countsACameraOnceInWhateverOrderItsRunsCome_data()
{
    QTest::addColumn<QString>("engine");
    QTest::addColumn<QVector<int>>("order");
    QTest::addColumn<bool>("together");
    QVector<int> order = {0, 1, 2, 3};
    do {
        for (const char *engine : {"sqlite", "postgresql"}) {
            // All of them on the quick engine, some on the other one.
            if (engine == QLatin1String("sqlite") || order.first() + 1 == order.last()) {
                for (const bool together : {false, true}) {
                    QTest::addRow("%d%d%d%d %s, %s", order[0], order[1], order[2], order[3],
                                  together ? "together" : "one by one", engine)
                        << engine << order << together;
                }
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

void tst_Store::countsACameraOnceInWhateverOrderItsRunsCome()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    QFETCH(QVector<int>, order);
    QFETCH(bool, together);
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    const QString mac = QStringLiteral("60:60:1F:00:00:01");
    constexpr int day = 86400;
    const QVector<RunRecord> runs = {runOf(mac, 0, Outcome::Error), runOf(mac, day, Outcome::Failed),
                                     runOf(mac, day + 60, Outcome::Failed), runOf(mac, 2 * day, Outcome::Passed)};
    QVector<RunRows> rows;
    for (const int i : order) {
        rows.append(runRows(runs[i]));
    }
    if (together) {
        QCOMPARE(store->insert(rows), std::optional<int>(4));
    } else {
        for (const RunRows &row : qAsConst(rows)) {
            QCOMPARE(store->insert({row}), std::optional<int>(1));
        }
    }
    QCOMPARE(values(store.get(), "SELECT day, runs, passed, failed, error, cameras, first_passed, final_passed "
                                 "FROM tally ORDER BY day"),
             QStringLiteral("2026-11-21|1|0|0|1|0|0|0\n2026-11-22|2|0|2|0|1|0|1\n2026-11-23|1|1|0|0|0|0|0"));
    QCOMPARE(store->camera(mac)->lastRun, runs[3].id);
}

void tst_Store::twoWritersCountTogether()
{
    QFETCH(QString, engine);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    constexpr int runsEach = 40;
    const auto write = [&](int writer) {
        StoreError error;
        const std::unique_ptr<Store> store = Store::open(address(engine), {}, &error);
        for (int i = 0; store && i < runsEach;) {
            // The same camera and day for both; every fourth run comes from both.
            RunRecord run = runOf(QStringLiteral("60:60:1F:00:00:01"), writer + 2 * i, Outcome::Passed);
            if (i % 4 == 0) {
                run = runOf(QStringLiteral("60:60:1F:00:00:02"), i, Outcome::Failed);
                run.id = QUuid(static_cast<uint>(i + 1), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
            }
            i += store->insert({runRows(run)}) ? 1 : 0;
        }
    };
    std::thread one(write, 0);
    std::thread other(write, 1);
    one.join();
    other.join();
    const std::unique_ptr<Store> store = open(engine);
    QVERIFY2(store, qUtf8Printable(m_error.text));
    QCOMPARE(values(store.get(), "SELECT runs, passed, failed, cameras, first_passed, final_passed FROM tally"),
             QStringLiteral("70|60|10|2|1|1"));
    QCOMPARE(values(store.get(), "SELECT mac, runs FROM camera ORDER BY mac"),
             QStringLiteral("60:60:1F:00:00:01|60\n60:60:1F:00:00:02|10"));
}

void tst_Store::queuesForTheServer()
{
    const std::unique_ptr<Store> store = open(QStringLiteral("sqlite"));
    QVERIFY2(store, qUtf8Printable(m_error.text));
    const RunRecord late = runOf({}, 60, Outcome::Passed);
    const RunRecord early = runOf({}, 0, Outcome::Passed);
    QVERIFY(store->insert({runRows(late)}));
    QVERIFY(store->insert({runRows(early)}));
    QVERIFY(store->insert({runRows(runOf({}, 30, Outcome::Passed))}, false));
    QCOMPARE(store->unsent(10), std::optional(QList<QUuid>({early.id, late.id})));
    QCOMPARE(store->unsent(1), std::optional(QList<QUuid>({early.id})));
    ForwardState state = *store->forwardState();
    QCOMPARE(state.queued, 2);
    QVERIFY(state.lastSent.isNull() && state.lastErrorTime.isNull() && state.lastError.isEmpty());

    const QDateTime time(QDate(2026, 11, 21), QTime(9, 0, 0, 5), Qt::UTC);
    QVERIFY(store->setForwardError(QStringLiteral("no route"), time));
    QCOMPARE(store->forwardState()->lastError, QStringLiteral("no route"));
    QCOMPARE(store->forwardState()->lastErrorTime, time);
    QVERIFY(store->setSent({early.id}, time.addSecs(1)));
    state = *store->forwardState();
    QCOMPARE(state.queued, 1);
    QCOMPARE(state.lastSent, time.addSecs(1));
    QCOMPARE(state.lastError, QString());
    QCOMPARE(store->unsent(10), std::optional(QList<QUuid>({late.id})));
}

void tst_Store::refusesARunWithoutIdOrTime()
{
    const std::unique_ptr<Store> store = open(QStringLiteral("sqlite"));
    QVERIFY2(store, qUtf8Printable(m_error.text));
    RunRecord noId = exampleRecord();
    noId.id = {};
    RunRecord noTime = exampleRecord();
    noTime.begin = {};
    for (const RunRecord &run : {noId, noTime}) {
        QVERIFY(!store->insert({runRows(exampleRecord()), runRows(run)}));
        QCOMPARE(store->error().kind, StoreError::Kind::Unfit);
    }
    QCOMPARE(values(store.get(), "SELECT count(*) FROM run"), QStringLiteral("0"));
}

void tst_Store::tellsWhyItDoesNotOpen_data()
{
    QTest::addColumn<QString>("prepare");
    QTest::addColumn<StoreError::Kind>("kind");
    QTest::addColumn<QString>("reason");
    using Kind = StoreError::Kind;
    QTest::newRow("newer schema") << "INSERT INTO schema_step VALUES (1000)" << Kind::Newer
                                  << "it was made by a newer version of this program";
    QTest::newRow("another program's") << "foreign" << Kind::Foreign << "the file is a database of another program";
    QTest::newRow("no database") << "text" << Kind::Damaged << "the file is damaged (file is not a database)";
    QTest::newRow("a folder") << "folder" << Kind::Forbidden
                              << "it cannot be opened or written to (unable to open database file)";
    QTest::newRow("held by another writer")
        << "held" << Kind::Busy << "another program is writing to it (database is locked)";
}

void tst_Store::tellsWhyItDoesNotOpen()
{
    QFETCH(QString, prepare);
    QFETCH(QString, reason);
    const QString path = address(QStringLiteral("sqlite")).path;
    std::unique_ptr<Connection> holder;
    if (prepare == QLatin1String("text")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(10000, 'x')) == 10000);
    } else if (prepare == QLatin1String("folder")) {
        QVERIFY(QDir().mkdir(path));
    } else {
        holder = std::make_unique<Connection>(StoreAddress::file(path), Connection::Access::Write, 0ms);
        QVERIFY(holder->open());
        if (prepare == QLatin1String("foreign")) {
            QVERIFY(holder->execute(QStringLiteral("CREATE TABLE other (a)")));
        } else if (prepare == QLatin1String("held")) {
            QVERIFY(holder->execute(QStringLiteral("BEGIN IMMEDIATE")));
        } else {
            QVERIFY(open(QStringLiteral("sqlite")));
            QVERIFY(holder->execute(prepare));
        }
    }
    Store::Options options;
    options.patience = 50ms;
    QVERIFY(!Store::open(StoreAddress::file(path), options, &m_error));
    QTEST(m_error.kind, "kind");
    QVERIFY2(m_error.text.startsWith(path + QStringLiteral(": ") + reason), qUtf8Printable(m_error.text));
}

bool tst_Store::restore(const QString &engine, const QByteArray &sql)
{
    if (engine == QLatin1String("postgresql")) {
        m_server.execute(QString::fromUtf8(sql));
        return true;
    }
    Connection connection(address(engine), Connection::Access::Write, 0ms);
    const QStringList statements = QString::fromUtf8(sql).split(QStringLiteral(";\n"), Qt::SkipEmptyParts);
    return connection.open() &&
           std::all_of(statements.begin(), statements.end(),
                       [&connection](const QString &statement) { return connection.execute(statement); });
}

QString tst_Store::structure(const QString &engine, Store *store)
{
    if (engine == QLatin1String("sqlite")) {
        return values(store, "SELECT name, sql FROM sqlite_master ORDER BY name");
    }
    return values(store, "SELECT table_name, column_name, data_type, is_nullable, collation_name "
                         "FROM information_schema.columns WHERE table_schema = 'public' ORDER BY table_name, "
                         "ordinal_position") +
           values(store, "SELECT indexdef FROM pg_indexes WHERE schemaname = 'public' ORDER BY indexname");
}

void tst_Store::bringsEverySchemaUpToDate_data()
{
    QTest::addColumn<QString>("engine");
    QTest::addColumn<int>("number");
    for (const SchemaStep &step : schemaSteps()) {
        for (const char *engine : {"sqlite", "postgresql"}) {
            QTest::addRow("schema %d, %s", step.number, engine) << engine << step.number;
        }
    }
}

void tst_Store::bringsEverySchemaUpToDate()
{
    QFETCH(QString, engine);
    QFETCH(int, number);
    if (isMissing(engine)) {
        QSKIP(qUtf8Printable(m_noServer));
    }
    // A dump of a store that holds the example, made by the program whose newest step this was.
    QFile dump(QStringLiteral(KEST_SCHEMA_FOLDER "/schema-%1.%2.sql").arg(number).arg(engine));
    QVERIFY2(dump.open(QIODevice::ReadOnly), qPrintable(dump.fileName()));
    QVERIFY(restore(engine, dump.readAll()));
    QString old;
    {
        Connection connection(address(engine), Connection::Access::Read, 0ms);
        QVERIFY2(connection.open(), qUtf8Printable(connection.error().text));
        QSqlQuery query(connection.database());
        QVERIFY(query.exec(QStringLiteral("SELECT max(number) FROM schema_step")) && query.next());
        old = query.value(0).toString();
    }
    QCOMPARE(old, QString::number(number));

    QString brought;
    {
        const std::unique_ptr<Store> store = open(engine);
        QVERIFY2(store, qUtf8Printable(m_error.text));
        QCOMPARE(values(store.get(), "SELECT max(number) FROM schema_step"),
                 QString::number(schemaSteps().back().number));
        brought = structure(engine, store.get());
        const std::optional<RunRecord> run = store->read(exampleRecord().id);
        QVERIFY2(run, qUtf8Printable(store->error().text));
        QVERIFY(*run == exampleRecord());
        const RunRecord next = runOf(run->camera.mac, 60, Outcome::Passed);
        QCOMPARE(store->insert({runRows(exampleRecord()), runRows(next)}), std::optional<int>(1));
        QCOMPARE(store->camera(next.camera.mac)->runs, 2);
        const bool isServer = store->connection().isServer();
        const QList<QUuid> waiting = isServer ? QList<QUuid>{run->id} : QList<QUuid>{run->id, next.id};
        QCOMPARE(store->unsent(10), std::optional(waiting)); // schema 1 once queued on a server, too
        QCOMPARE(store->forwardState()->queued, isServer ? 0 : 2);
        QCOMPARE(values(store.get(), "SELECT sum(runs), sum(cameras), sum(first_passed), sum(final_passed) FROM tally"),
                 QStringLiteral("2|1|0|1"));
    }
    // It is the same as one that is made anew.
    init();
    const std::unique_ptr<Store> fresh = open(engine);
    QVERIFY2(fresh, qUtf8Printable(m_error.text));
    QCOMPARE(brought, structure(engine, fresh.get()));
}

void tst_Store::looksWithoutWriting()
{
    const auto openToRead = [this] { return open(QStringLiteral("sqlite"), Connection::Access::Read); };
    QVERIFY(!openToRead());
    QCOMPARE(m_error.kind, StoreError::Kind::Missing);
    QVERIFY(!QFile::exists(address(QStringLiteral("sqlite")).path));
    const std::unique_ptr<Store> writer = open(QStringLiteral("sqlite"));
    QVERIFY(writer->insert({runRows(exampleRecord())}));
    const std::unique_ptr<Store> reader = openToRead();
    QVERIFY2(reader, qUtf8Printable(m_error.text));
    QVERIFY(reader->read(exampleRecord().id));
    QVERIFY(!reader->insert({runRows(runOf({}, 1, Outcome::Passed))}));
    QCOMPARE(reader->error().kind, StoreError::Kind::Forbidden);
}

void tst_Store::tellsOfADamagedRecord()
{
    const std::unique_ptr<Store> store = open(QStringLiteral("sqlite"));
    QVERIFY2(store, qUtf8Printable(m_error.text));
    QVERIFY(store->insert({runRows(exampleRecord())}));
    QVERIFY(!store->read(QUuid::createUuid()));
    QVERIFY(!store->error().isError());
    // Announces 4 GiB.
    QVERIFY(store->connection().execute(QStringLiteral("UPDATE record SET body = x'FFFFFFFF' || substr(body, 5)")));
    QVERIFY(!store->read(exampleRecord().id));
    QCOMPARE(store->error().kind, StoreError::Kind::Damaged);
}

void tst_Store::packsOneRecordAfterTheOther()
{
    RecordPacker packer;
    for (const int size : {10, 200000, 1, 3000}) {
        const QByteArray json = QByteArray("{\"reason\": \"").leftJustified(size, 'x', true);
        const QByteArray body = packer.pack(json);
        QCOMPARE(unpackRecord(body), json);
        QCOMPARE(body, RecordPacker().pack(json));
    }
}

void tst_Store::keepsErrorsInNoLanguage_data()
{
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QString>("shown");
    QTest::newRow("without the engine's words")
        << QStringLiteral("C: /runs: the disk is full") << QStringLiteral("C: /runs: 磁盘已满");
    QTest::newRow("with the engine's words") << QStringLiteral("runs: the server cannot be reached (no route: 5)")
                                             << QStringLiteral("runs: 无法连接服务器 (no route: 5)");
    QTest::newRow("as nobody says it") << QStringLiteral("runs: not therefore")
                                       << QStringLiteral("runs: not therefore");
    QTest::newRow("nothing") << QString() << QString();
}

void tst_Store::keepsErrorsInNoLanguage()
{
    QFETCH(const QString, kept);
    installLanguage(*QCoreApplication::instance(), Language::Chinese);
    const StoreError error =
        storeError(StoreError::Kind::Full, QStringLiteral("runs.sqlite"), QStringLiteral("no room"));
    const QString shown = translatedError(kept);
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
    QCOMPARE(error.text, QStringLiteral("runs.sqlite: 磁盘已满 (no room)"));
    QCOMPARE(error.keptText, QStringLiteral("runs.sqlite: the disk is full (no room)"));
    QTEST(shown, "shown");
    QCOMPARE(translatedError(kept), kept);
}

QTEST_GUILESS_MAIN(tst_Store)
#include "tst_Store.moc"
