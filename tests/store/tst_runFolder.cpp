#include "detector/store/KestDetectorFace.h"
#include "detector/store/runFolder.h"

#include <QtTest>

namespace {
bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

bool setTime(const QString &path, const QTime &time)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite) &&
           file.setFileTime(QDateTime(QDate(2024, 5, 6), time), QFileDevice::FileModificationTime);
}

QStringList entries(const QString &folder)
{
    QStringList paths;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        paths.append(QDir(folder).relativeFilePath(walk.next()));
    }
    paths.sort();
    return paths;
}
} // namespace

class tst_runFolder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void nameFollowsDateAndCamera();
    void withEvidenceTheNameIsThatOfTheBegin();
    void cameraOfTheFolder_data();
    void cameraOfTheFolder();
    void cameraThatHasNeverToldItsAddress();
    void missingParentsAreMade();
    void reasonIsTheSystems();
    void withoutEvidenceNothingIsMoved();
    void earlierRunIsSetAside_data();
    void earlierRunIsSetAside();
    void ownFilesOfTheRunStay();
    void timeThatIsTakenGetsANumber();

private:
    void beginRun(bool safeguards) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_runFolder::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    KestDetectorFace *face = KestDetectorFace::Get();
    face->savePath = m_folder->path();
    face->macAddress = QStringLiteral("AA:BB:CC:DD:EE:FF");
    face->macAddressIsCurrent = true;
}

void tst_runFolder::cleanup()
{
    KestDetectorFace::Get()->run.finish();
    KestDetectorFace::Get()->setSettings(Settings());
}

void tst_runFolder::beginRun(bool safeguards) const
{
    KestDetectorFace *face = KestDetectorFace::Get();
    Settings settings;
    settings.safeguards = safeguards;
    face->setSettings(settings);
    face->run.finish();
    face->run.post({});
    QVERIFY(face->run.take(face->macAddress));
}

void tst_runFolder::nameFollowsDateAndCamera()
{
    beginRun(false);
    KestDetectorFace *face = KestDetectorFace::Get();
    QCOMPARE(logFolder(QStringLiteral("2024-05-06")),
             m_folder->path() + QStringLiteral("/log/2024-05-06_AABBCCDDEEFF"));
    face->macAddress = QString(); // the link has dropped
    QCOMPARE(logFolder(QStringLiteral("2024-05-07")), m_folder->path() + QStringLiteral("/log/2024-05-07_"));
    QCOMPARE(face->macAddress.get(), QString());
}

void tst_runFolder::withEvidenceTheNameIsThatOfTheBegin()
{
    beginRun(true);
    KestDetectorFace *face = KestDetectorFace::Get();
    const QString today = face->run.identity().begin.toString(QStringLiteral("yyyy-MM-dd"));
    const QString expected = m_folder->path() + QStringLiteral("/log/%1_AABBCCDDEEFF").arg(today);
    face->macAddress = QStringLiteral("00:00:00:00:00:01"); // another camera has come
    QCOMPARE(logFolder(QStringLiteral("1999-01-01")), expected);
    face->run.finish();
    QCOMPARE(logFolder(QStringLiteral("1999-01-01")), expected); // its log comes after its end
}

void tst_runFolder::cameraOfTheFolder_data()
{
    QTest::addColumn<bool>("safeguards");
    QTest::addColumn<QString>("mac");
    QTest::addColumn<bool>("isCurrent");
    QTest::addColumn<bool>("isIt");
    const QString own = QStringLiteral("AA:BB:CC:DD:EE:FF");
    const QString other = QStringLiteral("00:00:00:00:00:01");
    QTest::newRow("the run's own") << true << own << true << true;
    QTest::newRow("somebody's, whose address is not read yet") << true << own << false << false;
    QTest::newRow("another one") << true << other << true << false;
    QTest::newRow("another one before") << true << other << false << false;
    QTest::newRow("none") << true << QString() << true << false;
    QTest::newRow("another one, nothing is kept") << false << other << true << true;
    QTest::newRow("somebody's, nothing is kept") << false << own << false << true;
}

void tst_runFolder::cameraOfTheFolder()
{
    QFETCH(bool, safeguards);
    QFETCH(QString, mac);
    QFETCH(bool, isCurrent);
    QFETCH(bool, isIt);
    beginRun(safeguards);
    KestDetectorFace *face = KestDetectorFace::Get();
    face->macAddress = mac;
    face->macAddressIsCurrent = isCurrent;
    QCOMPARE(isCameraOfRunFolder(), isIt);
}

void tst_runFolder::cameraThatHasNeverToldItsAddress()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->macAddress = QString();
    face->macAddressIsCurrent = false;
    beginRun(true);
    QVERIFY(isCameraOfRunFolder());
}

void tst_runFolder::missingParentsAreMade()
{
    beginRun(false);
    const QString folder = m_folder->filePath(QStringLiteral("一/b/c"));
    QCOMPARE(openLogFolder(folder), QString());
    QVERIFY(QFileInfo(folder).isDir());
    QCOMPARE(openLogFolder(folder), QString());
}

void tst_runFolder::reasonIsTheSystems()
{
    beginRun(true);
    QVERIFY(write(m_folder->filePath(QStringLiteral("blocker")), "x"));
    QCOMPARE(openLogFolder(m_folder->filePath(QStringLiteral("blocker/log"))), QStringLiteral("Not a directory"));
    QCOMPARE(openLogFolder(QStringLiteral("/proc/no/such")), QStringLiteral("No such file or directory"));
}

void tst_runFolder::withoutEvidenceNothingIsMoved()
{
    beginRun(false);
    QVERIFY(write(m_folder->filePath(QStringLiteral("f/DetectorLog.txt")), "earlier"));
    QCOMPARE(openLogFolder(m_folder->filePath(QStringLiteral("f"))), QString());
    QCOMPARE(entries(m_folder->filePath(QStringLiteral("f"))), QStringList{"DetectorLog.txt"});
}

void tst_runFolder::earlierRunIsSetAside_data()
{
    QTest::addColumn<QStringList>("files"); // the first is the oldest: one minute after 10:00:07, then one more each
    QTest::addColumn<QStringList>("after");

    QTest::newRow("nothing there") << QStringList() << QStringList();
    QTest::newRow("named after the log") << QStringList{"DetectorLog.txt", "dmesg.txt"}
                                         << QStringList{"10-01-07/DetectorLog.txt", "10-01-07/dmesg.txt"};
    QTest::newRow("without a log, after the newest file")
        << QStringList{"dmesg.txt", "log.tar.gz.part"} << QStringList{"10-02-07/dmesg.txt", "10-02-07/log.tar.gz.part"};
    QTest::newRow("sub-folders stay") << QStringList{"09-00-00/DetectorLog.txt", "DetectorLog.txt"}
                                      << QStringList{"09-00-00/DetectorLog.txt", "10-02-07/DetectorLog.txt"};
}

void tst_runFolder::earlierRunIsSetAside()
{
    QFETCH(const QStringList, files);
    beginRun(true);
    const QString folder = m_folder->filePath(QStringLiteral("f"));
    QTime time(10, 0, 7);
    for (const QString &file : files) {
        time = time.addSecs(60);
        QVERIFY(write(folder + QLatin1Char('/') + file, "earlier"));
        QVERIFY(setTime(folder + QLatin1Char('/') + file, time));
    }
    QCOMPARE(openLogFolder(folder), QString());
    QTEST(entries(folder), "after");
    QVERIFY(KestDetectorFace::Get()->run.finish().unsaved.isEmpty());
}

void tst_runFolder::ownFilesOfTheRunStay()
{
    beginRun(true);
    const QString folder = m_folder->filePath(QStringLiteral("f"));
    openLogFolder(folder);
    QVERIFY(write(folder + QStringLiteral("/dmesg.txt"), "own"));
    openLogFolder(folder);
    QCOMPARE(entries(folder), QStringList{"dmesg.txt"});
    beginRun(true);
    openLogFolder(folder);
    QCOMPARE(entries(folder).filter(QStringLiteral("/dmesg.txt")).size(), 1); // the next one's begin
}

void tst_runFolder::timeThatIsTakenGetsANumber()
{
    const QString folder = m_folder->filePath(QStringLiteral("f"));
    for (const char *content : {"first", "second", "third"}) {
        QVERIFY(write(folder + QStringLiteral("/DetectorLog.txt"), content));
        QVERIFY(setTime(folder + QStringLiteral("/DetectorLog.txt"), QTime(10, 0, 0)));
        beginRun(true);
        openLogFolder(folder);
    }
    QCOMPARE(entries(folder),
             QStringList({"10-00-00/DetectorLog.txt", "10-00-00_2/DetectorLog.txt", "10-00-00_3/DetectorLog.txt"}));
}

QTEST_GUILESS_MAIN(tst_runFolder)
#include "tst_runFolder.moc"
