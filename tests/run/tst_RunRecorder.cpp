#include "detector/run/RunRecorder.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"
#include "record/recordNames.h"

#include <QtTest>

using Face = KestDetectorFace;
using Camera = RunEnd::Camera;
using Kind = RequestEnd::Kind;
using std::chrono::microseconds;
Q_DECLARE_METATYPE(Outcome)
Q_DECLARE_METATYPE(RunOutcome)

namespace {
const QString mac = QStringLiteral("60:60:1F:0A:5F:2A");

CheckItemLog item(int number, int result, std::optional<RequestEnd> request = RequestEnd{})
{
    CheckItemLog log;
    log.number = number;
    log.result = result;
    log.request = request;
    return log;
}

/// A component's part of a run: what its routine leaves, and the verdict that is shown.
struct Step
{
    checkLog log;
    int verdict;
    bool counts = true;
};

/// The record of a run of these steps.
RunRecord recorded(const QList<Step> &steps, const RunOutcome &outcome)
{
    QList<ComponentTask> plan;
    for (const Step &step : steps) {
        plan.append(ComponentTask{step.log.component, {0}});
    }
    RunRecorder recorder(plan);
    for (const Step &step : steps) {
        recorder.beginComponent(step.log.component);
        emit Face::Get()->signal_showCheckLog(step.log);
        recorder.endComponent(step.verdict, step.counts);
    }
    recorder.endRun();
    return recorder.record(outcome);
}

RunOutcome goodRun()
{
    RunOutcome outcome;
    outcome.tested = true;
    outcome.end.cameraMac = mac;
    return outcome;
}
} // namespace
Q_DECLARE_METATYPE(Step)

/// The recorder by itself: the test stands for the runner and for the components.
class tst_RunRecorder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void wholeRecord();
    void stationIsTheOneOfTheSettings();
    void outcomeAndReason_data();
    void outcomeAndReason();
    void logHasPassedWhenItsFileIsThere_data();
    void logHasPassedWhenItsFileIsThere();
    void limitIsBrokenByTheComponentThatEndedLast();
    void componentWithoutRecordHasNoItems();
    void recordsOfOthersAreNotTaken();
    void cameraThatIsReadDuringTheRun_data();
    void cameraThatIsReadDuringTheRun();
    void fileThatIsGoneIsLeftOut();
};

void tst_RunRecorder::init()
{
    Face *face = Face::Get();
    face->wifiName = QStringLiteral("Camera-5F2A");
    face->linkName = QStringLiteral("wifi");
    QVERIFY(face->run.post({}, {QStringLiteral("王芳"), QStringLiteral("2026-47"), QStringLiteral("KC0012345")}));
    QVERIFY(face->run.take(mac));
}

void tst_RunRecorder::cleanup()
{
    Face::Get()->run.finish();
}

void tst_RunRecorder::wholeRecord()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("kest_verison.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("abc");
    file.close();

    CheckItemLog info = item(itemId::battery::info, verdict::failed, RequestEnd{Kind::Refused, 7, 2});
    info.name = QStringLiteral("Battery Info");
    info.message = QStringLiteral("short\n");
    info.detail = QStringLiteral("long\n");
    info.measurements = {measured(Field::BatteryVoltage, 4.36)};
    info.duration = microseconds(1204);
    CheckItemLog version = item(itemId::log::version, verdict::ok, std::nullopt);
    version.measurements = {measured(Field::Firmware, QStringLiteral("1.2.3"))};
    version.files = QStringList{file.fileName()};

    RunRecorder recorder({{componentId::log, {5}}, {componentId::battery, {2, 0}}});
    recorder.beginComponent(componentId::log);
    emit Face::Get()->signal_showCheckLog({componentId::log, {version}});
    QTest::qSleep(20);
    recorder.endComponent(verdict::ok, false);
    recorder.beginComponent(componentId::battery);
    emit Face::Get()->signal_showCheckLog({componentId::battery, {info}});
    recorder.endComponent(verdict::failed, true);
    QTest::qSleep(20);
    recorder.endRun();
    QTest::qSleep(20);
    RunOutcome outcome = goodRun();
    outcome.passed = false;
    RunRecord record = recorder.record(outcome);

    QVERIFY(!record.id.isNull());
    QVERIFY(recorder.record(outcome).id == record.id);
    QCOMPARE(record.begin, Face::Get()->run.identity().begin);
    QVERIFY(record.duration >= microseconds(40000));
    QVERIFY(record.end >= record.begin.addMSecs(40));
    QVERIFY2(record.end <= QDateTime::currentDateTime().addMSecs(-20), "the run ended before its record was made");
    QCOMPARE(record.components.size(), 2);
    QVERIFY(record.components.at(0).duration >= microseconds(20000));
    QVERIFY(record.components.at(1).duration < record.components.at(0).duration);

    RunRecord expected;
    expected.id = record.id;
    expected.programVersion = QStringLiteral(KEST_VERSION);
    expected.station.name = QSysInfo::machineHostName();
    expected.operatorName = QStringLiteral("王芳");
    expected.batch = QStringLiteral("2026-47");
    expected.serial = QStringLiteral("KC0012345");
    expected.camera = {mac, QStringLiteral("Camera-5F2A"), QStringLiteral("wifi"), QStringLiteral("1.2.3")};
    expected.begin = record.begin;
    expected.end = record.end;
    expected.duration = record.duration;
    expected.plan = {{9, QStringLiteral("log"), {5}}, {2, QStringLiteral("battery"), {2, 0}}};
    expected.outcome = Outcome::Failed;
    expected.reason = QStringLiteral("battery.info");
    ItemRecord versionItem;
    versionItem.key = QStringLiteral("log.version");
    versionItem.number = 5;
    versionItem.verdict = Verdict::Passed;
    versionItem.measurements = {{QStringLiteral("firmware"), QStringLiteral("1.2.3"), QString(), {}}};
    versionItem.files = {{QStringLiteral("kest_verison.txt"), 3,
                          QStringLiteral("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad")}};
    ItemRecord infoItem;
    infoItem.key = QStringLiteral("battery.info");
    infoItem.number = 2;
    infoItem.name = QStringLiteral("Battery Info");
    infoItem.verdict = Verdict::Failed;
    infoItem.message = QStringLiteral("short\n");
    infoItem.detail = QStringLiteral("long\n");
    infoItem.duration = microseconds(1204);
    infoItem.request = RequestEnd{Kind::Refused, 7, 2};
    infoItem.measurements = {{QStringLiteral("battery.voltage"), 4.36, QStringLiteral("V"), {}}};
    expected.components = {{9,
                            QStringLiteral("log"),
                            QStringLiteral("Log"),
                            Verdict::Passed,
                            record.components.at(0).duration,
                            {versionItem}},
                           {2,
                            QStringLiteral("battery"),
                            QStringLiteral("Battery"),
                            Verdict::Failed,
                            record.components.at(1).duration,
                            {infoItem}}};
    QVERIFY(record == expected);
}

void tst_RunRecorder::stationIsTheOneOfTheSettings()
{
    Settings settings;
    settings.stationName = QStringLiteral("line-2-left");
    settings.stationLocation = QStringLiteral("Hall 3");
    Face::Get()->setSettings(settings);
    const RunRecord record = recorded({}, goodRun());
    Face::Get()->setSettings(Settings());
    QCOMPARE(record.station.name, QStringLiteral("line-2-left"));
    QCOMPARE(record.station.location, QStringLiteral("Hall 3"));
}

void tst_RunRecorder::outcomeAndReason_data()
{
    QTest::addColumn<QList<Step>>("steps");
    QTest::addColumn<RunOutcome>("run");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QList<Step> &steps, Outcome outcome, const char *reason, auto change) {
        RunOutcome run = goodRun();
        change(run);
        QTest::newRow(name) << steps << run << outcome << QString::fromLatin1(reason);
    };
    const auto fails = [](RunOutcome &run) { run.passed = false; };
    const Step good{{componentId::camera, {item(0, verdict::ok)}}, verdict::ok};
    const Step bad{{componentId::gimbal, {item(0, verdict::ok), item(2, verdict::failed), item(4, verdict::failed)}},
                   verdict::failed};
    const Step warned{{componentId::pcba, {item(1, verdict::warning)}}, verdict::warning};
    const Step missed{{componentId::battery, {item(1, verdict::ok, RequestEnd{Kind::NoReply, 0, 3})}}, verdict::ok};
    const Step fan{{componentId::fan, {}}, verdict::ok};
    const Step notTested{{componentId::lens, {}}, verdict::notTested};
    const Step noLog{{componentId::log, {item(0, -1, RequestEnd{Kind::NoReply, 0, 1})}}, verdict::failed, false};
    CheckItemLog wrongVersion = item(5, verdict::failed);
    wrongVersion.breaksLimit = true;
    const Step limitedLog{{componentId::log, {item(0, verdict::ok), wrongVersion}}, verdict::failed, false};

    row("passed", {good}, Outcome::Passed, "", [](RunOutcome &) {});
    row("passed, and a board warns", {good, warned}, Outcome::Passed, "", [](RunOutcome &) {});
    row("passed, and a log could not be fetched", {good, noLog}, Outcome::Passed, "", [](RunOutcome &) {});
    row("items failed", {bad, warned, good}, Outcome::Failed, "gimbal.pitch.link, gimbal.motion", fails);
    row("items of two components failed", {bad, missed}, Outcome::Failed,
        "gimbal.pitch.link, gimbal.motion, battery.status", fails);
    row("a log broke a limit", {good, limitedLog}, Outcome::Failed, "log.version", fails);
    row("a component failed without an item", {good, notTested}, Outcome::Failed, "lens", fails);
    row("a request was not answered", {missed}, Outcome::Failed, "battery.status",
        [](RunOutcome &run) { run.unanswered = 1; });
    row("nothing was tested", {fan}, Outcome::Failed, "nothing was tested",
        [](RunOutcome &run) { run.tested = false; });
    row("a component that nobody knows", {good}, Outcome::Failed, "something else than a known item failed", fails);
    row("stopped", {bad}, Outcome::Stopped, "the program was closed", [](RunOutcome &run) {
        run.passed = false;
        run.complete = false;
        run.end.camera = Camera::Lost;
    });
    row("stopped by the operator", {bad}, Outcome::Stopped, "the run was stopped", [](RunOutcome &run) {
        run.passed = false;
        run.complete = false;
        run.end.stopped = true;
    });
    row("stopped, and passed so far", {good}, Outcome::Stopped, "the program was closed",
        [](RunOutcome &run) { run.complete = false; });
    row("the camera was lost", {good}, Outcome::Error, "the camera was lost during the run",
        [](RunOutcome &run) { run.end.camera = Camera::Lost; });
    row("the camera changed, and failed", {bad}, Outcome::Error, "another camera came during the run",
        [](RunOutcome &run) {
            run.passed = false;
            run.end.camera = Camera::Changed;
        });
}

void tst_RunRecorder::outcomeAndReason()
{
    QFETCH(const QList<Step>, steps);
    QFETCH(const RunOutcome, run);
    const RunRecord record = recorded(steps, run);
    QTEST(record.outcome, "outcome");
    QTEST(record.reason, "reason");
    QCOMPARE(record.components.size(), steps.size());
}

void tst_RunRecorder::logHasPassedWhenItsFileIsThere_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("hasFile");
    QTest::addColumn<int>("shown");
    QTest::addColumn<QString>("verdict");
    QTest::newRow("collected") << 0 << true << 0 << QStringLiteral("passed");
    QTest::newRow("the shell did not answer") << -1 << false << 1 << QStringLiteral("failed");
    QTest::newRow("the archive could not be fetched") << 0 << false << 0 << QStringLiteral("failed");
    QTest::newRow("the archive could not be removed from the camera") << -1 << true << 1 << QStringLiteral("failed");
    QTest::newRow("a limit is broken") << 1 << true << 1 << QStringLiteral("failed");
}

void tst_RunRecorder::logHasPassedWhenItsFileIsThere()
{
    QFETCH(const int, result);
    QFETCH(const bool, hasFile);
    QFETCH(const int, shown);
    CheckItemLog log = item(itemId::log::camera, result);
    log.files = hasFile ? QStringList{QStringLiteral("/nowhere/log.tar.gz")} : QStringList();
    const RunRecord record = recorded({{{componentId::log, {log}}, shown, false}}, goodRun());
    QTEST(nameOf(record.components.at(0).items.at(0).verdict), "verdict");
    QTEST(nameOf(record.components.at(0).verdict), "verdict");
}

void tst_RunRecorder::limitIsBrokenByTheComponentThatEndedLast()
{
    CheckItemLog broken = item(itemId::log::version, verdict::failed);
    broken.breaksLimit = true;
    RunRecorder recorder({});
    recorder.beginComponent(componentId::log);
    emit Face::Get()->signal_showCheckLog({componentId::log, {item(0, -1)}});
    recorder.endComponent(verdict::failed, false);
    QVERIFY2(!recorder.breaksLimit(), "that a log is missing breaks none");
    recorder.beginComponent(componentId::log);
    emit Face::Get()->signal_showCheckLog({componentId::log, {item(0, verdict::ok), broken}});
    recorder.endComponent(verdict::failed, false);
    QVERIFY(recorder.breaksLimit());
    recorder.beginComponent(componentId::fan);
    recorder.endComponent(verdict::ok, true);
    QVERIFY(!recorder.breaksLimit());
}

void tst_RunRecorder::componentWithoutRecordHasNoItems()
{
    RunRecorder recorder({{componentId::camera, {0}}, {componentId::fan, {0}}});
    recorder.beginComponent(componentId::camera);
    emit Face::Get()->signal_showCheckLog({componentId::camera, {item(0, verdict::ok)}});
    recorder.endComponent(verdict::ok, true);
    recorder.beginComponent(componentId::fan);
    recorder.endComponent(verdict::notTested, true);
    recorder.endRun();
    const RunRecord record = recorder.record(goodRun());
    QCOMPARE(record.components.at(0).items.size(), 1);
    QCOMPARE(record.components.at(1).key, QStringLiteral("fan"));
    QCOMPARE(record.components.at(1).verdict, Verdict::NotTested);
    QVERIFY(record.components.at(1).items.isEmpty());
}

void tst_RunRecorder::recordsOfOthersAreNotTaken()
{
    RunRecorder recorder({{componentId::lens, {0}}, {12, {0}}});
    emit Face::Get()->signal_showCheckLog({componentId::lens, {item(0, verdict::failed)}});
    recorder.beginComponent(componentId::lens);
    emit Face::Get()->signal_showCheckLog({componentId::battery, {item(0, verdict::failed)}});
    recorder.endComponent(verdict::ok, true);
    recorder.endRun();
    const RunRecord record = recorder.record(goodRun());
    QCOMPARE(record.components.size(), 1);
    QVERIFY(record.components.at(0).items.isEmpty());
    QVERIFY2(record.plan == (QList<PlannedComponent>{{5, QStringLiteral("lens"), {0}}}),
             "a component that there is not has no key to be told by");
}

void tst_RunRecorder::cameraThatIsReadDuringTheRun_data()
{
    QTest::addColumn<bool>("kept");
    QTest::addColumn<QString>("wifiName");
    QTest::addColumn<QString>("link");
    QTest::newRow("and stays") << true << QStringLiteral("Camera-5F2A") << QStringLiteral("usb");
    QTest::newRow("and goes") << false << QString() << QString();
}

void tst_RunRecorder::cameraThatIsReadDuringTheRun()
{
    QFETCH(const bool, kept);
    Face *face = Face::Get();
    face->wifiName = QString();
    face->linkName = QString();
    RunRecorder recorder({});
    face->wifiName = QStringLiteral("Camera-5F2A");
    face->linkName = QStringLiteral("usb");
    recorder.endRun();
    RunOutcome outcome = goodRun();
    outcome.end.camera = kept ? Camera::Kept : Camera::Lost;
    const RunRecord record = recorder.record(outcome);
    QCOMPARE(record.camera.mac, mac);
    QTEST(record.camera.wifiName, "wifiName");
    QTEST(record.camera.link, "link");
}

void tst_RunRecorder::fileThatIsGoneIsLeftOut()
{
    CheckItemLog log = item(0, verdict::ok, std::nullopt);
    log.files = QStringList{QStringLiteral("/nowhere/log.tar.gz")};
    const RunRecord record = recorded({{{componentId::log, {log}}, verdict::ok, false}}, goodRun());
    QCOMPARE(record.components.at(0).items.size(), 1);
    QVERIFY(record.components.at(0).items.at(0).files.isEmpty());
}

QTEST_GUILESS_MAIN(tst_RunRecorder)
#include "tst_RunRecorder.moc"
