#include "exchange/detectorLog.h"

#include <QTest>

/// A whole detection log: which items it names, how they ended, and what belongs to which.
class tst_detectorLog : public QObject
{
    Q_OBJECT

private slots:
    void outline_data();
    void outline();
    void keepsTextsAndMeasurements();
    void keepsTextsOfAnotherLanguage();
    void marksAMeasurementOutsideItsLimit();
};

namespace {
QString verdictLetter(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Passed:
        return QStringLiteral("+");
    case Verdict::Failed:
        return QStringLiteral("-");
    case Verdict::Warning:
        return QStringLiteral("!");
    case Verdict::NotTested:
        break;
    }
    return QStringLiteral("?");
}

/// "camera+(camera.video+ camera.factory-)"
QString outlineOf(const LoggedRun &run)
{
    QStringList components;
    for (const ComponentRecord &component : run.components) {
        QStringList items;
        for (const ItemRecord &item : component.items) {
            items.append(item.key + verdictLetter(item.verdict));
        }
        components.append(component.key + verdictLetter(component.verdict) + QLatin1Char('(') +
                          items.join(QLatin1Char(' ')) + QLatin1Char(')'));
    }
    return components.join(QLatin1Char(' '));
}
} // namespace

void tst_detectorLog::outline_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("outline");
    QTest::addColumn<int>("unknownLines");
    const auto row = [](const char *title, const char *text, const char *outline, int unknownLines = 0) {
        QTest::newRow(title) << QString::fromUtf8(text) << QString::fromUtf8(outline) << unknownLines;
    };
    row("empty", "", "");
    row("no log at all", "hello\nworld\n", "", 2);
    row("one that passed", "[Camera]:\n相机视频流OK\n\n", "camera+(camera.video+)");
    row("one that failed", "[Lens]:\n相机镜头连接失败\n\n", "lens-(lens.link-)");
    row("cut off within a line", "[Camera]:\n相机视频流OK\n\n[Lens]:\n相机镜", "camera+(camera.video+) lens?()", 1);
    row("a component without items", "[Battery]:\n\n", "battery?()");
    row("the steps of an item",
        "[Camera]:\n相机视频流OK\n相机MTF测试成功\n相机暗斑检测成功\n相机白平衡检测成功\n相机Focus检测成功\n\n",
        "camera+(camera.video+ camera.factory+)");
    row("a step that failed", "[Camera]:\n相机MTF测试成功\n相机暗斑检测未签名\n\n", "camera-(camera.factory-)");
    row("an axis of the gimbal that was too slow",
        "[Gimbal]:\n云台主控通信OK\nRoll轴运动检测OK\nPitch轴运动检测超时\nPitch轴运动检测NG\nYaw轴运动检测OK\n\n",
        "gimbal-(gimbal.main.link+ gimbal.motion-)");
    row("an item twice", "[Lens]:\n相机通信正常\n相机通信正常\n\n", "lens+(lens.link+ lens.link+)");
    row("a board's warning is no failure", "[PCBA]:\n工厂sensor检测OK\n云台主控板工厂未检测\n\n",
        "pcba!(pcba.sensor+ pcba.gimbalMain!)");
    row("a slow card is one", "[TF Card]:\n扇区大小:32K\n总内存:1MB\n可用内存:1MB\n已用内存:0MB\n警告:非高SD速卡\n\n",
        "tfcard-(tfcard.use+ tfcard.speed!)");
    row("two items on one line", "[TF Card]:\nSD卡满SD Card OK\n\n", "tfcard-(tfcard.use- tfcard.speed+)");
    row("all of a battery",
        "[Battery]:\n相机电池通信OK\n获取电池信息成功\n++++++++++\nSub_ID:0x4\n----------\n\n获取电池状态成功\n"
        "++++++++++\nelectric quantity:87%\n----------\n\n\n",
        "battery+(battery.link+ battery.info+ battery.status+)");
    row("in English",
        "[Battery]:\nBattery link OK\nBattery information read\n++++++++++\nVoltage: 3.85 V\n----------\n\n\n"
        "[TF card]:\nSector size: 32 K\nTotal space: 30436.5 MB\nWarning: not a high-speed SD card\n\n"
        "[PCBA]:\nThe sensor has no factory test mark\n\n",
        "battery+(battery.link+ battery.info+) tfcard-(tfcard.use+ tfcard.speed!) pcba!(pcba.sensor!)");
    row("in Chinese", "[云台]:\n云台主控通信OK\n横滚轴通信NG\n\n[TF卡]:\n扇区大小：32K\n总容量：30436.5MB\nSD卡OK\n\n",
        "gimbal-(gimbal.main.link+ gimbal.roll.link-) tfcard+(tfcard.use+ tfcard.speed+)");
    row("a heading inside a line", "[Camera]:\n相机视频流OK\nx[Lens]:\n\n", "camera+(camera.video+)");
}

void tst_detectorLog::outline()
{
    QFETCH(QString, text);
    QFETCH(QString, outline);
    QFETCH(int, unknownLines);
    const LoggedRun run = readDetectorLog(text);
    QCOMPARE(outlineOf(run), outline);
    QCOMPARE(run.unknownLines, unknownLines);
}

void tst_detectorLog::keepsTextsOfAnotherLanguage()
{
    const LoggedRun run = readDetectorLog(
        QStringLiteral("[Battery]:\nBattery information read\n++++++++++\nSub ID: 0x4\nSoftware version: 1.2.3.4\n"
                       "Current: -250 mA\n----------\n\n\n"));
    const ItemRecord battery = run.components.value(0).items.value(0);
    QCOMPARE(battery.key, QStringLiteral("battery.info"));
    QCOMPARE(battery.message, QStringLiteral("Battery information read\n"));
    QCOMPARE(battery.detail, QStringLiteral("++++++++++\nSub ID: 0x4\nSoftware version: 1.2.3.4\nCurrent: -250 mA\n"
                                            "----------\n\n"));
    QVERIFY(battery.measurements ==
            QList<Measurement>({measured(Field::BatterySubId, 4),
                                measured(Field::BatterySoftwareVersion, QStringLiteral("1.2.3.4")),
                                measured(Field::BatteryCurrent, -250)}));
}

void tst_detectorLog::keepsTextsAndMeasurements()
{
    const LoggedRun run = readDetectorLog(QStringLiteral("[Battery]:\n获取电池信息成功\n++++++++++\nvoltage:3.85V\n"
                                                         "----------\n\n\n[TF Card]:\n扇区大小:32K\n总内存:30436.5MB\n"
                                                         "SD Card OK\n\n"));
    QCOMPARE(run.components.size(), 2);
    const ItemRecord battery = run.components.at(0).items.value(0);
    QCOMPARE(battery.key, QStringLiteral("battery.info"));
    QCOMPARE(battery.number, 2);
    QCOMPARE(battery.name, QStringLiteral("Battery Info"));
    QCOMPARE(battery.message, QStringLiteral("获取电池信息成功\n"));
    QCOMPARE(battery.detail, QStringLiteral("++++++++++\nvoltage:3.85V\n----------\n\n"));
    QVERIFY(battery.measurements == QList<Measurement>({measured(Field::BatteryVoltage, 3.85)}));
    QVERIFY(!battery.request);
    QCOMPARE(run.components.at(1).name, QStringLiteral("TF Card"));
    const ItemRecord card = run.components.at(1).items.value(0);
    QCOMPARE(card.message, QString());
    QCOMPARE(card.detail, QStringLiteral("扇区大小:32K\n总内存:30436.5MB\n"));
    QVERIFY(card.measurements ==
            QList<Measurement>({measured(Field::CardSectorSize, 32), measured(Field::CardTotal, 30436.5)}));
    const ItemRecord speed = run.components.at(1).items.value(1);
    QCOMPARE(speed.message, QStringLiteral("SD Card OK\n"));
    QCOMPARE(speed.detail, QString());
}

void tst_detectorLog::marksAMeasurementOutsideItsLimit()
{
    const LoggedRun run =
        readDetectorLog(QStringLiteral("[Battery]:\n获取电池信息成功\n++++++++++\nvoltage:4.36V\n----------\n\n"
                                       "battery.voltage: 4.36 V (3.6..4.35)\n\n[Gimbal]:\n云台主控通信OK\n"
                                       "camera.statusWord: 0x1 (0x2)\n\n"));
    const ItemRecord battery = run.components.at(0).items.value(0);
    QCOMPARE(battery.verdict, Verdict::Failed);
    QCOMPARE(run.components.at(0).verdict, Verdict::Failed);
    Measurement voltage = measured(Field::BatteryVoltage, 4.36);
    voltage.limit = Limit{3.6, 4.35, {}};
    QVERIFY(battery.measurements == QList<Measurement>({voltage}));
    const ItemRecord link = run.components.at(1).items.value(0);
    QCOMPARE(link.verdict, Verdict::Failed);
    Measurement word = measured(Field::CameraStatusWord, QStringLiteral("0x1"));
    word.limit = Limit{{}, {}, {QStringLiteral("0x2")}};
    QVERIFY(link.measurements == QList<Measurement>({word}));
}

QTEST_APPLESS_MAIN(tst_detectorLog)
#include "tst_detectorLog.moc"
