#include "history/door/Forwarder.h"
#include "manyRuns.h"
#include "PostgresServer.h"

#include <functional>
#include <future>
#include <memory>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

namespace {
constexpr int patienceMs = 60000;
using Deed = std::function<bool()>;

std::unique_ptr<Store> openStore(const StoreAddress &address)
{
    StoreError error;
    std::unique_ptr<Store> store = Store::open(address, {}, &error);
    if (!store) {
        qWarning("%s", qUtf8Printable(error.text));
    }
    return store;
}

StoreAddress serverAddress(const QString &url)
{
    QString reason;
    return *StoreAddress::server(url, &reason);
}

QList<RunRecord> manyRuns(int begin, int count)
{
    QList<RunRecord> runs;
    for (int i = 0; i < count; ++i) {
        runs.append(runNumber(begin + i));
    }
    return runs;
}

void insert(Store *store, const QList<RunRecord> &runs)
{
    QVector<RunRows> rows;
    for (const RunRecord &run : runs) {
        rows.append(runRows(run));
    }
    QCOMPARE(store->insert(rows), std::optional<int>(rows.size()));
}

/// One that has ended already, while this program waited for something else, counts as well.
bool hasEnded(QProcess &process)
{
    return process.state() == QProcess::NotRunning || process.waitForFinished(patienceMs);
}
} // namespace
Q_DECLARE_METATYPE(Deed)

/// From a local store to a server of our own.
class tst_Forwarder : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void sendsEachRunOnce();
    void twoStationsSendTheSame();
    void asksWhetherToGoOn();
    void sendsWhatTheServerDoesNotRefuse();
    void tellsWhyItCannotSend_data();
    void tellsWhyItCannotSend();
    void sendsEachRunOnceAfterTheCure_data();
    void sendsEachRunOnceAfterTheCure();
    void waitsForASlowServer();
    void followsAServerThatComesAndGoes();
    void sendsEachRunOnceWhoeverIsKilled();

private:
    StoreAddress local() const { return StoreAddress::file(m_folder->filePath(QStringLiteral("历史.sqlite"))); }
    /// Into the only file of passwords that is looked at.
    bool writePassword(const QByteArray &password) const;
    /// The authority whose certificates count.
    QString trusted() const { return m_folder->filePath(QStringLiteral("trusted.crt")); }
    bool trust(const QString &certificate) const;
    /// Every run is in the server's store with each of its rows, once, and counted once.
    void verifyOnServer(const QList<RunRecord> &runs);

    PostgresServer m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_Forwarder::initTestCase()
{
    const QString reason = m_server.start();
    if (!reason.isEmpty()) {
        QSKIP(qUtf8Printable(reason));
    }
}

void tst_Forwarder::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_server.empty();
}

void tst_Forwarder::verifyOnServer(const QList<RunRecord> &runs)
{
    const std::unique_ptr<Store> server = openStore(serverAddress(m_server.url()));
    QVERIFY(server);
    for (const RunRecord &run : runs) {
        const std::optional<RunRecord> there = server->read(run.id);
        QVERIFY2(there, qUtf8Printable(run.id.toString() + server->error().text));
        QVERIFY(*there == run);
    }
    const auto count = QString::number(runs.size());
    const auto valueOf = [this](const char *question) { return m_server.execute(QLatin1String(question)); };
    QCOMPARE(valueOf("SELECT count(*) FROM run"), count);
    QCOMPARE(valueOf("SELECT count(*) FROM record"), count);
    QCOMPARE(valueOf("SELECT sum(runs) FROM tally"), count);
    QCOMPARE(valueOf("SELECT sum(runs) FROM camera"), count);
    QCOMPARE(valueOf("SELECT sum(ran) FROM item_tally WHERE item = 'battery.info'"), count);
    QCOMPARE(valueOf("SELECT count(*) FROM measurement"), QString::number(6 * runs.size()));
    QCOMPARE(valueOf("SELECT count(*) FROM unsent"), QStringLiteral("0"));
}

void tst_Forwarder::sendsEachRunOnce()
{
    const QList<RunRecord> runs = manyRuns(0, 250);
    const std::unique_ptr<Store> store = openStore(local());
    insert(store.get(), runs);
    Forwarder forwarder(local(), serverAddress(m_server.url()));
    QCOMPARE(forwarder.forward(), std::optional<int>(250));
    QCOMPARE(forwarder.forward(), std::optional<int>(0));
    const ForwardState state = *store->forwardState();
    QCOMPARE(state.queued, 0);
    QCOMPARE(state.lastError, QString());
    QVERIFY(state.lastSent.secsTo(QDateTime::currentDateTimeUtc()) < 60);
    verifyOnServer(runs);
}

void tst_Forwarder::twoStationsSendTheSame()
{
    const QList<RunRecord> runs = manyRuns(0, 20);
    insert(openStore(local()).get(), runs);
    const StoreAddress other = StoreAddress::file(m_folder->filePath(QStringLiteral("other.sqlite")));
    insert(openStore(other).get(), runs);
    QCOMPARE(Forwarder(local(), serverAddress(m_server.url())).forward(), std::optional<int>(20));
    QCOMPARE(Forwarder(other, serverAddress(m_server.url())).forward(), std::optional<int>(20));
    QCOMPARE(openStore(other)->forwardState()->queued, 0);
    verifyOnServer(runs);
}

void tst_Forwarder::asksWhetherToGoOn()
{
    const std::unique_ptr<Store> store = openStore(local());
    insert(store.get(), manyRuns(0, 250));
    Forwarder forwarder(local(), serverAddress(m_server.url()));
    QStringList progress;
    QCOMPARE(forwarder.forward([&progress](int sent, qint64 queued) {
        progress.append(QStringLiteral("%1 %2").arg(sent).arg(queued));
        return progress.size() < 2;
    }),
             std::optional<int>(200));
    QCOMPARE(progress, QStringList({"100 150", "200 50"}));
    QCOMPARE(store->forwardState()->queued, 50);
}

void tst_Forwarder::sendsWhatTheServerDoesNotRefuse()
{
    QList<RunRecord> runs = manyRuns(0, 20);
    runs[3].serial = QStringLiteral("refused");
    const std::unique_ptr<Store> store = openStore(local());
    insert(store.get(), runs);
    QVERIFY(openStore(serverAddress(m_server.url())));
    m_server.execute(QStringLiteral("ALTER TABLE run ADD CHECK (serial <> 'refused')"));
    Forwarder forwarder(local(), serverAddress(m_server.url()));
    QVERIFY(!forwarder.forward());
    QVERIFY2(forwarder.error().contains(QLatin1String("run_serial_check")), qUtf8Printable(forwarder.error()));
    QCOMPARE(store->unsent(10), std::optional(QList<QUuid>{runs.at(3).id}));
    runs.removeAt(3);
    verifyOnServer(runs);
}

void tst_Forwarder::tellsWhyItCannotSend_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("reason");
    const QString port = QString::number(m_server.port());
    QTest::newRow("nobody listens") << QStringLiteral("postgresql://line@127.0.0.1:1/runs")
                                    << QStringLiteral("Connection refused");
    QTest::newRow("no such database") << m_server.url(QStringLiteral("none"))
                                      << QStringLiteral("\"none\" does not exist");
    QTest::newRow("no such role") << QStringLiteral("postgresql://nobody@127.0.0.1:%1/runs").arg(port)
                                  << QStringLiteral("role \"nobody\" does not exist");
    QTest::newRow("encryption that the server has not")
        << m_server.url() + QStringLiteral("?sslmode=verify-full") << QStringLiteral("SSL");
}

void tst_Forwarder::tellsWhyItCannotSend()
{
    QFETCH(QString, url);
    QFETCH(QString, reason);
    const std::unique_ptr<Store> store = openStore(local());
    insert(store.get(), manyRuns(0, 3));
    Forwarder forwarder(local(), serverAddress(url));
    QVERIFY(!forwarder.forward());
    QVERIFY2(forwarder.error().startsWith(url + QStringLiteral(": the server cannot be reached")) &&
                 forwarder.error().contains(reason),
             qUtf8Printable(forwarder.error()));
    const ForwardState state = *store->forwardState();
    QCOMPARE(state.queued, 3);
    QCOMPARE(state.lastError, forwarder.error());
    QVERIFY(state.lastErrorTime.secsTo(QDateTime::currentDateTimeUtc()) < 60);
}

bool tst_Forwarder::writePassword(const QByteArray &password) const
{
    QFile file(m_folder->filePath(QStringLiteral("passwords")));
    qputenv("PGPASSFILE", QFile::encodeName(file.fileName()));
    // One that others may read is passed over.
    return file.open(QIODevice::WriteOnly) && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
           file.write("127.0.0.1:*:runs:line:" + password + '\n') > 0;
}

bool tst_Forwarder::trust(const QString &certificate) const
{
    QFile::remove(trusted());
    return QFile::copy(certificate, trusted());
}

void tst_Forwarder::sendsEachRunOnceAfterTheCure_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("detail"); // in the server's words or libpq's
    QTest::addColumn<Deed>("fall");
    QTest::addColumn<Deed>("cure");
    const QString unreachable = QStringLiteral("the server cannot be reached");
    const QString verified = QStringLiteral("?sslmode=verify-full&sslrootcert=");
    const QString elsewhere = QStringLiteral("DNS:elsewhere");
    const QString here = QStringLiteral("IP:127.0.0.1");
    const auto run = [this](const char *sql) {
        return Deed([this, sql] {
            m_server.execute(QLatin1String(sql), QStringLiteral("postgres"));
            return true;
        });
    };
    const auto runInStore = [this](const char *sql) {
        return Deed([this, sql] {
            m_server.execute(QLatin1String(sql));
            return true;
        });
    };
    const auto wantPassword = [this] { m_server.wantPassword(QStringLiteral("right")); };
    const Deed giveRight = [this] { return writePassword("right"); };

    QTest::newRow("a wrong password") << QString() << unreachable
                                      << QStringLiteral("password authentication failed for user \"line\"")
                                      << Deed([=] {
                                             wantPassword();
                                             return writePassword("wrong");
                                         })
                                      << giveRight;
    QTest::newRow("no password") << QString() << unreachable << QStringLiteral("no password supplied") << Deed([=] {
        wantPassword();
        return writePassword("");
    }) << giveRight;
    const Deed showRight = [=] { return trust(m_server.showCertificate(here)); };
    QTest::newRow("a certificate of another name")
        << verified << unreachable << QStringLiteral("does not match host name \"127.0.0.1\"")
        << Deed([=] { return trust(m_server.showCertificate(elsewhere)); }) << showRight;
    QTest::newRow("a certificate of nobody who is trusted")
        << verified << unreachable << QStringLiteral("certificate verify failed")
        << Deed([=] { return showRight() && !m_server.showCertificate(here).isEmpty(); }) << showRight;
    QTest::newRow("a full disk") << QString() << QStringLiteral("the disk is full") << QStringLiteral("no room")
                                 << runInStore("CREATE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN "
                                               "RAISE EXCEPTION 'no room' USING ERRCODE = 'disk_full'; END$$; "
                                               "CREATE TRIGGER full_disk BEFORE INSERT ON measurement "
                                               "EXECUTE FUNCTION refuse()")
                                 << runInStore("DROP TRIGGER full_disk ON measurement");
    QTest::newRow("a server for reading alone")
        << QString() << QStringLiteral("it cannot be opened or written to") << QStringLiteral("read-only transaction")
        << run("ALTER DATABASE runs SET default_transaction_read_only = on")
        << run("ALTER DATABASE runs RESET default_transaction_read_only");
}

void tst_Forwarder::sendsEachRunOnceAfterTheCure()
{
    QFETCH(QString, options);
    QFETCH(QString, reason);
    QFETCH(QString, detail);
    QFETCH(Deed, fall);
    QFETCH(Deed, cure);
    const auto asBefore = qScopeGuard([&] {
        cure();
        m_server.letEverybodyIn();
        qunsetenv("PGPASSFILE");
    });
    const QString url = m_server.url() + (options.isEmpty() ? options : options + trusted());
    QList<RunRecord> runs = manyRuns(0, 3);
    const std::unique_ptr<Store> store = openStore(local());
    insert(store.get(), runs);
    QVERIFY(openStore(serverAddress(m_server.url())));
    QVERIFY(fall());
    Forwarder forwarder(local(), serverAddress(url));
    QVERIFY(!forwarder.forward());
    QVERIFY2(forwarder.error().startsWith(QStringLiteral("%1: %2 (").arg(url, reason)) &&
                 forwarder.error().contains(detail),
             qUtf8Printable(forwarder.error()));
    QCOMPARE(store->forwardState()->lastError, forwarder.error());
    // The station goes on.
    runs.append(runNumber(3));
    insert(store.get(), {runs.last()});
    QCOMPARE(store->forwardState()->queued, 4);

    QVERIFY(cure());
    QCOMPARE(forwarder.forward(), std::optional<int>(4));
    QCOMPARE(forwarder.forward(), std::optional<int>(0));
    QCOMPARE(store->forwardState()->queued, 0);
    QCOMPARE(store->forwardState()->lastError, QString());
    verifyOnServer(runs);
}

/// However long a server takes, nobody waits for it but the forwarder.
void tst_Forwarder::waitsForASlowServer()
{
    QList<RunRecord> runs = manyRuns(0, 3);
    const std::unique_ptr<Store> store = openStore(local());
    insert(store.get(), runs);
    const StoreAddress server = serverAddress(m_server.url());
    QVERIFY(openStore(server));
    std::future<std::optional<int>> sending;
    Connection holder(server, Connection::Access::Write, {});
    QVERIFY(holder.open() && holder.execute(QStringLiteral("BEGIN")) &&
            holder.execute(QStringLiteral("LOCK TABLE run IN ACCESS EXCLUSIVE MODE")));
    sending = std::async(std::launch::async, [&] { return Forwarder(local(), server).forward(); });
    QTRY_COMPARE_WITH_TIMEOUT(m_server.execute(QStringLiteral("SELECT count(*) FROM pg_locks WHERE NOT granted")),
                              QStringLiteral("1"), patienceMs);
    runs.append(runNumber(3));
    insert(store.get(), {runs.last()});
    QCOMPARE(store->forwardState()->queued, 4);
    QVERIFY(holder.execute(QStringLiteral("COMMIT")));
    QCOMPARE(sending.get(), std::optional<int>(4));
    verifyOnServer(runs);
}

void tst_Forwarder::followsAServerThatComesAndGoes()
{
    QList<RunRecord> runs = manyRuns(0, 30);
    const std::unique_ptr<Store> store = openStore(local());
    insert(store.get(), runs);
    m_server.kill();
    QProcess process;
    process.start(QStringLiteral(KEST_FORWARD), {QStringLiteral("--follow"), local().path, m_server.url()});
    QVERIFY(process.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(!store->forwardState()->lastError.isEmpty(), patienceMs);
    QVERIFY(m_server.resume());
    QTRY_COMPARE_WITH_TIMEOUT(store->forwardState()->queued, 0, patienceMs);
    const QList<RunRecord> later = manyRuns(30, 5);
    insert(store.get(), later);
    process.write("\n");
    QTRY_COMPARE_WITH_TIMEOUT(store->forwardState()->queued, 0, patienceMs);
    verifyOnServer(runs + later);
    // As when the station dies.
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

void tst_Forwarder::sendsEachRunOnceWhoeverIsKilled()
{
    bool given = false;
    const int wanted = qEnvironmentVariableIntValue("KEST_HISTORY_KILLS", &given);
    const int kills = given ? wanted : 4;
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const std::unique_ptr<Store> store = openStore(local());
    QList<RunRecord> runs;
    for (int i = 0; i < kills; ++i) {
        const QList<RunRecord> more = manyRuns(runs.size(), 150);
        insert(store.get(), more);
        runs += more;
        QProcess forwarder;
        forwarder.start(QStringLiteral(KEST_FORWARD), {local().path, m_server.url()});
        QVERIFY(forwarder.waitForStarted());
        QTest::qWait(static_cast<int>(random.bounded(5, 400)));
        if (random.bounded(3) == 0) {
            m_server.kill();
            QVERIFY(hasEnded(forwarder));
            QVERIFY(m_server.resume());
        } else {
            forwarder.kill();
            QVERIFY(hasEnded(forwarder));
        }
    }
    QVERIFY(Forwarder(local(), serverAddress(m_server.url())).forward());
    verifyOnServer(runs);
}

QTEST_GUILESS_MAIN(tst_Forwarder)
#include "tst_Forwarder.moc"
