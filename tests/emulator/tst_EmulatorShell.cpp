#include "support/EmulatorProcess.h"
#include "support/fileContent.h"
#include "support/processesWith.h"
#include "support/ShellPeer.h"

#include <csignal>
#include <QtTest>

namespace {
const QString address = QStringLiteral("127.0.77.2");

/// A file of the PC that the shell must neither see nor change.
const QByteArray secret = "only for the PC\n";
} // namespace

/// The shell, end to end: the real telnetd, login and ash.
class tst_EmulatorShell : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void prompts();
    void wrongPassword();
    void output_data();
    void output();
    void sizesOfTheTrees();
    void hostFilesStayUnseen();
    void hostFilesStayUntouched_data();
    void hostFilesStayUntouched();
    void hostProcessesStayAlive();
    void noWayOut_data();
    void noWayOut();
    void systemFilesAreReadOnly();
    void sessionEndsWithItsConnection();
    void sessionsAtTheSameTime();

protected:
    /// Starts the emulated camera with nothing but its shell, and its commands.
    virtual bool startEmulator(EmulatorProcess &emulator, const QString &ownAddress)
    {
        return emulator.start({QStringLiteral("--address"), ownAddress, QStringLiteral("--no-ftp")});
    }

private:
    EmulatorProcess m_emulator;
    ShellPeer m_peer;
};

/// The same where the system grants neither namespaces nor mounts, as many containers do.
class ShellWithoutNamespacesTest : public tst_EmulatorShell
{
    Q_OBJECT

protected:
    bool startEmulator(EmulatorProcess &emulator, const QString &ownAddress) override
    {
        return emulator.start({QStringLiteral("--address"), ownAddress, QStringLiteral("--no-ftp")},
                              QStringLiteral("setpriv"),
                              {QStringLiteral("--bounding-set=-sys_admin,-mknod,-sys_ptrace")});
    }
};

void tst_EmulatorShell::initTestCase()
{
    QVERIFY(startEmulator(m_emulator, address));
    QCOMPARE(m_emulator.readyLine(), QStringLiteral("ready: 127.0.77.2 commands 9999/udp, shell 23/tcp"));
}

void tst_EmulatorShell::init()
{
    QVERIFY(m_peer.connectTo(address));
}

void tst_EmulatorShell::cleanupTestCase()
{
    QVERIFY(m_emulator.stop());
    QCOMPARE(m_emulator.exitCode(), 0);
}

void tst_EmulatorShell::prompts()
{
    QVERIFY(m_peer.readUntil("(none) login: ").endsWith("\n(none) login: "));
    m_peer.send("root\n");
    QCOMPARE(m_peer.readUntil("Password: "), QByteArray("root\r\nPassword: "));
    m_peer.send("camera\n");
    QVERIFY(m_peer.readUntil("~ # \033[6n").endsWith("\n~ # \033[6n"));
}

void tst_EmulatorShell::wrongPassword()
{
    QVERIFY(!m_peer.readUntil("(none) login: ").isEmpty());
    m_peer.send("root\n");
    QVERIFY(!m_peer.readUntil("Password: ").isEmpty());
    m_peer.send("wrong\n");
    QVERIFY(!m_peer.readUntil("Login incorrect").isEmpty());
}

void tst_EmulatorShell::output_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const char *command, const char *expected) {
        QTest::newRow(name) << QByteArray(command) << QByteArray(expected);
    };
    row("mounted card", "mount", "/dev/mmcblk0p1 on /mnt/sdcard");
    row("card controller", "cat /proc/mci/mci_info", "Speed mode: UHS SDR104\r\n");
    row("WiFi name", "cat /data/netconf/hostapd.conf", "\r\nssid=Camera-5F2A\r\n");
    row("WiFi passphrase", "cat /data/netconf/hostapd.conf", "\r\nwpa_passphrase=12345678\r\n");
    row("MAC address", "cat /data/netconf/mac_addr", "\r\n60:60:1f:0a:5f:2a\r\n");
    row("version", "cat /etc/kest_version", "\r\nfirmware: 01.00.0312\r\n");
    row("process tree", "pstree && ps", "init-+-camera_service");
    row("process list", "pstree && ps", "PID   USER     TIME   COMMAND\r\n");
    row("kernel messages", "dmesg", "mmcblk0: mmc0:59b4 SD32G 29.7 GiB\r\n");
    row("interfaces", "ifconfig -a", "HWaddr 60:60:1f:0a:5f:2a\r\n");
    row("WiFi scan", "iw dev ap0 scan", "SSID: workshop-5g\r\n");
    row("user", "id", "uid=0(root)");
    row("archive", "tar -zcvf /tmp/archive/p.tar.gz /data/private && tar -ztf /tmp/archive/p.tar.gz",
        "data/private/calibration/镜头 校准.dat\r\n");
    row("null device", "echo lost > /dev/null; echo kept", "\r\nkept\r\n");
    row("exit code", "false; echo result $?", "\r\nresult 1\r\n");
}

void tst_EmulatorShell::output()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, expected);
    QVERIFY(m_peer.logIn());
    const QByteArray output = m_peer.run(command);
    QVERIFY2(output.contains(expected), output.constData());
}

void tst_EmulatorShell::sizesOfTheTrees()
{
    QVERIFY(m_peer.logIn());
    const QByteArray output = m_peer.run("find /data/log -type f | xargs cat | wc -c");
    QVERIFY2(output.contains("\r\n3145728\r\n"), output.constData());
}

void tst_EmulatorShell::hostFilesStayUnseen()
{
    QTemporaryFile file(QDir::currentPath() + QStringLiteral("/unseen-XXXXXX"));
    QVERIFY(file.open());
    file.write(secret);
    file.flush();
    QVERIFY(QFile::setPermissions(file.fileName(), QFile::Permissions(0x6666)));
    QVERIFY(m_peer.logIn());
    for (const QByteArray &way : {QByteArray(), QByteArray("/../../../../../.."), QByteArray("/proc/1/root"),
                                  QByteArray("/proc/self/root"), QByteArray("/proc/self/cwd")}) {
        const QByteArray output = m_peer.run("cat '" + way + file.fileName().toUtf8() + "'; echo done");
        QVERIFY2(output.contains("\r\ndone\r\n"), output.constData());
        QVERIFY2(!output.contains(secret.trimmed()), output.constData());
    }
}

void tst_EmulatorShell::hostFilesStayUntouched_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("written") << QByteArray("echo x > '%1'; echo done");
    QTest::newRow("removed") << QByteArray("rm -rf '%1'; echo done");
    QTest::newRow("everything removed") << QByteArray("rm -rf /data /tmp/* /* 2>/dev/null; echo done");
    QTest::newRow("reached through a link") << QByteArray("ln -s '%1' /tmp/l; echo x > /tmp/l; echo done");
}

void tst_EmulatorShell::hostFilesStayUntouched()
{
    QFETCH(QByteArray, command);
    EmulatorProcess own; // whose files may be lost
    const QString ownAddress = QStringLiteral("127.0.77.3");
    QVERIFY(startEmulator(own, ownAddress));
    QTemporaryFile file(QDir::currentPath() + QStringLiteral("/untouched-XXXXXX"));
    QVERIFY(file.open());
    file.write(secret);
    file.flush();
    QVERIFY(QFile::setPermissions(file.fileName(), QFile::Permissions(0x6666)));

    ShellPeer peer;
    QVERIFY(peer.connectTo(ownAddress));
    QVERIFY(peer.logIn());
    peer.send(command.replace("%1", file.fileName().toUtf8()) + '\n');
    QVERIFY(!peer.readUntil("\r\ndone\r\n").isEmpty());

    QCOMPARE(fileContent(file.fileName()), secret);
    QVERIFY(own.stop());
}

void tst_EmulatorShell::hostProcessesStayAlive()
{
    QVERIFY(m_peer.logIn());
    const QByteArray self = QByteArray::number(QCoreApplication::applicationPid());
    const QByteArray emulator = QByteArray::number(m_emulator.pid());
    const QByteArray output = m_peer.run("for p in 1 " + self + ' ' + emulator + "; do kill -9 $p; done; echo done");
    QVERIFY2(output.contains("\r\ndone\r\n"), output.constData());
    QCOMPARE(::kill(static_cast<pid_t>(m_emulator.pid()), 0), 0);
    QVERIFY(m_peer.connectTo(address));
    QVERIFY(m_peer.logIn());
}

void tst_EmulatorShell::noWayOut_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("refusal");
    const auto row = [](const char *name, const char *command, const char *refusal) {
        QTest::newRow(name) << QByteArray(command) << QByteArray(refusal);
    };
    row("another root", "busybox chroot /tmp ls", "Operation not permitted");
    row("a user namespace", "busybox unshare -r id", "Operation not permitted");
    row("a process namespace", "busybox unshare -p id", "Operation not permitted");
    row("a mount", "busybox mount -t proc proc /proc", "permission denied");
    row("a network connection", "busybox nc -w 1 127.0.77.2 23 </dev/null", "Operation not permitted");
    row("a device", "busybox mknod /tmp/disk b 8 0", "Operation not permitted");
}

void tst_EmulatorShell::noWayOut()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, refusal);
    QVERIFY(m_peer.logIn());
    const QByteArray output = m_peer.run(command + " && echo 'got'out");
    QVERIFY2(!output.contains("gotout"), output.constData());
    QVERIFY2(output.contains(refusal), output.constData());
}

void tst_EmulatorShell::systemFilesAreReadOnly()
{
    if (geteuid() != 0) {
        QSKIP("an ordinary user has only himself to give to the shell");
    }
    QVERIFY(m_peer.logIn());
    const QByteArray output = m_peer.run("for f in /bin/busybox /etc/passwd /bin/new; do echo x > $f; done; echo done");
    QCOMPARE(output.count("Permission denied"), 3);
}

void tst_EmulatorShell::sessionEndsWithItsConnection()
{
    QVERIFY(m_peer.logIn());
    m_peer.run("setsid sh -c \"trap '' HUP TERM; sleep 98761\" &");
    m_peer.send("trap '' HUP; sleep 98762\n");
    QTRY_VERIFY(!processesWith("sleep 98761").isEmpty());
    QTRY_VERIFY(!processesWith("sleep 98762").isEmpty());
    m_peer.socket().abort();
    QTRY_COMPARE_WITH_TIMEOUT(processesWith("sleep 98761"), QStringList(), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(processesWith("sleep 98762"), QStringList(), 20000);
}

void tst_EmulatorShell::sessionsAtTheSameTime()
{
    QVERIFY(m_peer.logIn());
    ShellPeer second;
    QVERIFY(second.connectTo(address));
    QVERIFY(second.logIn());
    QVERIFY(m_peer.run("echo one > /tmp/shared; echo done").contains("\r\ndone\r\n"));
    QVERIFY(second.run("cat /tmp/shared").contains("\r\none\r\n"));
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    tst_EmulatorShell test;
    ShellWithoutNamespacesTest testWithoutNamespaces;
    const int failed = QTest::qExec(&test, argc, argv);
    // Only root can have rights to give away: an ordinary user's shell is in a user namespace or not at all.
    const bool isRoot = geteuid() == 0;
    return failed + (isRoot ? QTest::qExec(&testWithoutNamespaces, argc, argv) : 0);
}
#include "tst_EmulatorShell.moc"
