#include "exchange/runFolders.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(QList<QTime>)

/// What folders of earlier runs tell, and that the same run is the same one however often it is read.
class tst_runFolders : public QObject
{
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void findsLogsInTheOrderOfTheirRuns();
    void times_data();
    void times();
    void ids();
    void records_data();
    void records();
};

namespace {
bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}
} // namespace

void tst_runFolders::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("mac");
    const auto row = [](const char *name, const QDate &day, const char *mac) {
        QTest::newRow(name) << QString::fromUtf8(name) << day << QString::fromUtf8(mac);
    };
    row("2024-05-06_60601F0A5F2A", {2024, 5, 6}, "60:60:1F:0A:5F:2A");
    row("2024-05-06_60601f0a5f2a", {2024, 5, 6}, "60:60:1f:0a:5f:2a");
    row("2024-05-06_", {2024, 5, 6}, "");
    row("2024-05-06", {}, "");
    row("2024-02-30_60601F0A5F2A", {}, "");
    row("2024-05-06_60601F0A5F2", {}, "");
    row("2024-05-06_60601F0A5F2A0", {}, "");
    row("2024-05-06_60601F0A5F2G", {}, "");
    row("x2024-05-06_60601F0A5F2A", {}, "");
    row("2024-05-06_60601F0A5F2A\n", {}, "");
    row("14-03-59", {}, "");
}

void tst_runFolders::names()
{
    QFETCH(QString, name);
    QFETCH(QDate, day);
    QFETCH(QString, mac);
    const std::optional<RunFolderName> read = readRunFolderName(name);
    QCOMPARE(read.has_value(), day.isValid());
    QCOMPARE(read.value_or(RunFolderName{}).day, day);
    QCOMPARE(read.value_or(RunFolderName{}).mac, mac);
}

void tst_runFolders::findsLogsInTheOrderOfTheirRuns()
{
    QTemporaryDir folder;
    const QStringList paths = {
        QStringLiteral("log/2024-05-06_60601F0A5F2A/09-00-00/DetectorLog.txt"),
        QStringLiteral("log/2024-05-06_60601F0A5F2A/09-00-00_2/DetectorLog.txt"),
        QStringLiteral("log/2024-05-06_60601F0A5F2A/09-00-00_10/DetectorLog.txt"),
        QStringLiteral("log/2024-05-06_60601F0A5F2A/14-03-59/DetectorLog.txt"),
        QStringLiteral("log/2024-05-06_60601F0A5F2A/DetectorLog.txt"),
        QStringLiteral("log/2024-05-07_60601F0A5F2A/DetectorLog.txt"),
    };
    for (const QString &path : paths) {
        QVERIFY(write(folder.filePath(path), "x"));
    }
    QVERIFY(write(folder.filePath(QStringLiteral("log/other/DetectorLog.txt")), "x"));
    QVERIFY(write(folder.filePath(QStringLiteral("log/2024-05-06_60601F0A5F2A/deep/DetectorLog.txt")), "x"));
    QVERIFY(write(folder.filePath(QStringLiteral("log/2024-05-06_60601F0A5F2A/dmesg.txt")), "x"));
    QVERIFY(write(folder.filePath(QStringLiteral("log/14-03-59/DetectorLog.txt")), "x"));
    const auto found = [&folder](const QString &path) {
        QStringList logs;
        const QList<FoundLog> all = findLogs(path);
        for (const FoundLog &log : all) {
            logs.append(QDir(folder.path()).relativeFilePath(log.path));
        }
        return logs;
    };
    QCOMPARE(found(folder.path()), paths);
    QCOMPARE(found(folder.filePath(QStringLiteral("log/2024-05-06_60601F0A5F2A"))), paths.mid(0, 5));
    QCOMPARE(found(folder.filePath(QStringLiteral("log/2024-05-06_60601F0A5F2A/14-03-59"))), paths.mid(3, 1));
    QCOMPARE(found(folder.filePath(QStringLiteral("nowhere"))), QStringList());
}

void tst_runFolders::times_data()
{
    QTest::addColumn<QString>("timeName");
    QTest::addColumn<QDateTime>("fileTime");
    QTest::addColumn<QDateTime>("time");
    const QDate day(2024, 5, 6);
    const QDateTime dayBefore(QDate(2024, 5, 5), QTime(23, 0));
    const QDateTime ofTheDay(day, QTime(14, 3, 59, 250));
    const QDateTime nightAfter(QDate(2024, 5, 7), QTime(0, 10));
    const QDateTime copied(QDate(2024, 6, 1), QTime(12, 0));
    QTest::newRow("of the day") << QString() << ofTheDay << ofTheDay;
    QTest::newRow("over midnight") << QString() << nightAfter << nightAfter;
    QTest::newRow("copied later") << QString() << copied << QDateTime(day, QTime(0, 0));
    QTest::newRow("before the day") << QString() << dayBefore << QDateTime(day, QTime(0, 0));
    QTest::newRow("by the folder") << QStringLiteral("09-00-01") << copied << QDateTime(day, QTime(9, 0, 1));
    QTest::newRow("second of a second") << QStringLiteral("09-00-01_2") << copied << QDateTime(day, QTime(9, 0, 1));
    QTest::newRow("no time of day") << QStringLiteral("25-00-01") << ofTheDay << ofTheDay;
}

void tst_runFolders::times()
{
    QFETCH(QString, timeName);
    QFETCH(QDateTime, fileTime);
    QFETCH(QDateTime, time);
    const QDateTime read = logTime({QDate(2024, 5, 6), {}}, timeName, fileTime);
    QCOMPARE(read, time);
    QCOMPARE(read.timeSpec() == Qt::LocalTime, false);
    QCOMPARE(read.offsetFromUtc(), time.offsetFromUtc());
}

void tst_runFolders::ids()
{
    const QString folder = QStringLiteral("2024-05-06_60601F0A5F2A");
    const QUuid id = runIdOfLog(folder, "[Camera]:\n", 0);
    QCOMPARE(id.toString(QUuid::WithoutBraces), QStringLiteral("a3e000e5-aeca-5d2e-afc6-0acd2b27c59c"));
    QCOMPARE(id.version(), QUuid::Sha1);
    QCOMPARE(runIdOfLog(folder, "[Camera]:\n", 0), id);
    QVERIFY(runIdOfLog(folder, "[Camera]:\n", 1) != id);
    QVERIFY(runIdOfLog(folder, "[Lens]:\n", 0) != id);
    QVERIFY(runIdOfLog(QStringLiteral("2024-05-07_60601F0A5F2A"), "[Camera]:\n", 0) != id);
}

void tst_runFolders::records_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isRun");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *title, const QByteArray &content, bool isRun, Outcome outcome, const char *reason) {
        QTest::newRow(title) << content << isRun << static_cast<int>(outcome) << QString::fromUtf8(reason);
    };
    row("passed", "[Camera]:\n相机视频流OK\n\n", true, Outcome::Passed, "");
    row("failed", "[Camera]:\n相机视频流NG\n\n[Lens]:\n相机镜头连接失败\n\n", true, Outcome::Failed,
        "camera.video, lens.link");
    row("a warning that fails its component", "[TF Card]:\n警告:非高SD速卡\n\n", true, Outcome::Failed, "tfcard.speed");
    row("a warning that does not", "[PCBA]:\n云台主控板工厂未检测\n\n", true, Outcome::Passed, "");
    row("stopped before the first item", "[Battery]:\n\n", true, Outcome::Stopped, "");
    row("nothing of a run", "", false, Outcome::Error, "");
    row("no log", QByteArray("\xFF\xFE") + '\0' + "garbage", false, Outcome::Error, "");
}

void tst_runFolders::records()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isRun);
    QFETCH(int, outcome);
    QFETCH(QString, reason);
    const QDateTime time(QDate(2024, 5, 6), QTime(9, 0), Qt::OffsetFromUTC, 3600);
    const QUuid id(QStringLiteral("{0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10}"));
    int unknownLines = -1;
    const std::optional<RunRecord> run =
        recordOfLog({QDate(2024, 5, 6), QStringLiteral("60:60:1F:0A:5F:2A")}, content, time, id, &unknownLines);
    QCOMPARE(run.has_value(), isRun);
    QVERIFY(unknownLines >= 0);
    if (!run) {
        return;
    }
    QCOMPARE(run->id, id);
    QCOMPARE(run->begin, time);
    QCOMPARE(run->end, time);
    QCOMPARE(run->camera.mac, QStringLiteral("60:60:1F:0A:5F:2A"));
    QCOMPARE(static_cast<int>(run->outcome), outcome);
    QCOMPARE(run->reason, reason);
    QCOMPARE(run->plan.size(), run->components.size());
    QCOMPARE(run->programVersion + run->station.name + run->operatorName + run->batch + run->serial +
                 run->camera.wifiName + run->camera.link + run->camera.firmware,
             QString());
}

QTEST_APPLESS_MAIN(tst_runFolders)
#include "tst_runFolders.moc"
