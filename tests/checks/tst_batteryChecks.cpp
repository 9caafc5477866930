#include "detector/checks/batteryChecks.h"
#include "support/CheckTest.h"
#include "support/MessageSpy.h"

#include <QTest>

namespace {
constexpr int batterySet = 4;
constexpr int statusCommand = 26;
constexpr int infoCommand = 64;

/// 87 %, 3850 mV, -250 mA, 25.34 degrees, 65 min to empty, 12 min to full.
const QByteArray statusData = QByteArrayLiteral("\x57"
                                                "\x0A\x0F"
                                                "\x06\xFF"
                                                "\xE6\x09"
                                                "\x41\x00"
                                                "\x0C\x00");
const QString statusReport = QStringLiteral("++++++++++\n"
                                            "electric quantity:87%\n"
                                            "voltage:3.85V\n"
                                            "electricity:-250mA\n"
                                            "temperature:25.34℃\n"
                                            "充电至满时间:12min\n"
                                            "放电至空时间:65min\n"
                                            "----------\n\n");

const QByteArray infoData = QByteArrayLiteral("\x1A\x0B"                 // sub-identifier, version information
                                              "\x04\x03\x02\x01"         // software 1.2.3.4
                                              "\xFF\x00\x0A\xC8"         // hardware 200.10.0.255
                                              "\x64"                     // 100 %
                                              "\xA0\x0F\xF4\x01\x00\x0A" // 4000 mV, 500 mA, 25.6 degrees
                                              "\xFF\xFF\x00\x00"         // 65535 min to empty, 0 min to full
                                              "\xEF\xBE\x01\x00\xCD\xAB" // device type, firmware, hardware
                                              "\x2A\x00\xD0\x07\x10\x27" // 42 cycles, 2000 mAh, manufacturer
                                              "\x80\x00\x00\x00"         // warning bit 7
                                              "\x00\x01\xFF");           // no charger, microphone, accessory
const QString infoReport = QStringLiteral("++++++++++\n"
                                          "Sub_ID:0x1a\n"
                                          "version Info:0xb\n"
                                          "software version:1.2.3.4\n"
                                          "hardware version:200.10.0.255\n"
                                          "electric quantity :100%\n"
                                          "voltage:4V\n"
                                          "electricity:500mA\n"
                                          "temperature:25.6℃\n"
                                          "至空时间:65535min\n"
                                          "至满时间:0min\n"
                                          "设备类型:0xbeef\n"
                                          "电池固件信息:0x1\n"
                                          "电池硬件信息:0xabcd\n"
                                          "循环次数:42\n"
                                          "满电容量:2000mAh\n"
                                          "制造商:0x2710\n"
                                          "电池警告:状态良好电池组电压过低\n"
                                          "充电器状态:充电器未插入\n"
                                          "麦克风状态:麦克风插入\n"
                                          "POGO_PIN状态:已插入外设\n"
                                          "----------\n\n");

/// All zero but the other contacts.
const QByteArray zeroInfoData = QByteArray().leftJustified(37, '\0') + QByteArrayLiteral("\x01\x00\x00");
const QString zeroInfoReport = QStringLiteral("++++++++++\n"
                                              "Sub_ID:0x0\n"
                                              "version Info:0x0\n"
                                              "software version:0.0.0.0\n"
                                              "hardware version:0.0.0.0\n"
                                              "electric quantity :0%\n"
                                              "voltage:0V\n"
                                              "electricity:0mA\n"
                                              "temperature:0℃\n"
                                              "至空时间:0min\n"
                                              "至满时间:0min\n"
                                              "设备类型:0x0\n"
                                              "电池固件信息:0x0\n"
                                              "电池硬件信息:0x0\n"
                                              "循环次数:0\n"
                                              "满电容量:0mAh\n"
                                              "制造商:0x0\n"
                                              "电池警告:状态良好\n"
                                              "充电器状态:充电器插入\n"
                                              "麦克风状态:麦克风未插入\n"
                                              "POGO_PIN状态:未插入外设\n"
                                              "----------\n\n");
} // namespace

class tst_batteryChecks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_camera.isListening()); }
    void init() { m_camera.reset(); }

    void link_data();
    void link();
    void linkCannotBeAsked();
    void statusReportsValues();
    void infoReportsValues_data();
    void infoReportsValues();
    void reportCannotBeRead();
    void measuresWhatItReports();
    void component_data();
    void component();
    void chargePasses();

private:
    ScriptedCamera m_camera;
};

void tst_batteryChecks::link_data()
{
    QTest::addColumn<quint64>("status");
    QTest::addColumn<QList<int>>("examined");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("linked") << Q_UINT64_C(0) << QList<int>{3} << 0 << "相机电池通信OK\n";
    QTest::newRow("fault bit set") << Q_UINT64_C(8) << QList<int>{3} << 1 << "相机电池通信NG\n";
    QTest::newRow("fault bit is not examined") << Q_UINT64_C(8) << QList<int>{2, 4} << 0 << "相机电池通信OK\n";
}

void tst_batteryChecks::link()
{
    QFETCH(quint64, status);
    QFETCH(QList<int>, examined);
    reportStatus(m_camera, status, examined);
    const Outcome outcome = runItem(checkBatteryNet);
    QTEST(outcome.verdict, "verdict");
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_batteryChecks::linkCannotBeAsked()
{
    const Outcome outcome = runItem(checkBatteryNet);
    QCOMPARE(outcome.verdict, 1);
    QCOMPARE(outcome.text, QStringLiteral("获取电池通信状态失败\n"));
    QCOMPARE(outcome.detail, QString());
}

void tst_batteryChecks::statusReportsValues()
{
    m_camera.answer(batterySet, statusCommand, statusData);
    const MessageSpy spy;
    const Outcome outcome = runItem(checkBatteryStatus);
    QCOMPARE(outcome.detail, statusReport);
    QCOMPARE(outcome.text, QStringLiteral("获取电池状态成功\n"));
    QCOMPARE(outcome.verdict, 0);
    QCOMPARE(spy.containing(statusReport).size(), 1);
}

void tst_batteryChecks::infoReportsValues_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("report");
    QTest::newRow("values") << infoData << infoReport;
    QTest::newRow("zeroes and no warnings") << zeroInfoData << zeroInfoReport;
}

void tst_batteryChecks::infoReportsValues()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, report);
    m_camera.answer(batterySet, infoCommand, data);
    const MessageSpy spy;
    const Outcome outcome = runItem(checkBatteryInfo);
    QCOMPARE(outcome.detail, report);
    QCOMPARE(outcome.text, QStringLiteral("获取电池信息成功\n"));
    QCOMPARE(outcome.verdict, 0);
    QCOMPARE(spy.containing(report).size(), 1);
}

void tst_batteryChecks::reportCannotBeRead()
{
    const Outcome status = runItem(checkBatteryStatus);
    QCOMPARE(status.verdict, 1);
    QCOMPARE(status.text, QStringLiteral("获取电池状态失败\n"));
    QCOMPARE(status.detail, QString());
    const Outcome info = runItem(checkBatteryInfo);
    QCOMPARE(info.verdict, 1);
    QCOMPARE(info.text, QStringLiteral("获取电池信息失败\n"));
    QCOMPARE(info.detail, QString());

    const FacadeSpy spy;
    runComponent(checkBattery, {0, 2, 1});
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    for (const CheckItemLog &item : items) {
        QCOMPARE(measurementTexts(item), QStringList());
    }
}

void tst_batteryChecks::measuresWhatItReports()
{
    reportStatus(m_camera, 8, {3});
    m_camera.answer(batterySet, statusCommand, statusData);
    m_camera.answer(batterySet, infoCommand, infoData);
    const FacadeSpy spy;
    runComponent(checkBattery, {0, 2, 1});
    const QList<CheckItemLog> items = spy.logs().constFirst().itemLogs;
    QCOMPARE(items.size(), 3);
    QCOMPARE(measurementTexts(items.at(0)), QStringList{"camera.statusWord=0x0000000000000008"});
    QCOMPARE(measurementTexts(items.at(1)), (QStringList{"battery.subId=26",
                                                         "battery.versionInfo=11",
                                                         "battery.softwareVersion=1.2.3.4",
                                                         "battery.hardwareVersion=200.10.0.255",
                                                         "battery.charge=100 %",
                                                         "battery.voltage=4 V",
                                                         "battery.current=500 mA",
                                                         "battery.temperature=25.6 °C",
                                                         "battery.timeToEmpty=65535 min",
                                                         "battery.timeToFull=0 min",
                                                         "battery.deviceType=48879",
                                                         "battery.firmwareInfo=1",
                                                         "battery.hardwareInfo=43981",
                                                         "battery.cycles=42",
                                                         "battery.capacity=2000 mAh",
                                                         "battery.manufacturer=10000",
                                                         "battery.warningBits=128",
                                                         "battery.charger=0",
                                                         "battery.microphone=1",
                                                         "battery.pogoPin=255"}));
    QCOMPARE(measurementTexts(items.at(2)),
             (QStringList{"battery.charge=87 %", "battery.voltage=3.85 V", "battery.current=-250 mA",
                          "battery.temperature=25.34 °C", "battery.timeToFull=12 min", "battery.timeToEmpty=65 min"}));
}

void tst_batteryChecks::component_data()
{
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("connection, info, status")
        << QList<int>{0, 2, 1}
        << QStringList{"progress 0",  "item Battery connection", "progress 33",  "item Battery Info",
                       "progress 66", "item Battery status",     "progress 100", "log 2"}
        << QStringList{"0|相机电池通信OK\n|", "0|获取电池信息成功\n|" + infoReport,
                       "0|获取电池状态成功\n|" + statusReport};
    QTest::newRow("charge only: a record without entries")
        << QList<int>{3} << QStringList{"progress 0", "item Charge", "progress 100", "log 2"} << QStringList();
    QTest::newRow("an unknown item only advances the progress")
        << QList<int>{99} << QStringList{"progress 0", "progress 100", "log 2"} << QStringList();
}

void tst_batteryChecks::component()
{
    QFETCH(QList<int>, items);
    reportStatus(m_camera, 0, {3});
    m_camera.answer(batterySet, statusCommand, statusData);
    m_camera.answer(batterySet, infoCommand, infoData);
    const FacadeSpy spy;
    const Outcome outcome = runComponent(checkBattery, items);
    QCOMPARE(outcome.verdict, 0);
    QTEST(spy.events(), "events");
    QTEST(texts(spy.logs().constFirst()), "records");
}

void tst_batteryChecks::chargePasses()
{
    int verdict = 99;
    QCOMPARE(checkBatteryCharge(&verdict), QString());
    QCOMPARE(verdict, 0);
}

QTEST_GUILESS_MAIN(tst_batteryChecks)
#include "tst_batteryChecks.moc"
