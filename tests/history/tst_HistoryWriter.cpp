#include "history/door/HistoryWriter.h"
#include "manyRuns.h"
#include "record/recordJson.h"
#include "support/SmallFiles.h"

#include <cstdio>
#include <memory>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {
constexpr int patienceMs = 30000;

/// What a writer has told, for other threads to look at.
struct Told
{
    HistoryWriter::Listener listener()
    {
        return {[this](const QString &text) {
                    const std::lock_guard<std::mutex> lock(mutex);
                    problems.append(text);
                },
                [this] { ++stored; },
                [this](const QString &mac, const CameraRow &row) {
                    const std::lock_guard<std::mutex> lock(mutex);
                    cameras.append(QStringLiteral("%1 %2 %3").arg(mac, QString::number(row.runs), row.lastOutcome));
                }};
    }

    QStringList told()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return problems;
    }
    QStringList known()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return cameras;
    }

    std::mutex mutex;
    QStringList problems;
    QStringList cameras;
    std::atomic<int> stored{0};
};

/// The runs of a store, each once.
QStringList runsIn(const QString &path)
{
    StoreError error;
    const std::unique_ptr<Store> store = Store::open(StoreAddress::file(path), {}, &error);
    if (!store) {
        return {error.text};
    }
    QStringList runs;
    QSqlQuery query(store->connection().database());
    query.exec(QStringLiteral("SELECT id FROM run JOIN record ON record.run = run.id ORDER BY begin_ms"));
    while (query.next()) {
        runs.append(Connection::idOf(query.value(0)).toString(QUuid::WithoutBraces));
    }
    return runs;
}

QString idText(const RunRecord &run)
{
    return run.id.toString(QUuid::WithoutBraces);
}

QStringList spooled(const QString &path)
{
    return QDir(path + QStringLiteral("-spool")).entryList(QDir::Files);
}

/// Whether a run is in the spool or in the store.
bool isOnDisk(const QString &path, const RunRecord &run)
{
    if (spooled(path).contains(idText(run) + QStringLiteral(".json"))) {
        return true;
    }
    StoreError error;
    const std::unique_ptr<Store> store = Store::open(StoreAddress::file(path), {}, &error);
    return store && store->read(run.id).has_value();
}

/// Plays a station until it is killed: says each run when it has handed it over, and again when it is on the disk.
[[noreturn]] void playStation(const QString &path)
{
    Told told;
    HistoryWriter writer(StoreAddress::file(path), told.listener());
    const auto say = [](const char *what, const RunRecord &run) {
        std::printf("%s %s\n", what, qPrintable(idText(run)));
        std::fflush(stdout);
    };
    for (int i = 0;; ++i) {
        const RunRecord run = runNumber(i);
        writer.keep(run);
        say("handed", run);
        // At most ten times as often as the shortest run would end.
        do {
            std::this_thread::sleep_for(100ms);
        } while (!isOnDisk(path, run));
        say("kept", run);
    }
}
} // namespace

/// The thread that writes a station's runs.
class tst_HistoryWriter : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void keepsRuns();
    void keepsWhatWasHandedOverBeforeTheEnd();
    void answersForACamera();
    void spoolsWhileAnotherProgramWrites();
    void worksAgainWhenTheStoreDoes_data();
    void worksAgainWhenTheStoreDoes();
    void keepsRunsWhenTheDiskIsFull();
    void setsAsideWhatIsNoRecord();
    void takesInRunsOfBeforeTheStart();
    void severalStationsShareAStore();
    void writesTooManyWaitingRunsAtOnce();
    void keepsWhatStoodFor250MsWhenItIsKilled();
    void readsOnWhateverByteIsDamaged();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("历史.sqlite")); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_HistoryWriter::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_HistoryWriter::keepsRuns()
{
    Told told;
    HistoryWriter writer(StoreAddress::file(path()), told.listener());
    const RunRecord first = runNumber(0);
    const RunRecord second = runNumber(1);
    writer.keep(first);
    QTRY_COMPARE_WITH_TIMEOUT(told.stored.load(), 1, patienceMs);
    QCOMPARE(runsIn(path()), QStringList{idText(first)});
    writer.keep(second);
    writer.keep(second);
    QTRY_COMPARE_WITH_TIMEOUT(runsIn(path()), QStringList({idText(first), idText(second)}), patienceMs);
    QCOMPARE(told.told(), QStringList());
    QCOMPARE(spooled(path()), QStringList());
}

void tst_HistoryWriter::keepsWhatWasHandedOverBeforeTheEnd()
{
    QStringList runs;
    {
        Told told;
        HistoryWriter writer(StoreAddress::file(path()), told.listener());
        for (int i = 0; i < HistoryWriter::mostWaiting; ++i) {
            const RunRecord run = runNumber(i);
            writer.keep(run);
            runs.append(idText(run));
        }
    }
    QCOMPARE(runsIn(path()), runs);
}

void tst_HistoryWriter::answersForACamera()
{
    Told told;
    HistoryWriter writer(StoreAddress::file(path()), told.listener());
    writer.ask(QStringLiteral("60:60:1f:00:00:01"));
    QTRY_COMPARE_WITH_TIMEOUT(told.known(), QStringList{QStringLiteral("60:60:1f:00:00:01 0 ")}, patienceMs);
    writer.keep(runOf(QStringLiteral("60:60:1F:00:00:01"), 0, Outcome::Passed));
    writer.keep(runOf(QStringLiteral("60:60:1F:00:00:01"), 1, Outcome::Error));
    QTRY_VERIFY_WITH_TIMEOUT(runsIn(path()).size() == 2, patienceMs);
    writer.ask(QStringLiteral("60:60:1f:00:00:01"));
    QTRY_COMPARE_WITH_TIMEOUT(told.known().size(), 2, patienceMs);
    QCOMPARE(told.known().constLast(), QStringLiteral("60:60:1f:00:00:01 2 error"));
}

void tst_HistoryWriter::spoolsWhileAnotherProgramWrites()
{
    Told told;
    HistoryWriter writer(StoreAddress::file(path()), told.listener());
    const RunRecord first = runNumber(0);
    writer.keep(first);
    QTRY_COMPARE_WITH_TIMEOUT(told.stored.load(), 1, patienceMs);
    Connection other(StoreAddress::file(path()), Connection::Access::Write, 1s);
    QVERIFY(other.open() && other.execute(QStringLiteral("BEGIN IMMEDIATE")));
    const RunRecord second = runNumber(1);
    writer.keep(second);
    QTRY_COMPARE_WITH_TIMEOUT(spooled(path()), QStringList{idText(second) + QStringLiteral(".json")}, patienceMs);
    QVERIFY(other.execute(QStringLiteral("COMMIT")));
    QTRY_COMPARE_WITH_TIMEOUT(runsIn(path()), QStringList({idText(first), idText(second)}), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(spooled(path()), QStringList(), patienceMs);
}

void tst_HistoryWriter::worksAgainWhenTheStoreDoes_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("problem");
    QTest::newRow("damaged") << "text"
                             << "the file is damaged (file is not a database)";
    QTest::newRow("of a newer schema") << "INSERT INTO schema_step VALUES (1000)"
                                       << "it was made by a newer version of this program (1000 > 1)";
    QTest::newRow("of another program") << "CREATE TABLE other (a)"
                                        << "the file is a database of another program";
    QTest::newRow("a folder") << "folder"
                              << "it cannot be opened or written to (unable to open database file)";
}

void tst_HistoryWriter::worksAgainWhenTheStoreDoes()
{
    QFETCH(QString, fault);
    QFETCH(QString, problem);
    const auto alter = [this](const QString &statement) {
        Connection other(StoreAddress::file(path()), Connection::Access::Write, 10s);
        return other.open() && other.execute(statement);
    };
    if (fault == QLatin1String("text")) {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(5000, 'x')) == 5000);
    } else if (fault == QLatin1String("folder")) {
        QVERIFY(QDir().mkdir(path()));
    } else {
        if (fault.startsWith(QLatin1String("INSERT"))) {
            QCOMPARE(runsIn(path()), QStringList());
        }
        QVERIFY(alter(fault));
    }
    Told told;
    HistoryWriter writer(StoreAddress::file(path()), told.listener());
    const QString expected = QStringLiteral("%1: %2").arg(path(), problem);
    QTRY_COMPARE_WITH_TIMEOUT(told.told(), QStringList{expected}, patienceMs);
    const RunRecord run = runNumber(0);
    writer.keep(run);
    QTRY_COMPARE_WITH_TIMEOUT(spooled(path()), QStringList{idText(run) + QStringLiteral(".json")}, patienceMs);
    // Somebody puts the file away.
    QVERIFY(QDir().rename(path(), path() + QStringLiteral(".away")));
    QFile::remove(path() + QStringLiteral("-wal"));
    QFile::remove(path() + QStringLiteral("-shm"));
    QTRY_COMPARE_WITH_TIMEOUT(told.told(), QStringList({expected, QString()}), patienceMs);
    QCOMPARE(runsIn(path()), QStringList{idText(run)});
    QCOMPARE(spooled(path()), QStringList());
}

void tst_HistoryWriter::keepsRunsWhenTheDiskIsFull()
{
    Told told;
    HistoryWriter writer(StoreAddress::file(path()), told.listener());
    QStringList runs;
    const auto keep = [&] {
        const RunRecord run = runNumber(runs.size());
        runs.append(idText(run));
        writer.keep(run);
    };
    keep();
    QTRY_COMPARE_WITH_TIMEOUT(told.stored.load(), 1, patienceMs);
    {
        constexpr rlim_t room = 300000;
        const SmallFiles full(room);
        while (told.told().isEmpty() && runs.size() < 100) {
            keep();
            QTest::qWait(20);
        }
        QVERIFY2(told.told().size() == 1 && told.told().constFirst().startsWith(path()),
                 qUtf8Printable(told.told().join(QLatin1Char('\n'))));
        QTRY_VERIFY_WITH_TIMEOUT(!spooled(path()).isEmpty(), patienceMs);
    }
    QTRY_COMPARE_WITH_TIMEOUT(told.told().constLast(), QString(), patienceMs);
    QCOMPARE(runsIn(path()), runs);
}

void tst_HistoryWriter::setsAsideWhatIsNoRecord()
{
    const Spool spool(path());
    const RunRecord run = runNumber(0);
    QCOMPARE(spool.put(run), QString());
    QFile file(spool.folder() + QStringLiteral("/half.json"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("{\"schema\": 1") > 0);
    file.close();
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("A spooled run cannot be read: .*half.json: not JSON: .*")));
    Told told;
    HistoryWriter writer(StoreAddress::file(path()), told.listener());
    QTRY_COMPARE_WITH_TIMEOUT(spooled(path()), QStringList{QStringLiteral("half.json.unreadable")}, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(runsIn(path()), QStringList{idText(run)}, patienceMs);
}

void tst_HistoryWriter::takesInRunsOfBeforeTheStart()
{
    const Spool spool(path());
    QStringList runs;
    for (int i = 0; i < 50; ++i) {
        const RunRecord run = runNumber(i);
        QCOMPARE(spool.put(run), QString());
        runs.append(idText(run));
    }
    Told told;
    HistoryWriter writer(StoreAddress::file(path()), told.listener());
    QTRY_COMPARE_WITH_TIMEOUT(spooled(path()), QStringList(), patienceMs);
    QCOMPARE(runsIn(path()), runs);
    QCOMPARE(told.told(), QStringList());
}

void tst_HistoryWriter::severalStationsShareAStore()
{
    constexpr int stations = 3;
    constexpr int runsEach = 30;
    QSet<QString> kept;
    {
        Told told;
        std::vector<std::unique_ptr<HistoryWriter>> writers;
        writers.reserve(stations);
        for (int i = 0; i < stations; ++i) {
            writers.push_back(std::make_unique<HistoryWriter>(StoreAddress::file(path()), told.listener()));
        }
        for (int i = 0; i < runsEach; ++i) {
            for (const auto &writer : writers) {
                const RunRecord run = runNumber(i);
                kept.insert(idText(run));
                writer->keep(run);
            }
            QTest::qWait(1);
        }
        QTRY_COMPARE_WITH_TIMEOUT(runsIn(path()).size(), stations * runsEach, patienceMs);
    }
    const QStringList runs = runsIn(path());
    QCOMPARE(QSet<QString>(runs.begin(), runs.end()), kept);
}

void tst_HistoryWriter::writesTooManyWaitingRunsAtOnce()
{
    QSet<QString> kept;
    Told told;
    std::atomic<bool> goOn{false};
    HistoryWriter::Listener listener = told.listener();
    listener.stored = [&] {
        while (!goOn) {
            std::this_thread::sleep_for(1ms);
        }
    };
    {
        HistoryWriter writer(StoreAddress::file(path()), listener);
        // One that the thread has, and one more than it may leave waiting.
        for (int i = 0; i < HistoryWriter::mostWaiting + 2; ++i) {
            const RunRecord run = runNumber(i);
            kept.insert(idText(run));
            writer.keep(run);
            while (i == 0 && runsIn(path()).isEmpty()) {
                QTest::qWait(1);
            }
        }
        QCOMPARE(spooled(path()).size(), 1);
        goOn = true;
    }
    Told later;
    const HistoryWriter writer(StoreAddress::file(path()), later.listener());
    QTRY_COMPARE_WITH_TIMEOUT(spooled(path()), QStringList(), patienceMs);
    const QStringList runs = runsIn(path());
    QCOMPARE(QSet<QString>(runs.begin(), runs.end()), kept);
}

void tst_HistoryWriter::keepsWhatStoodFor250MsWhenItIsKilled()
{
    bool given = false;
    const int wanted = qEnvironmentVariableIntValue("KEST_HISTORY_KILLS", &given);
    const int kills = given ? wanted : 5;
#ifdef KEST_SANITIZED
    constexpr qint64 standingMs = patienceMs; // no promise: everything is slower by a factor
#else
    constexpr qint64 standingMs = 250;
#endif
    QSet<QString> promised;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < kills; ++i) {
        // Two stations on one store.
        QProcess stations[2];
        for (QProcess &station : stations) {
            station.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--station"), path()});
            QVERIFY(station.waitForStarted());
        }
        const qint64 end = clock.elapsed() + QRandomGenerator::global()->bounded(300, 900);
        QMap<QString, qint64> handed; ///< when each was said, by our clock
        while (clock.elapsed() < end) {
            for (QProcess &station : stations) {
                station.waitForReadyRead(1);
                while (station.canReadLine()) {
                    const QStringList words = QString::fromLatin1(station.readLine()).trimmed().split(QLatin1Char(' '));
                    if (words.first() == QLatin1String("kept")) {
                        promised.insert(words.last());
                    } else {
                        handed.insert(words.last(), clock.elapsed());
                    }
                }
            }
        }
        for (QProcess &station : stations) {
            station.kill();
        }
        const qint64 killed = clock.elapsed();
        for (QProcess &station : stations) {
            QVERIFY(station.waitForFinished());
        }
        for (auto run = handed.constBegin(); run != handed.constEnd(); ++run) {
            if (*run + standingMs <= killed) {
                promised.insert(run.key());
            }
        }
    }
    QVERIFY(!promised.isEmpty());
    {
        Told told;
        const HistoryWriter writer(StoreAddress::file(path()), told.listener());
        QTRY_COMPARE_WITH_TIMEOUT(QDir(path() + QStringLiteral("-spool")).entryList({QStringLiteral("*.json")}),
                                  QStringList(), patienceMs);
    }
    const QStringList runs = runsIn(path());
    const QSet<QString> kept(runs.begin(), runs.end());
    QCOMPARE(kept.size(), runs.size());
    QCOMPARE(promised - kept, QSet<QString>());
}

void tst_HistoryWriter::readsOnWhateverByteIsDamaged()
{
    QStringList before;
    {
        Told told;
        HistoryWriter writer(StoreAddress::file(path()), told.listener());
        for (int i = 0; i < 30; ++i) {
            const RunRecord run = runNumber(i);
            before.append(idText(run));
            writer.keep(run);
        }
    }
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray sound = file.readAll();
    file.close();
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    constexpr int damages = 10;
    for (int i = 0; i < damages; ++i) {
        QByteArray damaged = sound;
        for (int k = 0; k < 20; ++k) {
            damaged[static_cast<int>(random.bounded(damaged.size()))] = static_cast<char>(random.bounded(256));
        }
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(damaged) == damaged.size());
        file.close();
        const RunRecord run = runNumber(1000 + i);
        {
            Told told;
            HistoryWriter writer(StoreAddress::file(path()), told.listener());
            writer.keep(run);
        }
        // Wherever the run is now, it is there.
        const bool isSpooled = spooled(path()).contains(idText(run) + QStringLiteral(".json"));
        StoreError error;
        bool isStored = false;
        if (const std::unique_ptr<Store> store = Store::open(StoreAddress::file(path()), {}, &error)) {
            isStored = store->read(run.id).has_value();
        }
        QVERIFY2(isSpooled || isStored, qPrintable(QStringLiteral("seed %1, round %2").arg(seed).arg(i)));
        QFile::remove(path() + QStringLiteral("-wal"));
        QFile::remove(path() + QStringLiteral("-shm"));
    }
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--station")) {
        playStation(arguments.value(2));
    }
    tst_HistoryWriter test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_HistoryWriter.moc"
