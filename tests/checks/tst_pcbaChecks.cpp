#include "detector/checks/pcbaChecks.h"
#include "support/CheckTest.h"

#include <QTest>

using ItemRoutine = QString (*)(int *, QString &);
Q_DECLARE_METATYPE(ItemRoutine)

namespace {
constexpr int gimbalSet = 2;
constexpr int controllerFlags = 67;
constexpr int batterySet = 4;
constexpr int batteryFlag = 97;
constexpr quint16 sensorMark = 8162;
} // namespace

class tst_pcbaChecks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_camera.isListening()); }
    void init() { m_camera.reset(); }

    void flag_data();
    void flag();
    void flagCannotBeRead_data();
    void flagCannotBeRead();
    void component_data();
    void component();
    void measuresTheFlags();
    void cameraDoesNotAnswer();
    void lensDriverPasses();

private:
    ScriptedCamera m_camera;
};

void tst_pcbaChecks::flag_data()
{
    QTest::addColumn<ItemRoutine>("routine");
    QTest::addColumn<QByteArray>("mark");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    const QByteArray mark("KO");
    QTest::newRow("sensor tested") << ItemRoutine(checkPcbaEEprom) << mark << 0 << 0 << "工厂sensor检测OK\n";
    QTest::newRow("sensor not tested") << ItemRoutine(checkPcbaEEprom) << QByteArray("OK") << 15 << 2
                                       << "工厂sensor未检测\n";
    QTest::newRow("main tested") << ItemRoutine(checkPcbaGimbalMain) << mark << 8 << 0 << "云台主控板工厂检测OK\n";
    QTest::newRow("main not tested") << ItemRoutine(checkPcbaGimbalMain) << mark << 7 << 2 << "云台主控板工厂未检测\n";
    QTest::newRow("roll tested") << ItemRoutine(checkPcbaGimbalRoll) << mark << 4 << 0 << "Roll轴电调板工厂检测OK\n";
    QTest::newRow("roll not tested") << ItemRoutine(checkPcbaGimbalRoll) << mark << 11 << 2
                                     << "Roll轴电调板工厂未检测\n";
    QTest::newRow("pitch tested") << ItemRoutine(checkPcbaPitch) << mark << 2 << 0 << "Pitch轴电调板工厂检测OK\n";
    QTest::newRow("pitch not tested") << ItemRoutine(checkPcbaPitch) << mark << 13 << 2 << "Pitch轴电调板工厂未检测\n";
    QTest::newRow("yaw tested") << ItemRoutine(checkPcbaYawch) << mark << 1 << 0 << "Yaw轴电调板工厂检测OK\n";
    QTest::newRow("yaw not tested") << ItemRoutine(checkPcbaYawch) << mark << 14 << 2 << "Yaw轴电调板工厂未检测\n";
    QTest::newRow("battery tested") << ItemRoutine(checkPcbaBattery) << mark << 0 << 0 << "电池工厂检测OK\n";
}

void tst_pcbaChecks::flag()
{
    QFETCH(ItemRoutine, routine);
    QFETCH(QByteArray, mark);
    QFETCH(int, flags);
    m_camera.storeEeprom(sensorMark, mark);
    m_camera.answer(gimbalSet, controllerFlags, QByteArray(1, static_cast<char>(flags)));
    m_camera.answer(batterySet, batteryFlag, QByteArray());
    const Outcome outcome = runItem(routine);
    QTEST(outcome.verdict, "verdict");
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_pcbaChecks::flagCannotBeRead_data()
{
    QTest::addColumn<ItemRoutine>("routine");
    QTest::addColumn<QString>("text");
    QTest::newRow("sensor") << ItemRoutine(checkPcbaEEprom) << "获取工厂sensor检测标志位失败\n";
    QTest::newRow("main") << ItemRoutine(checkPcbaGimbalMain) << "获取云台主控板工厂检测标志位失败\n";
    QTest::newRow("roll") << ItemRoutine(checkPcbaGimbalRoll) << "获取Roll轴电调板工厂检测标志位失败\n";
    QTest::newRow("pitch") << ItemRoutine(checkPcbaPitch) << "获取Pitch轴电调板工厂检测标志位失败\n";
    QTest::newRow("yaw") << ItemRoutine(checkPcbaYawch) << "获取Yaw轴电调板工厂检测标志位失败\n";
    QTest::newRow("battery") << ItemRoutine(checkPcbaBattery) << "获取电池工厂检测标志位失败\n";
}

void tst_pcbaChecks::flagCannotBeRead()
{
    QFETCH(ItemRoutine, routine);
    const Outcome outcome = runItem(routine);
    QCOMPARE(outcome.verdict, 2);
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_pcbaChecks::component_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    const QStringList allEvents{"progress 0",  "item Lens driver",  "progress 14",  "item EEPROM",
                                "progress 28", "item Gimbal Main",  "progress 42",  "item Gimbal ROLL",
                                "progress 57", "item Gimbal PITCH", "progress 71",  "item Gimbal YAW",
                                "progress 85", "item Battery",      "progress 100", "log 8"};
    const QList<int> allItems{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("everything tested") << 0x0F << allItems << 0 << allEvents
                                       << QStringList{"0|工厂sensor检测OK\n|",       "0|云台主控板工厂检测OK\n|",
                                                      "0|Roll轴电调板工厂检测OK\n|", "0|Pitch轴电调板工厂检测OK\n|",
                                                      "0|Yaw轴电调板工厂检测OK\n|",  "0|电池工厂检测OK\n|"};
    QTest::newRow("only the main controller tested")
        << 0x08 << allItems << 2 << allEvents
        << QStringList{"0|工厂sensor检测OK\n|",        "0|云台主控板工厂检测OK\n|",  "2|Roll轴电调板工厂未检测\n|",
                       "2|Pitch轴电调板工厂未检测\n|", "2|Yaw轴电调板工厂未检测\n|", "0|电池工厂检测OK\n|"};
    QTest::newRow("lens driver only: a record without entries")
        << 0 << QList<int>{0} << 0 << QStringList{"progress 0", "item Lens driver", "progress 100", "log 8"}
        << QStringList();
    QTest::newRow("an unknown item only advances the progress")
        << 0 << QList<int>{99} << 0 << QStringList{"progress 0", "progress 100", "log 8"} << QStringList();
}

void tst_pcbaChecks::component()
{
    QFETCH(int, flags);
    QFETCH(QList<int>, items);
    m_camera.storeEeprom(sensorMark, "KO");
    m_camera.answer(gimbalSet, controllerFlags, QByteArray(1, static_cast<char>(flags)));
    m_camera.answer(batterySet, batteryFlag, QByteArray());
    const FacadeSpy spy;
    const Outcome outcome = runComponent(checkPcba, items);
    QTEST(outcome.verdict, "verdict");
    QTEST(spy.events(), "events");
    QTEST(texts(spy.logs().constFirst()), "records");
}

void tst_pcbaChecks::measuresTheFlags()
{
    m_camera.storeEeprom(sensorMark, "OK");
    m_camera.answer(gimbalSet, controllerFlags, QByteArray(1, '\x0A'));
    m_camera.answer(batterySet, batteryFlag, QByteArray());
    const FacadeSpy spy;
    runComponent(checkPcba, {0, 1, 2, 3, 4, 5, 6});
    QStringList measured;
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    for (const CheckItemLog &item : items) {
        measured += measurementTexts(item);
    }
    QCOMPARE(measured, (QStringList{"pcba.sensor.flag=0", "pcba.gimbalMain.flag=1", "pcba.gimbalRoll.flag=0",
                                    "pcba.gimbalPitch.flag=1", "pcba.gimbalYaw.flag=0", "pcba.battery.flag=1"}));
}

void tst_pcbaChecks::cameraDoesNotAnswer()
{
    m_camera.fallSilent();
    const FacadeSpy spy;
    const Outcome outcome = runComponent(checkPcba, {0, 1, 2, 3, 4, 5, 6});
    QCOMPARE(outcome.verdict, 2);
    QCOMPARE(texts(spy.logs().constFirst()),
             (QStringList{"2|获取工厂sensor检测标志位失败\n|", "2|获取云台主控板工厂检测标志位失败\n|",
                          "2|获取Roll轴电调板工厂检测标志位失败\n|", "2|获取Pitch轴电调板工厂检测标志位失败\n|",
                          "2|获取Yaw轴电调板工厂检测标志位失败\n|", "2|获取电池工厂检测标志位失败\n|"}));
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    for (const CheckItemLog &item : items) {
        QVERIFY(item.request);
        QCOMPARE(item.request->kind, RequestEnd::Kind::NoReply);
    }
    // Each controller is asked for anew.
    QCOMPARE(m_camera.requests(gimbalSet, controllerFlags).size(), 4);
}

void tst_pcbaChecks::lensDriverPasses()
{
    int verdict = 99;
    QCOMPARE(checkPcbaLenDriver(&verdict), QString());
    QCOMPARE(verdict, 0);
}

QTEST_GUILESS_MAIN(tst_pcbaChecks)
#include "tst_pcbaChecks.moc"
