#include "detector/checks/cameraChecks.h"
#include "detector/store/KestDetectorFace.h"
#include "support/CheckTest.h"

#include <QTest>

using StepRoutine = QString (*)(int *);
Q_DECLARE_METATYPE(StepRoutine)

namespace {
/// Where the camera keeps a calibration block.
struct BlockPlace
{
    quint16 mark;
    quint16 data;
    int length;
    quint16 crc;
};
constexpr BlockPlace sfr{6846, 5824, 720, 6544};
constexpr BlockPlace macula{7870, 6848, 606, 7454};
constexpr BlockPlace awb{8126, 7872, 124, 7996};

/// The camera's blocks, but with readers that find each signed, of no length and with the checksum 0: sound.
CalibrationBlocks soundBlocks()
{
    CalibrationBlocks blocks = calibrationBlocks();
    for (CalibrationBlock &block : blocks) {
        block.isSigned = [](int *status) { return *status = 0, true; };
        block.readData = [](unsigned char *, int *length) { return *length = 0; };
        block.readCrc = [](unsigned int *stored) {
            *stored = 0;
            return 0;
        };
    }
    return blocks;
}

const QByteArray mark = QByteArrayLiteral("KO");
const QByteArray noCrc = QByteArrayLiteral("\0\0\0\0");
} // namespace
Q_DECLARE_METATYPE(BlockPlace)

class tst_cameraChecks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_camera.isListening()); }
    void init() { m_camera.reset(); }

    void video_data();
    void video();
    void videoIgnoresShortBitList();
    void videoCannotBeAsked();
    void calibrationBlock_data();
    void calibrationBlock();
    void blockWithoutBytesIsJudgedByItsChecksum_data();
    void blockWithoutBytesIsJudgedByItsChecksum();
    void focus_data();
    void focus();
    void factoryCheckEndsAtTheFirstFailure();
    void factoryCheckJoinsTheTextsOfItsSteps_data();
    void factoryCheckJoinsTheTextsOfItsSteps();
    void measuresTheCalibration();
    void component_data();
    void component();

private:
    void store(const BlockPlace &block, const QByteArray &signature, int length, const QByteArray &crc);

    ScriptedCamera m_camera;
};

void tst_cameraChecks::store(const BlockPlace &block, const QByteArray &signature, int length, const QByteArray &crc)
{
    if (!signature.isEmpty()) {
        m_camera.storeEeprom(block.mark, signature);
    }
    if (length >= 0) {
        m_camera.storeEeprom(block.data, QByteArray(length, 'd'));
    }
    if (!crc.isEmpty()) {
        m_camera.storeEeprom(block.crc, crc);
    }
}

void tst_cameraChecks::video_data()
{
    QTest::addColumn<quint64>("status");
    QTest::addColumn<QList<int>>("examined");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("status 0, whatever is expected") << Q_UINT64_C(0) << QList<int>{19} << 0 << "相机视频流OK\n";
    QTest::newRow("bit 19 differs") << Q_UINT64_C(0x80000) << QList<int>{19} << 1 << "相机视频流NG\n";
    QTest::newRow("bit 19 differs, not examined") << Q_UINT64_C(0x80000) << QList<int>{18, 20} << 0 << "相机视频流OK\n";
    QTest::newRow("other bits differ") << Q_UINT64_C(0x140000) << QList<int>{18, 19, 20} << 0 << "相机视频流OK\n";
}

void tst_cameraChecks::video()
{
    QFETCH(quint64, status);
    QFETCH(QList<int>, examined);
    reportStatus(m_camera, status, examined);
    const Outcome outcome = runItem(checkCameraVideo);
    QTEST(outcome.verdict, "verdict");
    QTEST(outcome.text, "text");
    QCOMPARE(outcome.detail, QString());
}

void tst_cameraChecks::videoIgnoresShortBitList()
{
    reportStatus(m_camera, 0x80000, {});
    Settings settings = KestDetectorFace::Get()->settings();
    settings.statusBitList = {true, true, true};
    KestDetectorFace::Get()->setSettings(settings);
    const Outcome outcome = runItem(checkCameraVideo);
    QCOMPARE(outcome.verdict, 0);
    QCOMPARE(outcome.text, QStringLiteral("相机视频流OK\n"));
}

void tst_cameraChecks::videoCannotBeAsked()
{
    const Outcome outcome = runItem(checkCameraVideo);
    QCOMPARE(outcome.verdict, 1);
    QCOMPARE(outcome.text, QStringLiteral("获取相机视频流状态失败\n"));
    QCOMPARE(outcome.detail, QString());
}

void tst_cameraChecks::calibrationBlock_data()
{
    QTest::addColumn<StepRoutine>("routine");
    QTest::addColumn<BlockPlace>("block");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("crc");
    QTest::addColumn<QString>("text");

    struct Texts
    {
        const char *name;
        StepRoutine routine;
        BlockPlace block;
        const char *signatureFailed;
        const char *notSigned;
        const char *dataFailed;
        const char *crcFailed;
        const char *crcMismatch;
    };
    const Texts blocks[] = {
        {"MTF", checkCameraEEPromSfr, sfr, "获取相机MTF检测签名失败\n", "相机MTF检测未签名\n",
         "获取相机MTF检测数据失败\n", "获取相机MTF检测Crc校验值失败\n", "相机MTF测试Crc校验值有误\n"},
        {"dark spot", checkCameraEEPromMacula, macula, "获取相机暗斑检测签名失败\n", "相机暗斑检测未签名\n",
         "获取相机暗斑检测数据失败\n", "获取相机暗斑检测Crc校验值失败\n", "相机暗斑检测Crc校验值有误\n"},
        {"white balance", checkCameraEEPromAwb, awb, "获取白平衡检测签名失败\n", "相机白平衡检测未签名\n",
         "获取相机白平衡检测数据失败\n", "获取相机白平衡检测Crc校验值失败\n", "相机白平衡检测Crc校验值有误\n"},
    };
    for (const Texts &block : blocks) {
        const auto row = [&block](const char *name) -> QTestData & {
            return QTest::addRow("%s: %s", block.name, name) << block.routine << block.block;
        };
        const int full = block.block.length;
        row("signature cannot be read") << QByteArray() << full << noCrc << block.signatureFailed;
        row("not signed") << QByteArray("OK") << full << noCrc << block.notSigned;
        row("data cannot be read") << mark << -1 << noCrc << block.dataFailed;
        row("data are short") << mark << full - 1 << noCrc << block.dataFailed;
        row("checksum cannot be read") << mark << full << QByteArray() << block.crcFailed;
        row("checksum is short") << mark << full << QByteArray(3, 0) << block.crcFailed;
        // The reader hands out no bytes, so a block of full length matches no checksum at all: not 0, and not the
        // length with which the checksum's register starts either.
        row("checksum 0") << mark << full << noCrc << block.crcMismatch;
        row("checksum is the length") << mark << full << littleEndian(static_cast<quint64>(full), 4)
                                      << block.crcMismatch;
    }
}

void tst_cameraChecks::calibrationBlock()
{
    QFETCH(StepRoutine, routine);
    QFETCH(BlockPlace, block);
    QFETCH(QByteArray, signature);
    QFETCH(int, length);
    QFETCH(QByteArray, crc);
    store(block, signature, length, crc);
    int verdict = 99;
    const QString text = onWorkerThread([&] { return routine(&verdict); });
    QCOMPARE(verdict, 1);
    QTEST(text, "text");
}

void tst_cameraChecks::blockWithoutBytesIsJudgedByItsChecksum_data()
{
    QTest::addColumn<unsigned int>("crc");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("checksum 0") << 0U << 0 << "passed\n";
    QTest::newRow("another checksum") << 1U << 1 << "mismatch\n";
}

void tst_cameraChecks::blockWithoutBytesIsJudgedByItsChecksum()
{
    QFETCH(unsigned int, crc);
    static unsigned int storedCrc = 0;
    storedCrc = crc;
    CalibrationBlock block{};
    block.isSigned = [](int *status) { return *status = 0, true; };
    block.readData = [](unsigned char *, int *length) { return *length = 0; };
    block.readCrc = [](unsigned int *stored) {
        *stored = storedCrc;
        return 0;
    };
    block.crcMismatch = "mismatch\n";
    block.passed = "passed\n";
    CheckItemLog item;
    checkCalibrationBlock(block, item);
    QTEST(item.message, "text");
    QTEST(item.result, "verdict");
}

void tst_cameraChecks::focus_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("white balance signed, no focus calibration") << mark << 0 << "相机Focus检测成功\n";
    QTest::newRow("white balance not signed") << QByteArray("OK") << 1 << "相机Focus检测未签名\n";
    QTest::newRow("signature cannot be read") << QByteArray() << 1 << "获取Focus检测签名失败\n";
}

void tst_cameraChecks::focus()
{
    QFETCH(QByteArray, signature);
    store(awb, signature, -1, QByteArray());
    int verdict = 99;
    const QString text = onWorkerThread([&] { return checkCameraEEPromFocus(&verdict); });
    QTEST(text, "text");
    QTEST(verdict, "verdict");
}

void tst_cameraChecks::factoryCheckEndsAtTheFirstFailure()
{
    store(sfr, "OK", sfr.length, noCrc);
    const Outcome outcome = runItem(checkCameraEEProm);
    QCOMPARE(outcome.verdict, 1);
    QCOMPARE(outcome.text, QStringLiteral("相机MTF检测未签名\n"));
    QCOMPARE(outcome.detail, QString());
    // One read, of the two bytes at 6846: nothing of the other blocks was asked for.
    QCOMPARE(m_camera.requests(6, 0x21), QList<QByteArray>{QByteArray("\xBE\x1A\x02\x00", 4)});
}

void tst_cameraChecks::factoryCheckJoinsTheTextsOfItsSteps_data()
{
    QTest::addColumn<int>("unsignedBlock");
    QTest::addColumn<QByteArray>("focusSignature");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("text");
    QTest::newRow("all pass") << -1 << mark << 0
                              << "相机MTF测试成功\n相机暗斑检测成功\n相机白平衡检测成功\n相机Focus检测成功\n";
    QTest::newRow("MTF is the first") << 0 << mark << 1 << "相机MTF检测未签名\n";
    QTest::newRow("dark spot the second") << 1 << mark << 1 << "相机MTF测试成功\n相机暗斑检测未签名\n";
    QTest::newRow("white balance the third")
        << 2 << mark << 1 << "相机MTF测试成功\n相机暗斑检测成功\n相机白平衡检测未签名\n";
    QTest::newRow("focus the last") << -1 << QByteArray("OK") << 1
                                    << "相机MTF测试成功\n相机暗斑检测成功\n相机白平衡检测成功\n相机Focus检测未签名\n";
}

void tst_cameraChecks::factoryCheckJoinsTheTextsOfItsSteps()
{
    QFETCH(int, unsignedBlock);
    QFETCH(QByteArray, focusSignature);
    store(awb, focusSignature, -1, QByteArray());
    CalibrationBlocks blocks = soundBlocks();
    if (unsignedBlock >= 0) {
        blocks.at(static_cast<std::size_t>(unsignedBlock)).isSigned = [](int *status) { return *status = 0, false; };
    }
    CheckItemLog item;
    onWorkerThread([&] { checkFactory(blocks, item); });
    QTEST(item.message, "text");
    QTEST(item.result, "verdict");
}

void tst_cameraChecks::measuresTheCalibration()
{
    store(awb, mark, -1, QByteArray());
    CheckItemLog item;
    onWorkerThread([&] { checkFactory(soundBlocks(), item); });
    QCOMPARE(
        measurementTexts(item),
        (QStringList{"camera.mtf.signed=1", "camera.mtf.length=0 B", "camera.mtf.crc=0", "camera.darkSpot.signed=1",
                     "camera.darkSpot.length=0 B", "camera.darkSpot.crc=0", "camera.whiteBalance.signed=1",
                     "camera.whiteBalance.length=0 B", "camera.whiteBalance.crc=0", "camera.focus.signed=1"}));

    store(sfr, mark, sfr.length, littleEndian(0x12345678, 4));
    const FacadeSpy spy;
    runComponent(checkCamera, {1});
    QCOMPARE(measurementTexts(spy.logs().constFirst().itemLogs.constFirst()),
             (QStringList{"camera.mtf.signed=1", "camera.mtf.length=720 B", "camera.mtf.crc=305419896"}));
}

void tst_cameraChecks::component_data()
{
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("video") << QList<int>{0} << 0 << QStringList{"progress 0", "item Video", "progress 100", "log 0"}
                           << QStringList{"0|相机视频流OK\n|"};
    QTest::newRow("both, and an unknown one")
        << QList<int>{0, 1, 99} << 1 << QStringList{"progress 0",  "item Video",   "progress 33", "item Factory Check",
                                                    "progress 66", "progress 100", "log 0"}
        << QStringList{"0|相机视频流OK\n|", "1|获取相机MTF检测签名失败\n|"};
}

void tst_cameraChecks::component()
{
    QFETCH(QList<int>, items);
    reportStatus(m_camera, 0, {19});
    const FacadeSpy spy;
    const Outcome outcome = runComponent(checkCamera, items);
    QTEST(outcome.verdict, "verdict");
    QTEST(spy.events(), "events");
    QTEST(texts(spy.logs().constFirst()), "records");
}

QTEST_GUILESS_MAIN(tst_cameraChecks)
#include "tst_cameraChecks.moc"
