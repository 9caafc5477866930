#include "detector/store/KestDetectorFace.h"
#include "ftp/FtpDownLoad.h"
#include "ftp/FtpDownLoadFace.h"
#include "support/fileContent.h"
#include "support/MessageSpy.h"
#include "support/onWorkerThread.h"
#include "support/ScriptedFtpServer.h"
#include "telnet/sync/SyncCondMutexData.h"

#include <algorithm>
#include <ctime>
#include <memory>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <unistd.h>

namespace {
const QString smallUrl = QStringLiteral("ftp://127.0.0.1/small.tar.gz");
const QString otherUrl = QStringLiteral("ftp://127.0.0.1/other.tar.gz");
const QByteArray smallContent = QByteArrayLiteral("all \0 the \r\n bytes \xFF as they are\n");
const QByteArray otherContent = QByteArray().leftJustified(100000, 'o');

/// Whether this process holds the file open.
bool isOpen(const QString &path)
{
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    const QFileInfoList links = descriptors.entryInfoList(QDir::Files | QDir::System);
    return std::any_of(links.begin(), links.end(),
                       [&path](const QFileInfo &link) { return link.symLinkTarget() == path; });
}
} // namespace

/// The worker and the blocking face before it, against a server that can stand still and refuse logins.
class tst_FtpDownLoad : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void downloads_data();
    void downloads();
    void noNetworkPluginIsLoaded();
    void earlierFileIsReplacedNotRewritten();
    void linkIsFollowed();
    void portThatIsNoNumberIsZero();
    void failureLeavesNothingOpen_data();
    void failureLeavesNothingOpen();
    void passwordStaysOutOfTheDebugOutput();
    void unwritableFileKeepsTheTransfersResult_data();
    void unwritableFileKeepsTheTransfersResult();
    void unwritableFileIsUnsaved();
    void completeArchiveTakesItsName();
    void incompleteArchiveIsAPart();
    void archiveThatIsCompleteTooLateTakesItsName();
    void archiveThatCannotBeWrittenLeavesTheEarlierOne();
    void serverWithoutHelpIsGoodEnough();
    void serverThatClosesInTheMiddleIsNoticed();
    void finishThatIsAlreadyThereIsSeenAtTheDeadline();
    void silentServerEndsTheWait();
    void closingProgramEndsTheWait();
    void closingProgramBeginsNoDownload();
    void stoppedRunKeepsTheEarlierFile_data();
    void stoppedRunKeepsTheEarlierFile();
    void earlierFileGoesWithTheDownloadsEnd_data();
    void earlierFileGoesWithTheDownloadsEnd();
    void lateEndOfATimedOutDownload();
    void hangingDownloadDoesNotReachTheNextOne();
    void connectionIsNotKeptForTheNextDownload();
    void waitUsesNoProcessorTime();
    void eventLoopStaysResponsive();
    void faceReturnsTheWorkersResult();
    void faceGivesUpWhenTheProgramCloses();

private:
    static void keepEvidence();
    int download(const QString &url, const QString &path);
    QString path(const QString &name) const { return m_folder->filePath(name); }

    int m_askedPort = -1; ///< of the last download's URL
    std::unique_ptr<ScriptedFtpServer> m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_FtpDownLoad::init()
{
    m_server = std::make_unique<ScriptedFtpServer>();
    m_server->addFile(QStringLiteral("/small.tar.gz"), smallContent);
    m_server->addFile(QStringLiteral("/other.tar.gz"), otherContent);
    m_server->addFile(QStringLiteral("/empty"), QByteArray());
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());

    KestDetectorFace *face = KestDetectorFace::Get();
    Settings settings;
    settings.ftpName = QStringLiteral("kest");
    settings.ftpPsw = QStringLiteral("s3cret@/:");
    settings.ftpPort = QString::number(m_server->port());
    face->setSettings(settings);
    face->quitFlag = 0;
}

void tst_FtpDownLoad::cleanup()
{
    KestDetectorFace::Get()->quitFlag = 0;
    // Every connection is taken leave of, also that of a download that nobody waits for any more.
    m_server->release();
    QTRY_COMPARE(m_server->sessionCount(), 0);
    m_server.reset();
    m_folder.reset();
    // The worker counts on the event loop that its thread runs; a test function has none.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_FtpDownLoad::keepEvidence()
{
    Settings settings = KestDetectorFace::Get()->settings();
    settings.safeguards = true;
    KestDetectorFace::Get()->setSettings(settings);
}

int tst_FtpDownLoad::download(const QString &url, const QString &path)
{
    SyncCondMutexData sync;
    sync.result = 5;
    sync.waits = 1;
    FtpDownLoad::Get()->slot_ftpDownLoad(url, &sync, path);
    return sync.completions == 1 ? sync.result : 5;
}

void tst_FtpDownLoad::downloads_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("binary bytes arrive unchanged") << smallUrl << smallContent;
    QTest::newRow("more than one piece") << otherUrl << otherContent;
    QTest::newRow("empty file") << QStringLiteral("ftp://127.0.0.1/empty") << QByteArray();
}

void tst_FtpDownLoad::downloads()
{
    QFETCH(QString, url);
    QFETCH(QByteArray, content);
    QFile earlier(path(QStringLiteral("file")));
    QVERIFY(earlier.open(QIODevice::WriteOnly));
    earlier.write("contents of an earlier download");
    earlier.close();

    QCOMPARE(download(url, path(QStringLiteral("file"))), 0);
    QCOMPARE(fileContent(path(QStringLiteral("file"))), content);
    QVERIFY(!isOpen(path(QStringLiteral("file"))));
}

void tst_FtpDownLoad::noNetworkPluginIsLoaded()
{
    const QStringList folders = QCoreApplication::libraryPaths();
    const FtpDownLoad another;
    QCOMPARE(QCoreApplication::libraryPaths(), folders);
    const QByteArray mapped = fileContent(QStringLiteral("/proc/self/maps"));
    QVERIFY(mapped.contains("Network.so."));
    for (const char *folder : {"/plugins/bearer/", "/plugins/networkinformation/"}) { // of Qt 5, of Qt 6
        QVERIFY2(!mapped.contains(folder), folder);
    }
}

void tst_FtpDownLoad::earlierFileIsReplacedNotRewritten()
{
    FtpDownLoadFace *face = FtpDownLoadFace::Get();
    const QString earlier = path(QStringLiteral("file"));
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(otherUrl, earlier); }), 0);
    const QString kept = path(QStringLiteral("kept"));
    QCOMPARE(link(QFile::encodeName(earlier).constData(), QFile::encodeName(kept).constData()), 0);
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(smallUrl, earlier); }), 0);
    QCOMPARE(fileContent(earlier), smallContent);
    QCOMPARE(fileContent(kept), otherContent);
}

void tst_FtpDownLoad::linkIsFollowed()
{
    FtpDownLoadFace *face = FtpDownLoadFace::Get();
    const QString target = path(QStringLiteral("target"));
    const QString link = path(QStringLiteral("link"));
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(otherUrl, target); }), 0);
    QVERIFY(QFile::link(target, link));
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(smallUrl, link); }), 0);
    QCOMPARE(fileContent(target), smallContent);
}

void tst_FtpDownLoad::portThatIsNoNumberIsZero()
{
    Settings settings = KestDetectorFace::Get()->settings();
    settings.ftpPort = QStringLiteral("21 or so");
    KestDetectorFace::Get()->setSettings(settings);
    m_askedPort = -1;
    QObject watch;
    auto *manager = FtpDownLoad::Get()->findChild<QNetworkAccessManager *>();
    QVERIFY(manager != nullptr);
    connect(manager, &QNetworkAccessManager::finished, &watch,
            [this](const QNetworkReply *reply) { m_askedPort = reply->url().port(21); });
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), -1);
    QCOMPARE(m_askedPort, 0);
}

void tst_FtpDownLoad::failureLeavesNothingOpen_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("password");
    const QString right = QStringLiteral("s3cret@/:");
    QTest::newRow("file missing on the camera") << QStringLiteral("ftp://127.0.0.1/missing") << QString() << right;
    QTest::newRow("wrong password") << smallUrl << QString() << QStringLiteral("wrong");
    QTest::newRow("port is not a number") << smallUrl << QStringLiteral("ftp") << right;
    QTest::newRow("nobody listens") << smallUrl << QStringLiteral("1") << right;
    QTest::newRow("not a URL") << QStringLiteral("ftp://") << QString() << right;
}

void tst_FtpDownLoad::failureLeavesNothingOpen()
{
    QFETCH(QString, url);
    QFETCH(QString, port);
    QFETCH(QString, password);
    Settings settings = KestDetectorFace::Get()->settings();
    if (!port.isEmpty()) {
        settings.ftpPort = port;
    }
    settings.ftpPsw = password;
    KestDetectorFace::Get()->setSettings(settings);

    QCOMPARE(download(url, path(QStringLiteral("file"))), -1);
    QCOMPARE(fileContent(path(QStringLiteral("file"))), QByteArray());
    QVERIFY(!isOpen(path(QStringLiteral("file"))));

    // The failed one does not stand in the way of the next.
    init();
    QCOMPARE(download(smallUrl, path(QStringLiteral("next"))), 0);
    QCOMPARE(fileContent(path(QStringLiteral("next"))), smallContent);
}

void tst_FtpDownLoad::passwordStaysOutOfTheDebugOutput()
{
    const MessageSpy spy;
    QCOMPARE(download(QStringLiteral("ftp://127.0.0.1/missing.tar.gz"), path(QStringLiteral("file"))), -1);
    QVERIFY(!spy.containing(QStringLiteral("missing.tar.gz")).isEmpty());
    QCOMPARE(spy.containing(QStringLiteral("s3cret")), QStringList());
}

void tst_FtpDownLoad::unwritableFileKeepsTheTransfersResult_data()
{
    QTest::addColumn<QString>("localFile");
    QTest::addColumn<QString>("url");
    QTest::newRow("folder does not exist") << QStringLiteral("/nonexistent/folder/file") << otherUrl;
    QTest::newRow("disk full while the data arrive") << QStringLiteral("/dev/full") << otherUrl;
    QTest::newRow("disk full when the last bytes are written") << QStringLiteral("/dev/full") << smallUrl;
}

void tst_FtpDownLoad::unwritableFileKeepsTheTransfersResult()
{
    QFETCH(QString, localFile);
    QFETCH(QString, url);
    const MessageSpy spy;
    QCOMPARE(download(url, localFile), 0);
    QCOMPARE(spy.containing(localFile).size(), 1);
}

void tst_FtpDownLoad::unwritableFileIsUnsaved()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    QVERIFY(face->run.post({}));
    QVERIFY(face->run.take({}));
    QCOMPARE(download(smallUrl, QStringLiteral("/dev/full")), 0);
    const QList<UnsavedFile> unsaved = face->run.finish().unsaved;
    QCOMPARE(unsaved.size(), 1);
    QCOMPARE(unsaved.first().path, QStringLiteral("/dev/full"));
    QCOMPARE(unsaved.first().reason, QStringLiteral("No space left on device"));
}

void tst_FtpDownLoad::completeArchiveTakesItsName()
{
    keepEvidence();
    const QString file = path(QStringLiteral("file"));
    QCOMPARE(download(smallUrl, file), 0);
    QCOMPARE(fileContent(file), smallContent);
    QCOMPARE(download(otherUrl, file), 0);
    QCOMPARE(fileContent(file), otherContent);
    QVERIFY(!QFile::exists(file + QStringLiteral(".part")));
}

void tst_FtpDownLoad::incompleteArchiveIsAPart()
{
    keepEvidence();
    const QString file = path(QStringLiteral("file"));
    QCOMPARE(download(otherUrl, file), 0);
    m_server->stallAfter(10);
    QTimer::singleShot(200, this, [this] { m_server->cut(); });
    QCOMPARE(download(smallUrl, file), -1);
    QCOMPARE(fileContent(file), otherContent);
    QCOMPARE(fileContent(file + QStringLiteral(".part")), smallContent.left(10));

    // A later attempt begins afresh.
    m_server->stallAfter(-1);
    QCOMPARE(download(smallUrl, file), 0);
    QCOMPARE(fileContent(file), smallContent);
    QVERIFY(!QFile::exists(file + QStringLiteral(".part")));
}

void tst_FtpDownLoad::archiveThatIsCompleteTooLateTakesItsName()
{
    keepEvidence();
    const QString file = path(QStringLiteral("file"));
    m_server->stallAfter(10);
    QTimer::singleShot(200, this, [] { KestDetectorFace::Get()->quitFlag = -1; });
    QCOMPARE(download(smallUrl, file), -1);
    QVERIFY(!QFile::exists(file));
    QCOMPARE(fileContent(file + QStringLiteral(".part")), smallContent.left(10));
    m_server->release();
    QTRY_VERIFY(QFile::exists(file));
    QCOMPARE(fileContent(file), smallContent);
}

void tst_FtpDownLoad::archiveThatCannotBeWrittenLeavesTheEarlierOne()
{
    keepEvidence();
    KestDetectorFace *face = KestDetectorFace::Get();
    const QString file = path(QStringLiteral("file"));
    QCOMPARE(download(otherUrl, file), 0);
    QVERIFY(face->run.post({}));
    QVERIFY(face->run.take({}));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file + QStringLiteral(".part")));
    QCOMPARE(download(smallUrl, file), 0);
    QCOMPARE(fileContent(file), otherContent);
    const QList<UnsavedFile> unsaved = face->run.finish().unsaved;
    QCOMPARE(unsaved.size(), 1);
    QCOMPARE(unsaved.first().path, file);
}

void tst_FtpDownLoad::serverWithoutHelpIsGoodEnough()
{
    m_server->refuseHelp();
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), 0);
    QCOMPARE(fileContent(path(QStringLiteral("file"))), smallContent);
}

void tst_FtpDownLoad::serverThatClosesInTheMiddleIsNoticed()
{
    m_server->stallAfter(10);
    QTimer::singleShot(200, this, [this] { m_server->cut(); });
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), -1);
    QVERIFY(clock.elapsed() < 5000);
    QCOMPARE(fileContent(path(QStringLiteral("file"))), smallContent.left(10));
    QVERIFY(!isOpen(path(QStringLiteral("file"))));
}

void tst_FtpDownLoad::finishThatIsAlreadyThereIsSeenAtTheDeadline()
{
    // Something keeps the thread busy beyond the time limit right after the transfer has ended.
    auto *manager = FtpDownLoad::Get()->findChild<QNetworkAccessManager *>();
    QVERIFY(manager != nullptr);
    QObject busy;
    connect(manager, &QNetworkAccessManager::finished, &busy, [] { QTest::qSleep(10500); });
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), 0);
    QCOMPARE(fileContent(path(QStringLiteral("file"))), smallContent);
}

void tst_FtpDownLoad::silentServerEndsTheWait()
{
    m_server->stallAfter(3);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), -1);
    QVERIFY(clock.elapsed() >= 10000);
    QVERIFY(clock.elapsed() < 12000);
    QCOMPARE(FtpDownLoad::downloadLimitMs, 10000);
}

void tst_FtpDownLoad::closingProgramEndsTheWait()
{
    m_server->stallAfter(3);
    QTimer::singleShot(100, this, [] { KestDetectorFace::Get()->quitFlag = -1; });
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), -1);
    QVERIFY(clock.elapsed() < 5000);
}

void tst_FtpDownLoad::closingProgramBeginsNoDownload()
{
    const QString earlier = path(QStringLiteral("file"));
    QCOMPARE(download(smallUrl, earlier), 0);
    KestDetectorFace::Get()->quitFlag = -1;
    QCOMPARE(download(otherUrl, earlier), -1);
    QCOMPARE(fileContent(earlier), smallContent);
}

void tst_FtpDownLoad::stoppedRunKeepsTheEarlierFile_data()
{
    QTest::addColumn<bool>("evidence");
    QTest::addColumn<bool>("earlier");
    QTest::newRow("nineteen keys, an earlier file") << false << true;
    QTest::newRow("nineteen keys, none") << false << false;
    QTest::newRow("safeguards, an earlier file") << true << true;
    QTest::newRow("safeguards, none") << true << false;
}

void tst_FtpDownLoad::stoppedRunKeepsTheEarlierFile()
{
    QFETCH(const bool, evidence);
    QFETCH(const bool, earlier);
    KestDetectorFace *face = KestDetectorFace::Get();
    if (evidence) {
        keepEvidence();
    }
    const QString file = path(QStringLiteral("file"));
    if (earlier) {
        QCOMPARE(download(otherUrl, file), 0);
    }
    const QDateTime before = QFileInfo(file).lastModified();
    m_server->stallAfter(10);
    face->run.post({});
    QTimer::singleShot(200, this, [face] { face->run.stop(); });
    QElapsedTimer clock;
    clock.start();
    const int result = onWorkerThread([&] {
        face->run.take(QString());
        return FtpDownLoadFace::Get()->ftpDownLoad(smallUrl, file);
    });
    QCOMPARE(result, -1);
    QVERIFY(clock.elapsed() < 1200);
    const RunEnd end = face->run.finish();
    QCOMPARE(end.unsaved.size(), 0);
    const QStringList left = earlier ? QStringList{QStringLiteral("file")} : QStringList();
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), left);
    if (earlier) {
        QCOMPARE(fileContent(file), otherContent);
        QCOMPARE(QFileInfo(file).lastModified(), before);
    }
    // Nothing of it comes later, and the next run's downloads are as ever.
    m_server->release();
    m_server->stallAfter(-1);
    QTest::qWait(100);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), left);
    QCOMPARE(onWorkerThread([&] { return FtpDownLoadFace::Get()->ftpDownLoad(smallUrl, file); }), 0);
    QCOMPARE(fileContent(file), smallContent);
}

void tst_FtpDownLoad::earlierFileGoesWithTheDownloadsEnd_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a good one") << smallUrl << false << smallContent;
    QTest::newRow("a failed one") << QStringLiteral("ftp://127.0.0.1/missing") << false << QByteArray();
    QTest::newRow("one that the closing program leaves") << smallUrl << true << smallContent.left(10);
}

void tst_FtpDownLoad::earlierFileGoesWithTheDownloadsEnd()
{
    QFETCH(const QString, url);
    QFETCH(const bool, closes);
    const QString file = path(QStringLiteral("file"));
    QCOMPARE(download(otherUrl, file), 0);
    if (closes) {
        m_server->stallAfter(10);
        QTimer::singleShot(200, this, [] { KestDetectorFace::Get()->quitFlag = -1; });
    }
    download(url, file);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{QStringLiteral("file")});
    QTEST(fileContent(file), "content");
}

void tst_FtpDownLoad::lateEndOfATimedOutDownload()
{
    m_server->stallAfter(10);
    QTimer::singleShot(200, this, [] { KestDetectorFace::Get()->quitFlag = -1; });
    QCOMPARE(download(smallUrl, path(QStringLiteral("late"))), -1);
    KestDetectorFace::Get()->quitFlag = 0;
    QVERIFY(isOpen(path(QStringLiteral("late"))));

    // Nobody waits any more, but the data still belong to their own file.
    m_server->release();
    QTRY_VERIFY(!isOpen(path(QStringLiteral("late"))));
    QCOMPARE(fileContent(path(QStringLiteral("late"))), smallContent);

    // Its end does not count for the next one, which fails.
    m_server->stallAfter(-1);
    QCOMPARE(download(QStringLiteral("ftp://127.0.0.1/missing"), path(QStringLiteral("file"))), -1);
}

void tst_FtpDownLoad::hangingDownloadDoesNotReachTheNextOne()
{
    m_server->stallAfter(10);
    QTimer::singleShot(200, this, [] { KestDetectorFace::Get()->quitFlag = -1; });
    QCOMPARE(download(smallUrl, path(QStringLiteral("hanging"))), -1);
    KestDetectorFace::Get()->quitFlag = 0;

    m_server->stallAfter(-1);
    QTimer::singleShot(0, this, [this] { m_server->release(); });
    QCOMPARE(download(otherUrl, path(QStringLiteral("next"))), 0);
    QCOMPARE(fileContent(path(QStringLiteral("next"))), otherContent);
    QTest::qWait(200);
    QCOMPARE(fileContent(path(QStringLiteral("next"))), otherContent);
    QCOMPARE(fileContent(path(QStringLiteral("hanging"))), smallContent.left(10));
    QVERIFY(!isOpen(path(QStringLiteral("hanging"))));
}

void tst_FtpDownLoad::connectionIsNotKeptForTheNextDownload()
{
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), 0);
    // A camera that restarts in between would leave a dead one.
    QTRY_COMPARE(m_server->sessionCount(), 0);
    QCOMPARE(download(otherUrl, path(QStringLiteral("file"))), 0);
    QCOMPARE(fileContent(path(QStringLiteral("file"))), otherContent);
}

void tst_FtpDownLoad::waitUsesNoProcessorTime()
{
    m_server->stallAfter(3);
    QTimer::singleShot(1500, this, [] { KestDetectorFace::Get()->quitFlag = -1; });
    const std::clock_t before = std::clock();
    QCOMPARE(download(smallUrl, path(QStringLiteral("file"))), -1);
    // A loop that spins would take the whole 1.5 s.
    QVERIFY(std::clock() - before < CLOCKS_PER_SEC / 2);
}

void tst_FtpDownLoad::eventLoopStaysResponsive()
{
    const QByteArray large(32 * 1024 * 1024, 'l');
    m_server->addFile(QStringLiteral("/large"), large);
    int turns = 0;
    QTimer ticks;
    connect(&ticks, &QTimer::timeout, this, [&turns] { ++turns; });
    ticks.start(0);
    QCOMPARE(download(QStringLiteral("ftp://127.0.0.1/large"), path(QStringLiteral("large"))), 0);
    QCOMPARE(fileContent(path(QStringLiteral("large"))), large);
    // Taken in one piece it would be a handful.
    QVERIFY2(turns >= 8, qPrintable(QString::number(turns)));
}

void tst_FtpDownLoad::faceReturnsTheWorkersResult()
{
    FtpDownLoadFace *face = FtpDownLoadFace::Get();
    const QString file = path(QStringLiteral("file"));
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(smallUrl, file); }), 0);
    QCOMPARE(fileContent(file), smallContent);
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(QStringLiteral("ftp://127.0.0.1/missing"), file); }), -1);
    QCOMPARE(fileContent(file), QByteArray());
    // The GUI thread cannot wait for itself.
    QCOMPARE(face->ftpDownLoad(smallUrl, file), -1);
}

void tst_FtpDownLoad::faceGivesUpWhenTheProgramCloses()
{
    FtpDownLoadFace *face = FtpDownLoadFace::Get();
    const QString earlier = path(QStringLiteral("earlier"));
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(smallUrl, earlier); }), 0);
    m_server->stallAfter(3);
    QTimer::singleShot(100, this, [face] {
        face->giveUp();
        KestDetectorFace::Get()->quitFlag = -1;
    });
    const QString file = path(QStringLiteral("file"));
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(smallUrl, file); }), -1);
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(smallUrl, file); }), -1);
    // Nothing is downloaded any more, and so nothing is lost.
    KestDetectorFace::Get()->quitFlag = 0;
    QCOMPARE(onWorkerThread([&] { return face->ftpDownLoad(smallUrl, earlier); }), -1);
    QCOMPARE(fileContent(earlier), smallContent);
}

QTEST_GUILESS_MAIN(tst_FtpDownLoad)
#include "tst_FtpDownLoad.moc"
