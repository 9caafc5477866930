#include "platform/DatagramReader.h"

#include "platform/datagramFilter.h"

#include <atomic>
#include <QElapsedTimer>
#include <QtTest>
#include <QUdpSocket>
#include <thread>

/// A socket that one thread reads while others send by it, as the camera client's does.
class tst_DatagramReader : public QObject
{
    Q_OBJECT

private slots:
    void datagramWithItsSender();
    void datagramsInTheirOrder();
    void longerThanTheBuffer();
    void waitsWithoutLosingAnything();
    void stopEndsTheWait();
    void stopBeforeTheWait();
    void withoutAPort();
    void repliesBehindAFlood();
};

namespace {
constexpr int soonMs = 1000;

/// A bound socket without notifiers, its reader, and a socket that sends to it.
struct Link
{
    QUdpSocket socket;
    std::mutex sending;
    std::unique_ptr<DatagramReader> reader;
    QUdpSocket peer;
    std::vector<std::uint8_t> buffer = std::vector<std::uint8_t>(1024);
    DatagramReader::Sender sender;

    Link()
    {
        socket.bind(QHostAddress(QHostAddress::LocalHost));
        peer.bind(QHostAddress(QHostAddress::LocalHost));
        socket.moveToThread(nullptr);
        reader = std::make_unique<DatagramReader>(&socket, &sending);
    }

    void send(const QByteArray &bytes) { peer.writeDatagram(bytes, QHostAddress::LocalHost, socket.localPort()); }

    /// The next datagram within a second; empty if there was none.
    QByteArray next()
    {
        QElapsedTimer clock;
        clock.start();
        int size = 0;
        while (size == 0 && clock.elapsed() < soonMs) {
            size = reader->read(&buffer, &sender);
        }
        return {reinterpret_cast<const char *>(buffer.data()), size};
    }
};

QByteArray onAThread(Link &link)
{
    QByteArray bytes;
    std::thread([&] { bytes = link.next(); }).join();
    return bytes;
}
} // namespace

void tst_DatagramReader::datagramWithItsSender()
{
    Link link;
    link.send("one");
    QCOMPARE(onAThread(link), QByteArray("one"));
    QCOMPARE(link.sender.port, link.peer.localPort());
    QCOMPARE(link.sender.address.toString(), QStringLiteral("127.0.0.1"));
}

void tst_DatagramReader::datagramsInTheirOrder()
{
    Link link;
    const QList<QByteArray> sent{"one", "two", "three"};
    for (const QByteArray &bytes : sent) {
        link.send(bytes);
    }
    for (const QByteArray &bytes : sent) {
        QCOMPARE(onAThread(link), bytes);
    }
}

void tst_DatagramReader::longerThanTheBuffer()
{
    Link link;
    link.buffer.resize(4);
    link.send("cut off");
    link.send("next");
    QCOMPARE(onAThread(link), QByteArray("cut "));
    QCOMPARE(onAThread(link), QByteArray("next"));
}

void tst_DatagramReader::waitsWithoutLosingAnything()
{
    constexpr int count = 200;
    Link link;
    std::atomic<int> received{0};
    std::atomic<bool> more{true};
    std::thread reading([&] {
        while (more) {
            if (link.reader->read(&link.buffer, &link.sender) == 5) {
                ++received;
            }
        }
    });
    for (int sent = 0; sent < count; ++sent) {
        link.send("reply");
        const std::lock_guard<std::mutex> lock(link.sending);
        QCOMPARE(link.socket.writeDatagram("request", QHostAddress::LocalHost, link.peer.localPort()), qint64{7});
    }
    QTRY_COMPARE(received.load(), count);
    more = false;
    link.reader->stop();
    reading.join();
}

void tst_DatagramReader::stopEndsTheWait()
{
    Link link;
    std::atomic<bool> stopped{false};
    std::thread reading([&] {
        while (!stopped) {
            link.reader->read(&link.buffer, &link.sender);
        }
    });
    QTest::qWait(30); // lets it wait
    QElapsedTimer clock;
    clock.start();
    stopped = true;
    link.reader->stop();
    reading.join();
    QVERIFY2(clock.elapsed() < soonMs, qPrintable(QString::number(clock.elapsed())));
}

void tst_DatagramReader::stopBeforeTheWait()
{
    Link link;
    link.reader->stop();
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(link.reader->read(&link.buffer, &link.sender), 0);
    QCOMPARE(link.reader->read(&link.buffer, &link.sender), 0);
    QVERIFY2(clock.elapsed() < soonMs, qPrintable(QString::number(clock.elapsed())));
}

void tst_DatagramReader::withoutAPort()
{
    QUdpSocket socket;
    std::mutex sending;
    DatagramReader reader(&socket, &sending);
    std::vector<std::uint8_t> buffer(16);
    DatagramReader::Sender sender;
    reader.stop();
    QCOMPARE(reader.read(&buffer, &sender), 0);
}

/// The filter's part in it: what comes between a reply and the reader must not push it out.
void tst_DatagramReader::repliesBehindAFlood()
{
    constexpr int flood = 100; // of 1 KiB: less than what any system's queue holds
    Link link;
    QVERIFY(dropForeignDatagrams(&link.socket, link.peer.localPort(), 1023));
    QUdpSocket stranger;
    QVERIFY(stranger.bind(QHostAddress(QHostAddress::LocalHost)));
    for (int sent = 0; sent < flood; ++sent) {
        stranger.writeDatagram(QByteArray(1000, 'x'), QHostAddress::LocalHost, link.socket.localPort());
    }
    link.send("reply");
    QByteArray read;
    for (int tries = 0; tries <= flood && read != "reply"; ++tries) {
        read = onAThread(link);
    }
    QCOMPARE(read, QByteArray("reply"));
    QCOMPARE(link.sender.port, link.peer.localPort());
}

QTEST_GUILESS_MAIN(tst_DatagramReader)
#include "tst_DatagramReader.moc"
