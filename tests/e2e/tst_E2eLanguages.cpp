#include "CameraProcess.h"
#include "expectedLogs.h"
#include "StationProcess.h"
#include "support/fileContent.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

/// One run of the same camera in each language: what is printed and saved speaks it, and the record's keys, numbers and
/// verdicts know nothing of it.
class tst_E2eLanguages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void run_data();
    void run();
    void wrongUsage_data();
    void wrongUsage();

private:
    CameraProcess m_camera;
    QJsonObject m_firstRecord; ///< without what differs from run to run
};

namespace {
constexpr char english[] = "[Battery]:\n"
                           "Battery link OK\n"
                           "Battery information read\n"
                           "++++++++++\n"
                           "Sub ID: 0x4\n"
                           "Version information: 0x10\n"
                           "Software version: 1.2.3.4\n"
                           "Hardware version: 1.0.0.2\n"
                           "Charge level: 87%\n"
                           "Voltage: 3.85 V\n"
                           "Current: -250 mA\n"
                           "Temperature: 25.34 ℃\n"
                           "Time to empty: 95 min\n"
                           "Time to full: 0 min\n"
                           "Device type: 0x101\n"
                           "Battery firmware information: 0x210\n"
                           "Battery hardware information: 0x103\n"
                           "Cycles: 12\n"
                           "Full capacity: 875 mAh\n"
                           "Manufacturer: 0x4b53\n"
                           "Battery warnings: in good order\n"
                           "Charger: not plugged in\n"
                           "Microphone: not plugged in\n"
                           "POGO pins: no accessory attached\n"
                           "----------\n"
                           "\n"
                           "Battery status read\n"
                           "++++++++++\n"
                           "Charge level: 87%\n"
                           "Voltage: 3.85 V\n"
                           "Current: -250 mA\n"
                           "Temperature: 25.34 ℃\n"
                           "Charging time to full: 0 min\n"
                           "Discharging time to empty: 95 min\n"
                           "----------\n"
                           "\n"
                           "\n"
                           "[Lens]:\n"
                           "Lens link OK\n"
                           "\n";
constexpr char chinese[] = "[电池]:\n"
                           "相机电池通信OK\n"
                           "获取电池信息成功\n"
                           "++++++++++\n"
                           "子ID：0x4\n"
                           "版本信息：0x10\n"
                           "软件版本：1.2.3.4\n"
                           "硬件版本：1.0.0.2\n"
                           "电量：87%\n"
                           "电压：3.85V\n"
                           "电流：-250mA\n"
                           "温度：25.34℃\n"
                           "至空时间：95分钟\n"
                           "至满时间：0分钟\n"
                           "设备类型：0x101\n"
                           "电池固件信息：0x210\n"
                           "电池硬件信息：0x103\n"
                           "循环次数：12\n"
                           "满电容量：875mAh\n"
                           "制造商：0x4b53\n"
                           "电池警告：状态良好\n"
                           "充电器状态：未插入\n"
                           "麦克风状态：未插入\n"
                           "POGO_PIN状态：未插入外设\n"
                           "----------\n"
                           "\n"
                           "获取电池状态成功\n"
                           "++++++++++\n"
                           "电量：87%\n"
                           "电压：3.85V\n"
                           "电流：-250mA\n"
                           "温度：25.34℃\n"
                           "充电至满时间：0分钟\n"
                           "放电至空时间：95分钟\n"
                           "----------\n"
                           "\n"
                           "\n"
                           "[镜头]:\n"
                           "相机镜头通信OK\n"
                           "\n";

/// Adds a section to the station's settings.
void addSettings(const StationProcess &station, const QByteArray &section)
{
    station.writeOptionIni(station.optionIni() + section);
}

/// A record without what another run of the same camera may have otherwise, and without what people read.
QJsonValue lasting(const QJsonValue &value)
{
    static const QStringList otherwise{"id",      "begin",  "end",     "durationMs", "name",
                                       "message", "detail", "request", "wifiName"};
    if (value.isArray()) {
        QJsonArray kept;
        const QJsonArray entries = value.toArray();
        for (const QJsonValue &entry : entries) {
            kept.append(lasting(entry));
        }
        return kept;
    }
    if (!value.isObject()) {
        return value;
    }
    QJsonObject kept;
    const QJsonObject object = value.toObject();
    const bool isMeasurement = object.contains(QStringLiteral("unit")); // its name is a key
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const bool varies = otherwise.contains(entry.key()) && !isMeasurement;
        kept.insert(entry.key(), varies ? QJsonValue() : lasting(entry.value()));
    }
    return kept;
}
} // namespace

void tst_E2eLanguages::initTestCase()
{
    QVERIFY(m_camera.startShipped(QStringLiteral("healthy")));
}

void tst_E2eLanguages::run_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("printed");
    QTest::addColumn<QByteArray>("log");

    const QByteArray written = QByteArray(expectedLogs::batteryLink) + expectedLogs::batteryInfo +
                               expectedLogs::batteryStatus + expectedLogs::lens;
    QTest::newRow("as written") << QByteArray() << QStringList() << QByteArray("Battery: OK\nLens: OK\nResult: OK\n\n")
                                << written;
    QTest::newRow("English") << QByteArray() << QStringList{"--language", "en"}
                             << QByteArray("Battery: OK\nLens: OK\nResult: OK\n\n") << QByteArray(english);
    QTest::newRow("Chinese, by the setting") << QByteArray("[Interface]\nlanguage=zh_CN\n") << QStringList()
                                             << QByteArray("电池: OK\n镜头: OK\n结果：OK\n\n") << QByteArray(chinese);
}

void tst_E2eLanguages::run()
{
    QFETCH(const QByteArray, setting);
    QFETCH(const QStringList, options);
    QFETCH(const QByteArray, printed);
    QFETCH(const QByteArray, log);
    StationProcess station;
    addSettings(station, setting);
    const QString json = station.folder() + QStringLiteral("/run.json");
    QCOMPARE(station.run(QStringLiteral("battery,lens"), options + QStringList{QStringLiteral("--json"), json}), 0);
    QCOMPARE(QString::fromUtf8(station.output().content()), QString::fromUtf8(printed + log));
    QCOMPARE(QString::fromUtf8(station.saved(QStringLiteral("DetectorLog.txt"))), QString::fromUtf8(log));
    const QJsonObject record = lasting(QJsonDocument::fromJson(fileContent(json)).object()).toObject();
    QVERIFY(!record.isEmpty());
    if (m_firstRecord.isEmpty()) {
        m_firstRecord = record;
    }
    QCOMPARE(QJsonDocument(record).toJson(), QJsonDocument(m_firstRecord).toJson());
}

void tst_E2eLanguages::wrongUsage_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("said");

    QTest::newRow("English") << QStringList{"--language", "en", "--repeat", "0"}
                             << QByteArray("--repeat: \"0\" is not a whole number of 1 or more\nTry --help.\n");
    QTest::newRow("Chinese") << QStringList{"--language", "zh_CN", "--repeat", "0"}
                             << QByteArray("--repeat：“0”不是大于或等于1的整数\n请用 --help 查看用法。\n");
    QTest::newRow("of Qt, in Chinese") << QStringList{"--language", "zh_CN", "--connect-timeout"}
                                       << QByteArray("“--connect-timeout”之后缺少值。\n请用 --help 查看用法。\n");
    QTest::newRow("no language") << QStringList{"--language", "de"}
                                 << QByteArray("--language: \"de\" is neither en nor zh_CN\nTry --help.\n");
}

void tst_E2eLanguages::wrongUsage()
{
    QFETCH(const QStringList, options);
    StationProcess station;
    QCOMPARE(station.run(QStringLiteral("lens"), options), 2);
    const QByteArray output = station.debugOutput().content();
    QFETCH(const QByteArray, said);
    QVERIFY2(output.contains(said), output.constData());
}

QTEST_GUILESS_MAIN(tst_E2eLanguages)
#include "tst_E2eLanguages.moc"
