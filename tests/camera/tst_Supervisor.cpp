#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "camera/supervisor/LinkCommands.h"
#include "camera/supervisor/Supervisor.h"
#include "DatagramPeer.h"
#include "detector/store/KestDetectorFace.h"
#include "OwnClient.h"
#include "support/MessageSpy.h"
#include "support/ScriptedShellServer.h"
#include "telnet/session/TelnetInteractive.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <QtTest>

using emulator::Frame;

namespace {
constexpr int registerPc = 0x20;
constexpr int ping = 0x22;
constexpr std::chrono::milliseconds quickRounds(100);

QString iniPath()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/option.ini");
}

/// Each file is longer than the one before: Qt takes two of one size, written within milliseconds, for the same.
bool writeIni(const QByteArray &text)
{
    static int files = 0;
    const QByteArray content = text + QByteArray(++files, '\n');
    QFile file(iniPath());
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}
} // namespace

namespace {
/// A client whose camera refuses to be registered.
class RefusedCommands final : public LinkCommands
{
public:
    int registerPC(const QString &ip) override
    {
        // The transceiver takes the camera's address from the facade with the first request.
        registrations =
            registrations.get() + ip + QLatin1Char('>') + KestDetectorFace::Get()->cameraAddress + QLatin1Char(' ');
        return 3;
    }
    int Ping() override { return 3; }
    bool requestsAbandoned() const override { return false; }

    Guarded<QString> registrations; ///< "<PC>><camera> " each
};

/// The real commands; of pings that fail in a row, only the last one is made to wait for its reply.
class HastyCommands final : public LinkCommands
{
public:
    explicit HastyCommands(Camera &camera) : m_camera(camera) {}

    int registerPC(const QString &ip) override { return m_camera.registerPC(ip); }
    int Ping() override
    {
        if (pingsToFail > 0) {
            --pingsToFail;
            return requestResult::noReply;
        }
        return m_camera.Ping();
    }
    bool requestsAbandoned() const override { return m_camera.requestsAbandoned(); }

    std::atomic<int> pingsToFail{0};

private:
    Camera &m_camera;
};
} // namespace

/// The camera supervisor: the tests follow one camera through its life, in this order.
class tst_Supervisor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void triesTheConfiguredLink_data();
    void triesTheConfiguredLink();
    void withoutPcAddressNothingIsSent_data();
    void withoutPcAddressNothingIsSent();
    void refusedRegistrationStaysDisconnected();
    void registrationConnectsLogsInAndReadsTheCamera();
    void shellThatGoesIsRegained_data();
    void shellThatGoesIsRegained();
    void otherCameraIsNoticed();
    void whatCannotBeReadAnewStays();
    void twoFailedPingsKeepTheLink();
    void thirdFailedPingDropsTheLink();
    void answeringCameraIsBack();
    void slowShellIsStillReached();
    void closingDoesNotDropTheLink();
    void processWideClientHasOne();

private:
    int count(int command) const;
    /// The next `count` pings get no reply.
    void dropPings(int count);

    std::unique_ptr<DatagramPeer> m_peer;
    std::unique_ptr<ScriptedShellServer> m_shell;
    QStringList m_events;
    QByteArray m_mac = "aa:bb:cc:dd:ee:0f"; ///< empty: the shell does not say
    bool m_letsIn = true;
    ShellState m_stateAtLogin = ShellState::None;
    int m_pingsToDrop = 0;
    bool m_answerRegistration = false;

    std::unique_ptr<OwnClient> m_client;
    std::unique_ptr<HastyCommands> m_commands;
    std::unique_ptr<Supervisor> m_supervisor;
};

void tst_Supervisor::initTestCase()
{
    m_peer = std::make_unique<DatagramPeer>();
    QVERIFY(m_peer->isListening());
    m_shell = std::make_unique<ScriptedShellServer>();
    QVERIFY(m_shell->isListening());
    m_shell->autoLogin();
    m_shell->onLine = [this](const QByteArray &line) {
        if (!m_letsIn) {
            return;
        }
        if (line == "root") {
            m_stateAtLogin = KestDetectorFace::Get()->shellState;
            m_shell->say("root\r\nPassword: ");
        } else if (line == "secret") {
            m_shell->say("\r\n~ # ");
        } else if (line == "cat /etc/hostapd.conf") {
            m_shell->say(line + "\r\ninterface=ap0\r\nssid=<b>相机</b>\r\nwpa_passphrase=12345678\r\n~ # ");
        } else if (line == "cat /etc/mac" && !m_mac.isEmpty()) {
            m_shell->say(line + "\r\n" + m_mac + "\r\n~ # ");
        }
    };
    m_peer->onRequest = [this](const Frame &request) {
        const bool dropped = request.commandId == ping && m_pingsToDrop > 0 && m_pingsToDrop-- > 0;
        const char code = request.commandId == registerPc && !m_answerRegistration ? 3 : 0;
        if (!dropped) {
            m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray(1, code))));
        }
    };

    KestDetectorFace *face = KestDetectorFace::Get();
    Settings settings;
    settings.username = QStringLiteral("root");
    settings.password = QStringLiteral("secret");
    settings.hostApdUrl = QStringLiteral("/etc/hostapd.conf");
    settings.macAddressUrl = QStringLiteral("/etc/mac");
    face->setSettings(settings);
    const auto note = [this](const char *name) {
        return [this, name](const QString &text) { m_events.append(QLatin1String(name) + text); };
    };
    connect(face, &KestDetectorFace::signal_setWifiName, this, note("wifi "));
    connect(face, &KestDetectorFace::signal_setWifiPassWord, this, note("password "));
    connect(face, &KestDetectorFace::signal_setMacAddress, this, note("mac "));
    connect(face, &KestDetectorFace::signal_setConnectStatus, this, [this](bool connected) {
        m_events.append(connected ? QStringLiteral("connected") : QStringLiteral("disconnected"));
    });
    TelnetInteractive::Get();
    TelnetInteractiveFace::Get();
    QFile::remove(iniPath());
}

void tst_Supervisor::cleanupTestCase()
{
    TelnetInteractiveFace::Get()->giveUp();
    Camera::Get()->abandonRequests();
    UDPTransciever::Get()->killThread();
    Camera::Get()->killThread();
    QFile::remove(iniPath());
}

void tst_Supervisor::dropPings(int count)
{
    m_commands->pingsToFail = count - 1;
    m_pingsToDrop = 1;
}

int tst_Supervisor::count(int command) const
{
    const QList<Frame> requests = m_peer->requests();
    return static_cast<int>(std::count_if(requests.begin(), requests.end(),
                                          [command](const Frame &frame) { return frame.commandId == command; }));
}

void tst_Supervisor::triesTheConfiguredLink_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QString>("registration");

    QTest::newRow("USB only") << QByteArray("[BaseOption]\nusb=127.0.0.12\nwifi=198.51.100.7\n")
                              << QStringLiteral("127.0.0.1>127.0.0.12 ");
    QTest::newRow("WiFi only") << QByteArray("[BaseOption]\nusb=198.51.100.7\nwifi=127.0.0.13\n")
                               << QStringLiteral("127.0.0.1>127.0.0.13 ");
    QTest::newRow("USB not configured") << QByteArray("[BaseOption]\nusb=\nwifi=127.0.0.13\n")
                                        << QStringLiteral("127.0.0.1>127.0.0.13 ");
    QTest::newRow("both on one network") << QByteArray("[BaseOption]\nusb=127.0.0.12\nwifi=127.0.0.13\n")
                                         << QStringLiteral("127.0.0.1>127.0.0.12 ");
}

void tst_Supervisor::triesTheConfiguredLink()
{
    QFETCH(QByteArray, ini);
    QFETCH(QString, registration);
    QVERIFY(writeIni(ini));
    RefusedCommands commands;
    Supervisor supervisor(commands);
    QTRY_VERIFY(!commands.registrations.get().isEmpty());
    supervisor.stop();
    QVERIFY2(commands.registrations.get().startsWith(registration), qPrintable(commands.registrations.get()));
    QVERIFY(!KestDetectorFace::Get()->connectState);
    QFile::remove(iniPath());
}

void tst_Supervisor::withoutPcAddressNothingIsSent_data()
{
    QTest::addColumn<QByteArray>("ini");

    QTest::newRow("no file") << QByteArray();
    QTest::newRow("other network") << QByteArray("[BaseOption]\nusb=203.0.113.9\nwifi=198.51.100.7\n");
    QTest::newRow("empty values") << QByteArray("[BaseOption]\nusb=\nwifi=\n");
    QTest::newRow("half an address") << QByteArray("[BaseOption]\nusb=127.0.\nwifi=127.0.0\n");
    QTest::newRow("no address") << QByteArray("[BaseOption]\nusb=camera\nwifi=127.0.0.1.10\n");
    QTest::newRow("binary") << QByteArray("\x00\xff\xfe[BaseOption\x00wifi=\x7f\n", 22);
}

void tst_Supervisor::withoutPcAddressNothingIsSent()
{
    QFETCH(QByteArray, ini);
    if (!ini.isEmpty()) {
        QVERIFY(writeIni(ini));
    }
    const MessageSpy messages;
    if (!m_supervisor) {
        m_client = std::make_unique<OwnClient>();
        m_commands = std::make_unique<HastyCommands>(m_client->camera);
        m_supervisor = std::make_unique<Supervisor>(*m_commands, quickRounds);
    }
    // The first one may be of a round that had begun with the settings before these.
    QTRY_VERIFY(messages.messages().count(QStringLiteral("sConnectIp \"\" \"\" 9999")) >= 2);
    m_events.clear();
    QTRY_VERIFY(m_events.contains(QStringLiteral("disconnected")));
    QVERIFY(!KestDetectorFace::Get()->connectState);
    QCOMPARE(m_peer->datagrams().size(), 0);
}

void tst_Supervisor::refusedRegistrationStaysDisconnected()
{
    QVERIFY(writeIni("[BaseOption]\nusb=198.51.100.7\nwifi=127.0.0.10\n"));
    QTRY_VERIFY(count(registerPc) >= 1);
    // The PC's address in reverse order, then port 7777 low byte first.
    QCOMPARE(m_peer->datagrams().constFirst().mid(12), QByteArray::fromHex("0100007f611e"));
    const Frame request = m_peer->requests().constFirst();
    QCOMPARE(int{request.flags}, 0x12);
    QCOMPARE(int{request.sender}, 6);
    QCOMPARE(int{request.receiver}, 1);
    QCOMPARE(int{request.commandSet}, 0);
    QVERIFY(!KestDetectorFace::Get()->connectState);
    QCOMPARE(KestDetectorFace::Get()->pcAddress.get(), QStringLiteral("127.0.0.1"));
    QCOMPARE(KestDetectorFace::Get()->cameraAddress.get(), QStringLiteral("127.0.0.10"));
    QCOMPARE(m_shell->connections(), 0);
}

void tst_Supervisor::registrationConnectsLogsInAndReadsTheCamera()
{
    m_events.clear();
    m_answerRegistration = true;
    QTRY_COMPARE_WITH_TIMEOUT(m_events.size() - m_events.indexOf(QStringLiteral("connected")), 4, 10000);
    QCOMPARE(m_events.mid(m_events.indexOf(QStringLiteral("connected"))),
             QStringList({QStringLiteral("connected"), QStringLiteral("wifi <b>相机</b>"),
                          QStringLiteral("password 12345678"), QStringLiteral("mac AA:BB:CC:DD:EE:0F")}));
    QVERIFY(KestDetectorFace::Get()->connectState);
    QCOMPARE(KestDetectorFace::Get()->macAddress.get(), QStringLiteral("AA:BB:CC:DD:EE:0F"));
    QCOMPARE(m_shell->received(), QByteArray("root\nsecret\ncat /etc/hostapd.conf\ncat /etc/mac\n"));
}

void tst_Supervisor::shellThatGoesIsRegained_data()
{
    QTest::addColumn<bool>("byReset");

    QTest::newRow("end of file") << false;
    QTest::newRow("reset") << true;
}

void tst_Supervisor::shellThatGoesIsRegained()
{
    QFETCH(bool, byReset);
    KestDetectorFace *face = KestDetectorFace::Get();
    QTRY_COMPARE_WITH_TIMEOUT(face->shellState.load(), ShellState::Up, 10000);
    const int connections = m_shell->connections();
    m_stateAtLogin = ShellState::None;
    m_shell->clear();
    m_events.clear();
    face->run.post({});
    QVERIFY(face->run.take(face->macAddress));
    if (byReset) {
        m_shell->reset();
    } else {
        m_shell->hangUp();
    }
    QTRY_VERIFY_WITH_TIMEOUT(m_events.contains(QStringLiteral("mac AA:BB:CC:DD:EE:0F")), 10000);
    QCOMPARE(m_stateAtLogin, ShellState::Regaining);
    QTRY_COMPARE(face->shellState.load(), ShellState::Up);
    QCOMPARE(m_shell->connections(), connections + 1);
    QCOMPARE(m_shell->received(), QByteArray("root\nsecret\ncat /etc/hostapd.conf\ncat /etc/mac\n"));
    QCOMPARE(m_events, QStringList({QStringLiteral("wifi <b>相机</b>"), QStringLiteral("password 12345678"),
                                    QStringLiteral("mac AA:BB:CC:DD:EE:0F")}));
    QCOMPARE(face->run.finish().camera, RunEnd::Camera::Kept);
}

void tst_Supervisor::otherCameraIsNoticed()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    m_events.clear();
    face->run.post({});
    QVERIFY(face->run.take(face->macAddress));
    m_mac = "aa:bb:cc:dd:ee:10";
    m_shell->hangUp();
    QTRY_VERIFY_WITH_TIMEOUT(m_events.contains(QStringLiteral("mac AA:BB:CC:DD:EE:10")), 10000);
    QCOMPARE(face->macAddress.get(), QStringLiteral("AA:BB:CC:DD:EE:10"));
    QVERIFY(face->connectState);
    QCOMPARE(face->run.finish().camera, RunEnd::Camera::Changed);
}

void tst_Supervisor::whatCannotBeReadAnewStays()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    m_stateAtLogin = ShellState::None;
    QTRY_COMPARE_WITH_TIMEOUT(face->shellState.load(), ShellState::Up, 10000);
    m_events.clear();
    m_mac.clear();
    m_shell->clear();
    m_shell->hangUp();
    // This thread serves the shell call, too: it comes back when that has been given up, 5 s later.
    QTRY_VERIFY_WITH_TIMEOUT(m_shell->received().contains("cat /etc/mac"), 15000);
    QCOMPARE(m_stateAtLogin, ShellState::Regaining);
    QTRY_COMPARE_WITH_TIMEOUT(face->shellState.load(), ShellState::Up, 15000);
    QCOMPARE(face->macAddress.get(), QStringLiteral("AA:BB:CC:DD:EE:10"));
    QCOMPARE(m_events.filter(QStringLiteral("mac")), QStringList());
    // It is asked for again until it is told, without another login.
    const int connections = m_shell->connections();
    m_mac = "aa:bb:cc:dd:ee:0f";
    QTRY_COMPARE_WITH_TIMEOUT(m_events.filter(QStringLiteral("mac")), QStringList{"mac AA:BB:CC:DD:EE:0F"}, 15000);
    QCOMPARE(m_shell->connections(), connections);
}

void tst_Supervisor::twoFailedPingsKeepTheLink()
{
    QTRY_VERIFY(count(ping) >= 1);
    m_events.clear();
    dropPings(2);
    QTRY_COMPARE_WITH_TIMEOUT(m_pingsToDrop, 0, 15000);
    const int before = count(ping);
    QTRY_VERIFY_WITH_TIMEOUT(count(ping) >= before + 2, 15000);
    QCOMPARE(m_events, QStringList());
}

void tst_Supervisor::thirdFailedPingDropsTheLink()
{
    KestDetectorFace::Get()->run.post({});
    QVERIFY(KestDetectorFace::Get()->run.take(KestDetectorFace::Get()->macAddress));
    m_events.clear();
    m_answerRegistration = false;
    dropPings(3);
    QTRY_VERIFY_WITH_TIMEOUT(m_events.contains(QStringLiteral("disconnected")), 20000);
    QCOMPARE(m_pingsToDrop, 0);
    QCOMPARE(m_events.mid(0, 4), QStringList({QStringLiteral("wifi "), QStringLiteral("password "),
                                              QStringLiteral("mac "), QStringLiteral("disconnected")}));
    QCOMPARE(KestDetectorFace::Get()->macAddress.get(), QString());
    QCOMPARE(KestDetectorFace::Get()->wifiName.get(), QString());
    QCOMPARE(KestDetectorFace::Get()->shellState.load(), ShellState::None);
    QCOMPARE(KestDetectorFace::Get()->run.finish().camera, RunEnd::Camera::Lost);
}

void tst_Supervisor::answeringCameraIsBack()
{
    const int connections = m_shell->connections();
    m_answerRegistration = true;
    QTRY_VERIFY_WITH_TIMEOUT(m_events.contains(QStringLiteral("mac AA:BB:CC:DD:EE:0F")), 15000);
    QCOMPARE(m_shell->connections(), connections + 1);
}

void tst_Supervisor::slowShellIsStillReached()
{
    // The link drops; when it is back, the shell does not let anybody in for the time of the first login.
    KestDetectorFace *face = KestDetectorFace::Get();
    m_letsIn = false;
    m_events.clear();
    dropPings(3);
    QTRY_VERIFY_WITH_TIMEOUT(m_events.contains(QStringLiteral("disconnected")), 20000);
    m_events.clear();
    QTRY_VERIFY_WITH_TIMEOUT(m_events.contains(QStringLiteral("connected")), 20000);
    QCOMPARE(face->shellState.load(), ShellState::None);
    QCOMPARE(face->macAddress.get(), QString());
    m_letsIn = true;
    QTRY_VERIFY_WITH_TIMEOUT(m_events.contains(QStringLiteral("mac AA:BB:CC:DD:EE:0F")), 40000);
    QTRY_COMPARE(face->shellState.load(), ShellState::Up);
    QCoreApplication::processEvents(); // what has been shown until then belongs to this case
    QCOMPARE(m_events.count(QStringLiteral("connected")), 1);
    QVERIFY(!m_events.contains(QStringLiteral("disconnected")));
}

void tst_Supervisor::closingDoesNotDropTheLink()
{
    // The log of the last run still has to find its folder, which is named after the MAC address.
    const QString mac = KestDetectorFace::Get()->macAddress;
    QVERIFY(!mac.isEmpty());
    m_events.clear();
    dropPings(3);
    QTRY_COMPARE_WITH_TIMEOUT(m_pingsToDrop, 0, 20000);
    m_client->camera.abandonRequests();
    m_supervisor->stop();
    QCoreApplication::processEvents();
    QCOMPARE(m_events, QStringList());
    QCOMPARE(KestDetectorFace::Get()->macAddress.get(), mac);
}

void tst_Supervisor::processWideClientHasOne()
{
    m_supervisor.reset();
    m_commands.reset();
    m_client.reset();
    m_peer->clear();
    Camera::Get();
    QTRY_VERIFY(count(registerPc) >= 1);
    // It may be logging in, which this thread serves.
    TelnetInteractiveFace::Get()->giveUp();
    Camera::Get()->abandonRequests();
    Camera::Get()->killThread();
    QCoreApplication::processEvents();
    m_peer->clear();
    QTest::qWait(1500);
    QCOMPARE(m_peer->datagrams().size(), 0);
}

QTEST_GUILESS_MAIN(tst_Supervisor)
#include "tst_Supervisor.moc"
