#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "ftp/FtpDownLoad.h"
#include "ftp/FtpDownLoadFace.h"
#include "support/MessageSpy.h"
#include "telnet/session/TelnetInteractive.h"
#include "telnet/session/TelnetInteractiveFace.h"
#include "ui/window/KestDetectorUI.h"

#include <atomic>
#include <QTemporaryDir>
#include <QTest>
#include <thread>

/// The services can be stopped only once in a process, so this is one story: the window of a working program closes
/// while a thread waits for each of the services.
class tst_stopServices : public QObject
{
    Q_OBJECT

private slots:
    void closingEndsEveryWait();
};

void tst_stopServices::closingEndsEveryWait()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const QTemporaryDir folder;
    face->savePath = folder.path();
    face->cameraAddress = QStringLiteral("127.0.0.9");
    KestDetectorUI window;
    window.show();
    KestDetectorRt::Get();
    TelnetInteractive::Get();
    TelnetInteractiveFace::Get();
    Camera::Get();
    UDPTransciever::Get();
    FtpDownLoad::Get();
    FtpDownLoadFace::Get();

    // The GUI thread does not serve events until the window closes, so that none of these is answered before.
    std::atomic<int> started{0};
    std::atomic<int> shell{99};
    std::atomic<int> file{99};
    std::atomic<int> ping{99};
    std::thread shellCaller([&] {
        ++started;
        shell = TelnetInteractiveFace::Get()->telnetConnectToHost();
    });
    std::thread fileCaller([&] {
        ++started;
        file = FtpDownLoadFace::Get()->ftpDownLoad(QStringLiteral("ftp://127.0.0.9/x"),
                                                   folder.filePath(QStringLiteral("x")));
    });
    std::thread pingCaller([&] {
        ++started;
        ping = Camera::Get()->Ping();
    });
    while (started < 3) {
        std::this_thread::yield();
    }

    const MessageSpy spy;
    QVERIFY(window.close());
    QCOMPARE(spy.containing(QStringLiteral("thread has ended")),
             QStringList(
                 {"The receive thread has ended", "The supervisor thread has ended", "The runner thread has ended"}));
    shellCaller.join(); // hangs here if a wait does not give up
    fileCaller.join();
    pingCaller.join();
    QCOMPARE(shell.load(), -1);
    QCOMPARE(file.load(), -1);
    QCOMPARE(ping.load(), 118);
    QVERIFY(face->stopRequested());
    QCOMPARE(face->quitFlag.load(), -1);
    QVERIFY(!window.isVisible());

    // Closing once more finds everything stopped already.
    window.show();
    QVERIFY(window.close());
}

QTEST_MAIN(tst_stopServices)
#include "tst_stopServices.moc"
