#include "detector/checks/gimbalChecks.h"
#include "detector/store/KestDetectorFace.h"
#include "support/CheckTest.h"

#include <memory>
#include <QTest>

using ItemRoutine = QString (*)(int *, QString &);
Q_DECLARE_METATYPE(ItemRoutine)

namespace {
constexpr int gimbalSet = 2;
constexpr int deviceInfo = 64;
constexpr int motionState = 1;
constexpr int startMotion = 41;

/// The reply to a query of the motion state: `state` stands at byte 21 of 26.
QByteArray stateReply(int state)
{
    QByteArray reply(27, 0);
    reply[22] = static_cast<char>(state);
    return reply;
}

/// Device information with the given link flags.
QByteArray links(int roll, int pitch, int yaw)
{
    QByteArray data(64, '\x7F');
    data[4] = static_cast<char>(roll);
    data[8] = static_cast<char>(pitch);
    data[12] = static_cast<char>(yaw);
    return data;
}
} // namespace

class tst_gimbalChecks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_camera.isListening()); }
    void init();

    void mainLink_data();
    void mainLink();
    void axisLink_data();
    void axisLink();
    void linkCannotBeAsked_data();
    void linkCannotBeAsked();
    void component_data();
    void component();
    void motion_data();
    void motion();
    void doneAtTheFirstPollNeedsNoWait();
    void gimbalThatNeverAnswersTimesOut();
    void movementIsStartedForEachAxis();
    void measuresEachAxis();
    void measuresTheLinks();
    void faultSightingsCarryOverToLaterRuns();
    void eachAxisCountsItsOwnFaultSightings();
    void motionEndsEarlyWhenTheProgramCloses();

private:
    CheckItemLog runMotion();
    void reportStates(const QList<int> &states);

    ScriptedCamera m_camera;
    qint64 m_now = 0;    ///< of the motion test's clock
    QList<int> m_sleeps; ///< the waits that the motion test asked for
};

void tst_gimbalChecks::init()
{
    KestDetectorFace::Get()->takeBackStop();
    m_camera.reset();
    m_now = 0;
    m_sleeps.clear();
}

/// The motion test on a clock that only its own waits advance.
CheckItemLog tst_gimbalChecks::runMotion()
{
    const MotionClock clock{[this] { return m_now; },
                            [this](int milliseconds) {
                                m_sleeps.append(milliseconds);
                                m_now += milliseconds;
                            }};
    CheckItemLog item;
    onWorkerThread([&] { checkGimbalStutter(item, clock); });
    return item;
}

/// From now on the gimbal reports these states, one for each poll; the last one stays.
void tst_gimbalChecks::reportStates(const QList<int> &states)
{
    auto rest = std::make_shared<QList<int>>(states);
    m_camera.reply(gimbalSet, motionState, [rest](const QByteArray &) {
        return stateReply(rest->size() > 1 ? rest->takeFirst() : rest->first());
    });
}

void tst_gimbalChecks::mainLink_data()
{
    QTest::addColumn<quint64>("status");
    QTest::addColumn<QList<int>>("examined");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("linked") << Q_UINT64_C(0) << QList<int>{1} << 0 << "云台主控通信OK\n";
    QTest::newRow("fault bit set") << Q_UINT64_C(2) << QList<int>{1} << 1 << "云台主控通信失败\n";
    QTest::newRow("fault bit is not examined") << Q_UINT64_C(2) << QList<int>{0, 2} << 0 << "云台主控通信OK\n";
}

void tst_gimbalChecks::mainLink()
{
    QFETCH(quint64, status);
    QFETCH(QList<int>, examined);
    reportStatus(m_camera, status, examined);
    const Outcome outcome = runItem(checkGimbalMainNet);
    QTEST(outcome.verdict, "verdict");
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_gimbalChecks::axisLink_data()
{
    QTest::addColumn<ItemRoutine>("routine");
    QTest::addColumn<QByteArray>("info");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    const QByteArray noPitch = links(1, 0, 1);
    QTest::newRow("pitch missing: roll is linked")
        << ItemRoutine(checkGimbalRollNet) << noPitch << 0 << "Roll轴通信OK\n";
    QTest::newRow("pitch missing: pitch fails")
        << ItemRoutine(checkGimbalPitchNet) << noPitch << 1 << "Pitch轴通信异常\n";
    QTest::newRow("pitch missing: yaw is linked")
        << ItemRoutine(checkGimbalYawchNet) << noPitch << 0 << "Yaw轴通信OK\n";
    const QByteArray onlyPitch = links(0, 255, 0);
    QTest::newRow("only pitch: roll fails") << ItemRoutine(checkGimbalRollNet) << onlyPitch << 1 << "Roll轴通信异常\n";
    QTest::newRow("only pitch: pitch is linked")
        << ItemRoutine(checkGimbalPitchNet) << onlyPitch << 0 << "Pitch轴通信OK\n";
    QTest::newRow("only pitch: yaw fails") << ItemRoutine(checkGimbalYawchNet) << onlyPitch << 1 << "Yaw轴通信异常\n";
}

void tst_gimbalChecks::axisLink()
{
    QFETCH(ItemRoutine, routine);
    QFETCH(QByteArray, info);
    m_camera.answer(gimbalSet, deviceInfo, info);
    const Outcome outcome = runItem(routine);
    QTEST(outcome.verdict, "verdict");
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_gimbalChecks::linkCannotBeAsked_data()
{
    QTest::addColumn<ItemRoutine>("routine");
    QTest::addColumn<QString>("text");
    QTest::newRow("main") << ItemRoutine(checkGimbalMainNet) << "获取云台主控通信状态失败\n";
    QTest::newRow("roll") << ItemRoutine(checkGimbalRollNet) << "获取Roll轴通信状态失败\n";
    QTest::newRow("pitch") << ItemRoutine(checkGimbalPitchNet) << "获取Pitch轴通信状态失败\n";
    QTest::newRow("yaw") << ItemRoutine(checkGimbalYawchNet) << "获取Yaw轴通信状态失败\n";
}

void tst_gimbalChecks::linkCannotBeAsked()
{
    QFETCH(ItemRoutine, routine);
    const Outcome outcome = runItem(routine);
    QCOMPARE(outcome.verdict, 1);
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_gimbalChecks::component_data()
{
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("all links") << QList<int>{0, 1, 2, 3} << QStringList{"progress 0",   "item Main connection",
                                                                        "progress 25",  "item ROLL connection",
                                                                        "progress 50",  "item PITCH connection",
                                                                        "progress 75",  "item YAW connection",
                                                                        "progress 100", "log 1"}
                               << QStringList{"0|云台主控通信OK\n|", "0|Roll轴通信OK\n|", "1|Pitch轴通信异常\n|",
                                              "0|Yaw轴通信OK\n|"};
    QTest::newRow("motion test, and an unknown one")
        << QList<int>{4, 99} << QStringList{"progress 0", "item Cation test", "progress 50", "progress 100", "log 1"}
        << QStringList{"1|Roll轴运动检测NG\nPitch轴运动检测OK\nYaw轴运动检测OK\n|"};
}

void tst_gimbalChecks::component()
{
    QFETCH(QList<int>, items);
    reportStatus(m_camera, 0, {1});
    m_camera.answer(gimbalSet, deviceInfo, links(1, 0, 1));
    m_camera.answer(gimbalSet, startMotion, QByteArray());
    // Four sightings of the roll axis's fault state, then the done states of the others.
    reportStates({6, 6, 6, 6, 12, 13});
    const FacadeSpy spy;
    const Outcome outcome = runComponent(checkGimbal, items);
    QCOMPARE(outcome.verdict, 1);
    QTEST(spy.events(), "events");
    QTEST(texts(spy.logs().constFirst()), "records");
}

void tst_gimbalChecks::motion_data()
{
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("all axes pass") << QList<int>{11, 12, 13} << 0
                                   << "Roll轴运动检测OK\nPitch轴运动检测OK\nYaw轴运动检测OK\n";
    QTest::newRow("other states are waited out") << QList<int>{0, 5, 12, 13, 11, 7, 255, 12, 0, 13} << 0
                                                 << "Roll轴运动检测OK\nPitch轴运动检测OK\nYaw轴运动检测OK\n";
    QTest::newRow("roll fails at the fourth sighting, the others pass")
        << QList<int>{6, 6, 0, 6, 6, 12, 13} << 1 << "Roll轴运动检测NG\nPitch轴运动检测OK\nYaw轴运动检测OK\n";
    QTest::newRow("pitch fails") << QList<int>{11, 7, 7, 7, 7, 13} << 1
                                 << "Roll轴运动检测OK\nPitch轴运动检测NG\nYaw轴运动检测OK\n";
    QTest::newRow("yaw fails in the words of the pitch axis")
        << QList<int>{11, 12, 8, 8, 8, 8} << 1 << "Roll轴运动检测OK\nPitch轴运动检测OK\nPitch轴运动检测NG\n";
    QTest::newRow("all fail") << QList<int>{6, 6, 6, 6, 7, 7, 7, 7, 8, 8, 8, 8} << 1
                              << "Roll轴运动检测NG\nPitch轴运动检测NG\nPitch轴运动检测NG\n";
}

void tst_gimbalChecks::motion()
{
    QFETCH(QList<int>, states);
    m_camera.answer(gimbalSet, startMotion, QByteArray());
    reportStates(states);
    const CheckItemLog item = runMotion();
    QTEST(item.message, "text");
    QTEST(item.result, "verdict");
    QCOMPARE(item.detail, QString());
}

void tst_gimbalChecks::doneAtTheFirstPollNeedsNoWait()
{
    reportStates({11, 12, 13});
    QCOMPARE(runMotion().result, 0);
    QCOMPARE(m_sleeps, QList<int>());
}

void tst_gimbalChecks::gimbalThatNeverAnswersTimesOut()
{
    const CheckItemLog item = runMotion();
    QCOMPARE(item.result, 1);
    QCOMPARE(item.message, QStringLiteral("Roll轴运动检测超时\nRoll轴运动检测NG\n"
                                          "Pitch轴运动检测超时\nPitch轴运动检测NG\n"
                                          "Yaw轴运动检测超时\nPitch轴运动检测NG\n"));
    // 21 s for each axis, in polls a second apart.
    QCOMPARE(m_now, 63000);
    QCOMPARE(m_sleeps.count(1000), 63);
    QCOMPARE(m_camera.requests(gimbalSet, motionState).size(), 63);
}

void tst_gimbalChecks::movementIsStartedForEachAxis()
{
    reportStates({11, 12, 13});
    runMotion();
    QCOMPARE(m_camera.requests(gimbalSet, startMotion),
             (QList<QByteArray>{QByteArray("\x01"), QByteArray("\x02"), QByteArray("\x03")}));
}

void tst_gimbalChecks::measuresEachAxis()
{
    // Roll ends at its third poll, pitch at its first; yaw stays in a state of no meaning.
    reportStates({0, 0, 11, 12, 5});
    QCOMPARE(measurementTexts(runMotion()),
             (QStringList{"gimbal.roll.time=2 s", "gimbal.roll.state=11", "gimbal.pitch.time=0 s",
                          "gimbal.pitch.state=12", "gimbal.yaw.time=21 s", "gimbal.yaw.state=5"}));
    m_camera.reset();
    QCOMPARE(measurementTexts(runMotion()),
             (QStringList{"gimbal.roll.time=21 s", "gimbal.pitch.time=21 s", "gimbal.yaw.time=21 s"}));
}

void tst_gimbalChecks::measuresTheLinks()
{
    m_camera.answer(gimbalSet, deviceInfo, links(1, 0, 255));
    const FacadeSpy spy;
    runComponent(checkGimbal, {1, 2, 3});
    QStringList measured;
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    for (const CheckItemLog &item : items) {
        measured += measurementTexts(item);
    }
    QCOMPARE(measured, (QStringList{"gimbal.roll.flag=1", "gimbal.pitch.flag=0", "gimbal.yaw.flag=255"}));
}

void tst_gimbalChecks::eachAxisCountsItsOwnFaultSightings()
{
    const QString rollPassed = QStringLiteral("Roll轴运动检测OK\n");
    const QString pitchPassed = QStringLiteral("Pitch轴运动检测OK\n");
    const QString yawPassed = QStringLiteral("Yaw轴运动检测OK\n");
    reportStates({6, 6, 6, 11, 7, 7, 7, 12, 8, 8, 8, 13});
    QCOMPARE(runMotion().message, rollPassed + pitchPassed + yawPassed);
    // Each has three behind it now. The fourth sets an axis's own count back, and no other's.
    reportStates({11, 7, 13});
    QCOMPARE(runMotion().message, rollPassed + QStringLiteral("Pitch轴运动检测NG\n") + yawPassed);
    reportStates({6, 7, 12, 13});
    QCOMPARE(runMotion().message, QStringLiteral("Roll轴运动检测NG\n") + pitchPassed + yawPassed);
    reportStates({11, 7, 7, 7, 8});
    QCOMPARE(runMotion().message,
             rollPassed + QStringLiteral("Pitch轴运动检测NG\n") + QStringLiteral("Pitch轴运动检测NG\n"));
}

void tst_gimbalChecks::faultSightingsCarryOverToLaterRuns()
{
    const QString timeOuts = QStringLiteral("Roll轴运动检测超时\nRoll轴运动检测NG\n");
    const QString others = QStringLiteral("Pitch轴运动检测OK\nYaw轴运动检测OK\n");
    QList<int> oneFault{6};
    for (int poll = 1; poll < 21; ++poll) {
        oneFault.append(0);
    }
    oneFault += {12, 13};
    for (int run = 1; run <= 3; ++run) {
        reportStates(oneFault);
        QCOMPARE(runMotion().message, timeOuts + others);
    }
    reportStates({6, 12, 13});
    const qint64 before = m_now;
    QCOMPARE(runMotion().message, QStringLiteral("Roll轴运动检测NG\n") + others);
    QCOMPARE(m_now, before);
}

void tst_gimbalChecks::motionEndsEarlyWhenTheProgramCloses()
{
    reportStates({0});
    const MotionClock clock{[this] { return m_now; }, [](int) { KestDetectorFace::Get()->requestStop(); }};
    CheckItemLog item;
    onWorkerThread([&] { checkGimbalStutter(item, clock); });
    QCOMPARE(item.result, 1);
    QCOMPARE(item.message, QString());
    QCOMPARE(m_camera.requests(gimbalSet, startMotion).size(), 1);
}

QTEST_GUILESS_MAIN(tst_gimbalChecks)
#include "tst_gimbalChecks.moc"
