#include "exampleRecord.h"
#include "historyui/commands/runTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

/// What is printed of a run, a list and statistics.
class tst_runTexts : public QObject
{
    Q_OBJECT

private slots:
    void showsARun();
    void listsRuns();
    void listsRunsForSpreadsheets();
    void listsRunsAsJson();
    void showsStatistics();
};

namespace {
RunSummary summary()
{
    const RunRecord run = exampleRecord();
    RunSummary row;
    row.id = run.id;
    row.begin = run.begin;
    row.duration = run.duration;
    row.outcome = run.outcome;
    row.mac = run.camera.mac;
    row.serial = run.serial;
    row.station = run.station.name;
    row.location = run.station.location;
    row.batch = run.batch;
    row.operatorName = run.operatorName;
    row.reason = run.reason;
    row.failedItems = 2;
    row.firstFinding = run.reason;
    return row;
}
} // namespace

void tst_runTexts::showsARun()
{
    QCOMPARE(runText(exampleRecord()), QStringLiteral("Run         0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10\n"
                                                      "Outcome     failed\n"
                                                      "Reason      battery.info\n"
                                                      "Begin       2026-11-21T09:30:00.250+01:00\n"
                                                      "Duration    0.48 s\n"
                                                      "MAC         60:60:1F:0A:5F:2A\n"
                                                      "Serial      KC0012345\n"
                                                      "WiFi name   Camera-5F2A\n"
                                                      "Link        wifi\n"
                                                      "Firmware    1.2.3\n"
                                                      "Station     line-2-left\n"
                                                      "Location    Hall 3\n"
                                                      "Operator    王芳\n"
                                                      "Batch       2026-47\n"
                                                      "Program     1.0.3\n"
                                                      "\n"
                                                      "battery.info: failed (0.00 s)\n"
                                                      "    获取电池信息成功\n"
                                                      "    battery.voltage            4.36 V (3.6..4.35)  OUTSIDE\n"
                                                      "    battery.current            -250 mA\n"
                                                      "    battery.temperature        25.34 °C (..45)\n"
                                                      "    battery.softwareVersion    1.2.3.4\n"
                                                      "\n"
                                                      "camera.video: passed (0.00 s)\n"
                                                      "    相机视频流OK\n"
                                                      "    camera.statusWord          0x000000000008001a\n"
                                                      "\n"
                                                      "battery.link: passed (0.00 s, request answered, 2 attempts)\n"
                                                      "    相机电池通信OK\n"
                                                      "\n"
                                                      "log.version: passed (0.03 s)\n"
                                                      "    firmware                   1.2.3 (1.2.3|1.2.4)\n"
                                                      "    kest_verison.txt, 41 B\n"));
}

void tst_runTexts::listsRuns()
{
    QCOMPARE(listText({summary()}),
             QStringLiteral("RUN       BEGIN                OUTCOME  MAC                SERIAL     STATION      BATCH  "
                            "  DURATION  FAILURE\n"
                            "0b5f6d0e  2026-11-21 09:30:00  failed   60:60:1F:0A:5F:2A  KC0012345  line-2-left  2026-47"
                            "    0.48 s  battery.info and 1 more\n"));
}

void tst_runTexts::listsRunsForSpreadsheets()
{
    RunSummary run = summary();
    run.serial = QStringLiteral("=1+1");
    QCOMPARE(listCsv({run}),
             QByteArray("\xEF\xBB\xBF"
                        "run,begin,duration ms,outcome,mac,serial,station,location,batch,firmware,operator,"
                        "failed items,first failure,reason\r\n"
                        "0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10,2026-11-21T09:30:00.250+01:00,481.25,failed,"
                        "60:60:1F:0A:5F:2A,'=1+1,line-2-left,Hall 3,2026-47,,王芳,2,battery.info,battery.info\r\n"));
}

void tst_runTexts::listsRunsAsJson()
{
    const QJsonArray runs = QJsonDocument::fromJson(listJson({summary()})).array();
    QCOMPARE(runs.size(), 1);
    const QJsonObject run = runs.at(0).toObject();
    QCOMPARE(run.value(QStringLiteral("id")).toString(), QStringLiteral("0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10"));
    QCOMPARE(run.value(QStringLiteral("begin")).toString(), QStringLiteral("2026-11-21T09:30:00.250+01:00"));
    QCOMPARE(run.value(QStringLiteral("durationMs")).toDouble(), 481.25);
    QCOMPARE(run.value(QStringLiteral("outcome")).toString(), QStringLiteral("failed"));
    QCOMPARE(run.value(QStringLiteral("operator")).toString(), QStringLiteral("王芳"));
    QCOMPARE(run.value(QStringLiteral("failedItems")).toInt(), 2);
    QCOMPARE(listJson({}).simplified(), QByteArray("[ ]"));
}

void tst_runTexts::showsStatistics()
{
    Statistics statistics;
    statistics.first = QDate(2026, 11, 20);
    statistics.last = QDate(2026, 11, 21);
    statistics.total.runs = 10;
    statistics.total.passed = 6;
    statistics.total.failed = 2;
    statistics.total.stopped = 1;
    statistics.total.error = 1;
    statistics.total.cameras = 8;
    statistics.total.firstPassed = 6;
    statistics.total.finalPassed = 7;
    statistics.byStation = {{QString(), statistics.total}};
    statistics.items = {{QStringLiteral("battery.info"), {10, 3, 0}}, {QStringLiteral("pcba.sensor"), {9, 1, 2}}};
    const QString text = statisticsText(statistics);
    QVERIFY2(text.startsWith(QStringLiteral("Period      2026-11-20 to 2026-11-21\n"
                                            "Runs        10: 6 passed, 2 failed, 1 stopped, 1 without answer\n"
                                            "Cameras     8\n"
                                            "First-pass  75.0 %\n"
                                            "Final       87.5 %\n"
                                            "\n"
                                            "ITEM          FAILED   SO FAR  WARNED  TESTED\n"
                                            "battery.info       3   75.0 %       0      10\n"
                                            "pcba.sensor        1  100.0 %       2       9\n"
                                            "\n"
                                            "STATION  RUNS  PASSED  FAILED  OTHER  CAMERAS  FIRST-PASS   FINAL\n"
                                            "(none)     10       6       2      2        8      75.0 %  87.5 %\n")),
             qPrintable(text));
    const QJsonObject json = QJsonDocument::fromJson(statisticsJson(statistics)).object();
    QCOMPARE(json.value(QStringLiteral("firstPassYield")).toDouble(), 0.75);
    QCOMPARE(json.value(QStringLiteral("runs")).toInt(), 10);
    QCOMPARE(json.value(QStringLiteral("items")).toArray().at(1).toObject(),
             QJsonObject({{QStringLiteral("item"), QStringLiteral("pcba.sensor")},
                          {QStringLiteral("tested"), 9},
                          {QStringLiteral("failed"), 1},
                          {QStringLiteral("warned"), 2}}));
    QCOMPARE(
        json.value(QStringLiteral("byStation")).toArray().at(0).toObject().value(QStringLiteral("name")).toString(),
        QString());
}

QTEST_APPLESS_MAIN(tst_runTexts)
#include "tst_runTexts.moc"
