#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/Safeguards.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <QTest>

using Camera = RunEnd::Camera;
using Rule = bool (Safeguards::*)() const;
Q_DECLARE_METATYPE(RunEnd::Camera)
Q_DECLARE_METATYPE(Rule)

/// Every rule, on and off.
class tst_Safeguards : public QObject
{
    Q_OBJECT

private slots:
    void settingSwitchesThem();
    void plainRules_data();
    void plainRules();
    void start_data();
    void start();
    void componentVerdict_data();
    void componentVerdict();
    void failsRun_data();
    void failsRun();
    void runPassed_data();
    void runPassed();
    void countsAsTested();
};

void tst_Safeguards::settingSwitchesThem()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    Settings settings;
    face->setSettings(settings);
    QVERIFY(!face->safeguards().keepsEvidence());
    settings.safeguards = true;
    face->setSettings(settings);
    QVERIFY(face->safeguards().keepsEvidence());
    face->setSettings(Settings());
}

void tst_Safeguards::plainRules_data()
{
    QTest::addColumn<Rule>("rule");
    QTest::newRow("queries are resent") << &Safeguards::resendsQueries;
    QTest::newRow("path and boxes are locked during a run") << &Safeguards::locksEverythingDuringRun;
    QTest::newRow("event log is read-only") << &Safeguards::locksEventLog;
    QTest::newRow("another camera's results are cleared") << &Safeguards::clearsResultsOfOtherCamera;
    QTest::newRow("evidence is kept") << &Safeguards::keepsEvidence;
    QTest::newRow("secrets are hidden") << &Safeguards::hidesSecrets;
}

void tst_Safeguards::plainRules()
{
    QFETCH(const Rule, rule);
    QVERIFY((Safeguards(true).*rule)());
    QVERIFY(!(Safeguards(false).*rule)());
}

void tst_Safeguards::start_data()
{
    QTest::addColumn<int>("ticked");
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QString>("mac");
    QTest::addColumn<int>("problems");
    QTest::addColumn<QStringList>("missing");

    const QString mac = QStringLiteral("AA:BB:CC:DD:EE:FF");
    const QString problem = QStringLiteral("option.ini: CameraStatus/statusBits: missing: every camera passes");
    QTest::newRow("all there") << 1 << true << mac << 0 << QStringList();
    QTest::newRow("no tick") << 0 << true << mac << 0 << QStringList{"no component is ticked"};
    QTest::newRow("no camera") << 1 << false << QString() << 0 << QStringList{"no camera is connected"};
    QTest::newRow("no MAC address") << 1 << true << QString() << 0
                                    << QStringList{"the camera's MAC address is unknown"};
    QTest::newRow("settings not sound") << 1 << true << mac << 2 << QStringList{problem, problem};
    QTest::newRow("nothing there") << 0 << false << QString() << 1
                                   << QStringList{"no component is ticked", "no camera is connected", problem};
}

void tst_Safeguards::start()
{
    QFETCH(const int, ticked);
    QFETCH(const bool, connected);
    QFETCH(const QString, mac);
    QFETCH(const int, problems);
    StartConditions conditions{ticked, connected, mac, {}};
    for (int i = 0; i < problems; ++i) {
        conditions.settingProblems.append({SettingProblem::Kind::Missing, QStringLiteral("CameraStatus/statusBits"),
                                           QStringLiteral("missing"), QStringLiteral("every camera passes")});
    }
    QTEST(Safeguards(true).missingForStart(conditions), "missing");
    QCOMPARE(Safeguards(false).missingForStart(conditions), QStringList());
}

void tst_Safeguards::componentVerdict_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<int>("unanswered");
    QTest::addColumn<int>("shown"); // off, it is always the outcome

    QTest::newRow("passed") << componentId::pcba << verdict::ok << 0 << 0;
    QTest::newRow("passed, an answer missing") << componentId::pcba << verdict::ok << 1 << 1;
    QTest::newRow("warning") << componentId::pcba << verdict::warning << 0 << 2;
    QTest::newRow("warning, answers missing") << componentId::pcba << verdict::warning << 3 << 1;
    QTest::newRow("NG") << componentId::battery << verdict::failed << 2 << 1;
    QTest::newRow("cut short") << componentId::battery << verdict::notTested << 2 << 3;
    QTest::newRow("fan") << componentId::fan << verdict::ok << 0 << 3;
    QTest::newRow("button") << componentId::keyBoard << verdict::ok << 0 << 3;
    QTest::newRow("audio") << componentId::voice << verdict::ok << 0 << 3;
}

void tst_Safeguards::componentVerdict()
{
    QFETCH(const int, component);
    QFETCH(const int, outcome);
    QFETCH(const int, unanswered);
    QTEST(Safeguards(true).componentVerdict(component, outcome, unanswered), "shown");
    QCOMPARE(Safeguards(false).componentVerdict(component, outcome, unanswered), outcome);
}

void tst_Safeguards::failsRun_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<int>("shown");
    QTest::addColumn<bool>("on");
    QTest::addColumn<bool>("off");

    QTest::newRow("OK") << componentId::camera << verdict::ok << false << false;
    QTest::newRow("warning") << componentId::pcba << verdict::warning << false << false;
    QTest::newRow("NG") << componentId::camera << verdict::failed << true << true;
    QTest::newRow("not tested") << componentId::camera << verdict::notTested << true << true;
    QTest::newRow("no verdict") << componentId::camera << verdict::none << true << true;
    QTest::newRow("fan not tested") << componentId::fan << verdict::notTested << false << true;
    QTest::newRow("fan without verdict") << componentId::fan << verdict::none << true << true;
}

void tst_Safeguards::failsRun()
{
    QFETCH(const int, component);
    QFETCH(const int, shown);
    QTEST(Safeguards(true).failsRun(component, shown), "on");
    QTEST(Safeguards(false).failsRun(component, shown), "off");
}

void tst_Safeguards::runPassed_data()
{
    QTest::addColumn<bool>("passed");
    QTest::addColumn<bool>("tested");
    QTest::addColumn<Camera>("camera");
    QTest::addColumn<bool>("on"); // off, it is always `passed`

    QTest::newRow("all well") << true << true << Camera::Kept << true;
    QTest::newRow("a component failed") << false << true << Camera::Kept << false;
    QTest::newRow("nothing tested") << true << false << Camera::Kept << false;
    QTest::newRow("camera lost") << true << true << Camera::Lost << false;
    QTest::newRow("camera changed") << true << true << Camera::Changed << false;
}

void tst_Safeguards::runPassed()
{
    QFETCH(const bool, passed);
    QFETCH(const bool, tested);
    QFETCH(const Camera, camera);
    QTEST(Safeguards(true).runPassed(passed, tested, camera), "on");
    QCOMPARE(Safeguards(false).runPassed(passed, tested, camera), passed);
}

void tst_Safeguards::countsAsTested()
{
    const QList<int> tested{componentId::camera, componentId::gimbal, componentId::battery, componentId::lens,
                            componentId::tfCard, componentId::pcba,   componentId::log};
    for (const ComponentKey &component : componentKeys) {
        QVERIFY2(Safeguards::countsAsTested(component.id) == tested.contains(component.id), component.key);
    }
}

QTEST_GUILESS_MAIN(tst_Safeguards)
#include "tst_Safeguards.moc"
