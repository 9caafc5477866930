#include "camera/client/deviceCommands.h"
#include "camera/codec/KestDataPacket.h"
#include "DatagramPeer.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/requestTally.h"
#include "OwnClient.h"
#include "support/MessageSpy.h"
#include "support/onWorkerThread.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <QtTest>
#include <thread>
#include <vector>

using emulator::Frame;

namespace {
/// One request of the client: makes it and turns the outcome into text, "<result>" followed by the decoded fields.
using Request = std::function<QString(Camera &)>;

template <class... Fields>
QString outcome(int result, Fields... fields)
{
    QStringList texts{QString::number(result)};
    if (result == 0) {
        (texts.append(QString::number(fields)), ...);
    }
    return texts.join(QLatin1Char(' '));
}

/// A command that the client has no method for.
struct Level
{
    std::uint16_t value = 0;

    template <class In>
    void read(In &in)
    {
        in.take(value);
    }
};
constexpr RecordCommand<Level> getLevel{
    CommandKind::Query, protocol::Device::Gimbal, {protocol::CommandSet::Gimbal, 0x7F}, std::chrono::seconds(1), 2};

QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

void useSafeguards(bool on)
{
    Settings settings;
    settings.safeguards = on;
    KestDetectorFace::Get()->setSettings(settings);
}

QByteArray counted(const QByteArray &bytes)
{
    return QByteArray(1, static_cast<char>(bytes.size() & 0xFF)) + QByteArray(1, static_cast<char>(bytes.size() >> 8)) +
           bytes;
}
} // namespace

Q_DECLARE_METATYPE(Request)

/// The camera client: the bytes of every request, the decoding of every reply, and the result codes.
class tst_Camera : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void exchange_data();
    void exchange();
    void failedReplies_data();
    void failedReplies();
    void failedReadsLeaveTheOutputsAlone();
    void eepromCountBeyondAFrame_data();
    void eepromCountBeyondAFrame();
    void cameraStateIsInTheDebugOutput();
    void appIpReport();
    void lateReplySatisfiesTheNextRequest();
    void doubledReplyIsHarmless();
    void abandonedRequestsReturnAtOnce();
    void stoppedRunWaitsForNoReply();
    void replyToAGivenUpRequestIsNoAnswer();
    void waitTimes_data();
    void waitTimes();
    void unansweredRequestWaitsItsTime();
    void replyThatNoCommandExpectsIsTold();
    void requestThatIsNotSentIsTold();
    void whatIsSentAgain_data();
    void whatIsSentAgain();
    void secondSendingIsAnswered();
    void staleReplyIsNoAnswer_data();
    void staleReplyIsNoAnswer();

private:
    QString make(const Request &request);

    std::unique_ptr<DatagramPeer> m_peer;
    std::unique_ptr<OwnClient> m_client;
    QByteArray m_reply; ///< result code and data that the peer answers with
};

void tst_Camera::init()
{
    m_peer = std::make_unique<DatagramPeer>();
    QVERIFY(m_peer->isListening());
    m_peer->onRequest = [this](const Frame &request) {
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, m_reply)));
    };
    m_client = std::make_unique<OwnClient>();
}

void tst_Camera::cleanup()
{
    useSafeguards(false);
    m_client.reset();
    m_peer.reset();
}

QString tst_Camera::make(const Request &request)
{
    return onWorkerThread([&] { return request(m_client->camera); });
}

void tst_Camera::exchange_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<int>("receiver");
    QTest::addColumn<int>("commandSet");
    QTest::addColumn<int>("commandId");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QByteArray>("replyData");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, int receiver, int set, int id, const char *payload, const QByteArray &reply,
                        const char *expected, const Request &request) {
        QTest::newRow(name) << request << receiver << set << id << hex(payload) << reply
                            << QString::fromLatin1(expected);
    };
    row("registerPC", 1, 0, 0x20, "0258a8c0611e", {}, "0",
        [](Camera &camera) { return outcome(camera.registerPC(QStringLiteral("192.168.88.2"))); });
    row("registerPC ignores reply data", 1, 0, 0x20, "0258a8c0611e", hex("010203"), "0",
        [](Camera &camera) { return outcome(camera.registerPC(QStringLiteral("192.168.88.2"))); });
    row("Ping", 1, 6, 0x22, "", {}, "0", [](Camera &camera) { return outcome(camera.Ping()); });
    row("getCameraState", 1, 1, 0x1C1, "", hex("ffffffff1122334455667788ff") + QByteArray(75, '\xff'),
        "0 0 9833440827789222417 0", [](Camera &camera) {
            CameraStatus status;
            const int result = camera.getCameraState(&status);
            return outcome(result, status.reserved0, status.iCurStatus, status.reserved1);
        });
    row("getTFCardStatus", 1, 1, 0xF1, "", hex("02000000feffffff"), "0 2 -2", [](Camera &camera) {
        TFCardStatus status;
        const int result = camera.getTFCardStatus(&status);
        return outcome(result, status.state, status.reason);
    });
    row("getTFCardUsedStatus", 1, 1, 0xF0, "",
        hex("0080000000000000"
            "0000406e07000000"
            "0000306607000000"
            "0000801f00000000"),
        "0 32768 31914459136 31779192832 528482304", [](Camera &camera) {
            TFCardUsedStatus status;
            const int result = camera.getTFCardUsedStatus(&status);
            return outcome(result, status.sectorSize, status.total, status.available, status.used);
        });
    row("getBatteryInfo", 4, 4, 0x40, "",
        hex("1a2b"
            "04030201"
            "08070605"
            "50"
            "0a0f06ffe60960003000"
            "341278560300"
            "2c0be0ac5678"
            "22000000"
            "010002"),
        "0 26 43 16909060 84281096 80 3850 -250 2534 96 48 4660 22136 3 2860 44256 30806 34 1 0 2", [](Camera &camera) {
            BatteryInfo i;
            const int result = camera.getBatteryInfo(&i);
            return outcome(result, i.subId, i.versionInfo, i.softwareVersion, i.hardwareVersion, i.charge, i.voltage,
                           i.current, i.temperature, i.minutesToEmpty, i.minutesToFull, i.deviceType, i.firmwareInfo,
                           i.hardwareInfo, i.cycleCount, i.fullCapacity, i.manufacturer, i.warningBits, i.charger,
                           i.microphone, i.pogoPin);
        });
    row("getBatteryStatus", 4, 4, 0x1A, "", hex("50a00f06ffe60960003000"), "0 80 4000 -250 2534 96 48",
        [](Camera &camera) {
            BatteryStatus s;
            const int result = camera.getBatteryStatus(&s);
            return outcome(result, s.charge, s.voltage, s.current, s.temperature, s.minutesToEmpty, s.minutesToFull);
        });
    row("getBatteryEscFactoryCheck", 4, 4, 0x61, "", {}, "0 0", [](Camera &camera) {
        BatteryCheckResult check{5};
        const int result = camera.getBatteryEscFactoryCheck(&check);
        return outcome(result, check.result);
    });
    row("getGimbalDeviceInfo", 2, 2, 0x40, "",
        hex("000102030405060708090a0b0c0d0e0f"
            "01000000") +
            QByteArray(40, '\0') + hex("0000000c"),
        "0 4 8 12 15 1 0 201326592", [](Camera &camera) {
            GimbalDeviceInfo info;
            const int result = camera.getGimbalDeviceInfo(&info);
            return outcome(result, info.bytes[4], info.bytes[8], info.bytes[12], info.bytes[15], info.words[0],
                           info.words[1], info.words[11]);
        });
    row("fetchGimbalState", 2, 2, 0x01, "",
        hex("0100020003000400050006000701"
            "08090a0b0c0d0e0f10111213"),
        "0 1 263 8 15 19", [](Camera &camera) {
            GimbalState state;
            const int result = camera.fetchGimbalState(&state);
            return outcome(result, state.words[0], state.words[6], state.bytes[0], state.bytes[7], state.bytes[11]);
        });
    row("getGimbalESCDevicesCheck", 2, 2, 0x43, "", hex("0f"), "0 15", [](Camera &camera) {
        GimbalESCDevicesCheck check;
        const int result = camera.getGimbalESCDevicesCheck(&check);
        return outcome(result, check.flags);
    });
    row("setGimbalAnguVeloPosi", 2, 2, 0x06, "0201040306050807feff0c0b", {}, "0", [](Camera &camera) {
        return outcome(camera.setGimbalAnguVeloPosi({{0x0102, 0x0304, 0x0506, 0x0708, 0xFFFE, 0x0B0C}}));
    });
    row("setGimbalFactoryCheck", 2, 2, 0x29, "03", {}, "0",
        [](Camera &camera) { return outcome(camera.setGimbalFactoryCheck(3)); });
    row("ReadEEPROM", 1, 6, 0x21, "c0160300", counted(hex("4b4f00")), "0 3 75 79 0 0", [](Camera &camera) {
        EEPromBuf buffer;
        const int result = camera.ReadEEPROM(0x16C0, 3, &buffer);
        return outcome(result, buffer.length(), buffer.data()[0], buffer.data()[1], buffer.data()[2], buffer.data()[3]);
    });
    row("ReadEEPROM of nothing", 1, 6, 0x21, "00000000", hex("0000"), "0 0", [](Camera &camera) {
        EEPromBuf buffer;
        const int result = camera.ReadEEPROM(0, 0, &buffer);
        return outcome(result, buffer.length());
    });
    row("row without a method", 2, 2, 0x7F, "0102", hex("3412"), "0 4660", [](Camera &camera) {
        Level level;
        const int result = camera.query(getLevel, &level, {1, 2});
        return outcome(result, level.value);
    });

    struct Block
    {
        const char *name;
        const char *payload;
        int length;
        int (Camera::*read)(unsigned char *, int *);
    };
    for (const Block &block : {Block{"eepromReadSfr", "c016d002", 720, &Camera::eepromReadSfr},
                               Block{"eepromReadMacula", "c01a5e02", 606, &Camera::eepromReadMacula},
                               Block{"eepromReadAwb", "c01e7c00", 124, &Camera::eepromReadAwb}}) {
        row(block.name, 1, 6, 0x21, block.payload, counted(QByteArray(block.length, '\x77')),
            qPrintable(QStringLiteral("0 %1 17").arg(block.length)), [read = block.read](Camera &camera) {
                unsigned char untouched = 0x11;
                int length = 0;
                const int result = (camera.*read)(&untouched, &length);
                return outcome(result, length, untouched);
            });
    }
    struct Word
    {
        const char *name;
        const char *payload;
        int (Camera::*read)(unsigned int *);
    };
    for (const Word &word : {Word{"eepromReadSfrCrc", "90190400", &Camera::eepromReadSfrCrc},
                             Word{"eepromReadMaculaCrc", "1e1d0400", &Camera::eepromReadMaculaCrc},
                             Word{"eepromReadAwbCrc", "3c1f0400", &Camera::eepromReadAwbCrc}}) {
        row(word.name, 1, 6, 0x21, word.payload, counted(hex("78563412")), "0 305419896",
            [read = word.read](Camera &camera) {
                unsigned int crc = 0;
                const int result = (camera.*read)(&crc);
                return outcome(result, crc);
            });
    }
    struct Mark
    {
        const char *name;
        const char *payload;
        bool (Camera::*check)(int *);
    };
    for (const Mark &mark : {Mark{"signatureCheckSfr", "be1a0200", &Camera::signatureCheckSfr},
                             Mark{"signatureCheckMacula", "be1e0200", &Camera::signatureCheckMacula},
                             Mark{"signatureCheckAwb", "be1f0200", &Camera::signatureCheckAwb},
                             Mark{"signatureCheckFocus", "6b100200", &Camera::signatureCheckFocus},
                             Mark{"sensorEEPromFactoryCheck", "e21f0200", &Camera::sensorEEPromFactoryCheck}}) {
        const auto check = [check = mark.check](Camera &camera) {
            int status = 99;
            const bool marked = (camera.*check)(&status);
            return outcome(status, marked);
        };
        const QByteArray name(mark.name);
        row(name + ", KO", 1, 6, 0x21, mark.payload, counted("KO"), "0 1", check);
        row(name + ", OK", 1, 6, 0x21, mark.payload, counted("OK"), "0 0", check);
        row(name + ", short", 1, 6, 0x21, mark.payload, counted("K"), "0 0", check);
    }
    const auto readSfr = [](Camera &camera) {
        int length = 0;
        return outcome(camera.eepromReadSfr(nullptr, &length), length);
    };
    row("EEPROM block too short", 1, 6, 0x21, "c016d002", counted(QByteArray(719, '\0')), "-1", readSfr);
    row("EEPROM count above the data", 1, 6, 0x21, "c016d002", hex("030041"), "-1", readSfr);
    row("EEPROM count below the data", 1, 6, 0x21, "c016d002", hex("0100414243"), "-1", readSfr);
    row("EEPROM reply without a count", 1, 6, 0x21, "c016d002", hex("00"), "-1", readSfr);
    row("EEPROM checksum too short", 1, 6, 0x21, "90190400", counted(hex("785634")), "-1", [](Camera &camera) {
        unsigned int crc = 0;
        return outcome(camera.eepromReadSfrCrc(&crc), crc);
    });
}

void tst_Camera::exchange()
{
    QFETCH(Request, request);
    QFETCH(QByteArray, payload);
    QFETCH(QByteArray, replyData);
    m_reply = QByteArray(1, '\0') + replyData;
    QTEST(make(request), "expected");
    QCOMPARE(m_peer->datagrams().size(), 1);
    const Frame sent = m_peer->requests().constFirst();
    QCOMPARE(int{sent.version}, 0);
    QCOMPARE(int{sent.flags}, 0x12);
    QCOMPARE(int{sent.reserved}, 0);
    QCOMPARE(int{sent.sender}, 6);
    QTEST(int{sent.receiver}, "receiver");
    QTEST(int{sent.commandSet}, "commandSet");
    QTEST(int{sent.commandId}, "commandId");
    QCOMPARE(sent.payload, payload);
}

void tst_Camera::failedReplies_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("expected");

    const Request ping = [](Camera &camera) { return outcome(camera.Ping()); };
    QTest::newRow("Ping with one data byte") << ping << hex("0000") << QStringLiteral("-1");
    QTest::newRow("Ping refused, with data") << ping << hex("fe0000") << QStringLiteral("254");
    QTest::newRow("registerPC refused") << Request([](Camera &camera) {
        return outcome(camera.registerPC(QStringLiteral("127.0.0.1")));
    }) << hex("80") << QStringLiteral("128");
    const Request cardStatus = [](Camera &camera) {
        TFCardStatus status{7, 8};
        const int result = camera.getTFCardStatus(&status);
        return QStringLiteral("%1 %2 %3").arg(result).arg(status.state).arg(status.reason);
    };
    QTest::newRow("card status of 7 bytes") << cardStatus << hex("0002000000000000") << QStringLiteral("-1 7 8");
    QTest::newRow("card status of 8 bytes") << cardStatus << hex("000200000003000000") << QStringLiteral("0 2 3");
    QTest::newRow("card status refused") << cardStatus << hex("fa0200000003000000") << QStringLiteral("250 7 8");
    QTest::newRow("gimbal orders with data")
        << Request([](Camera &camera) { return outcome(camera.setGimbalFactoryCheck(1)); }) << hex("0001")
        << QStringLiteral("-1");
    QTest::newRow("battery factory check refused") << Request([](Camera &camera) {
        BatteryCheckResult check{5};
        const int result = camera.getBatteryEscFactoryCheck(&check);
        return QStringLiteral("%1 %2").arg(result).arg(check.result);
    }) << hex("11") << QStringLiteral("17 5");
    const Request cameraState = [](Camera &camera) {
        CameraStatus status{1, 2, 3};
        const int result = camera.getCameraState(&status);
        return QStringLiteral("%1 %2 %3 %4")
            .arg(result)
            .arg(status.reserved0)
            .arg(status.iCurStatus)
            .arg(status.reserved1);
    };
    QTest::newRow("camera state of 87 bytes") << cameraState << QByteArray(88, '\0') << QStringLiteral("-1 1 2 3");
    QTest::newRow("camera state of 89 bytes") << cameraState << QByteArray(90, '\0') << QStringLiteral("-1 1 2 3");
    const Request level = [](Camera &camera) {
        Level record{7};
        const int result = camera.query(getLevel, &record);
        return QStringLiteral("%1 %2").arg(result).arg(record.value);
    };
    QTest::newRow("row without a method, 1 byte") << level << hex("0001") << QStringLiteral("-1 7");
    QTest::newRow("row without a method, refused") << level << hex("090102") << QStringLiteral("9 7");
    QTest::newRow("signature refused") << Request([](Camera &camera) {
        int status = 0;
        const bool marked = camera.signatureCheckSfr(&status);
        return QStringLiteral("%1 %2").arg(status).arg(marked);
    }) << hex("e0") << QStringLiteral("224 0");
}

void tst_Camera::failedReplies()
{
    QFETCH(Request, request);
    QFETCH(QByteArray, reply);
    m_reply = reply;
    QTEST(make(request), "expected");
}

void tst_Camera::failedReadsLeaveTheOutputsAlone()
{
    m_reply = hex("00030041");
    QCOMPARE(make([](Camera &camera) {
                 int length = 4711;
                 unsigned int crc = 4712;
                 const int first = camera.eepromReadMacula(nullptr, &length);
                 const int second = camera.eepromReadMaculaCrc(&crc);
                 return QStringLiteral("%1 %2 %3 %4").arg(first).arg(length).arg(second).arg(crc);
             }),
             QStringLiteral("-1 4711 -1 4712"));
}

void tst_Camera::eepromCountBeyondAFrame_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");

    QTest::newRow("all that a frame holds") << 1008 << QStringLiteral("0 1008");
    QTest::newRow("one byte more") << 1009 << QStringLiteral("-1");
    QTest::newRow("what the frame's length field can say") << 4080 << QStringLiteral("-1");
    QTest::newRow("what the count can say") << 65535 << QStringLiteral("-1");
}

void tst_Camera::eepromCountBeyondAFrame()
{
    QFETCH(int, count);
    m_peer->onRequest = [&](const Frame &) {
        const QByteArray data = counted(QByteArray(count, 'e'));
        m_client->camera.ReadEEPROM_Notify(0, reinterpret_cast<const std::uint8_t *>(data.constData()), data.size());
    };
    QTEST(make([](Camera &camera) {
              EEPromBuf buffer;
              const int result = camera.ReadEEPROM(0, 1, &buffer);
              return outcome(result, buffer.length());
          }),
          "expected");
}

void tst_Camera::cameraStateIsInTheDebugOutput()
{
    m_reply = QByteArray(5, '\0') + hex("00000000000080ab") + QByteArray(76, '\0');
    const MessageSpy spy;
    QCOMPARE(make([](Camera &camera) {
                 CameraStatus status;
                 return outcome(camera.getCameraState(&status));
             }),
             QStringLiteral("0"));
    QCOMPARE(spy.containing(QStringLiteral("iCurStatus")), QStringList{QStringLiteral("iCurStatus ab80000000000000")});
}

void tst_Camera::appIpReport()
{
    KestDataPacket packet;
    Camera::getPacket4AppIpReport(0xC0A85802UL, 0x1E61, &packet);
    QCOMPARE(int{packet.len}, 18);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(packet.data.data()), 6), hex("c0a85802611e"));
}

void tst_Camera::lateReplySatisfiesTheNextRequest()
{
    // The reply to the first ping comes when that one has given up: it is sent when the second one is there.
    std::optional<Frame> first;
    int pings = 0;
    m_peer->onRequest = [&](const Frame &request) {
        if (++pings == 1) {
            first = request;
        } else {
            m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(*first, QByteArray(1, '\0'))));
        }
    };
    QCOMPARE(make([](Camera &camera) { return outcome(camera.Ping()); }), QStringLiteral("118"));
    QCOMPARE(make([](Camera &camera) { return outcome(camera.Ping()); }), QStringLiteral("0"));
    QCOMPARE(pings, 2);
    QVERIFY(m_peer->requests().at(0).sequence != m_peer->requests().at(1).sequence);
}

void tst_Camera::doubledReplyIsHarmless()
{
    m_peer->onRequest = [&](const Frame &request) {
        const QByteArray reply = emulator::encodeFrame(DatagramPeer::replyTo(request, hex("000f")));
        m_peer->send(reply);
        m_peer->send(reply);
    };
    const Request flags = [](Camera &camera) {
        GimbalESCDevicesCheck check;
        const int result = camera.getGimbalESCDevicesCheck(&check);
        return outcome(result, check.flags);
    };
    for (int round = 0; round < 100; ++round) {
        QCOMPARE(make(flags), QStringLiteral("0 15"));
    }
}

void tst_Camera::abandonedRequestsReturnAtOnce()
{
    m_peer->onRequest = [this](const Frame &) { m_client->camera.abandonRequests(); };
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(make([](Camera &camera) { return outcome(camera.setGimbalFactoryCheck(1)); }), QStringLiteral("118"));
    m_peer->onRequest = nullptr;
    m_peer->clear();
    QCOMPARE(make([](Camera &camera) { return outcome(camera.Ping()); }), QStringLiteral("118"));
    QVERIFY(clock.elapsed() < 1500);
    QCOMPARE(m_peer->datagrams().size(), 0);
}

void tst_Camera::stoppedRunWaitsForNoReply()
{
    RunExchange &run = KestDetectorFace::Get()->run;
    run.post({});
    m_peer->onRequest = [&](const Frame &) {
        run.stop();
        m_client->camera.heedStop();
    };
    qint64 taken = 0;
    qint64 takenByOther = 0;
    QCOMPARE(make([&](Camera &camera) {
                 run.take(QString());
                 QElapsedTimer clock;
                 clock.start();
                 const RequestTally before = requestTally();
                 GimbalState state;
                 const int first = camera.fetchGimbalState(&state);
                 const int second = camera.setGimbalFactoryCheck(1);
                 taken = clock.elapsed();
                 // Whoever does not work for the run waits as ever.
                 std::thread([&] { camera.registerPC(QStringLiteral("192.168.88.2")); }).join();
                 takenByOther = clock.elapsed() - taken;
                 return outcome(0, first, second, (requestTally() - before).unanswered);
             }),
             QStringLiteral("0 118 118 0"));
    QVERIFY2(taken < 1000, qPrintable(QString::number(taken)));
    QVERIFY2(takenByOther >= 1000, qPrintable(QString::number(takenByOther)));
    QCOMPARE(m_peer->datagrams().size(), 2); // the query of the run, and the other thread's registration

    run.finish();
    run.post({});
    m_peer->onRequest = [this](const Frame &request) {
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray(1, '\0'))));
    };
    QCOMPARE(make([&](Camera &camera) {
                 run.take(QString());
                 return outcome(camera.setGimbalFactoryCheck(1));
             }),
             QStringLiteral("0"));
    run.finish();
}

/// A block of the EEPROM that was asked for before the stop must not pass for the one that the next run asks for.
void tst_Camera::replyToAGivenUpRequestIsNoAnswer()
{
    RunExchange &run = KestDetectorFace::Get()->run;
    run.post({});
    Frame late;
    m_peer->onRequest = [&](const Frame &request) {
        late = request;
        run.stop();
        m_client->camera.heedStop();
    };
    const auto read = [&](Camera &camera) {
        run.take(QString());
        EEPromBuf buffer;
        const int result = camera.ReadEEPROM(8162, 2, &buffer);
        return outcome(result, result == 0 ? buffer.data()[0] : 0);
    };
    const auto reply = [this](const Frame &request, const char *bytes) {
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray(1, '\0') + counted(hex(bytes)))));
    };
    QCOMPARE(make(read), QStringLiteral("118"));
    run.finish();
    run.post({});
    m_peer->onRequest = [&](const Frame &request) {
        reply(late, "0102");
        QTimer::singleShot(200, m_peer.get(), [&reply, request] { reply(request, "4b4f"); });
    };
    QCOMPARE(make(read), QStringLiteral("0 75"));
    run.finish();
}

void tst_Camera::waitTimes_data()
{
    QTest::addColumn<int>("wait");
    QTest::addColumn<int>("milliseconds");

    const auto row = [](const char *name, const DeviceCommand &command, int milliseconds) {
        QTest::newRow(name) << static_cast<int>(command.wait.count()) << milliseconds;
    };
    row("registerPC", deviceCommand::registerPC, 1000);
    row("Ping", deviceCommand::Ping, 2000);
    row("getCameraState", deviceCommand::getCameraState, 2000);
    row("getTFCardStatus", deviceCommand::getTFCardStatus, 2000);
    row("getTFCardUsedStatus", deviceCommand::getTFCardUsedStatus, 2000);
    row("getBatteryInfo", deviceCommand::getBatteryInfo, 2000);
    row("getBatteryStatus", deviceCommand::getBatteryStatus, 2000);
    row("getBatteryEscFactoryCheck", deviceCommand::getBatteryEscFactoryCheck, 3000);
    row("getGimbalDeviceInfo", deviceCommand::getGimbalDeviceInfo, 2000);
    row("fetchGimbalState", deviceCommand::fetchGimbalState, 2000);
    row("getGimbalESCDevicesCheck", deviceCommand::getGimbalESCDevicesCheck, 2000);
    row("setGimbalAnguVeloPosi", deviceCommand::setGimbalAnguVeloPosi, 3000);
    row("setGimbalFactoryCheck", deviceCommand::setGimbalFactoryCheck, 2000);
    row("ReadEEPROM", deviceCommand::ReadEEPROM, 3000);
}

void tst_Camera::waitTimes()
{
    QFETCH(int, wait);
    QTEST(wait, "milliseconds");
}

void tst_Camera::unansweredRequestWaitsItsTime()
{
    // The longest and the shortest wait, one beside the other; the other commands' are in the table above.
    m_peer->onRequest = nullptr;
    const auto timed = [](const std::function<void()> &request) {
        QElapsedTimer clock;
        clock.start();
        request();
        return clock.elapsed();
    };
    qint64 registration = 0;
    const qint64 eeprom = onWorkerThread([&] {
        std::thread other([&] { registration = timed([&] { m_client->camera.registerPC(QString()); }); });
        const qint64 time = timed([&] {
            EEPromBuf buffer;
            m_client->camera.ReadEEPROM(0, 1, &buffer);
        });
        other.join();
        return time;
    });
    QVERIFY2(registration >= 1000 && registration < 2000, qPrintable(QString::number(registration)));
    QVERIFY2(eeprom >= 3000 && eeprom < 4000, qPrintable(QString::number(eeprom)));
}

void tst_Camera::replyThatNoCommandExpectsIsTold()
{
    m_peer->onRequest = [this](const Frame &request) {
        Frame unknown = DatagramPeer::replyTo(request, QByteArray(1, '\0'));
        unknown.commandId = 0x23;
        for (int count = 0; count < 100; ++count) {
            m_peer->send(emulator::encodeFrame(unknown));
        }
        unknown.commandSet = 7;
        m_peer->send(emulator::encodeFrame(unknown));
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, QByteArray(1, '\0'))));
    };
    const MessageSpy spy;
    QCOMPARE(make([](Camera &camera) { return outcome(camera.Ping()); }), QStringLiteral("0"));
    // Once, and not a hundred times: whoever sends these could send millions.
    QCOMPARE(spy.containing(QStringLiteral("A reply")),
             QStringList{QStringLiteral("A reply to a command that is never sent: (Factory) 0x0023")});
}

void tst_Camera::requestThatIsNotSentIsTold()
{
    int sends = 0;
    Camera camera([&sends](KestDataPacket &) {
        ++sends;
        return -1;
    });
    const MessageSpy spy;
    std::thread other([&] { camera.registerPC(QString()); });
    QCOMPARE(camera.registerPC(QStringLiteral("127.0.0.1")), 118);
    other.join();
    QCOMPARE(sends, 2);
    QCOMPARE(spy.messages(), QStringList{QStringLiteral("A request was not sent: (Universal) 0x0020")});
}

void tst_Camera::whatIsSentAgain_data()
{
    QTest::addColumn<bool>("safeguards");
    QTest::addColumn<QStringList>("expected");

    // Name: frames within the wait, result, sendings that were counted, unanswered requests that were counted.
    QTest::newRow("as ever") << false
                             << QStringList({"registerPC: 1 118 0 0", "Ping: 1 118 0 0", "getCameraState: 1 118 0 1",
                                             "getBatteryEscFactoryCheck: 1 118 0 1", "ReadEEPROM: 1 118 0 1",
                                             "setGimbalFactoryCheck: 1 118 0 0", "setGimbalAnguVeloPosi: 1 118 0 0"});
    QTest::newRow("with safeguards") << true
                                     << QStringList(
                                            {"registerPC: 1 118 0 0", "Ping: 1 118 0 0", "getCameraState: 4 118 3 1",
                                             "getBatteryEscFactoryCheck: 4 118 3 1", "ReadEEPROM: 4 118 3 1",
                                             "setGimbalFactoryCheck: 1 118 0 0", "setGimbalAnguVeloPosi: 1 118 0 0"});
}

void tst_Camera::whatIsSentAgain()
{
    QFETCH(bool, safeguards);
    useSafeguards(safeguards);
    struct Row
    {
        const char *name;
        const DeviceCommand &command;
        std::function<int(Camera &)> request;
    };
    const std::vector<Row> rows = {
        {"registerPC", deviceCommand::registerPC, [](Camera &camera) { return camera.registerPC(QString()); }},
        {"Ping", deviceCommand::Ping, [](Camera &camera) { return camera.Ping(); }},
        {"getCameraState", deviceCommand::getCameraState,
         [](Camera &camera) {
             CameraStatus status;
             return camera.getCameraState(&status);
         }},
        {"getBatteryEscFactoryCheck", deviceCommand::getBatteryEscFactoryCheck,
         [](Camera &camera) {
             BatteryCheckResult check;
             return camera.getBatteryEscFactoryCheck(&check);
         }},
        {"ReadEEPROM", deviceCommand::ReadEEPROM,
         [](Camera &camera) {
             EEPromBuf buffer;
             return camera.ReadEEPROM(0, 1, &buffer);
         }},
        {"setGimbalFactoryCheck", deviceCommand::setGimbalFactoryCheck,
         [](Camera &camera) { return camera.setGimbalFactoryCheck(1); }},
        {"setGimbalAnguVeloPosi", deviceCommand::setGimbalAnguVeloPosi,
         [](Camera &camera) { return camera.setGimbalAnguVeloPosi({}); }},
    };
    std::mutex mutex;
    std::map<int, int> frames; // by command set and id
    const auto key = [](int set, int id) { return set << 16 | id; };
    Camera camera([&](KestDataPacket &packet) {
        const std::lock_guard<std::mutex> lock(mutex);
        ++frames[key(packet.cmdSet, packet.cmdId)];
        return 12;
    });
    // All at once: different commands do not hold each other up, and the longest wait is 3 s.
    std::vector<QString> outcomes(rows.size());
    std::vector<std::thread> threads;
    threads.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        threads.emplace_back([&, i] {
            const int result = rows[i].request(camera);
            const RequestTally tally = requestTally();
            outcomes[i] = QStringLiteral("%1 %2 %3").arg(result).arg(tally.resent).arg(tally.unanswered);
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QStringList seen;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const protocol::Command command = rows[i].command.command;
        seen.append(QStringLiteral("%1: %2 %3")
                        .arg(QLatin1String(rows[i].name))
                        .arg(frames[key(static_cast<int>(command.set), command.id)])
                        .arg(outcomes[i]));
    }
    QTEST(seen, "expected");
}

void tst_Camera::secondSendingIsAnswered()
{
    useSafeguards(true);
    int frames = 0;
    m_peer->onRequest = [&](const Frame &request) {
        if (++frames == 2) {
            m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, hex("000f"))));
        }
    };
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(make([](Camera &camera) {
                 GimbalESCDevicesCheck check;
                 const int result = camera.getGimbalESCDevicesCheck(&check);
                 const RequestTally tally = requestTally();
                 return outcome(result, check.flags, tally.resent, tally.unanswered);
             }),
             QStringLiteral("0 15 1 0"));
    QVERIFY(clock.elapsed() >= 500); // a quarter of 2 s
    QVERIFY(clock.elapsed() < 2000);
    QCOMPARE(m_peer->datagrams().size(), 2);
    QCOMPARE(m_peer->requests().at(1).sequence - m_peer->requests().at(0).sequence, 1);
}

void tst_Camera::staleReplyIsNoAnswer_data()
{
    QTest::addColumn<bool>("copiesTheNumber");

    QTest::newRow("the camera copies the request's number") << true;
    QTest::newRow("the camera always says 0") << false;
}

void tst_Camera::staleReplyIsNoAnswer()
{
    // The first block is asked for twice and answered twice; its second answer comes while the next block is read.
    QFETCH(bool, copiesTheNumber);
    useSafeguards(true);
    std::optional<Frame> unanswered;
    int frames = 0;
    const auto answer = [&](Frame request, const char *block) {
        if (!copiesTheNumber) {
            request.sequence = 0;
        }
        m_peer->send(emulator::encodeFrame(DatagramPeer::replyTo(request, hex("00") + counted(block))));
    };
    m_peer->onRequest = [&](const Frame &request) {
        ++frames;
        if (frames == 1) {
            unanswered = request;
        } else if (frames == 2) {
            answer(request, "AA");
        } else {
            if (copiesTheNumber) {
                answer(*unanswered, "AA");
            }
            answer(request, "BB");
        }
    };
    const Request readTwoBlocks = [](Camera &camera) {
        QStringList blocks;
        for (const int address : {0, 2}) {
            EEPromBuf buffer;
            const int result = camera.ReadEEPROM(address, 2, &buffer);
            blocks.append(outcome(result, buffer.data()[0], buffer.data()[1]));
        }
        return blocks.join(QStringLiteral(", "));
    };
    QCOMPARE(make(readTwoBlocks), QStringLiteral("0 65 65, 0 66 66"));
    QCOMPARE(frames, 3);
}

QTEST_GUILESS_MAIN(tst_Camera)
#include "tst_Camera.moc"
