#include "detector/store/checkHelpers.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/runFolder.h"
#include "support/MessageSpy.h"

#include <atomic>
#include <ctime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <thread>

using IntList = QList<int>;
Q_DECLARE_METATYPE(IntList)

namespace {
/// 64 entries, of which only `examined` are true.
QList<bool> statusBits(const QList<int> &examined)
{
    QList<bool> bits;
    for (int position = 0; position < 64; ++position) {
        bits.append(examined.contains(position));
    }
    return bits;
}

void expectStatus(quint64 expected, const QList<bool> &examined)
{
    Settings settings;
    settings.cameraStatusMask = ~expected;
    settings.statusBitList = examined;
    KestDetectorFace::Get()->setSettings(settings);
}
} // namespace

/// The helpers that all check routines share.
class tst_checkHelpers : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void componentName_data();
    void componentName();
    void cameraStatusList_data();
    void cameraStatusList();
    void cameraStatusListWritesADebugLine_data();
    void cameraStatusListWritesADebugLine();
    void textsAreTranslated();
    void batteryWarning_data();
    void batteryWarning();
    void sleepTakesAtLeastItsTime_data();
    void sleepTakesAtLeastItsTime();
    void sleepServesTheThreadsEvents();
    void sleepUsesNoProcessorTime();
    void sleepEndsWhenTheProgramCloses();
    void sleepEndsWhenItsRunIsStopped();
    void createsFolders_data();
    void createsFolders();
    void namesTheLogFolder_data();
    void namesTheLogFolder();
    void stopRequestEndsTheSleep();
};

void tst_checkHelpers::cleanup()
{
    KestDetectorFace::Get()->takeBackStop();
    KestDetectorFace *face = KestDetectorFace::Get();
    face->quitFlag = 0;
    face->setSettings(Settings());
}

void tst_checkHelpers::componentName_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::newRow("camera") << 0 << "Camera";
    QTest::newRow("gimbal") << 1 << "Gimbal";
    QTest::newRow("battery") << 2 << "Battery";
    QTest::newRow("fan") << 3 << "Fan";
    QTest::newRow("keys") << 4 << "Button";
    QTest::newRow("lens") << 5 << "Lens";
    QTest::newRow("TF card") << 6 << "TF Card";
    QTest::newRow("audio") << 7 << "Audio";
    QTest::newRow("main board") << 8 << "PCBA";
    QTest::newRow("log") << 9 << "Log";
    QTest::newRow("one above the last") << 10 << "";
    QTest::newRow("one below the first") << -1 << "";
}

void tst_checkHelpers::componentName()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    QCOMPARE(getComponent(index), name);
}

void tst_checkHelpers::cameraStatusList_data()
{
    QTest::addColumn<quint64>("status");
    QTest::addColumn<quint64>("expected");
    QTest::addColumn<QList<bool>>("bits");
    QTest::addColumn<IntList>("positions");
    const QList<bool> all = statusBits({0, 1, 2, 3, 4, 19, 62, 63});
    QTest::newRow("as expected") << Q_UINT64_C(0x8000000000080005) << Q_UINT64_C(0x8000000000080005) << all
                                 << IntList();
    QTest::newRow("differing bits in ascending order")
        << Q_UINT64_C(0x8000000000000001) << Q_UINT64_C(0x0000000000080001) << all << IntList{19, 63};
    QTest::newRow("a bit that is clear but expected set") << Q_UINT64_C(1) << Q_UINT64_C(3) << all << IntList{1};
    QTest::newRow("a differing bit that is not examined") << Q_UINT64_C(0x20) << Q_UINT64_C(0) << all << IntList();
    QTest::newRow("status 0 is never examined, whatever is expected")
        << Q_UINT64_C(0) << Q_UINT64_C(0xFFFFFFFFFFFFFFFF) << all << IntList();
    QTest::newRow("no examined bits at all")
        << Q_UINT64_C(0xFFFFFFFFFFFFFFFF) << Q_UINT64_C(0) << QList<bool>() << IntList();
    QTest::newRow("only as many bits as there are entries")
        << Q_UINT64_C(0xFF) << Q_UINT64_C(0) << QList<bool>{true, false, true} << IntList{0, 2};
}

void tst_checkHelpers::cameraStatusList()
{
    QFETCH(quint64, status);
    QFETCH(quint64, expected);
    QFETCH(QList<bool>, bits);
    expectStatus(expected, bits);
    QTEST(getCameraStatusList(status), "positions");
}

void tst_checkHelpers::cameraStatusListWritesADebugLine_data()
{
    QTest::addColumn<quint64>("status");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("nothing differs") << Q_UINT64_C(1) << QStringList{"listStatusExist true 0"};
    QTest::newRow("two bits differ") << Q_UINT64_C(7) << QStringList{"listStatusExist false 2"};
    QTest::newRow("status 0 logs nothing") << Q_UINT64_C(0) << QStringList();
}

void tst_checkHelpers::cameraStatusListWritesADebugLine()
{
    QFETCH(quint64, status);
    expectStatus(1, statusBits({0, 1, 2, 3}));
    const MessageSpy spy;
    getCameraStatusList(status);
    QTEST(spy.messages(), "messages");
}

namespace {
/// Marks what has passed through it.
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return QStringLiteral("<%1:%2>").arg(QLatin1String(context), QString::fromUtf8(source));
    }
    bool isEmpty() const override { return false; }
};
} // namespace

void tst_checkHelpers::textsAreTranslated()
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const QString component = getComponent(6);
    const QString outside = getComponent(10);
    const QString warnings = getBatteryWar(3);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(component, QStringLiteral("<QObject:TF Card>"));
    QCOMPARE(outside, QString());
    QCOMPARE(warnings, QStringLiteral("状态良好<QObject:电池组电压过低><QObject:电池组电压过高>"));
}

void tst_checkHelpers::batteryWarning_data()
{
    QTest::addColumn<unsigned int>("bits");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0U << "状态良好";
    QTest::newRow("bit 7 alone is the first set bit") << 0x80U << "状态良好电池组电压过低";
    QTest::newRow("bit 31 alone is the first set bit") << 0x80000000U << "状态良好电池组电压过低";
    QTest::newRow("two bits, no separator") << 3U << "状态良好电池组电压过低电池组电压过高";
    QTest::newRow("seven bits: the seventh has no text")
        << 0x7FU
        << "状态良好电池组电压过低电池组电压过高充电过程中电流超过阈值 "
           "1充电过程中电流超过阈值 2放电过程中电流超过阈值 "
           "1放电过程中电流超过阈值 2";
    const QString all = QStringLiteral("状态良好电池组电压过低电池组电压过高充电过程中电流超过阈值 1"
                                       "充电过程中电流超过阈值 2放电过程中电流超过阈值 1放电过程中电流超过阈值 2"
                                       "放电过载充电过程中出现短路现象放电过程中出现短路现象充电过程中温度过高"
                                       "放电过程中温度过高电池出现补偿型电压过低现象FET 温度过高预充电过程超时"
                                       "延时预充电超时充电过程超时延时充电超时电池过充电池过充电流型警告"
                                       "电池过充电压型警告电池过预充电电流型警告充电过程中温度过低"
                                       "放电过程中温度过低");
    QTest::newRow("28 bits") << 0x0FFFFFFFU << all;
    QTest::newRow("28 other bits") << 0xFFFFFFF0U << all;
    QTest::newRow("the 29th to 32nd bit add nothing") << 0xFFFFFFFFU << all;
}

void tst_checkHelpers::batteryWarning()
{
    QFETCH(unsigned int, bits);
    QTEST(getBatteryWar(bits), "text");
}

void tst_checkHelpers::sleepTakesAtLeastItsTime_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("none") << 0;
    QTest::newRow("a moment") << 1;
    QTest::newRow("longer than one look at the closing program") << 120;
}

void tst_checkHelpers::sleepTakesAtLeastItsTime()
{
    QFETCH(int, milliseconds);
    QElapsedTimer clock;
    clock.start();
    int passed = -1;
    std::thread worker([&] { passed = mSleep(milliseconds); });
    worker.join();
    QVERIFY(passed >= milliseconds);
    QVERIFY(clock.elapsed() >= passed);
}

void tst_checkHelpers::sleepServesTheThreadsEvents()
{
    int served = 0;
    QTimer::singleShot(0, this, [&served] { ++served; });
    mSleep(50);
    QCOMPARE(served, 1);
}

void tst_checkHelpers::sleepUsesNoProcessorTime()
{
    const std::clock_t before = std::clock();
    mSleep(600);
    QVERIFY(std::clock() - before < CLOCKS_PER_SEC / 5);
}

void tst_checkHelpers::sleepEndsWhenTheProgramCloses()
{
    QElapsedTimer clock;
    clock.start();
    std::thread worker([] { mSleep(60000); });
    QTest::qSleep(50);
    KestDetectorFace::Get()->quitFlag = -1;
    worker.join();
    QVERIFY(clock.elapsed() < 10000);
}

void tst_checkHelpers::sleepEndsWhenItsRunIsStopped()
{
    RunExchange &run = KestDetectorFace::Get()->run;
    run.post({});
    QElapsedTimer clock;
    clock.start();
    std::atomic<bool> begun{false};
    std::thread runner([&] {
        run.take(QString());
        begun = true;
        mSleep(60000);
    });
    int slept = 0;
    std::thread other([&] { slept = mSleep(300); }); // that of a thread beside the run goes on
    QTRY_VERIFY(begun);
    QVERIFY(run.stop());
    runner.join();
    other.join();
    run.finish();
    QVERIFY(clock.elapsed() < 10000);
    QVERIFY(slept >= 300);
}

void tst_checkHelpers::createsFolders_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("created");
    QTest::newRow("exists already") << "" << true;
    QTest::newRow("with all missing parents") << "/a/b/c" << true;
    QTest::newRow("a name with blanks and other letters") << "/日志 1/ä" << true;
    QTest::newRow("below a file") << "/file/folder" << false;
}

void tst_checkHelpers::createsFolders()
{
    QFETCH(QString, path);
    QFETCH(bool, created);
    const QTemporaryDir base;
    QFile file(base.filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(path_create(base.path() + path), created);
    QCOMPARE(QFileInfo(base.path() + path).isDir(), created);
}

void tst_checkHelpers::namesTheLogFolder_data()
{
    QTest::addColumn<QString>("savePath");
    QTest::addColumn<QString>("mac");
    QTest::addColumn<QString>("folder");
    QTest::newRow("colons are left out") << "/data"
                                         << "AA:BB:CC:DD:EE:FF"
                                         << "/data/log/2024-05-01_AABBCCDDEEFF";
    QTest::newRow("no MAC address yet") << "/data"
                                        << ""
                                        << "/data/log/2024-05-01_";
    QTest::newRow("no colons") << "/data"
                               << "AABBCCDDEEFF"
                               << "/data/log/2024-05-01_AABBCCDDEEFF";
    QTest::newRow("the path is no pattern") << "/%1/%2"
                                            << "AA:BB:CC:DD:EE:FF"
                                            << "/%1/%2/log/2024-05-01_AABBCCDDEEFF";
}

void tst_checkHelpers::namesTheLogFolder()
{
    QFETCH(QString, savePath);
    QFETCH(QString, mac);
    KestDetectorFace *face = KestDetectorFace::Get();
    face->savePath = savePath;
    face->macAddress = mac;
    QTEST(logFolder(QStringLiteral("2024-05-01")), "folder");
    QCOMPARE(face->macAddress.get(), mac);
}

void tst_checkHelpers::stopRequestEndsTheSleep()
{
    QElapsedTimer clock;
    clock.start();
    std::thread worker([] { mSleep(60000); });
    QTest::qSleep(50);
    KestDetectorFace::Get()->requestStop();
    worker.join();
    QVERIFY(clock.elapsed() < 10000);
}

QTEST_GUILESS_MAIN(tst_checkHelpers)
#include "tst_checkHelpers.moc"
