#include "support/CommandPeer.h"
#include "support/EmulatorProcess.h"
#include "support/fileContent.h"
#include "support/FtpPeer.h"
#include "support/hexBytes.h"
#include "support/processesWith.h"
#include "support/ShellPeer.h"

#include <csignal>
#include <QtTest>

namespace {
const QString address = QStringLiteral("127.0.77.5");
const QByteArray ping = hexBytes("aa 00 0c 12 00 07 bc 9b 00 61 60 22");
const QByteArray pong = hexBytes("aa 00 0d 01 00 07 c6 53 00 16 60 22 00");

QByteArray mounts()
{
    return fileContent(QStringLiteral("/proc/self/mounts"));
}
} // namespace

/// The program as a whole: FTP, faulty services, signals, the command line and what it leaves behind.
class tst_EmulatorProgram : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void archiveByFtp();
    void ftpServesTheArchivesAlone();
    void ftpFault_data();
    void ftpFault();
    void shellFault_data();
    void shellFault();
    void splitPrompt();
    void refusedServices();
    void listensOnOneAddressOnly_data();
    void listensOnOneAddressOnly();
    void leavesNothing_data();
    void leavesNothing();
    void leavesNothingWithoutAParent();
    void reboot();
    void outOfRange();
    void wrongUse_data();
    void wrongUse();
    void wrongScenario();
    void runDirectoryInUse();
    void portInUse();
    void noRightForThePort();

private:
    /// Runs the emulator on a scenario, in a folder of its own that is there before.
    bool start(EmulatorProcess &emulator, const QByteArray &scenario = "{}", const QStringList &more = {});
    static FtpPeer::Download fetch(const QByteArray &path, int limit = 20000);

    std::unique_ptr<QTemporaryDir> m_directory;
};

void tst_EmulatorProgram::init()
{
    m_directory = std::make_unique<QTemporaryDir>(QDir::currentPath() + QStringLiteral("/program-XXXXXX"));
    QVERIFY(QDir(m_directory->path()).mkdir(QStringLiteral("run")));
}

bool tst_EmulatorProgram::start(EmulatorProcess &emulator, const QByteArray &scenario, const QStringList &more)
{
    QFile file(m_directory->filePath(QStringLiteral("scenario.json")));
    return file.open(QIODevice::WriteOnly) && file.write(scenario) == scenario.size() && file.flush() &&
           emulator.start(QStringList{QStringLiteral("--address"), address, QStringLiteral("--scenario"),
                                      file.fileName(), QStringLiteral("--run-dir"),
                                      m_directory->filePath(QStringLiteral("run"))} +
                          more);
}

FtpPeer::Download tst_EmulatorProgram::fetch(const QByteArray &path, int limit)
{
    FtpPeer peer(limit);
    return peer.connectTo(address) ? peer.fetch(path) : FtpPeer::Download();
}

void tst_EmulatorProgram::archiveByFtp()
{
    EmulatorProcess emulator;
    QVERIFY(start(emulator));
    QCOMPARE(emulator.readyLine(), QStringLiteral("ready: 127.0.77.5 commands 9999/udp, shell 23/tcp, FTP 2121/tcp"));
    ShellPeer peer;
    QVERIFY(peer.connectTo(address));
    QVERIFY(peer.logIn());
    QVERIFY(!peer.run("tar -zcvf /tmp/archive/netconf.tar.gz /data/netconf").isEmpty());

    const FtpPeer::Download archive = fetch("netconf.tar.gz");
    QCOMPARE(archive.code, 226);
    QFile file(m_directory->filePath(QStringLiteral("netconf.tar.gz")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(archive.content);
    file.close();
    QProcess tar;
    tar.start(QStringLiteral("tar"),
              {QStringLiteral("-xzOf"), file.fileName(), QStringLiteral("data/netconf/mac_addr")});
    QVERIFY(tar.waitForFinished());
    QCOMPARE(tar.readAllStandardOutput(), QByteArray("60:60:1f:0a:5f:2a\n"));

    QVERIFY(!peer.run("rm -rf /tmp/archive/netconf.tar.gz").isEmpty());
    QCOMPARE(fetch("netconf.tar.gz").code, 550);
}

void tst_EmulatorProgram::ftpServesTheArchivesAlone()
{
    EmulatorProcess emulator;
    QVERIFY(start(emulator));
    ShellPeer peer;
    QVERIFY(peer.connectTo(address));
    QVERIFY(peer.logIn());
    QVERIFY(!peer.run("ln -s /etc/passwd /tmp/archive/link; ln -s ../../etc/passwd /tmp/archive/up").isEmpty());
    for (const char *path : {"link", "up", "../../etc/passwd", "/etc/passwd"}) {
        const FtpPeer::Download download = fetch(path);
        QCOMPARE(download.code, 550);
        QCOMPARE(download.content, QByteArray());
    }
}

void tst_EmulatorProgram::ftpFault_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<int>("limit"); // ms
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("size");
    const auto row = [](const char *name, const char *fault, int limit, int code, int size) {
        QTest::newRow(name) << QByteArray(fault) << limit << code << size;
    };
    row("another password", "wrongPassword", 20000, 530, 0);
    row("nothing listens", "refuse", 20000, 0, 0);
    row("says nothing", "sendNothing", 1000, 0, 0);
    row("stops half way", "stall", 1000, 0, 4096);
    row("closes half way", "close", 20000, 0, 4096);
}

void tst_EmulatorProgram::ftpFault()
{
    QFETCH(QByteArray, fault);
    QFETCH(int, limit);
    QFETCH(int, code);
    QFETCH(int, size);
    EmulatorProcess emulator;
    QVERIFY(start(emulator, R"({"ftp": {"fault": ")" + fault + R"("}})", {QStringLiteral("--no-shell")}));
    const FtpPeer::Download download = fetch("log.tar.gz", limit);
    QCOMPARE(download.code, code);
    QCOMPARE(download.content.size(), size);
}

void tst_EmulatorProgram::shellFault_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<QByteArray>("firstBytes");
    QTest::newRow("says nothing") << QByteArray("silent") << QByteArray();
    QTest::newRow("greets only") << QByteArray("bannerWithoutPrompt")
                                 << QByteArray("\r\nWelcome to the camera\r\n\r\n");
    QTest::newRow("floods") << QByteArray("flood") << QByteArray(1000000, 'x');
}

void tst_EmulatorProgram::shellFault()
{
    QFETCH(QByteArray, fault);
    QFETCH(QByteArray, firstBytes);
    EmulatorProcess emulator;
    QVERIFY(start(emulator, R"({"shell": {"fault": ")" + fault + R"("}})", {QStringLiteral("--no-ftp")}));
    ShellPeer peer;
    QVERIFY(peer.connectTo(address));
    QByteArray received;
    while (received.size() <= firstBytes.size() && peer.socket().waitForReadyRead(1000)) {
        received += peer.socket().readAll();
    }
    QVERIFY(received.startsWith(firstBytes));
    QCOMPARE(peer.socket().state(), QAbstractSocket::ConnectedState);
    QVERIFY(fault == "flood" || received == firstBytes);
}

void tst_EmulatorProgram::splitPrompt()
{
    EmulatorProcess emulator;
    QVERIFY(start(emulator, R"({"shell": {"fault": "splitPrompt"}})", {QStringLiteral("--no-ftp")}));
    ShellPeer peer;
    QVERIFY(peer.connectTo(address));
    QCOMPARE(peer.readUntil("login: "), QByteArray("(none) login: "));
    peer.send("root\n");
    QCOMPARE(peer.readUntil("Password: "), QByteArray("root\r\nPassword: "));
    peer.send("camera\n");
    QCOMPARE(peer.readUntil("# "), QByteArray("\r\n~ # "));
    peer.send("mount\n");
    QVERIFY(peer.socket().waitForReadyRead());
    QCOMPARE(peer.socket().readAll(), QByteArray("mount\r\n~ "));
    QVERIFY(peer.socket().waitForReadyRead());
    QCOMPARE(peer.socket().readAll(), QByteArray("# "));
}

void tst_EmulatorProgram::refusedServices()
{
    EmulatorProcess emulator;
    QVERIFY(start(emulator, R"({"shell": {"fault": "refuse"}, "ftp": {"fault": "refuse"}})"));
    QCOMPARE(emulator.readyLine(), QStringLiteral("ready: 127.0.77.5 commands 9999/udp"));
    ShellPeer peer;
    QVERIFY(!peer.connectTo(address));
}

void tst_EmulatorProgram::listensOnOneAddressOnly_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QByteArray>("port"); // hexadecimal, as in the kernel's tables
    QTest::newRow("commands") << QStringLiteral("/proc/net/udp") << QByteArray("270F");
    QTest::newRow("shell") << QStringLiteral("/proc/net/tcp") << QByteArray("0017");
    QTest::newRow("FTP") << QStringLiteral("/proc/net/tcp") << QByteArray("0849");
}

void tst_EmulatorProgram::listensOnOneAddressOnly()
{
    QFETCH(QString, table);
    QFETCH(QByteArray, port);
    const auto listeners = [&table, &port] {
        QSet<QByteArray> addresses;
        const QList<QByteArray> lines = fileContent(table, {}).split('\n');
        for (const QByteArray &line : lines) {
            // proc(5): number, local address, remote address (all zero: anybody's), ...
            const QList<QByteArray> fields = line.simplified().split(' ');
            if (fields.size() > 2 && fields[1].endsWith(':' + port) && fields[2] == "00000000:0000") {
                addresses.insert(fields[1].left(8));
            }
        }
        return addresses;
    };
    const QSet<QByteArray> before = listeners();
    EmulatorProcess emulator;
    QVERIFY(start(emulator));
    QCOMPARE(listeners() - before, QSet<QByteArray>{"054D007F"}); // 127.0.77.5 in the PC's byte order
}

void tst_EmulatorProgram::leavesNothing_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void tst_EmulatorProgram::leavesNothing()
{
    QFETCH(int, signal);
    const QByteArray mountsBefore = mounts();
    EmulatorProcess emulator;
    QVERIFY(start(emulator));
    ShellPeer peer;
    QVERIFY(peer.connectTo(address));
    QVERIFY(peer.logIn());
    QVERIFY(!peer.run("mkdir /tmp/locked; chmod 0 /tmp/locked; setsid sh -c \"trap '' HUP TERM; sleep 98763\" &")
                 .isEmpty());
    QTRY_VERIFY(!processesWith("sleep 98763").isEmpty());
    QTcpSocket ftp;
    ftp.connectToHost(QHostAddress(address), 2121);
    QVERIFY(ftp.waitForReadyRead());
    QCOMPARE(mounts(), mountsBefore);

    emulator.send(signal);
    QVERIFY(emulator.waitForEnd());
    QVERIFY(emulator.endedNormally());
    QCOMPARE(emulator.exitCode(), 0);
    QCOMPARE(processesWith(m_directory->path().toUtf8()), QStringList());
    QCOMPARE(processesWith("sleep 98763"), QStringList());
    const QDir run(m_directory->filePath(QStringLiteral("run")));
    QVERIFY(run.exists());
    QVERIFY(run.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot));
    QCOMPARE(mounts(), mountsBefore);
    QVERIFY(peer.waitForDisconnected());
}

void tst_EmulatorProgram::leavesNothingWithoutAParent()
{
    const QString run = m_directory->filePath(QStringLiteral("run"));
    QProcess parent;
    parent.start(QStringLiteral("sh"),
                 {QStringLiteral("-c"), QStringLiteral("\"$0\" --address %1 --run-dir %2 & wait").arg(address, run),
                  EmulatorProcess::programPath()});
    QTRY_VERIFY_WITH_TIMEOUT(parent.canReadLine(), 30000);
    QVERIFY(parent.readLine().startsWith("ready"));
    QVERIFY(!processesWith(run.toUtf8()).isEmpty());
    parent.kill();
    QVERIFY(parent.waitForFinished());
    QTRY_COMPARE_WITH_TIMEOUT(processesWith(run.toUtf8()), QStringList(), 20000);
    QVERIFY(QDir(run).isEmpty());
}

void tst_EmulatorProgram::reboot()
{
    EmulatorProcess emulator;
    QVERIFY(start(emulator, R"({"rebootSeconds": 1})"));
    ShellPeer peer;
    QVERIFY(peer.connectTo(address));
    QVERIFY(peer.logIn());
    emulator.send(SIGUSR1);
    QVERIFY(peer.waitForDisconnected());
    CommandPeer commands(QHostAddress(address), 9999);
    QTRY_COMPARE_WITH_TIMEOUT(commands.ask(ping), pong, 20000);
    QTRY_VERIFY_WITH_TIMEOUT(peer.connectTo(address), 20000);
    QVERIFY(peer.logIn());
    QVERIFY(emulator.stop());
    QCOMPARE(emulator.exitCode(), 0);
}

void tst_EmulatorProgram::outOfRange()
{
    EmulatorProcess emulator;
    QVERIFY(start(emulator, "{}", {QStringLiteral("--no-shell"), QStringLiteral("--no-ftp")}));
    CommandPeer commands(QHostAddress(address), 9999);
    QCOMPARE(commands.ask(ping), pong);
    emulator.send(SIGUSR2);
    // The signal is handled at some time after it was sent; answers that are under way are taken up to then.
    const auto silent = [&commands] {
        commands.send(ping);
        return !commands.receive(300).isValid();
    };
    QTRY_VERIFY(silent());
    emulator.send(SIGUSR2);
    const auto answered = [&commands] {
        commands.send(ping);
        return commands.receive(300).data() == pong;
    };
    QTRY_VERIFY(answered());
}

void tst_EmulatorProgram::wrongUse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--bogus")} << QStringLiteral("bogus");
    QTest::newRow("stray argument") << QStringList{QStringLiteral("x")} << QStringLiteral("unexpected argument: x");
    QTest::newRow("no address") << QStringList{QStringLiteral("--address"), QStringLiteral("camera")}
                                << QStringLiteral("--address: must be an IPv4 address");
    QTest::newRow("port 0") << QStringList{QStringLiteral("--ftp-port"), QStringLiteral("0")}
                            << QStringLiteral("--ftp-port: must be a number from 1 to 65535");
    QTest::newRow("missing scenario") << QStringList{QStringLiteral("--scenario"), QStringLiteral("/no/such.json")}
                                      << QStringLiteral("/no/such.json: No such file or directory");
}

void tst_EmulatorProgram::wrongUse()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    EmulatorProcess emulator;
    QVERIFY(emulator.run(arguments));
    QCOMPARE(emulator.exitCode(), 2);
    const QString errors = emulator.errors();
    QVERIFY2(errors.contains(error), qUtf8Printable(errors));
}

void tst_EmulatorProgram::wrongScenario()
{
    const QString path = m_directory->filePath(QStringLiteral("wrong.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"battery": {"info": {"voltage": 70000}}})");
    file.close();
    EmulatorProcess emulator;
    QVERIFY(emulator.run({QStringLiteral("--scenario"), path}));
    QCOMPARE(emulator.exitCode(), 2);
    QCOMPARE(emulator.errors(),
             QStringLiteral("camera-emulator: %1: battery.info.voltage: must be from 0 to 65535\n").arg(path));
}

void tst_EmulatorProgram::runDirectoryInUse()
{
    EmulatorProcess emulator;
    QVERIFY(emulator.run({QStringLiteral("--address"), address, QStringLiteral("--run-dir"), m_directory->path()}));
    QCOMPARE(emulator.exitCode(), 1);
    QCOMPARE(emulator.errors(), QStringLiteral("camera-emulator: %1 is not empty\n").arg(m_directory->path()));
    QVERIFY(QDir(m_directory->path()).exists(QStringLiteral("run")));
}

void tst_EmulatorProgram::portInUse()
{
    EmulatorProcess first;
    QVERIFY(start(first));
    EmulatorProcess second;
    QVERIFY(
        second.run({QStringLiteral("--address"), address, QStringLiteral("--command-port"), QStringLiteral("9998")}));
    QCOMPARE(second.exitCode(), 1);
    QCOMPARE(second.errors(), QStringLiteral("camera-emulator: cannot listen on TCP port 23 of 127.0.77.5: Address "
                                             "already in use\n"));
}

void tst_EmulatorProgram::noRightForThePort()
{
    if (geteuid() != 0) {
        QSKIP("takes root to start it as somebody who is not");
    }
    QProcess process;
    process.start(QStringLiteral("setpriv"),
                  {QStringLiteral("--bounding-set"), QStringLiteral("-net_bind_service"), QStringLiteral("--inh-caps"),
                   QStringLiteral("-net_bind_service"), EmulatorProcess::programPath(), QStringLiteral("--address"),
                   address, QStringLiteral("--no-ftp")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    const QString errors = QString::fromUtf8(process.readAllStandardError());
    for (const char *part : {"cannot listen on TCP port 23 of 127.0.77.5: Permission denied", "run it as root",
                             "unshare -r -n", "net.ipv4.ip_unprivileged_port_start=23"}) {
        QVERIFY2(errors.contains(QLatin1String(part)), qUtf8Printable(errors));
    }
}

QTEST_GUILESS_MAIN(tst_EmulatorProgram)
#include "tst_EmulatorProgram.moc"
