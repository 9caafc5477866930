#include "emulator/command/CommandService.h"
#include "emulator/command/FaultPlan.h"
#include "emulator/scenario/ScenarioReader.h"
#include "support/CommandPeer.h"
#include "support/hexBytes.h"

#include <QtTest>

using emulator::Command;
using emulator::CommandService;
using emulator::Fault;
using emulator::FaultKind;
using emulator::FaultPlan;
using emulator::MotionPhase;
using emulator::Scenario;

namespace {
const QHostAddress cameraAddress(QStringLiteral("127.0.77.1"));

// The TF card's state, asked and answered.
const QByteArray request = hexBytes("aa 00 0c 12 00 07 e1 ff 00 61 10 f1");
const QByteArray goodReply = hexBytes("aa 00 15 01 00 07 cd a5 00 16 10 f1 00 02 00 00 00 00 00 00 00");

Fault fault(FaultKind kind, int value = 0)
{
    Fault result;
    result.kind = kind;
    result.value = value;
    return result;
}

Scenario withFaults(Command command, const QVector<Fault> &faults)
{
    Scenario scenario;
    scenario.faults[emulator::commandIndex(command)] = faults;
    return scenario;
}

/// Which of 10000 replies the radio loses.
QVector<bool> repliesLost(int percent, std::uint32_t seed)
{
    Scenario scenario;
    scenario.replyLoss = {percent, seed};
    FaultPlan plan(scenario);
    QVector<bool> lost;
    for (int count = 0; count < 10000; ++count) {
        lost.append(plan.next(Command::Ping, std::nullopt).has_value());
    }
    return lost;
}
} // namespace

class tst_EmulatorCommandService : public QObject
{
    Q_OBJECT

private slots:
    void replies_data();
    void replies();
    void unanswered_data();
    void unanswered();
    void checksumWordsFitTheirBlocks_data();
    void checksumWordsFitTheirBlocks();
    void everyFaultHasItsName();
    void spoiltReply_data();
    void spoiltReply();
    void droppedReply();
    void lossyRadio_data();
    void lossyRadio();
    void sameSeedLosesTheSameReplies();
    void delayedReply();
    void duplicateReply();
    void replyFromAnotherPort();
    void faultsPlayInOrder();
    void faultForEver();
    void faultOfOneEepromAddress();
    void motion();
    void motionByTime();
    void repliesGoToTheRequestsPort();
    void outOfRange();
    void stopAndStartAgain();
    void portInUse();
};

namespace {
/// A started service and a PC.
struct Link
{
    explicit Link(const Scenario &scenario = {})
        : service(scenario), error(service.start(cameraAddress, 0)), peer(cameraAddress, service.port())
    {
    }

    CommandService service;
    QString error;
    CommandPeer peer;
};
} // namespace

void tst_EmulatorCommandService::replies_data()
{
    QTest::addColumn<QByteArray>("question");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("registerPC") << hexBytes("aa 00 12 12 01 01 b8 be 00 61 00 20 02 58 a8 c0 61 1e")
                                << hexBytes("aa 00 0d 01 01 01 02 df 00 16 00 20 00");
    QTest::newRow("Ping") << hexBytes("aa 00 0c 12 01 02 70 0f 00 61 60 22")
                          << hexBytes("aa 00 0d 01 01 02 69 9e 00 16 60 22 00");
    QTest::newRow("getCameraState")
        << hexBytes("aa 00 0c 12 01 03 69 7a 00 61 11 c1")
        << hexBytes("aa 00 65 01 01 03 7c 7d 00 16 11 c1 00 00 00 00 00 1b 00 08 00 00 00 00 00 00 00 00 00 00 "
                    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                    "00 00 00 00 00 00 00 00 00 00 00");
    QTest::newRow("getTFCardStatus") << hexBytes("aa 00 0c 12 01 04 2d 0d 00 61 10 f1")
                                     << hexBytes("aa 00 15 01 01 04 ac b4 00 16 10 f1 00 02 00 00 00 00 00 00 00");
    QTest::newRow("getTFCardUsedStatus")
        << hexBytes("aa 00 0c 12 01 05 2d dc 00 61 10 f0")
        << hexBytes("aa 00 2d 01 01 05 2e b9 00 16 10 f0 00 00 80 00 00 00 00 00 00 00 00 48 6e 07 00 00 00 00 "
                    "00 00 00 06 00 00 00 00 00 48 6e 01 00 00 00");
    QTest::newRow("getBatteryInfo")
        << hexBytes("aa 00 0c 12 01 06 98 c2 00 64 40 40")
        << hexBytes("aa 00 35 01 01 06 fb 9e 00 46 40 40 00 04 10 04 03 02 01 02 00 00 01 57 0a 0f 06 ff e6 09 "
                    "5f 00 00 00 01 01 10 02 03 01 0c 00 6b 03 53 4b 00 00 00 00 00 00 00");
    QTest::newRow("getBatteryStatus") << hexBytes("aa 00 0c 12 01 07 63 52 00 64 40 1a")
                                      << hexBytes(
                                             "aa 00 18 01 01 07 69 a9 00 46 40 1a 00 57 0a 0f 06 ff e6 09 5f 00 00 00");
    QTest::newRow("getBatteryEscFactoryCheck")
        << hexBytes("aa 00 0c 12 01 08 40 ed 00 64 40 61") << hexBytes("aa 00 0d 01 01 08 ec 3f 00 46 40 61 00");
    QTest::newRow("getGimbalDeviceInfo")
        << hexBytes("aa 00 0c 12 01 09 99 f5 00 62 20 40")
        << hexBytes("aa 00 4d 01 01 09 8b c3 00 26 20 40 00 01 00 00 00 01 00 00 00 01 00 00 00 01 00 00 00 03 "
                    "00 02 01 03 00 02 01 03 00 02 01 03 00 02 01 01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 "
                    "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    QTest::newRow("fetchGimbalState")
        << hexBytes("aa 00 0c 12 01 0a a9 06 00 62 20 01")
        << hexBytes("aa 00 27 01 01 0a 12 6e 00 26 20 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                    "00 00 00 00 00 00 00 00 00");
    QTest::newRow("getGimbalESCDevicesCheck")
        << hexBytes("aa 00 0c 12 01 0b 58 96 00 62 20 43") << hexBytes("aa 00 0e 01 01 0b 5d 82 00 26 20 43 00 0f");
    QTest::newRow("setGimbalAnguVeloPosi")
        << hexBytes("aa 00 18 12 01 0c 0c 3e 00 62 20 06 01 02 03 04 05 06 07 08 09 0a 0b 0c")
        << hexBytes("aa 00 0d 01 01 0c 31 0a 00 26 20 06 00");
    QTest::newRow("setGimbalFactoryCheck")
        << hexBytes("aa 00 0d 12 01 0d 67 f3 00 62 20 29 01") << hexBytes("aa 00 0d 01 01 0d cd d7 00 26 20 29 00");
    QTest::newRow("ReadEEPROM of a signature") << hexBytes("aa 00 10 12 01 0e 17 9f 00 61 60 21 be 1a 02 00")
                                               << hexBytes("aa 00 11 01 01 0e b9 7a 00 16 60 21 00 02 00 4b 4f");
    QTest::newRow("ReadEEPROM of a checksum word")
        << hexBytes("aa 00 10 12 01 0f 63 61 00 61 60 21 90 19 04 00")
        << hexBytes("aa 00 13 01 01 0f 76 03 00 16 60 21 00 04 00 2d b5 fc cd");
    QTest::newRow("ReadEEPROM beyond the end") << hexBytes("aa 00 10 12 01 10 02 fb 00 61 60 21 ff 1f 02 00")
                                               << hexBytes("aa 00 0d 01 01 10 8c df 00 16 60 21 01");
    QTest::newRow("ReadEEPROM longer than a frame") << hexBytes("aa 00 10 12 01 11 dd fa 00 61 60 21 00 00 f1 03")
                                                    << hexBytes("aa 00 0d 01 01 11 40 1e 00 16 60 21 01");
    QTest::newRow("registerPC with a short payload") << hexBytes("aa 00 11 12 01 12 84 92 00 61 00 20 02 58 a8 c0 61")
                                                     << hexBytes("aa 00 0d 01 01 12 db 5f 00 16 00 20 01");
    QTest::newRow("setGimbalFactoryCheck with mode 4")
        << hexBytes("aa 00 0d 12 01 13 e4 b3 00 62 20 29 04") << hexBytes("aa 00 0d 01 01 13 8d 96 00 26 20 29 01");
}

void tst_EmulatorCommandService::replies()
{
    QFETCH(QByteArray, question);
    QFETCH(QByteArray, answer);
    Link link;
    QCOMPARE(link.error, QString());
    QCOMPARE(link.peer.ask(question).toHex(' '), answer.toHex(' '));
}

void tst_EmulatorCommandService::unanswered_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("unknown command") << hexBytes("aa 00 0c 12 00 07 7c 5a 00 61 60 23");
    QTest::newRow("a reply") << hexBytes("aa 00 0c 13 00 07 2c 96 00 61 60 22");
    QTest::newRow("wrong checksum") << hexBytes("aa 00 0c 12 00 07 bc 9a 00 61 60 22");
    QTest::newRow("empty datagram") << QByteArray();
}

void tst_EmulatorCommandService::unanswered()
{
    QFETCH(QByteArray, datagram);
    Link link;
    link.peer.send(datagram);
    // Datagrams keep their order on the loopback: the first thing to come back answers the second one sent.
    QCOMPARE(link.peer.ask(request), goodReply);
}

void tst_EmulatorCommandService::checksumWordsFitTheirBlocks_data()
{
    QTest::addColumn<QByteArray>("dataRequest");
    QTest::addColumn<QByteArray>("wordRequest");
    QTest::addColumn<int>("length");
    QTest::addColumn<quint32>("word");
    QTest::newRow("sharpness") << hexBytes("aa 00 10 12 00 20 b6 f8 00 61 60 21 c0 16 d0 02")
                               << hexBytes("aa 00 10 12 00 21 88 03 00 61 60 21 90 19 04 00") << 720
                               << quint32{0xCDFCB52D};
    QTest::newRow("dark spots") << hexBytes("aa 00 10 12 00 22 ad 56 00 61 60 21 c0 1a 5e 02")
                                << hexBytes("aa 00 10 12 00 23 d9 62 00 61 60 21 1e 1d 04 00") << 606
                                << quint32{0xE2C11AFF};
    QTest::newRow("white balance") << hexBytes("aa 00 10 12 00 24 85 90 00 61 60 21 c0 1e 7c 00")
                                   << hexBytes("aa 00 10 12 00 25 e9 d7 00 61 60 21 3c 1f 04 00") << 124
                                   << quint32{0x9F8A6611};
}

namespace {
/// The checksum of a calibration block, bit by bit: it starts from the length, and nothing is XORed at the end.
quint32 blockChecksum(const QByteArray &data)
{
    auto crc = static_cast<quint32>(data.size());
    for (const char byte : data) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1) != 0 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
        }
    }
    return crc;
}
} // namespace

void tst_EmulatorCommandService::checksumWordsFitTheirBlocks()
{
    QFETCH(QByteArray, dataRequest);
    QFETCH(QByteArray, wordRequest);
    QFETCH(int, length);
    QFETCH(quint32, word);
    constexpr int headerResultAndCount = 15;
    Link link;
    const QByteArray data = link.peer.ask(dataRequest).mid(headerResultAndCount);
    QCOMPARE(data.size(), length);
    QCOMPARE(blockChecksum(data), word);
    const QByteArray stored = link.peer.ask(wordRequest).mid(headerResultAndCount);
    QCOMPARE(stored.size(), 4);
    QCOMPARE(qFromLittleEndian<quint32>(stored.constData()), word);
}

void tst_EmulatorCommandService::everyFaultHasItsName()
{
    QCOMPARE(emulator::parseScenario(R"({"faults": {"Ping": [{"kind": "explode"}]}})").error,
             QStringLiteral("faults.Ping[0].kind: must be one of drop, delay, duplicate, corruptChecksum, wrongLength, "
                            "resultCode, otherPort, asRequest"));
}

void tst_EmulatorCommandService::spoiltReply_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("value");
    QTest::addColumn<QByteArray>("reply");
    const auto row = [](const char *name, FaultKind kind, int value, const char *reply) {
        QTest::newRow(name) << static_cast<int>(kind) << value << hexBytes(reply);
    };
    row("wrong checksum", FaultKind::corruptChecksum, 0,
        "aa 00 15 01 00 07 cd a4 00 16 10 f1 00 02 00 00 00 00 00 00 00");
    row("one byte short", FaultKind::wrongLength, -1, "aa 00 14 01 00 07 19 e9 00 16 10 f1 00 02 00 00 00 00 00 00");
    row("two bytes more", FaultKind::wrongLength, 2,
        "aa 00 17 01 00 07 68 67 00 16 10 f1 00 02 00 00 00 00 00 00 00 00 00");
    row("result code", FaultKind::resultCode, 128, "aa 00 0d 01 00 07 8d 0e 00 16 10 f1 80");
    row("marked as a request", FaultKind::asRequest, 0,
        "aa 00 15 00 00 07 31 f4 00 16 10 f1 00 02 00 00 00 00 00 00 00");
}

void tst_EmulatorCommandService::spoiltReply()
{
    QFETCH(int, kind);
    QFETCH(int, value);
    QFETCH(QByteArray, reply);
    Link link(withFaults(Command::getTFCardStatus, {fault(static_cast<FaultKind>(kind), value)}));
    QCOMPARE(link.peer.ask(request).toHex(' '), reply.toHex(' '));
    QCOMPARE(link.peer.ask(request), goodReply);
}

void tst_EmulatorCommandService::droppedReply()
{
    Link link(withFaults(Command::getTFCardStatus, {fault(FaultKind::drop)}));
    link.peer.send(request);
    const QByteArray ping = hexBytes("aa 00 0c 12 00 07 bc 9b 00 61 60 22");
    const QByteArray pingReply = hexBytes("aa 00 0d 01 00 07 c6 53 00 16 60 22 00");
    QCOMPARE(link.peer.ask(ping), pingReply);
    QCOMPARE(link.service.requestCount(Command::getTFCardStatus), 1);
    QCOMPARE(link.peer.ask(request), goodReply);
}

void tst_EmulatorCommandService::lossyRadio_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("leastLost");
    QTest::addColumn<int>("mostLost");

    QTest::newRow("none") << 0 << 0 << 0;
    QTest::newRow("3 %") << 3 << 200 << 400;
    QTest::newRow("10 %") << 10 << 850 << 1150;
    QTest::newRow("all") << 100 << 10000 << 10000;
}

void tst_EmulatorCommandService::lossyRadio()
{
    QFETCH(int, percent);
    QFETCH(int, leastLost);
    QFETCH(int, mostLost);
    const QVector<bool> lost = repliesLost(percent, 1);
    QVERIFY(lost.count(true) >= leastLost);
    QVERIFY(lost.count(true) <= mostLost);
}

void tst_EmulatorCommandService::sameSeedLosesTheSameReplies()
{
    QCOMPARE(repliesLost(10, 5), repliesLost(10, 5));
    QVERIFY(repliesLost(10, 5) != repliesLost(10, 6));
}

void tst_EmulatorCommandService::delayedReply()
{
    Link link(withFaults(Command::getTFCardStatus, {fault(FaultKind::delay, 300)}));
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(link.peer.ask(request), goodReply);
    QVERIFY(elapsed.elapsed() >= 299); // both sides count whole milliseconds
}

void tst_EmulatorCommandService::duplicateReply()
{
    Link link(withFaults(Command::getTFCardStatus, {fault(FaultKind::duplicate)}));
    QCOMPARE(link.peer.ask(request), goodReply);
    QCOMPARE(link.peer.receive().data(), goodReply);
}

void tst_EmulatorCommandService::replyFromAnotherPort()
{
    Link link(withFaults(Command::getTFCardStatus, {fault(FaultKind::otherPort)}));
    link.peer.send(request);
    const QNetworkDatagram reply = link.peer.receive();
    QCOMPARE(reply.data(), goodReply);
    QCOMPARE(reply.senderAddress(), cameraAddress);
    QVERIFY(reply.senderPort() != link.service.port());
    link.peer.send(request);
    QCOMPARE(link.peer.receive().senderPort(), int{link.service.port()});
}

void tst_EmulatorCommandService::faultsPlayInOrder()
{
    Fault code = fault(FaultKind::resultCode, 128);
    code.after = 1;
    code.times = 2;
    Link link(withFaults(Command::getTFCardStatus, {code, fault(FaultKind::duplicate)}));
    const QByteArray refusal = hexBytes("aa 00 0d 01 00 07 8d 0e 00 16 10 f1 80");
    QCOMPARE(link.peer.ask(request), goodReply);
    QCOMPARE(link.peer.ask(request), refusal);
    QCOMPARE(link.peer.ask(request), refusal);
    QCOMPARE(link.peer.ask(request), goodReply);
    QCOMPARE(link.peer.receive().data(), goodReply);
    QCOMPARE(link.peer.ask(request), goodReply);
}

void tst_EmulatorCommandService::faultForEver()
{
    Fault code = fault(FaultKind::resultCode, 128);
    code.times.reset();
    Link link(withFaults(Command::getTFCardStatus, {code}));
    for (int i = 0; i < 50; ++i) {
        QCOMPARE(link.peer.ask(request), hexBytes("aa 00 0d 01 00 07 8d 0e 00 16 10 f1 80"));
    }
}

void tst_EmulatorCommandService::faultOfOneEepromAddress()
{
    Fault drop = fault(FaultKind::drop);
    drop.address = 6846;
    drop.times.reset();
    Link link(withFaults(Command::ReadEEPROM, {drop}));
    link.peer.send(hexBytes("aa 00 10 12 00 07 48 4c 00 61 60 21 be 1a 02 00"));
    QCOMPARE(link.peer.ask(hexBytes("aa 00 10 12 00 07 49 5c 00 61 60 21 be 1f 02 00")),
             hexBytes("aa 00 11 01 00 07 24 64 00 16 60 21 00 02 00 4b 4f"));
    QCOMPARE(link.service.requestCount(Command::ReadEEPROM), 2);
}

namespace {
const QByteArray startRoll = hexBytes("aa 00 0d 12 00 07 88 7e 00 62 20 29 01");
const QByteArray pollGimbal = hexBytes("aa 00 0c 12 00 07 a5 1b 00 62 20 01");

/// The state of the factory movement in a reply of 26 data bytes.
int movementState(const QByteArray &reply)
{
    return reply.size() == 39 ? reply.at(13 + 21) : -1;
}
} // namespace

void tst_EmulatorCommandService::motion()
{
    Scenario scenario;
    scenario.gimbal.motion[0] = {MotionPhase{6, 2, 0}, MotionPhase{11, 0, 0}};
    Link link(scenario);
    QCOMPARE(movementState(link.peer.ask(pollGimbal)), 0);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(link.peer.ask(startRoll).size(), 13);
        for (const int expected : {6, 6, 11, 11, 11}) {
            QCOMPARE(movementState(link.peer.ask(pollGimbal)), expected);
        }
    }
}

void tst_EmulatorCommandService::motionByTime()
{
    Scenario scenario;
    scenario.gimbal.motion[0] = {MotionPhase{1, 0, 200}, MotionPhase{11, 0, 0}};
    Link link(scenario);
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(link.peer.ask(startRoll).size(), 13);
    QTRY_COMPARE(movementState(link.peer.ask(pollGimbal)), 11);
    QVERIFY(elapsed.elapsed() >= 200);
}

void tst_EmulatorCommandService::repliesGoToTheRequestsPort()
{
    Link link;
    CommandPeer other(cameraAddress, link.service.port());
    link.peer.send(request);
    other.send(request);
    QCOMPARE(link.peer.receive().data(), goodReply);
    QCOMPARE(other.receive().data(), goodReply);
}

void tst_EmulatorCommandService::outOfRange()
{
    Link link;
    link.service.setAnswering(false);
    link.peer.send(request);
    QVERIFY(!link.peer.receive(200).isValid());
    link.service.setAnswering(true);
    QCOMPARE(link.peer.ask(request), goodReply);
}

void tst_EmulatorCommandService::stopAndStartAgain()
{
    Fault second = fault(FaultKind::resultCode, 128);
    second.after = 1;
    Link link(withFaults(Command::getTFCardStatus, {second}));
    const quint16 port = link.service.port();
    QCOMPARE(link.peer.ask(request), goodReply);
    link.service.stop();
    QCOMPARE(link.service.port(), quint16{0});
    QCOMPARE(link.service.start(cameraAddress, port), QString());
    QCOMPARE(link.peer.ask(request), hexBytes("aa 00 0d 01 00 07 8d 0e 00 16 10 f1 80"));
}

void tst_EmulatorCommandService::portInUse()
{
    Link link;
    CommandService second{Scenario()};
    QVERIFY(!second.start(cameraAddress, link.service.port()).isEmpty());
    QCOMPARE(second.port(), quint16{0});
}

QTEST_GUILESS_MAIN(tst_EmulatorCommandService)
#include "tst_EmulatorCommandService.moc"
