#include "camera/codec/PacketCodec.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <QByteArray>
#include <QRandomGenerator>
#include <QtTest>
#include <type_traits>

static_assert(std::is_aggregate_v<KestDataPacket>, "a plain record");

Q_DECLARE_METATYPE(KestDataPacket)

namespace {
constexpr std::uint8_t untouched = 0xEE;
constexpr quint32 seed = 20240229;

const std::uint8_t *bytesOf(const QByteArray &bytes)
{
    return reinterpret_cast<const std::uint8_t *>(bytes.constData());
}

std::uint8_t *bytesOf(QByteArray &bytes)
{
    return reinterpret_cast<std::uint8_t *>(bytes.data());
}

/// `length` bytes that differ from their neighbours: 3, 10, 17, ...
QByteArray pattern(int length)
{
    QByteArray bytes(length, '\0');
    for (int i = 0; i < length; ++i) {
        bytes[i] = static_cast<char>((i * 7 + 3) & 0xFF);
    }
    return bytes;
}

KestDataPacket packet(std::uint8_t ver, std::uint16_t len, std::uint8_t flags, std::uint16_t seq, std::uint8_t reserved,
                      std::uint8_t sender, std::uint8_t receiver, std::uint8_t cmdSet, std::uint16_t cmdId,
                      const QByteArray &payload = {})
{
    KestDataPacket packet;
    packet.ver = ver;
    packet.len = len;
    packet.flags = flags;
    packet.seq = seq;
    packet.reserved = reserved;
    packet.sender = sender;
    packet.receiver = receiver;
    packet.cmdSet = cmdSet;
    packet.cmdId = cmdId;
    std::copy(payload.begin(), payload.end(), packet.data.begin());
    return packet;
}

QByteArray encode(const KestDataPacket &packet)
{
    QByteArray frame(protocol::maxFrameSize, static_cast<char>(untouched));
    int length = -1;
    dataPacket2CharArray(packet, bytesOf(frame), &length);
    return frame.left(length);
}

/// The checksums bit by bit, as their parameters define them.
template <class Register>
Register bitwiseCrc(Register crc, Register polynomial, const QByteArray &bytes)
{
    for (const char byte : bytes) {
        crc = static_cast<Register>(crc ^ static_cast<std::uint8_t>(byte));
        for (int bit = 0; bit < 8; ++bit) {
            crc = static_cast<Register>((crc & 1) != 0 ? (crc >> 1) ^ polynomial : crc >> 1);
        }
    }
    return crc;
}

QByteArray randomBytes(QRandomGenerator &random, int length)
{
    QByteArray bytes(length, '\0');
    for (char &byte : bytes) {
        byte = static_cast<char>(random.bounded(256));
    }
    return bytes;
}
} // namespace

class tst_PacketCodec : public QObject
{
    Q_OBJECT

private slots:
    void encodesAndParsesFrame_data();
    void encodesAndParsesFrame();
    void highLengthBitsGoIntoLowNibbleOfByte1_data();
    void highLengthBitsGoIntoLowNibbleOfByte1();
    void fieldsLoseBitsThatHaveNoPlaceInFrame();
    void lengthBeyondLargestFrameStaysInBuffer();
    void lengthBelowHeaderWritesHeaderOnly();
    void parsedDataIsUntouchedWithoutPayload();
    void parseTakesLengthOfDatagramAndKeepsHead();
    void parseKeepsPayloadInsideRecord();
    void packetCheckAcceptsAnyVersion();
    void packetCheckRejects_data();
    void packetCheckRejects();
    void packetCheckZeroesChecksum_data();
    void packetCheckZeroesChecksum();
    void randomFramesSurviveRoundTrip();
    void everyDamagedBitIsNoticed();
    void flagBits_data();
    void flagBits();
    void crcOfLiteralBytes_data();
    void crcOfLiteralBytes();
    void crcOfPattern_data();
    void crcOfPattern();
    void crcEqualsBitwiseDefinition();
    void crcReadsNothingWithoutData();
    void deviceNames_data();
    void deviceNames();
    void commandSetNames_data();
    void commandSetNames();
    void errorMessages_data();
    void errorMessages();
    void hexTexts();
    void listAndBoolTexts();
};

void tst_PacketCodec::encodesAndParsesFrame_data()
{
    QTest::addColumn<KestDataPacket>("fields");
    QTest::addColumn<QByteArray>("frame");
    const auto row = [](const char *name, const KestDataPacket &fields, const char *frame) {
        QTest::newRow(name) << fields << QByteArray::fromHex(frame);
    };
    row("12-byte frame without payload", packet(0, 12, 0x12, 1, 0, 6, 1, 6, 0x22), "aa000c120001bcfd00616022");
    row("registration with 6 bytes", packet(0, 18, 0x12, 0x0203, 0, 6, 1, 0, 0x20, QByteArray::fromHex("0258a8c0611e")),
        "aa0012120203f9ba006100200258a8c0611e");
    row("command id above 255", packet(0, 12, 0x12, 0xFFFF, 0, 6, 1, 1, 0x1C1), "aa000c12ffffaec8006111c1");
    row("one payload byte", packet(0, 13, 0x12, 0x1234, 0, 6, 2, 2, 0x29, QByteArray::fromHex("03")),
        "aa000d121234e8680062202903");
    row("reply of another version", packet(5, 14, 0x01, 0x8001, 0x7E, 4, 6, 4, 0x61, QByteArray::fromHex("00ff")),
        "aa500e018001d85e7e46406100ff");
    row("all bits set", packet(15, 13, 0xFF, 0xFFFF, 0xFF, 15, 15, 15, 0xFFF, QByteArray::fromHex("ff")),
        "aaf00dffffff9136ffffffffff");
}

void tst_PacketCodec::encodesAndParsesFrame()
{
    QFETCH(KestDataPacket, fields);
    QFETCH(QByteArray, frame);

    QCOMPARE(encode(fields).toHex(), frame.toHex());

    QVERIFY(packetCheck(bytesOf(frame), static_cast<int>(frame.size())));
    KestDataPacket parsed;
    parsePacket(bytesOf(frame), static_cast<int>(frame.size()), &parsed);
    QCOMPARE(parsed.ver, fields.ver);
    QCOMPARE(parsed.len, fields.len);
    QCOMPARE(parsed.flags, fields.flags);
    QCOMPARE(parsed.seq, fields.seq);
    QCOMPARE(parsed.reserved, fields.reserved);
    QCOMPARE(parsed.sender, fields.sender);
    QCOMPARE(parsed.receiver, fields.receiver);
    QCOMPARE(parsed.cmdSet, fields.cmdSet);
    QCOMPARE(parsed.cmdId, fields.cmdId);
    QVERIFY(parsed.data == fields.data);
}

void tst_PacketCodec::highLengthBitsGoIntoLowNibbleOfByte1_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("255") << 255 << QByteArray("aa50ff120007106100616021");
    QTest::newRow("256") << 256 << QByteArray("aa51001200071dc100616021");
    QTest::newRow("511") << 511 << QByteArray("aa51ff120007361000616021");
    QTest::newRow("512") << 512 << QByteArray("aa520012000738af00616021");
    QTest::newRow("1023, the largest frame") << 1023 << QByteArray("aa53ff120007cfaa00616021");
}

void tst_PacketCodec::highLengthBitsGoIntoLowNibbleOfByte1()
{
    QFETCH(int, length);
    QFETCH(QByteArray, header);
    QByteArray payload;
    for (int i = 0; i < length - 12; ++i) {
        payload.append(static_cast<char>(i & 0xFF));
    }
    QByteArray frame = encode(packet(5, static_cast<std::uint16_t>(length), 0x12, 7, 0, 6, 1, 6, 0x21, payload));
    QCOMPARE(frame.left(12).toHex(), header);
    QCOMPARE(frame.mid(12), payload);
    QVERIFY(packetCheck(bytesOf(frame), static_cast<int>(frame.size())));
    KestDataPacket parsed;
    parsePacket(bytesOf(frame), static_cast<int>(frame.size()), &parsed);
    QCOMPARE(parsed.ver, std::uint8_t(5));
    QCOMPARE(int(parsed.len), length);
    QVERIFY(std::equal(payload.begin(), payload.end(), parsed.data.begin(),
                       [](char sent, std::uint8_t got) { return static_cast<std::uint8_t>(sent) == got; }));
}

void tst_PacketCodec::fieldsLoseBitsThatHaveNoPlaceInFrame()
{
    const QByteArray frame = encode(packet(0xF0, 12, 0x12, 1, 0, 0xF6, 0xF1, 0xF6, 0xF022));
    QCOMPARE(frame.toHex(), QByteArray("aa000c120001bcfd00616022"));
}

void tst_PacketCodec::lengthBeyondLargestFrameStaysInBuffer()
{
    QByteArray buffer(protocol::maxFrameSize + 1, static_cast<char>(untouched));
    int length = -1;
    dataPacket2CharArray(packet(0, 65535, 0x12, 1, 0, 6, 1, 6, 0x22), bytesOf(buffer), &length);
    QCOMPARE(length, 1023);
    QCOMPARE(static_cast<std::uint8_t>(buffer.at(1023)), untouched);
    QVERIFY(!packetCheck(bytesOf(buffer), length));
}

void tst_PacketCodec::lengthBelowHeaderWritesHeaderOnly()
{
    QByteArray buffer(13, static_cast<char>(untouched));
    int length = -1;
    dataPacket2CharArray(packet(0, 0, 0x12, 1, 0, 6, 1, 6, 0x22), bytesOf(buffer), &length);
    QCOMPARE(length, 0);
    QCOMPARE(buffer.toHex(), QByteArray("aa0000120001000000616022ee"));
}

void tst_PacketCodec::parsedDataIsUntouchedWithoutPayload()
{
    QByteArray frame = QByteArray::fromHex("aa000c120001bcfd00616022");
    QVERIFY(packetCheck(bytesOf(frame), static_cast<int>(frame.size())));
    KestDataPacket parsed;
    parsed.data.fill(untouched);
    parsePacket(bytesOf(frame), static_cast<int>(frame.size()), &parsed);
    QCOMPARE(std::count(parsed.data.begin(), parsed.data.end(), untouched), std::ptrdiff_t(1011));
}

void tst_PacketCodec::parseTakesLengthOfDatagramAndKeepsHead()
{
    const QByteArray frame = QByteArray::fromHex("550fff120001bcfd00616022");
    KestDataPacket parsed;
    parsed.head = 0x33;
    parsePacket(bytesOf(frame), static_cast<int>(frame.size()), &parsed);
    QCOMPARE(parsed.head, std::uint8_t(0x33));
    QCOMPARE(parsed.len, std::uint16_t(12));
}

void tst_PacketCodec::parseKeepsPayloadInsideRecord()
{
    struct Guarded
    {
        KestDataPacket packet;
        std::array<std::uint8_t, 64> behind{};
    } guarded;
    const QByteArray datagram(65535, '\x5A');
    parsePacket(bytesOf(datagram), static_cast<int>(datagram.size()), &guarded.packet);
    QCOMPARE(guarded.packet.len, std::uint16_t(65535));
    QCOMPARE(guarded.packet.data.back(), std::uint8_t(0x5A));
    QCOMPARE(std::count(guarded.behind.begin(), guarded.behind.end(), 0), std::ptrdiff_t(64));
}

void tst_PacketCodec::packetCheckAcceptsAnyVersion()
{
    QByteArray frame = QByteArray::fromHex("aa500e018001d85e7e46406100ff");
    QVERIFY(packetCheck(bytesOf(frame), static_cast<int>(frame.size())));
}

void tst_PacketCodec::packetCheckRejects_data()
{
    QTest::addColumn<QByteArray>("datagram");
    const auto row = [](const char *name, const char *datagram) {
        QTest::newRow(name) << QByteArray::fromHex(datagram);
    };
    row("nothing", "");
    row("11 bytes", "aa000b120001bcfd006160");
    row("another start mark", "ab000c120001bcfd00616022");
    row("header length one above the size", "aa000d120001bcfd00616022");
    row("header length one below the size", "aa000b120001bcfd00616022");
    row("header length 256 above the size", "aa010c120001bcfd00616022");
}

void tst_PacketCodec::packetCheckRejects()
{
    QFETCH(QByteArray, datagram);
    const QByteArray before(datagram.constData(), datagram.size());
    QVERIFY(!packetCheck(bytesOf(datagram), static_cast<int>(datagram.size())));
    QCOMPARE(datagram.toHex(), before.toHex()); // the checksum was not reached
}

void tst_PacketCodec::packetCheckZeroesChecksum_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("right checksum") << QByteArray::fromHex("aa000c120001bcfd00616022") << true;
    QTest::newRow("wrong checksum") << QByteArray::fromHex("aa000c120001bcfe00616022") << false;
    QTest::newRow("swapped checksum") << QByteArray::fromHex("aa000c120001fdbc00616022") << false;
}

void tst_PacketCodec::packetCheckZeroesChecksum()
{
    QFETCH(QByteArray, datagram);
    QFETCH(bool, accepted);
    QCOMPARE(packetCheck(bytesOf(datagram), static_cast<int>(datagram.size())), accepted);
    QCOMPARE(datagram.toHex(), QByteArray("aa000c120001000000616022"));
}

void tst_PacketCodec::randomFramesSurviveRoundTrip()
{
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 2000; ++round) {
        const int length = random.bounded(12, 1024);
        const QByteArray payload = randomBytes(random, length - 12);
        const auto bits = [&random](int count) { return static_cast<std::uint16_t>(random.bounded(1 << count)); };
        const auto byte = [&bits](int count) { return static_cast<std::uint8_t>(bits(count)); };
        const KestDataPacket sent = packet(byte(4), static_cast<std::uint16_t>(length), byte(8), bits(16), byte(8),
                                           byte(4), byte(4), byte(4), bits(12), payload);
        const QByteArray frame = encode(sent);
        QCOMPARE(frame.size(), length);
        QByteArray received(frame.constData(), frame.size());
        QVERIFY(packetCheck(bytesOf(received), static_cast<int>(received.size())));
        KestDataPacket parsed;
        parsePacket(bytesOf(received), static_cast<int>(received.size()), &parsed);
        QVERIFY(parsed.data == sent.data);
        QCOMPARE(encode(parsed).toHex(), frame.toHex());
    }
}

void tst_PacketCodec::everyDamagedBitIsNoticed()
{
    const QByteArray frame = QByteArray::fromHex("aa0012120203f9ba006100200258a8c0611e");
    for (int bit = 0; bit < frame.size() * 8; ++bit) {
        QByteArray damaged(frame.constData(), frame.size());
        damaged[bit / 8] = static_cast<char>(damaged.at(bit / 8) ^ (1 << (bit % 8)));
        QVERIFY2(!packetCheck(bytesOf(damaged), static_cast<int>(damaged.size())), qPrintable(QString::number(bit)));
    }
}

void tst_PacketCodec::flagBits_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("wantsAck");
    QTest::addColumn<bool>("reply");
    QTest::newRow("none") << 0x00 << false << false;
    QTest::newRow("reply") << 0x01 << false << true;
    QTest::newRow("wants an acknowledgement") << 0x02 << true << false;
    QTest::newRow("reply that wants one itself") << 0x03 << true << true;
    QTest::newRow("the station's requests") << 0x12 << true << false;
    QTest::newRow("all other bits") << 0xFC << false << false;
}

void tst_PacketCodec::flagBits()
{
    QFETCH(int, flags);
    QFETCH(bool, wantsAck);
    QFETCH(bool, reply);
    KestDataPacket packet;
    packet.flags = static_cast<std::uint8_t>(flags);
    QCOMPARE(needAck(packet), wantsAck);
    QCOMPARE(isAck(packet), reply);
    QCOMPARE(isRequest(packet), !reply);
}

void tst_PacketCodec::crcOfLiteralBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint16>("crc16");
    QTest::addColumn<quint32>("crc32");
    QTest::newRow("no bytes") << QByteArray("") << quint16(0x0000) << quint32(0x00000000);
    QTest::newRow("123456789") << QByteArray("123456789") << quint16(0xB4C8) << quint32(0x815E9BD3);
    QTest::newRow("one zero byte: the CRC-32 starts from 1")
        << QByteArray(1, '\0') << quint16(0xBF40) << quint32(0x77073096);
    QTest::newRow("one byte 1: it cancels the CRC-32's start")
        << QByteArray(1, '\1') << quint16(0x7F81) << quint32(0x00000000);
    QTest::newRow("four bytes 0xFF") << QByteArray(4, '\xFF') << quint16(0x4FFE) << quint32(0x51D9B7B4);
    QTest::newRow("four zero bytes") << QByteArray(4, '\0') << quint16(0xDBFF) << quint32(0x8F629757);
}

void tst_PacketCodec::crcOfLiteralBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(quint16, crc16);
    QFETCH(quint32, crc32);
    std::uint16_t stored = 0xAAAA;
    QCOMPARE(getcrc16(bytesOf(bytes), static_cast<int>(bytes.size()), &stored), crc16);
    QCOMPARE(stored, crc16);
    QCOMPARE(mapi_eeprom_crc16(bytesOf(bytes), static_cast<unsigned short>(bytes.size())), crc16);
    QCOMPARE(mapi_eeprom_crc32(bytesOf(bytes), static_cast<unsigned int>(bytes.size())), crc32);
}

void tst_PacketCodec::crcOfPattern_data()
{
    struct Row
    {
        int length;
        quint16 crc16;
        quint32 crc32;
    };
    // Around the steps of the sliced computation, and the lengths of frames and EEPROM blocks.
    constexpr std::array rows{
        Row{1, 0xBE00, 0xEE0E612C},    Row{2, 0xB87E, 0xF9CED85F},    Row{7, 0x4DC6, 0x0C82FD2B},
        Row{8, 0x3A8C, 0x54249DA4},    Row{9, 0xC93A, 0x779FBE0B},    Row{12, 0xDA6F, 0xB7CE6973},
        Row{15, 0xD9AC, 0xFF3A5EA6},   Row{16, 0xEF99, 0x13834854},   Row{17, 0x302E, 0x22BFFD60},
        Row{23, 0x683A, 0x665C9207},   Row{24, 0x17A9, 0xACACA509},   Row{31, 0x135A, 0x08806644},
        Row{32, 0x1DD2, 0x82B60EEA},   Row{33, 0x6B9C, 0x4FAC9E59},   Row{64, 0x9191, 0xAA785571},
        Row{124, 0xAF1D, 0xC92F2F4C},  Row{606, 0xE301, 0x3D0E764A},  Row{720, 0xE69B, 0x0BECDAC6},
        Row{1023, 0x66F6, 0x7E922148}, Row{1024, 0xB8A6, 0xC9165035},
    };
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint16>("crc16");
    QTest::addColumn<quint32>("crc32");
    for (const Row &row : rows) {
        QTest::addRow("%d bytes", row.length) << pattern(row.length) << row.crc16 << row.crc32;
    }
}

void tst_PacketCodec::crcOfPattern()
{
    crcOfLiteralBytes();
}

void tst_PacketCodec::crcEqualsBitwiseDefinition()
{
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 2000; ++round) {
        const QByteArray bytes = randomBytes(random, random.bounded(1, 1100));
        const int skipped = random.bounded(std::min(8, static_cast<int>(bytes.size()))); // any alignment
        const QByteArray part = bytes.mid(skipped);
        const auto length = static_cast<unsigned int>(part.size());
        const auto crc16 = static_cast<std::uint16_t>(~bitwiseCrc<std::uint16_t>(0xFFFF, 0xA001, part));
        QCOMPARE(getcrc16(bytesOf(bytes) + skipped, static_cast<int>(part.size()), nullptr), crc16);
        QCOMPARE(mapi_eeprom_crc32(bytesOf(bytes) + skipped, length),
                 bitwiseCrc<std::uint32_t>(length, 0xEDB88320, part));
    }
}

void tst_PacketCodec::crcReadsNothingWithoutData()
{
    const std::uint8_t byte = 1;
    std::uint16_t stored = 0xAAAA;
    QCOMPARE(getcrc16(&byte, -1, &stored), std::uint16_t(0));
    QCOMPARE(stored, std::uint16_t(0));
    stored = 0xAAAA;
    QCOMPARE(getcrc16(nullptr, 12, &stored), std::uint16_t(0));
    QCOMPARE(stored, std::uint16_t(0));
    QCOMPARE(mapi_eeprom_crc16(nullptr, 720), std::uint16_t(0));
    QCOMPARE(mapi_eeprom_crc32(nullptr, 0), 0U);
    QCOMPARE(mapi_eeprom_crc32(nullptr, 720), 720U);
}

void tst_PacketCodec::deviceNames_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    constexpr std::array texts{
        " (Unknown Device) ",
        " (Camera) ",
        " (Gimbal) ",
        " (SDK) ",
        " (Battery) ",
        " (App) ",
        " (PC) ",
        " (Unknown Device) ",
        " (Unknown Device) ",
        " (Unknown Device) ",
        " (Unknown Device) ",
        " (Unknown Device) ",
        " (Unknown Device) ",
        " (Unknown Device) ",
        " (Unknown Device) ",
        " (BroadCast) ",
        " (Unknown Device) ",
    };
    int code = 0;
    for (const char *text : texts) {
        QTest::addRow("%d", code) << code << text;
        ++code;
    }
    QTest::newRow("255") << 255 << " (Unknown Device) ";
}

void tst_PacketCodec::deviceNames()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(getDeviceName(static_cast<std::uint8_t>(code))), text);
}

void tst_PacketCodec::commandSetNames_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    constexpr std::array texts{
        " (Universal) ", " (Camera) ",   " (Gimbal) ",  " (SDK) ",
        " (Battery) ",   " (InterAct) ", " (Factory) ", " (Unknown CommandSet) ",
    };
    int code = 0;
    for (const char *text : texts) {
        QTest::addRow("%d", code) << code << text;
        ++code;
    }
    QTest::newRow("255") << 255 << " (Unknown CommandSet) ";
}

void tst_PacketCodec::commandSetNames()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(getCmdSetName(static_cast<std::uint8_t>(code))), text);
}

void tst_PacketCodec::errorMessages_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("128") << 0x80 << "图像自检失败";
    QTest::newRow("192") << 0xC0 << "镜头驱动板启动失败";
    QTest::newRow("224") << 0xE0 << "EEPROM 自检失败";
    QTest::newRow("250") << 0xFA << "对焦结果不可用，重装 sensor";
    QTest::newRow("252") << 0xFC << "LCA 正在处理上一条命令";
    QTest::newRow("254") << 0xFE << "拍照超时";
    QTest::newRow("255") << 0xFF << "LCA 未初识化完成";
    for (const int code : {-1, 0, 1, 118, 127, 129, 191, 193, 225, 249, 251, 253, 256, 128 + 256}) {
        QTest::addRow("%d has no text", code) << code << "";
    }
}

void tst_PacketCodec::errorMessages()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(getErrorMsg(code)), text);
}

void tst_PacketCodec::hexTexts()
{
    QCOMPARE(uchar2hexstr(10), std::string("0x0A"));
    QCOMPARE(uchar2hexstr(0), std::string("0x00"));
    QCOMPARE(uchar2hexstr(255), std::string("0xFF"));
    QCOMPARE(uchar2hexstrwo0x(10), std::string("0A"));
    QCOMPARE(uchar2hexstrwo0x(0xB7), std::string("B7"));
    QCOMPARE(uint162hexstr(449), std::string("0x01C1"));
    QCOMPARE(uint162hexstr(0), std::string("0x0000"));
    QCOMPARE(uint162hexstr(0xFEDC), std::string("0xFEDC"));
}

void tst_PacketCodec::listAndBoolTexts()
{
    QCOMPARE(printVector({}), std::string("[]"));
    QCOMPARE(printVector({7}), std::string("[7]"));
    QCOMPARE(printVector({1, -2, 300}), std::string("[1, -2, 300]"));
    QCOMPARE(printBool(true), std::string("true"));
    QCOMPARE(printBool(false), std::string("false"));
}

QTEST_APPLESS_MAIN(tst_PacketCodec)

#include "tst_PacketCodec.moc"
