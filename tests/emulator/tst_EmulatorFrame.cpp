#include "emulator/command/Frame.h"
#include "support/hexBytes.h"

#include <QtTest>

using emulator::decodeFrame;
using emulator::encodeFrame;
using emulator::Frame;
using emulator::frameChecksum;

class tst_EmulatorFrame : public QObject
{
    Q_OBJECT

private slots:
    void checksum_data();
    void checksum();
    void frameAndDatagram_data();
    void frameAndDatagram();
    void longFrame();
    void refused_data();
    void refused();
};

void tst_EmulatorFrame::checksum_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint16>("expected");
    QTest::newRow("check value") << QByteArrayLiteral("123456789") << quint16{0xB4C8};
    QTest::newRow("nothing") << QByteArray() << quint16{0x0000};
}

void tst_EmulatorFrame::checksum()
{
    QFETCH(QByteArray, bytes);
    QFETCH(quint16, expected);
    QCOMPARE(frameChecksum(bytes), expected);
}

void tst_EmulatorFrame::frameAndDatagram_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("sequence");
    QTest::addColumn<int>("sender");
    QTest::addColumn<int>("receiver");
    QTest::addColumn<int>("commandSet");
    QTest::addColumn<int>("commandId");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("request without payload")
        << hexBytes("aa 00 0c 12 00 07 bc 9b 00 61 60 22") << 0x12 << 7 << 6 << 1 << 6 << 0x22 << QByteArray();
    QTest::newRow("reply with the result byte alone")
        << hexBytes("aa 00 0d 01 00 07 c6 53 00 16 60 22 00") << 0x01 << 7 << 1 << 6 << 6 << 0x22 << hexBytes("00");
    QTest::newRow("command id with all 12 bits in use")
        << hexBytes("aa 00 0c 12 01 03 69 7a 00 61 11 c1") << 0x12 << 0x103 << 6 << 1 << 1 << 0x1C1 << QByteArray();
}

void tst_EmulatorFrame::frameAndDatagram()
{
    QFETCH(QByteArray, datagram);
    QFETCH(int, flags);
    QFETCH(int, sequence);
    QFETCH(int, sender);
    QFETCH(int, receiver);
    QFETCH(int, commandSet);
    QFETCH(int, commandId);
    QFETCH(QByteArray, payload);

    const std::optional<Frame> frame = decodeFrame(datagram);
    QVERIFY(frame.has_value());
    QCOMPARE(int{frame->version}, 0);
    QCOMPARE(int{frame->flags}, flags);
    QCOMPARE(int{frame->sequence}, sequence);
    QCOMPARE(int{frame->sender}, sender);
    QCOMPARE(int{frame->receiver}, receiver);
    QCOMPARE(int{frame->commandSet}, commandSet);
    QCOMPARE(int{frame->commandId}, commandId);
    QCOMPARE(frame->payload, payload);
    QCOMPARE(encodeFrame(*frame), datagram);
}

void tst_EmulatorFrame::longFrame()
{
    Frame frame;
    frame.version = 5;
    frame.payload = QByteArray(1011, 'x');
    const QByteArray datagram = encodeFrame(frame);
    QCOMPARE(datagram.size(), 1023);
    QCOMPARE(datagram.left(3), hexBytes("aa 53 ff"));
    const std::optional<Frame> back = decodeFrame(datagram);
    QVERIFY(back.has_value());
    QCOMPARE(int{back->version}, 5);
    QCOMPARE(back->payload, frame.payload);
}

void tst_EmulatorFrame::refused_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("11 bytes") << hexBytes("aa 00 0b 12 00 07 bc 9b 00 61 60");
    QTest::newRow("another start mark") << hexBytes("ab 00 0c 12 00 07 bc 9b 00 61 60 22");
    QTest::newRow("length too long by one") << hexBytes("aa 00 0d 12 00 07 bc 9b 00 61 60 22");
    QTest::newRow("length too short by one") << hexBytes("aa 00 0b 12 00 07 bc 9b 00 61 60 22");
    QTest::newRow("byte behind the frame") << hexBytes("aa 00 0c 12 00 07 bc 9b 00 61 60 22 00");
    QTest::newRow("wrong checksum") << hexBytes("aa 00 0c 12 00 07 bc 9a 00 61 60 22");
    QTest::newRow("one byte longer than a frame may be, otherwise right")
        << hexBytes("aa 04 00 12 00 07 5b f9 00 61 60 22") + QByteArray(1012, '\0');
    QTest::newRow("checksum bytes swapped") << hexBytes("aa 00 0c 12 00 07 9b bc 00 61 60 22");
}

void tst_EmulatorFrame::refused()
{
    QFETCH(QByteArray, datagram);
    QVERIFY(!decodeFrame(datagram).has_value());
}

QTEST_APPLESS_MAIN(tst_EmulatorFrame)
#include "tst_EmulatorFrame.moc"
