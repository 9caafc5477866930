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
constexpr int limitMs = 3000;
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
    QElapsedTimer m_clock;
    qint64 m_noticedMs = -1;         ///< when the last loss was told, by the clock
    bool m_connectedWhenTold = true; ///< what the face said at that moment
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
    m_clock.start();
    connect(m_face, &TelnetInteractiveFace::signal_connectionLost, this, [this] {
        m_noticedMs = m_clock.elapsed();
        m_connectedWhenTold = m_face->connected();
    });
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
    QVERIFY(!losses.wait(limitMs + 2000));
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
    m_connectedWhenTold = true;
    QCOMPARE(logIn(), 0);
    QSignalSpy losses(m_face, &TelnetInteractiveFace::signal_connectionLost);
    if (reset) {
        m_peer->reset();
    } else {
        m_peer->hangUp();
    }
    QVERIFY(losses.wait(1000));
    QVERIFY(!m_connectedWhenTold);
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
    // Neither data nor their acknowledgement come through any more.
    QVERIFY(setLoopbackUp(false));
    m_noticedMs = -1;
    m_clock.start();
    if (commandUnderWay) {
        QString reply;
        const int result =
            onWorkerThread([&] { return m_face->telnet(QStringLiteral("mount\n"), shellStep::mount, &reply); });
        QCOMPARE(result, -1);
        QVERIFY(m_clock.elapsed() >= TelnetInteractive::commandLimitMs); // the loss is no answer
    } else {
        QTRY_VERIFY(m_noticedMs >= 0);
    }
    QVERIFY2(m_noticedMs > 0 && m_noticedMs < limitMs + busyMachineMs, qPrintable(QString::number(m_noticedMs)));
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
    QVERIFY(losses.wait(limitMs));
    QVERIFY(!m_face->connected());
}

QTEST_GUILESS_MAIN(tst_ShellLoss)
#include "tst_ShellLoss.moc"
