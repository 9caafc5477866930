#include "telnet/engine/KestTelnet.h"
#include "telnet/engine/KestTelnetPrivate.h"

#include <memory>
#include <QHostAddress>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>
#include <sys/socket.h>

namespace {
constexpr char opening[] = "\xFF\xFB\x25\xFF\xFD\x03\xFF\xFB\x22\xFF\xFD\x05";
constexpr int waitMs = 10000; // a bound against a hang

/// A telnet server on the loopback interface that says what the test tells it to.
struct Server
{
    QTcpServer listener;
    std::unique_ptr<QTcpSocket> peer; ///< the newest connection
    QByteArray received;              ///< on it, so far

    Server() { listener.listen(QHostAddress(QHostAddress::LocalHost), 0); }

    bool accept()
    {
        if (!listener.hasPendingConnections() &&
            !QTest::qWaitFor([this] { return listener.hasPendingConnections(); }, waitMs)) {
            return false;
        }
        peer.reset(listener.nextPendingConnection());
        peer->setParent(nullptr);
        received.clear();
        return true;
    }

    /// Waits for `count` bytes altogether.
    QByteArray receive(int count)
    {
        static_cast<void>(QTest::qWaitFor(
            [this, count] {
                received += peer->readAll();
                return received.size() >= count;
            },
            waitMs));
        return received;
    }
};

/// An engine, and all that it reports.
struct Client
{
    KestTelnet telnet;
    QSignalSpy messages{&telnet, &KestTelnet::message};
    QSignalSpy loggedOut{&telnet, &KestTelnet::loggedOut};
    QSignalSpy errors{&telnet, &KestTelnet::connectionError};

    void connectTo(const Server &server)
    {
        telnet.connectToHost(QStringLiteral("127.0.0.1"), server.listener.serverPort());
    }

    QString text() const
    {
        QString all;
        for (const QList<QVariant> &message : messages) {
            all += message.first().toString();
        }
        return all;
    }
};

/// Says one byte as TCP urgent data.
bool sendUrgent(const QTcpSocket &socket, char byte)
{
    return ::send(static_cast<int>(socket.socketDescriptor()), &byte, 1, MSG_OOB | MSG_NOSIGNAL) == 1;
}
} // namespace

class tst_KestTelnetConnection : public QObject
{
    Q_OBJECT

private slots:
    void openingOptionsAndTextCrossTheNetwork();
    void connectingWhileConnectedDoesNothing();
    void connectingGivesUpAttemptUnderWay();
    void refusedConnectionIsReported();
    void peerClosingEndsSession();
    void lastWordsOfPeerAreDelivered();
    void closeSendsWhatWasWritten();
    void reconnectsAtOnceWhilePeerDoesNotRead();
    void nextSessionKeepsStateOfTheFirst();
    void stallEndsWithConnection();
    void wontLogoutClosesConnection();
    void synchIsUrgentData_data();
    void synchIsUrgentData();
    void urgentDataOfServerDoesNotKeepNotifierBusy();
    void inputDuringNestedEventLoopIsRead();
    void engineMayBeDestroyedWhileConnected();
    void manyMebibytesOfTextArrive();
};

void tst_KestTelnetConnection::openingOptionsAndTextCrossTheNetwork()
{
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12), QByteArray(opening));
    client.telnet.sendData(QStringLiteral("ls\n"));
    QCOMPARE(server.receive(15), opening + QByteArray("ls\n"));
    server.peer->write("bin\r\n~ # ");
    QTRY_COMPARE_WITH_TIMEOUT(client.text(), QStringLiteral("bin\r\n~ # "), waitMs);
    QCOMPARE(client.errors.count(), 0);
    QCOMPARE(client.loggedOut.count(), 0);
}

void tst_KestTelnetConnection::connectingWhileConnectedDoesNothing()
{
    Server first;
    Server second;
    Client client;
    client.connectTo(first);
    QVERIFY(first.accept());
    QCOMPARE(first.receive(12).size(), 12);
    client.connectTo(second);
    client.telnet.sendData(QStringLiteral("a"));
    QCOMPARE(first.receive(13), opening + QByteArray("a"));
    QVERIFY(!second.listener.hasPendingConnections());
}

void tst_KestTelnetConnection::connectingGivesUpAttemptUnderWay()
{
    Server first;
    Server second;
    Client client;
    client.connectTo(first);
    client.connectTo(second);
    QVERIFY(second.accept());
    QCOMPARE(second.receive(12), QByteArray(opening));
    QCOMPARE(client.errors.count(), 0);
    QCOMPARE(client.loggedOut.count(), 0);
}

void tst_KestTelnetConnection::refusedConnectionIsReported()
{
    Server server;
    const quint16 port = server.listener.serverPort();
    server.listener.close();
    Client client;
    client.telnet.connectToHost(QStringLiteral("127.0.0.1"), port);
    QTRY_COMPARE_WITH_TIMEOUT(client.errors.count(), 1, waitMs);
    QCOMPARE(client.errors.first().first().value<QAbstractSocket::SocketError>(),
             QAbstractSocket::ConnectionRefusedError);
    QCOMPARE(client.loggedOut.count(), 0);
}

void tst_KestTelnetConnection::peerClosingEndsSession()
{
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12).size(), 12);
    server.peer->close();
    QTRY_COMPARE_WITH_TIMEOUT(client.loggedOut.count(), 1, waitMs);
    QCOMPARE(client.errors.count(), 1);
    QCOMPARE(client.errors.first().first().value<QAbstractSocket::SocketError>(),
             QAbstractSocket::RemoteHostClosedError);
    client.telnet.close();
    QCOMPARE(client.loggedOut.count(), 1);
}

void tst_KestTelnetConnection::lastWordsOfPeerAreDelivered()
{
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12).size(), 12);
    server.peer->write("bye");
    server.peer->close();
    QTRY_COMPARE_WITH_TIMEOUT(client.loggedOut.count(), 1, waitMs);
    QCOMPARE(client.text(), QStringLiteral("bye"));
}

void tst_KestTelnetConnection::closeSendsWhatWasWritten()
{
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12).size(), 12);
    client.telnet.sendData(QStringLiteral("exit\n"));
    client.telnet.close();
    QCOMPARE(client.loggedOut.count(), 1);
    QCOMPARE(server.receive(17), opening + QByteArray("exit\n"));
    QTest::qWait(0);
    QCOMPARE(client.loggedOut.count(), 1);
}

void tst_KestTelnetConnection::reconnectsAtOnceWhilePeerDoesNotRead()
{
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12).size(), 12);
    server.peer->setReadBufferSize(1);
    // More than the network takes in, so that a part of it is left when the connection is closed.
    client.telnet.sendData(QString(64 << 20, QLatin1Char('x')));
    client.telnet.close();
    QCOMPARE(client.loggedOut.count(), 1);
    client.connectTo(server);
    QVERIFY(server.accept());
    client.telnet.sendData(QStringLiteral("a"));
    QTRY_VERIFY_WITH_TIMEOUT(client.telnet.socket()->state() == QAbstractSocket::ConnectedState, waitMs);
    client.telnet.sendData(QStringLiteral("b"));
    // The options of the first session are unanswered still, and so they are not sent again.
    QVERIFY(server.receive(1).endsWith('b'));
    QCOMPARE(client.loggedOut.count(), 1);
    QCOMPARE(client.errors.count(), 0);
}

void tst_KestTelnetConnection::nextSessionKeepsStateOfTheFirst()
{
    Server server;
    Client client;
    client.telnet.login(QStringLiteral("root\n"), QStringLiteral("secret\n"));
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12), QByteArray(opening));
    // Enables TERMINAL-TYPE, settles authentication, asks for a name.
    server.peer->write("\xFF\xFD\x18\xFF\xFE\x25login: ");
    QCOMPARE(server.receive(20), opening + QByteArray("\xFF\xFB\x18root\n"));
    client.telnet.close();

    client.connectTo(server);
    QVERIFY(server.accept());
    // TERMINAL-TYPE is enabled still: no answer. The name has been sent: no other one.
    server.peer->write("\xFF\xFD\x18login: ");
    QTRY_COMPARE_WITH_TIMEOUT(client.text(), QStringLiteral("login: login: "), waitMs);
    client.telnet.sendData(QStringLiteral("."));
    // The first session's options are unanswered still, and so they are not sent again.
    QCOMPARE(server.receive(1), QByteArray("."));
    client.telnet.close();

    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12), QByteArray(opening));
}

void tst_KestTelnetConnection::stallEndsWithConnection()
{
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    server.peer->write(QByteArrayLiteral("a\0\xFF\xF1"
                                         "b"));
    QTRY_COMPARE_WITH_TIMEOUT(client.text(), QStringLiteral("a"), waitMs);
    client.telnet.close();
    client.connectTo(server);
    QVERIFY(server.accept());
    server.peer->write("c");
    QTRY_COMPARE_WITH_TIMEOUT(client.text(), QStringLiteral("ac"), waitMs);
}

void tst_KestTelnetConnection::wontLogoutClosesConnection()
{
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12).size(), 12);
    QSignalSpy closed(server.peer.get(), &QTcpSocket::disconnected);
    server.peer->write("\xFF\xFC\x12");
    QTRY_COMPARE_WITH_TIMEOUT(closed.count(), 1, waitMs);
    QCOMPARE(client.loggedOut.count(), 1);
}

void tst_KestTelnetConnection::synchIsUrgentData_data()
{
    QTest::addColumn<int>("control");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<bool>("synch");
    QTest::newRow("interrupt process") << int(KestTelnet::InterruptProcess) << QByteArray("\xFF\xF4") << true;
    QTest::newRow("are you there") << int(KestTelnet::AreYouThere) << QByteArray("\xFF\xF6") << true;
    QTest::newRow("abort output") << int(KestTelnet::AbortOutput) << QByteArray("\xFF\xF5") << true;
    QTest::newRow("the Synch alone") << -1 << QByteArray() << true;
    QTest::newRow("no Synch with break") << int(KestTelnet::Break) << QByteArray("\xFF\xF3") << false;
}

void tst_KestTelnetConnection::synchIsUrgentData()
{
    QFETCH(int, control);
    QFETCH(QByteArray, command);
    QFETCH(bool, synch);
    Server server;
    Client client;
    client.connectTo(server);
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12).size(), 12);

    // Qt mixes urgent data into the stream; here it is to be told apart.
    const auto descriptor = static_cast<int>(server.peer->socketDescriptor());
    const int off = 0;
    QCOMPARE(::setsockopt(descriptor, SOL_SOCKET, SO_OOBINLINE, &off, sizeof off), 0);
    client.telnet.sendData(QStringLiteral("a"));
    if (control < 0) {
        client.telnet.sendSync();
    } else {
        client.telnet.sendControl(static_cast<KestTelnet::Control>(control));
    }
    char urgent = 0;
    const auto takeUrgent = [descriptor, &urgent] {
        return ::recv(descriptor, &urgent, 1, MSG_OOB | MSG_DONTWAIT) == 1;
    };
    if (synch) {
        QVERIFY(QTest::qWaitFor(takeUrgent, waitMs));
        QCOMPARE(urgent, '\xF2');
    }
    client.telnet.sendData(QStringLiteral("b"));
    const QByteArray stream = opening + QByteArray("a") + command + "b";
    QCOMPARE(server.receive(stream.size()), stream);
    QVERIFY(!takeUrgent());
}

void tst_KestTelnetConnection::urgentDataOfServerDoesNotKeepNotifierBusy()
{
    Server server;
    KestTelnet telnet;
    KestTelnetPrivate engine(&telnet);
    QSignalSpy messages(&telnet, &KestTelnet::message);
    engine.connectToHost(QStringLiteral("127.0.0.1"), server.listener.serverPort());
    QVERIFY(server.accept());
    QTRY_VERIFY_WITH_TIMEOUT(engine.exceptionNotifier != nullptr, waitMs);
    int activations = 0;
    connect(engine.exceptionNotifier.get(), &QSocketNotifier::activated, this, [&activations] { ++activations; });

    QVERIFY(sendUrgent(*server.peer, '\xF2'));
    QTRY_VERIFY_WITH_TIMEOUT(activations > 0, waitMs);
    for (int pass = 0; pass < 100; ++pass) {
        QCoreApplication::processEvents();
    }
    QCOMPARE(activations, 1);
    server.peer->write("a");
    QTRY_COMPARE_WITH_TIMEOUT(messages.count(), 1, waitMs);
    QCOMPARE(messages.first().first().toString(), QStringLiteral("a"));
}

void tst_KestTelnetConnection::inputDuringNestedEventLoopIsRead()
{
    Server server;
    Client client;
    bool nested = false;
    connect(&client.telnet, &KestTelnet::message, this, [&server, &client, &nested] {
        if (!nested) {
            nested = true;
            server.peer->write("b");
            // The socket takes it in, but reports nothing before the handler has returned.
            QVERIFY(QTest::qWaitFor([&client] { return client.telnet.socket()->bytesAvailable() > 0; }, waitMs));
        }
    });
    client.connectTo(server);
    QVERIFY(server.accept());
    server.peer->write("a");
    QTRY_COMPARE_WITH_TIMEOUT(client.text(), QStringLiteral("ab"), waitMs);
}

void tst_KestTelnetConnection::engineMayBeDestroyedWhileConnected()
{
    Server server;
    auto telnet = std::make_unique<KestTelnet>();
    telnet->connectToHost(QStringLiteral("127.0.0.1"), server.listener.serverPort());
    QVERIFY(server.accept());
    QCOMPARE(server.receive(12).size(), 12);
    QSignalSpy closed(server.peer.get(), &QTcpSocket::disconnected);
    telnet.reset();
    QTRY_COMPARE_WITH_TIMEOUT(closed.count(), 1, waitMs);
}

void tst_KestTelnetConnection::manyMebibytesOfTextArrive()
{
    Server server;
    KestTelnet telnet;
    qint64 characters = 0;
    connect(&telnet, &KestTelnet::message, this, [&characters](const QString &text) { characters += text.size(); });
    telnet.connectToHost(QStringLiteral("127.0.0.1"), server.listener.serverPort());
    QVERIFY(server.accept());
    server.peer->write("\xFF\xFE\x25"); // prompts are looked for in all of it
    const QByteArray line("Jan  1 00:00:01 camera user.info: login: no prompt\r\n");
    server.peer->write(line.repeated(200000));
    QTRY_COMPARE_WITH_TIMEOUT(characters, qint64(200000) * line.size(), 60000);
}

QTEST_GUILESS_MAIN(tst_KestTelnetConnection)

#include "tst_KestTelnetConnection.moc"
