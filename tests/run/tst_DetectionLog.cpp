#include "detector/run/KestDetectorRt.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "support/fileContent.h"

#include <QtTest>

/// DetectorLog.txt: where it lies and its exact bytes.
class tst_DetectionLog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void blocksOfARun();
    void secondRunOfTheDayOverwrites();
    void emptyListWritesAnEmptyFile();
    void componentWithoutRecordsWritesItsHeading();
    void doubtStandsAboveTheBlocks();
    void folderName_data();
    void folderName();
    void unwritableFolderIsReported();
    void fullDiskIsReported();
    void withEvidenceAnEmptyListWritesNothing();
    void withEvidenceTheLogOfTheRunBeforeIsKept();

private:
    QString path(const QString &identifier) const;
    QByteArray written() const;

    QTemporaryDir m_folder;
};

namespace {
CheckItemLog item(const QString &message, const QString &detail = {})
{
    return {0, message, detail};
}
} // namespace

QString tst_DetectionLog::path(const QString &identifier) const
{
    return m_folder.path() + QStringLiteral("/log/") + QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")) +
           QLatin1Char('_') + identifier + QStringLiteral("/DetectorLog.txt");
}

QByteArray tst_DetectionLog::written() const
{
    return fileContent(path(QStringLiteral("AABBCCDDEEFF")));
}

void tst_DetectionLog::init()
{
    KestDetectorFace::Get()->savePath = m_folder.path();
    KestDetectorFace::Get()->macAddress = QStringLiteral("AA:BB:CC:DD:EE:FF");
}

void tst_DetectionLog::blocksOfARun()
{
    KestDetectorRt::saveDetectoryLog(
        {{componentId::camera, {item(QStringLiteral("相机视频流OK\n")), item(QStringLiteral("相机MTF测试成功\n"))}},
         {componentId::battery,
          {item(QStringLiteral("相机电池通信OK\n")),
           item(QStringLiteral("获取电池状态成功\n"), QStringLiteral("++++++++++\nvoltage:4V\n----------\n\n"))}}});
    QCOMPARE(written(), QByteArray("[Camera]:\n相机视频流OK\n相机MTF测试成功\n\n"
                                   "[Battery]:\n相机电池通信OK\n获取电池状态成功\n"
                                   "++++++++++\nvoltage:4V\n----------\n\n\n"));
    QCOMPARE(KestDetectorFace::Get()->macAddress.get(), QStringLiteral("AA:BB:CC:DD:EE:FF"));
}

void tst_DetectionLog::secondRunOfTheDayOverwrites()
{
    KestDetectorRt::saveDetectoryLog({{componentId::camera, {item(QStringLiteral("相机视频流OK\n"))}}});
    KestDetectorRt::saveDetectoryLog({{componentId::lens, {item(QStringLiteral("相机通信正常\n"))}}});
    QCOMPARE(written(), QByteArray("[Lens]:\n相机通信正常\n\n"));
}

void tst_DetectionLog::emptyListWritesAnEmptyFile()
{
    KestDetectorRt::saveDetectoryLog({});
    QCOMPARE(written(), QByteArray());
}

void tst_DetectionLog::componentWithoutRecordsWritesItsHeading()
{
    KestDetectorRt::saveDetectoryLog({{componentId::battery, {}}});
    QCOMPARE(written(), QByteArray("[Battery]:\n\n"));
}

void tst_DetectionLog::doubtStandsAboveTheBlocks()
{
    KestDetectorRt::saveDetectoryLog({{componentId::lens, {item(QStringLiteral("相机通信正常\n"))}}},
                                     QStringLiteral("another camera came during the run"));
    QCOMPARE(written(), QByteArray("another camera came during the run\n\n[Lens]:\n相机通信正常\n\n"));
}

void tst_DetectionLog::folderName_data()
{
    QTest::addColumn<QString>("mac");
    QTest::addColumn<QString>("identifier");

    QTest::newRow("MAC address without colons") << QStringLiteral("Serial%1No7") << QStringLiteral("Serial%1No7");
    QTest::newRow("empty MAC address") << QString() << QString();
}

void tst_DetectionLog::folderName()
{
    QFETCH(QString, mac);
    QFETCH(QString, identifier);
    KestDetectorFace::Get()->macAddress = mac;
    KestDetectorRt::saveDetectoryLog({});
    QVERIFY(QFile::exists(path(identifier)));
}

void tst_DetectionLog::unwritableFolderIsReported()
{
    // A file where the folder should be fails for root, too.
    QFile blocker(m_folder.path() + QStringLiteral("/blocked"));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    KestDetectorFace::Get()->savePath = blocker.fileName();
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral(
                             "^Detection log not written: .*/blocked/log/.*/DetectorLog.txt Not a directory$")));
    const auto unsaved = KestDetectorRt::saveDetectoryLog({});
    QVERIFY(unsaved);
    QVERIFY2(unsaved->path.startsWith(blocker.fileName() + QStringLiteral("/log/")), qPrintable(unsaved->path));
    QCOMPARE(unsaved->reason, QStringLiteral("Not a directory"));
}

void tst_DetectionLog::fullDiskIsReported()
{
    const QFileInfo log(path(QStringLiteral("AABBCCDDEEFF")));
    QVERIFY(QDir().mkpath(log.path()));
    QFile::remove(log.filePath());
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), log.filePath()));
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(QStringLiteral("^Detection log not complete: .*/DetectorLog.txt No space left on device$")));
    const auto unsaved =
        KestDetectorRt::saveDetectoryLog({{componentId::camera, {item(QStringLiteral("相机视频流OK\n"))}}});
    QVERIFY(unsaved);
    QCOMPARE(unsaved->path, log.filePath());
    QCOMPARE(unsaved->reason, QStringLiteral("No space left on device"));
    QVERIFY(QFile::remove(log.filePath()));
}

void tst_DetectionLog::withEvidenceAnEmptyListWritesNothing()
{
    KestDetectorRt::saveDetectoryLog({{componentId::camera, {item(QStringLiteral("相机视频流OK\n"))}}});
    Settings settings;
    settings.safeguards = true;
    KestDetectorFace::Get()->setSettings(settings);
    QVERIFY(!KestDetectorRt::saveDetectoryLog({}));
    KestDetectorFace::Get()->setSettings(Settings());
    QCOMPARE(written(), QByteArray("[Camera]:\n相机视频流OK\n\n"));
}

void tst_DetectionLog::withEvidenceTheLogOfTheRunBeforeIsKept()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    KestDetectorRt::saveDetectoryLog({{componentId::camera, {item(QStringLiteral("相机视频流OK\n"))}}});
    Settings settings;
    settings.safeguards = true;
    face->setSettings(settings);
    face->run.post({});
    QVERIFY(face->run.take(face->macAddress));
    face->run.finish();
    QVERIFY(!KestDetectorRt::saveDetectoryLog({{componentId::lens, {item(QStringLiteral("相机通信正常\n"))}}}));
    face->setSettings(Settings());
    QCOMPARE(written(), QByteArray("[Lens]:\n相机通信正常\n\n"));
    const QDir folder(QFileInfo(path(QStringLiteral("AABBCCDDEEFF"))).path());
    const QStringList subfolders = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(subfolders.size(), 1);
    QVERIFY2(QRegularExpression(QStringLiteral("^\\d\\d-\\d\\d-\\d\\d$")).match(subfolders.constFirst()).hasMatch(),
             qPrintable(subfolders.constFirst()));
    QFile earlier(folder.filePath(subfolders.constFirst() + QStringLiteral("/DetectorLog.txt")));
    QVERIFY(earlier.open(QIODevice::ReadOnly));
    QCOMPARE(earlier.readAll(), QByteArray("[Camera]:\n相机视频流OK\n\n"));
}

QTEST_GUILESS_MAIN(tst_DetectionLog)
#include "tst_DetectionLog.moc"
