#include "../e2e/CameraProcess.h"
#include "../e2e/isolation.h"
#include "detector/store/KestDetectorFace.h"
#include "support/onWorkerThread.h"
#include "support/ScriptedShellServer.h"
#include "telnet/session/shellStep.h"
#include "telnet/session/TelnetInteractive.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <csignal>
#include <memory>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

namespace {
constexpr int noticedMs = 3000;
constexpr int busyMachineMs = 500;
} // namespace

/// Whether the shell session knows that its other end is there, or has gone.
class tst_ShellLoss : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void loginConnects();
    void refusedLoginDoesNotConnect();
    void newLoginReplacesTheConnection();
    void quietConnectionStays();
    void closedConnectionIsNoticedAtOnce_data();
    void closedConnectionIsNoticedAtOnce();
    void vanishedPeerIsNoticed_data();
    void vanishedPeerIsNoticed();
    void killedShellIsNoticed();

private:
    int logIn();

    TelnetInteractiveFace *m_face = nullptr;
    std::unique_ptr<ScriptedShellServer> m_peer;
    bool m_ownNetwork = false;
};

void tst_ShellLoss::initTestCase()
{
    m_ownNetwork = enterPrivateNetwork();
    KestDetectorFace *store = KestDetectorFace::Get();
    store->cameraAddress = QStringLiteral("127.0.0.10");
    Settings settings;
    settings.username = QStringLiteral("root");
    settings.password = QStringLiteral("camera");
    store->setSettings(settings);
    TelnetInteractive::Get();
    m_face = TelnetInteractiveFace::Get();
}

void tst_ShellLoss::init()
{
    m_peer = std::make_unique<ScriptedShellServer>();
    QVERIFY2(m_peer->isListening(), "127.0.0.10:23 cannot be opened here");
    m_peer->autoLogin();
}

void tst_ShellLoss::cleanup()
{
    if (m_ownNetwork) {
        setLoopbackUp(true);
    }
    m_peer.reset();
}

int tst_ShellLoss::logIn()
{
    return onWorkerThread([this] { return m_face->telnetConnectToHost(); });
}

void tst_ShellLoss::loginConnects()
{
    QVERIFY(!m_face->connected());
    QCOMPARE(logIn(), 0);
    QVERIFY(m_face->connected());
}

void tst_ShellLoss::refusedLoginDoesNotConnect()
{
    QCOMPARE(logIn(), 0);
    QSignalSpy losses(m_face, &TelnetInteractiveFace::signal_connectionLost);
    m_peer->onLine = [this](const QByteArray &line) {
        if (line == "root") {
            m_peer->say("root\r\nPassword: ");
        }
    };
    QCOMPARE(logIn(), -1);
    QVERIFY(!m_face->connected());
    QCOMPARE(losses.count(), 0);
}

void tst_ShellLoss::newLoginReplacesTheConnection()
{
    QCOMPARE(logIn(), 0);
    QSignalSpy losses(m_face, &TelnetInteractiveFace::signal_connectionLost);
    bool duringLogin = true;
    m_peer->onConnection = [&] { duringLogin = m_face->connected(); };
    QCOMPARE(logIn(), 0);
    QVERIFY(!duringLogin);
    QVERIFY(m_face->connected());
    QCOMPARE(losses.count(), 0);
}

void tst_ShellLoss::quietConnectionStays()
{
    QCOMPARE(logIn(), 0);
    QSignalSpy losses(m_face, &TelnetInteractiveFace::signal_connectionLost);
    QVERIFY(!losses.wait(noticedMs + 2000));
    QVERIFY(m_face->connected());
}

void tst_ShellLoss::closedConnectionIsNoticedAtOnce_data()
{
    QTest::addColumn<bool>("reset");
    QTest::newRow("end of file") << false;
    QTest::newRow("reset") << true;
}

void tst_ShellLoss::closedConnectionIsNoticedAtOnce()
{
    QFETCH(bool, reset);
    QCOMPARE(logIn(), 0);
    QSignalSpy losses(m_face, &TelnetInteractiveFace::signal_connectionLost);
    bool connectedWhenTold = true;
    connect(m_face, &TelnetInteractiveFace::signal_connectionLost, m_peer.get(),
            [&] { connectedWhenTold = m_face->connected(); });
    if (reset) {
        m_peer->reset();
    } else {
        m_peer->hangUp();
    }
    QVERIFY(losses.wait(1000));
    QVERIFY(!connectedWhenTold);
    QCOMPARE(logIn(), 0);
    QVERIFY(m_face->connected());
    QCOMPARE(losses.count(), 1);
}

void tst_ShellLoss::vanishedPeerIsNoticed_data()
{
    QTest::addColumn<bool>("commandUnderWay");
    QTest::newRow("while nothing is asked") << false;
    QTest::newRow("with a command under way") << true;
}

void tst_ShellLoss::vanishedPeerIsNoticed()
{
    QFETCH(bool, commandUnderWay);
    if (!m_ownNetwork) {
        QSKIP("a network of its own is forbidden here");
    }
    QCOMPARE(logIn(), 0);
    m_peer->onLine = nullptr;
    qint64 noticed = -1;
    QElapsedTimer clock;
    connect(m_face, &TelnetInteractiveFace::signal_connectionLost, m_peer.get(), [&] { noticed = clock.elapsed(); });
    // Neither data nor their acknowledgement come through any more.
    QVERIFY(setLoopbackUp(false));
    clock.start();
    if (commandUnderWay) {
        QString reply;
        const int result =
            onWorkerThread([&] { return m_face->telnet(QStringLiteral("mount\n"), shellStep::mount, &reply); });
        QCOMPARE(result, -1);
        QVERIFY(clock.elapsed() >= TelnetInteractive::commandLimitMs); // the loss is no answer
    } else {
        QTRY_VERIFY(noticed >= 0);
    }
    QVERIFY2(noticed > 0 && noticed < noticedMs + busyMachineMs, qPrintable(QString::number(noticed)));
    QVERIFY(!m_face->connected());

    QVERIFY(setLoopbackUp(true));
    m_peer->autoLogin();
    QCOMPARE(logIn(), 0);
    QVERIFY(m_face->connected());
}

void tst_ShellLoss::killedShellIsNoticed()
{
    m_peer.reset();
    CameraProcess camera;
    QVERIFY(camera.start());
    QCOMPARE(logIn(), 0);
    QVERIFY(m_face->connected());
    QSignalSpy losses(m_face, &TelnetInteractiveFace::signal_connectionLost);
    camera.signalAll(SIGKILL, "busybox");
    QVERIFY(losses.wait(noticedMs));
    QVERIFY(!m_face->connected());
}

QTEST_GUILESS_MAIN(tst_ShellLoss)
#include "tst_ShellLoss.moc"
