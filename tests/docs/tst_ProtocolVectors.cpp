#include "camera/codec/PacketCodec.h"
#include "emulator/command/CameraDevice.h"
#include "emulator/command/Frame.h"
#include "emulator/scenario/Command.h"
#include "emulator/scenario/Scenario.h"

#include <algorithm>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

/// The byte vectors of docs/protocol-vectors.json, held against the station's codec and the emulated camera's, which
/// know nothing of each other.
class tst_ProtocolVectors : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void frameChecksums_data();
    void frameChecksums();
    void blockChecksums_data();
    void blockChecksums();
    void frames_data();
    void frames();
    void exchanges_data();
    void exchanges();
    void droppedDatagrams_data();
    void droppedDatagrams();

private:
    void rowsOf(const char *list, const char *name) const;

    QJsonObject m_vectors;
};

namespace {
QByteArray bytesOf(const QJsonObject &entry, const char *key)
{
    return QByteArray::fromHex(entry.value(QLatin1String(key)).toString().toLatin1());
}

/// Numbers stand in decimal, or as texts that begin with 0x.
uint numberOf(const QJsonObject &entry, const char *key)
{
    const QJsonValue value = entry.value(QLatin1String(key));
    return value.isString() ? value.toString().toUInt(nullptr, 0) : static_cast<uint>(value.toInt(-1));
}

QByteArray encoded(const KestDataPacket &packet)
{
    QByteArray frame(protocol::maxFrameSize, '\0');
    int length = 0;
    dataPacket2CharArray(packet, reinterpret_cast<std::uint8_t *>(frame.data()), &length);
    return frame.left(length);
}

/// Whether the station takes the datagram for a frame; it zeroes the checksum of its copy.
bool isFrameForStation(QByteArray datagram)
{
    return packetCheck(reinterpret_cast<std::uint8_t *>(datagram.data()), static_cast<int>(datagram.size()));
}

KestDataPacket parsed(QByteArray datagram)
{
    KestDataPacket packet;
    parsePacket(reinterpret_cast<std::uint8_t *>(datagram.data()), static_cast<int>(datagram.size()), &packet);
    return packet;
}
} // namespace

void tst_ProtocolVectors::initTestCase()
{
    QFile file(QStringLiteral(PROTOCOL_VECTORS));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QJsonParseError error;
    m_vectors = QJsonDocument::fromJson(file.readAll(), &error).object();
    QCOMPARE(error.errorString(), QStringLiteral("no error occurred"));
}

void tst_ProtocolVectors::rowsOf(const char *list, const char *name) const
{
    QTest::addColumn<QJsonObject>("entry");
    const QJsonArray entries = m_vectors.value(QLatin1String(list)).toArray();
    QVERIFY(!entries.isEmpty());
    for (const QJsonValue &entry : entries) {
        const QJsonObject object = entry.toObject();
        QTest::newRow(qUtf8Printable(object.value(QLatin1String("command")).toString() + QLatin1Char(' ') +
                                     object.value(QLatin1String(name)).toString()))
            << object;
    }
}

namespace {
void checksumRows(const QJsonObject &vectors, const char *kind)
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<uint>("checksum");
    const QJsonArray entries =
        vectors.value(QLatin1String("checksums")).toObject().value(QLatin1String(kind)).toArray();
    QVERIFY(!entries.isEmpty());
    for (const QJsonValue &entry : entries) {
        const QByteArray bytes = bytesOf(entry.toObject(), "bytes");
        QTest::newRow(bytes.isEmpty() ? "nothing" : bytes.toHex(' ').constData())
            << bytes << numberOf(entry.toObject(), "checksum");
    }
}
} // namespace

void tst_ProtocolVectors::frameChecksums_data()
{
    checksumRows(m_vectors, "frame");
}

void tst_ProtocolVectors::frameChecksums()
{
    QFETCH(QByteArray, bytes);
    QFETCH(uint, checksum);
    std::uint16_t station = 0xEEEE;
    getcrc16(reinterpret_cast<const std::uint8_t *>(bytes.constData()), static_cast<int>(bytes.size()), &station);
    QCOMPARE(uint{station}, checksum);
    QCOMPARE(uint{emulator::frameChecksum(bytes)}, checksum);
}

void tst_ProtocolVectors::blockChecksums_data()
{
    checksumRows(m_vectors, "block");
}

void tst_ProtocolVectors::blockChecksums()
{
    QFETCH(QByteArray, bytes);
    QFETCH(uint, checksum);
    QCOMPARE(mapi_eeprom_crc32(reinterpret_cast<unsigned char *>(bytes.data()), static_cast<unsigned>(bytes.size())),
             checksum);
}

void tst_ProtocolVectors::frames_data()
{
    rowsOf("frames", "what");
}

void tst_ProtocolVectors::frames()
{
    QFETCH(QJsonObject, entry);
    const QByteArray bytes = bytesOf(entry, "bytes");
    const QJsonObject fields = entry.value(QLatin1String("fields")).toObject();
    const QByteArray payload = bytesOf(fields, "payload");

    KestDataPacket packet;
    packet.ver = static_cast<std::uint8_t>(numberOf(fields, "version"));
    packet.len = static_cast<std::uint16_t>(numberOf(fields, "length"));
    packet.flags = static_cast<std::uint8_t>(numberOf(fields, "flags"));
    packet.seq = static_cast<std::uint16_t>(numberOf(fields, "sequence"));
    packet.reserved = static_cast<std::uint8_t>(numberOf(fields, "reserved"));
    packet.sender = static_cast<std::uint8_t>(numberOf(fields, "sender"));
    packet.receiver = static_cast<std::uint8_t>(numberOf(fields, "receiver"));
    packet.cmdSet = static_cast<std::uint8_t>(numberOf(fields, "set"));
    packet.cmdId = static_cast<std::uint16_t>(numberOf(fields, "id"));
    std::copy(payload.begin(), payload.end(), packet.data.begin());
    QCOMPARE(encoded(packet).toHex(' '), bytes.toHex(' '));

    QVERIFY(isFrameForStation(bytes));
    QCOMPARE(encoded(parsed(bytes)).toHex(' '), bytes.toHex(' '));

    const std::optional<emulator::Frame> frame = emulator::decodeFrame(bytes);
    QVERIFY(frame.has_value());
    QCOMPARE(uint{frame->version}, numberOf(fields, "version"));
    QCOMPARE(uint{frame->flags}, numberOf(fields, "flags"));
    QCOMPARE(uint{frame->sequence}, numberOf(fields, "sequence"));
    QCOMPARE(uint{frame->reserved}, numberOf(fields, "reserved"));
    QCOMPARE(uint{frame->sender}, numberOf(fields, "sender"));
    QCOMPARE(uint{frame->receiver}, numberOf(fields, "receiver"));
    QCOMPARE(uint{frame->commandSet}, numberOf(fields, "set"));
    QCOMPARE(uint{frame->commandId}, numberOf(fields, "id"));
    QCOMPARE(frame->payload.toHex(' '), payload.toHex(' '));
    QCOMPARE(emulator::encodeFrame(*frame).toHex(' '), bytes.toHex(' '));
}

void tst_ProtocolVectors::exchanges_data()
{
    rowsOf("exchanges", "what");
}

void tst_ProtocolVectors::exchanges()
{
    QFETCH(QJsonObject, entry);
    const QByteArray request = bytesOf(entry, "request");
    const QByteArray reply = bytesOf(entry, "reply");
    QVERIFY(isFrameForStation(reply));
    QVERIFY(isAck(parsed(reply)));
    QCOMPARE(int{parsed(reply).data[0]}, entry.value(QLatin1String("result")).toInt(-1));

    const std::optional<emulator::Frame> asked = emulator::decodeFrame(request);
    QVERIFY(asked.has_value());
    const auto command = emulator::commandNamed(entry.value(QLatin1String("command")).toString());
    QVERIFY(command.has_value());
    QCOMPARE(uint{emulator::rowOf(*command).set}, uint{asked->commandSet});
    QCOMPARE(uint{emulator::rowOf(*command).id}, uint{asked->commandId});
    // A camera that has just been switched on, and is healthy.
    emulator::CameraDevice camera{emulator::Scenario()};
    emulator::Frame answer = *asked;
    answer.flags = emulator::Frame::replyFlag;
    std::swap(answer.sender, answer.receiver);
    answer.payload = camera.answer(*command, asked->payload);
    QCOMPARE(emulator::encodeFrame(answer).toHex(' '), reply.toHex(' '));
}

void tst_ProtocolVectors::droppedDatagrams_data()
{
    rowsOf("droppedDatagrams", "what");
}

void tst_ProtocolVectors::droppedDatagrams()
{
    QFETCH(QJsonObject, entry);
    const QByteArray datagram = bytesOf(entry, "bytes");
    const bool isNoFrame = entry.value(QLatin1String("by")).toString() == QLatin1String("both");
    // What only one of the two drops is a valid frame that does not concern it.
    QCOMPARE(isFrameForStation(datagram), !isNoFrame);
    QCOMPARE(emulator::decodeFrame(datagram).has_value(), !isNoFrame);
}

QTEST_APPLESS_MAIN(tst_ProtocolVectors)
#include "tst_ProtocolVectors.moc"
