#include "camera/codec/KestDataPacket.h"
#include "DatagramPeer.h"
#include "OwnClient.h"
#include "support/MessageSpy.h"
#include "support/onWorkerThread.h"

#include <csignal>
#include <memory>
#include <QtTest>
#include <sys/wait.h>
#include <unistd.h>

using emulator::Frame;

namespace {
/// A reply to `ReadEEPROM` of `length` bytes in all, whose count and checksum fit: bytes 'e' from the EEPROM. Its
/// length field holds what 12 bits can hold of `length`.
QByteArray eepromReply(int length)
{
    constexpr int beforeTheBlock = 15; // header, result code, count
    const int count = length - beforeTheBlock;
    QByteArray frame = QByteArray::fromHex("aa0000010001000000166021") + QByteArray(3, '\0') + QByteArray(count, 'e');
    frame[1] = static_cast<char>(length >> 8 & 0x0F);
    frame[2] = static_cast<char>(length & 0xFF);
    frame[13] = static_cast<char>(count & 0xFF);
    frame[14] = static_cast<char>(count >> 8 & 0xFF);
    const quint16 checksum = emulator::frameChecksum(frame);
    frame[6] = static_cast<char>(checksum >> 8);
    frame[7] = static_cast<char>(checksum & 0xFF);
    return frame;
}
} // namespace

/// The UDP end of the command protocol: what is sent, and which datagrams count as replies.
class tst_UDPTransciever : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void sendsCarrySequenceNumbers();
    void numbersBeginAnewAfterTheLast();
    void longestFrameIsSent();
    void tooLongFrameAborts();
    void whatIsNoReplyIsIgnored_data();
    void whatIsNoReplyIsIgnored();
    void onlyWhatARecordHoldsIsAReply_data();
    void onlyWhatARecordHoldsIsAReply();
    void replyFromAnotherPortIsIgnored();
    void senderWhoseTextContainsThePeerIsAccepted();
    void peerStaysWhenTheCameraAddressChanges();
    void garbageAndFloodAreSurvived();
    void concurrentSendsDoNotMix();
    void takenPortIsReported();
    void killThreadTwice();

private:
    static KestDataPacket ping();

    int pingFromAWorker();

    std::unique_ptr<DatagramPeer> m_peer;
    std::unique_ptr<OwnClient> m_client;
};

void tst_UDPTransciever::init()
{
    m_peer = std::make_unique<DatagramPeer>();
    QVERIFY(m_peer->isListening());
    m_client = std::make_unique<OwnClient>();
}

void tst_UDPTransciever::cleanup()
{
    m_client.reset();
    m_peer.reset();
}

KestDataPacket tst_UDPTransciever::ping()
{
    KestDataPacket packet;
    packet.len = 12;
    packet.sender = 6;
    packet.receiver = 1;
    packet.cmdSet = 6;
    packet.cmdId = 0x22;
    return packet;
}

int tst_UDPTransciever::pingFromAWorker()
{
    return onWorkerThread([this] { return m_client->camera.Ping(); });
}

void tst_UDPTransciever::sendsCarrySequenceNumbers()
{
    KestDataPacket packet = ping();
    for (const int number : {1, 2, 3}) {
        QCOMPARE(m_client->transciever.sendPacket(packet), 12);
        QCOMPARE(int{packet.seq}, number);
    }
    QTRY_COMPARE(m_peer->datagrams().size(), 3);
    QCOMPARE(m_peer->datagrams().at(0), QByteArray::fromHex("aa000c120001bcfd00616022"));
    QCOMPARE(m_peer->datagrams().at(1), QByteArray::fromHex("aa000c120002bcce00616022"));
    QCOMPARE(m_peer->datagrams().at(2), QByteArray::fromHex("aa000c1200037cde00616022"));
}

void tst_UDPTransciever::numbersBeginAnewAfterTheLast()
{
    KestDataPacket packet = ping();
    {
        // Whoever sends, all frames of the program are numbered together: these go where nobody listens.
        OwnClient elsewhere(QStringLiteral("127.0.0.11"), 7778);
        while (packet.seq != 65533) {
            QCOMPARE(elsewhere.transciever.sendPacket(packet), 12);
        }
    }
    for (const int number : {65534, 65535, 0, 1}) {
        QCOMPARE(m_client->transciever.sendPacket(packet), 12);
        QCOMPARE(int{packet.seq}, number);
    }
    QTRY_COMPARE(m_peer->datagrams().size(), 4);
    QList<int> numbers;
    const QList<Frame> requests = m_peer->requests();
    for (const Frame &frame : requests) {
        numbers.append(frame.sequence);
    }
    QCOMPARE(numbers, QList<int>({65534, 65535, 0, 1}));
}

void tst_UDPTransciever::longestFrameIsSent()
{
    KestDataPacket packet = ping();
    packet.len = 1023;
    packet.data.fill(0x5A);
    QCOMPARE(m_client->transciever.sendPacket(packet), 1023);
    QTRY_COMPARE(m_peer->requests().size(), 1);
    QCOMPARE(m_peer->requests().constFirst().payload, QByteArray(1011, '\x5A'));
}

void tst_UDPTransciever::tooLongFrameAborts()
{
    int output[2] = {-1, -1};
    QVERIFY(pipe(output) == 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(output[1], STDERR_FILENO);
        std::signal(SIGABRT, SIG_DFL);
        KestDataPacket packet = ping();
        packet.len = 1024;
        m_client->transciever.sendPacket(packet);
        _exit(0);
    }
    close(output[1]);
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QFile pipeEnd;
    QVERIFY(pipeEnd.open(output[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    const QByteArray text = pipeEnd.readAll();
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGABRT);
    QCOMPARE(text, QByteArray("camera/UDPTransciever.cpp: sendPacket: Assertion `packet.len < 1024' failed.\n"));
}

void tst_UDPTransciever::whatIsNoReplyIsIgnored_data()
{
    QTest::addColumn<QByteArray>("datagram");

    // Each but the last would complete the ping with the code 9.
    QTest::newRow("bad checksum") << QByteArray::fromHex("aa000d010001ecd40016602209");
    QTest::newRow("request flag") << emulator::encodeFrame({0, 0x12, 1, 0, 1, 6, 6, 0x22, QByteArray("\x09")});
    QTest::newRow("command set 7") << emulator::encodeFrame({0, 1, 1, 0, 1, 6, 7, 0x22, QByteArray("\x09")});
    QTest::newRow("command that nobody sends")
        << emulator::encodeFrame({0, 1, 1, 0, 1, 6, 6, 0x23, QByteArray("\x09")});
    QTest::newRow("longer than its header says")
        << emulator::encodeFrame({0, 1, 1, 0, 1, 6, 6, 0x22, QByteArray("\x09")}) + QByteArray(1, '\0');
    QTest::newRow("no result byte") << emulator::encodeFrame({0, 1, 1, 0, 1, 6, 6, 0x22, QByteArray()});
    QTest::newRow("empty datagram") << QByteArray("");
    QTest::newRow("shorter than a header") << QByteArray::fromHex("aa000d");
}

void tst_UDPTransciever::whatIsNoReplyIsIgnored()
{
    QFETCH(QByteArray, datagram);
    m_peer->onRequest = [&](const Frame &request) {
        m_peer->send(datagram);
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray("\x05"))));
    };
    QCOMPARE(pingFromAWorker(), 5);
}

void tst_UDPTransciever::onlyWhatARecordHoldsIsAReply_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("overTheSocket");
    QTest::addColumn<int>("bytesRead");

    struct Row
    {
        const char *name;
        int length;
        int bytesRead;
    };
    // Where the long frame is no reply, the one byte of the frame after it is what was read.
    for (const Row &row : {Row{"longest frame", 1023, 1008}, Row{"one byte too long", 1024, 1},
                           Row{"payload of 1024", 1036, 1}, Row{"longest that the length field can say", 4095, 1},
                           Row{"longer than the length field can say", 4096, 1}, Row{"longest datagram", 65507, 1}}) {
        QTest::addRow("%s, over the socket", row.name) << row.length << true << row.bytesRead;
        QTest::addRow("%s, directly", row.name) << row.length << false << row.bytesRead;
    }
}

void tst_UDPTransciever::onlyWhatARecordHoldsIsAReply()
{
    QFETCH(int, length);
    QFETCH(bool, overTheSocket);
    QFETCH(int, bytesRead);
    m_peer->onRequest = [&](const Frame &) {
        for (QByteArray frame : {eepromReply(length), eepromReply(16)}) {
            if (overTheSocket) {
                m_peer->send(frame);
            } else {
                m_client->transciever.handleDatagram(reinterpret_cast<std::uint8_t *>(frame.data()), frame.size());
            }
            if (bytesRead > 1) {
                break; // the long one is the answer
            }
        }
    };
    EEPromBuf buffer;
    QCOMPARE(onWorkerThread([&] { return m_client->camera.ReadEEPROM(0, 1, &buffer); }), 0);
    QCOMPARE(buffer.length(), bytesRead);
    const QByteArray read(reinterpret_cast<const char *>(buffer.data()), buffer.length());
    QCOMPARE(read, QByteArray(bytesRead, 'e'));
}

void tst_UDPTransciever::replyFromAnotherPortIsIgnored()
{
    DatagramPeer other(9998);
    QVERIFY(other.isListening());
    m_peer->onRequest = [&](const Frame &request) {
        other.send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray("\x09"))));
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray("\x05"))));
    };
    QCOMPARE(pingFromAWorker(), 5);
}

void tst_UDPTransciever::senderWhoseTextContainsThePeerIsAccepted()
{
    // "127.0.0.10" contains "127.0.0.1", as an IPv4-mapped IPv6 text contains the IPv4 text.
    KestDetectorFace::Get()->cameraAddress = QStringLiteral("127.0.0.1");
    const UDPTransciever other(nullptr, {7778, 9999, "192.168.88.10"},
                               [this](const Reply &reply) { m_client->camera.handleReply(reply); });
    m_peer->onRequest = [&](const Frame &request) {
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray("\x06"))), 7778);
    };
    QCOMPARE(pingFromAWorker(), 6);
}

void tst_UDPTransciever::peerStaysWhenTheCameraAddressChanges()
{
    KestDetectorFace::Get()->cameraAddress = QStringLiteral("127.0.0.99");
    m_peer->onRequest = [&](const Frame &request) {
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray(1, '\0'))));
    };
    QCOMPARE(pingFromAWorker(), 0);
}

void tst_UDPTransciever::garbageAndFloodAreSurvived()
{
    m_peer->onRequest = [&](const Frame &request) {
        for (int count = 0; count < 50; ++count) {
            m_peer->send(QByteArray(65507, '\xAA'));
            m_peer->send(QByteArray(count, '\0'));
        }
        QTimer::singleShot(50, m_peer.get(), [this, request] {
            m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray(1, '\0'))));
        });
    };
    QCOMPARE(pingFromAWorker(), 0);
}

void tst_UDPTransciever::concurrentSendsDoNotMix()
{
    constexpr int sends = 100; // both together fit into the peer's receive buffer
    const auto sender = [this](std::uint16_t id) {
        KestDataPacket packet = ping();
        packet.cmdId = id;
        packet.len = 112;
        std::fill_n(packet.data.begin(), 100, static_cast<std::uint8_t>(id));
        for (int count = 0; count < sends; ++count) {
            m_client->transciever.sendPacket(packet);
        }
    };
    std::thread first(sender, std::uint16_t{0x31});
    std::thread second(sender, std::uint16_t{0x32});
    first.join();
    second.join();
    QTRY_COMPARE(m_peer->datagrams().size(), 2 * sends);
    QSet<int> numbers;
    const QList<Frame> requests = m_peer->requests();
    for (const Frame &frame : requests) {
        numbers.insert(frame.sequence);
        QCOMPARE(frame.payload, QByteArray(100, static_cast<char>(frame.commandId)));
    }
    QCOMPARE(numbers.size(), 2 * sends);
}

void tst_UDPTransciever::takenPortIsReported()
{
    QUdpSocket owner;
    QVERIFY(owner.bind(QHostAddress::Any, 7779, QAbstractSocket::DontShareAddress));
    const MessageSpy spy;
    UDPTransciever transciever(nullptr, {7779, 9999, "192.168.88.10"});
    QCOMPARE(spy.containing(QStringLiteral("UDP port")),
             QStringList{QStringLiteral("UDP port 7779: The bound address is already in use")});
    KestDataPacket packet = ping();
    QCOMPARE(transciever.sendPacket(packet), 12);
}

void tst_UDPTransciever::killThreadTwice()
{
    KestDetectorFace::Get()->cameraAddress = QStringLiteral("127.0.0.10");
    UDPTransciever transciever(nullptr, {7780, 9999, "192.168.88.10"});
    QElapsedTimer clock;
    clock.start();
    transciever.killThread();
    transciever.killThread();
    QVERIFY(clock.elapsed() < 2000);
    QCOMPARE(QByteArray(transciever.metaObject()->className()), QByteArray("UDPTransciever"));
}

QTEST_GUILESS_MAIN(tst_UDPTransciever)
#include "tst_UDPTransciever.moc"
