#include "emulator/command/CameraDevice.h"
#include "emulator/scenario/ScenarioReader.h"
#include "support/fileContent.h"

#include <QtTest>

using namespace emulator;

class tst_EmulatorScenario : public QObject
{
    Q_OBJECT

private slots:
    void emptyIsHealthy();
    void everyKey();
    void numbers_data();
    void numbers();
    void faults();
    void refused_data();
    void refused();
    void shipped_data();
    void shipped();
    void manualListsShippedScenarios();
    void manualListsFaultKinds();
};

void tst_EmulatorScenario::emptyIsHealthy()
{
    const ScenarioResult result = parseScenario("{}");
    QCOMPARE(result.error, QString());
    QCOMPARE(result.scenario.status, std::uint64_t{0x8001B});
    QCOMPARE(result.scenario.tfCard.state, 2);
    QCOMPARE(result.scenario.shell.user, QStringLiteral("root"));
    QCOMPARE(result.scenario.ftp.port, std::uint16_t{2121});
}

void tst_EmulatorScenario::everyKey()
{
    const ScenarioResult result = parseScenario(R"({
        "description": "all of it",
        "status": "0x8000000000000001",
        "battery": {
            "info": {"subId": 1, "versionInfo": 2, "softwareVersion": "1.2.3.4", "hardwareVersion": "255.0.0.7",
                     "charge": 3, "voltage": 4, "current": -5, "temperature": 6, "minutesToEmpty": 7,
                     "minutesToFull": 8, "deviceType": 9, "firmwareInfo": 10, "hardwareInfo": 11, "cycleCount": 12,
                     "fullCapacity": 13, "manufacturer": 14, "warningBits": "0xffffffff", "charger": 15,
                     "microphone": 16, "pogoPin": 17},
            "status": {"charge": 18, "voltage": 19, "current": -20, "temperature": 21, "minutesToEmpty": 22,
                       "minutesToFull": 23},
            "escCheckResult": 24},
        "gimbal": {
            "deviceInfo": {"words": [1,2,3,4,5,6,7,8,9,10,11,12], "rollLink": 0, "pitchLink": 2, "yawLink": 3},
            "state": {"words": [1,2,3,4,5,6,7], "bytes": [1,2,3,4,5,6,7,8,9,10,11,12]},
            "escFlags": 8,
            "motion": {"roll": [{"state": 1, "polls": 2}, {"state": 2, "ms": 3}, {"state": 11}], "yaw": []}},
        "tfCard": {"state": -1, "reason": 3, "sectorSize": 512, "total": 31914983424, "available": 5, "used": 6},
        "eeprom": {"blocks": [{"address": 16, "hex": "4B 4F"}, {"address": 20, "word": "0x12345678"},
                              {"address": 24, "fill": 165, "length": 3}, {"address": 30, "text": "KO"}]},
        "wifi": {"ssid": "相机", "passphrase": "abc=def"},
        "mac": "aa:bb:cc:dd:ee:ff",
        "shell": {"user": "admin", "password": "pw", "files": {"/etc/x": "y\n"},
                  "trees": [{"path": "/data/log", "size": 10, "seed": 4, "kind": "binary"}], "fault": "flood"},
        "ftp": {"user": "u", "password": "p", "port": 21, "fault": "stall"},
        "rebootSeconds": 9,
        "replyLoss": {"percent": 7, "seed": 4294967295},
        "faults": {}
    })");
    QCOMPARE(result.error, QString());
    const Scenario &scenario = result.scenario;
    QCOMPARE(scenario.description, QStringLiteral("all of it"));
    QCOMPARE(scenario.status, std::uint64_t{0x8000000000000001});

    const BatteryInfo &info = scenario.battery.info;
    const QVector<qint64> infoFields{
        info.subId,        info.versionInfo,  info.softwareVersion, info.hardwareVersion, info.charge,
        info.voltage,      info.current,      info.temperature,     info.minutesToEmpty,  info.minutesToFull,
        info.deviceType,   info.firmwareInfo, info.hardwareInfo,    info.cycleCount,      info.fullCapacity,
        info.manufacturer, info.warningBits,  info.charger,         info.microphone,      info.pogoPin};
    const QVector<qint64> infoExpected{1, 2,  0x01020304, 0xFF000007, 3,  4,  -5,         6,  7,  8,
                                       9, 10, 11,         12,         13, 14, 0xFFFFFFFF, 15, 16, 17};
    QCOMPARE(infoFields, infoExpected);
    const BatteryStatus &status = scenario.battery.status;
    const QVector<qint64> statusFields{status.charge,      status.voltage,        status.current,
                                       status.temperature, status.minutesToEmpty, status.minutesToFull};
    QCOMPARE(statusFields, (QVector<qint64>{18, 19, -20, 21, 22, 23}));
    QCOMPARE(int{scenario.battery.escCheckResult}, 24);

    QCOMPARE(int{scenario.gimbal.deviceInfo.bytes[4]}, 0);
    QCOMPARE(int{scenario.gimbal.deviceInfo.bytes[8]}, 2);
    QCOMPARE(int{scenario.gimbal.deviceInfo.bytes[12]}, 3);
    QCOMPARE(scenario.gimbal.deviceInfo.words[11], std::uint32_t{12});
    QCOMPARE(int{scenario.gimbal.state.bytes[7]}, 8);
    QCOMPARE(int{scenario.gimbal.state.words[6]}, 7);
    QCOMPARE(int{scenario.gimbal.escFlags}, 8);
    const QVector<MotionPhase> &roll = scenario.gimbal.motion[0];
    QCOMPARE(roll.size(), 3);
    QCOMPARE(roll[0].polls, 2);
    QCOMPARE(roll[1].milliseconds, 3);
    QCOMPARE(int{roll[2].state}, 11);
    QVERIFY(scenario.gimbal.motion[2].isEmpty());

    QCOMPARE(scenario.tfCard.state, -1);
    QCOMPARE(scenario.tfCard.reason, 3);
    QCOMPARE(scenario.tfCard.sectorSize, std::uint64_t{512});
    QCOMPARE(scenario.tfCard.total, std::uint64_t{31914983424});
    QCOMPARE(scenario.tfCard.available, std::uint64_t{5});
    QCOMPARE(scenario.tfCard.used, std::uint64_t{6});

    const QVector<EepromBlock> &blocks = scenario.eeprom.blocks;
    QCOMPARE(blocks.size(), 4);
    QCOMPARE(blocks[0].address, 16);
    QCOMPARE(blocks[0].content, QByteArray("KO"));
    QCOMPARE(blocks[1].content, QByteArray("\x78\x56\x34\x12"));
    QCOMPARE(blocks[2].content, QByteArray("\xA5\xA5\xA5"));
    QCOMPARE(blocks[3].content, QByteArray("KO"));

    QCOMPARE(scenario.ssid, QStringLiteral("相机"));
    QCOMPARE(scenario.passphrase, QStringLiteral("abc=def"));
    QCOMPARE(scenario.mac, QStringLiteral("aa:bb:cc:dd:ee:ff"));
    QCOMPARE(scenario.shell.user, QStringLiteral("admin"));
    QCOMPARE(scenario.shell.password, QStringLiteral("pw"));
    QCOMPARE(scenario.shell.files.value(QStringLiteral("/etc/x")), QByteArray("y\n"));
    QCOMPARE(scenario.shell.trees.size(), 1);
    QCOMPARE(scenario.shell.trees[0].path, QStringLiteral("/data/log"));
    QCOMPARE(scenario.shell.trees[0].size, 10);
    QCOMPARE(scenario.shell.trees[0].seed, 4U);
    QVERIFY(scenario.shell.trees[0].kind == ShellTree::Kind::binary);
    QVERIFY(scenario.shell.fault == ShellFault::flood);
    QCOMPARE(scenario.ftp.user, QStringLiteral("u"));
    QCOMPARE(scenario.ftp.password, QStringLiteral("p"));
    QCOMPARE(scenario.ftp.port, std::uint16_t{21});
    QVERIFY(scenario.ftp.fault == FtpFault::stall);
    QCOMPARE(scenario.rebootSeconds, 9);
    QCOMPARE(scenario.replyLoss.percent, 7);
    QCOMPARE(scenario.replyLoss.seed, std::uint32_t{4294967295});
}

void tst_EmulatorScenario::numbers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint64>("status");
    QTest::newRow("number") << QByteArray("17") << quint64{17};
    QTest::newRow("hexadecimal text") << QByteArray("\"0x1F\"") << quint64{0x1F};
    QTest::newRow("decimal text") << QByteArray("\"17\"") << quint64{17};
    QTest::newRow("all 64 bits") << QByteArray("\"0xffffffffffffffff\"") << quint64{0xFFFFFFFFFFFFFFFF};
}

void tst_EmulatorScenario::numbers()
{
    QFETCH(QByteArray, text);
    QFETCH(quint64, status);
    const ScenarioResult result = parseScenario("{\"status\": " + text + "}");
    QCOMPARE(result.error, QString());
    QCOMPARE(quint64{result.scenario.status}, status);
}

void tst_EmulatorScenario::faults()
{
    const ScenarioResult result = parseScenario(R"({"faults": {
        "Ping": [{"kind": "drop", "times": 3, "after": 2}, {"kind": "delay", "ms": 2500, "times": "always"}],
        "ReadEEPROM": [{"kind": "wrongLength", "bytes": -1, "address": 6846}, {"kind": "resultCode", "code": 224}]
    }})");
    QCOMPARE(result.error, QString());
    const QVector<Fault> &ping = result.scenario.faults[commandIndex(Command::Ping)];
    QCOMPARE(ping.size(), 2);
    QVERIFY(ping[0].kind == FaultKind::drop);
    QCOMPARE(ping[0].after, 2);
    QCOMPARE(ping[0].times.value(), 3);
    QVERIFY(ping[1].kind == FaultKind::delay);
    QCOMPARE(ping[1].value, 2500);
    QVERIFY(!ping[1].times.has_value());
    const QVector<Fault> &eeprom = result.scenario.faults[commandIndex(Command::ReadEEPROM)];
    QCOMPARE(eeprom.size(), 2);
    QCOMPARE(eeprom[0].value, -1);
    QCOMPARE(eeprom[0].address.value(), 6846);
    QCOMPARE(eeprom[1].value, 224);
    QVERIFY(!eeprom[1].address.has_value());
}

void tst_EmulatorScenario::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const char *json, const char *error) {
        QTest::newRow(name) << QByteArray(json) << QString::fromUtf8(error);
    };
    row("no JSON", "{\n  \"status\": 1,\n  oops\n}", "line 3, column 4 (offset 20): unterminated object");
    row("an array", "[]", "must be an object");
    row("key twice", "{\"wifi\": {\"ssid\": \"a\"},\n \"wifi\": 7}",
        "line 2, column 2 (offset 25): wifi: is there twice");
    row("key twice, escaped", R"({"mac": {"a\"b": 1, "c": [], "\u0061\"b": {}}})",
        "line 1, column 30 (offset 29): a\"b: is there twice");
    row("key twice, then bad", R"({"mac": 1, "mac" : 2, oops)", "line 1, column 12 (offset 11): mac: is there twice");
    row("closed too often", "]}\"a\": 1", "line 1, column 2 (offset 1): illegal value");
    row("string without an end", R"({"a\)", "line 1, column 5 (offset 4): unterminated string");
    row("unknown key", R"({"statsu": 1})", "statsu: unknown key");
    row("unknown key further down", R"({"battery": {"info": {"volt": 1}}})", "battery.info.volt: unknown key");
    row("wrong type", R"({"battery": 1})", "battery: must be an object");
    row("text for a number", R"({"battery": {"info": {"voltage": true}}})", "battery.info.voltage: must be a number");
    row("no whole number", R"({"battery": {"info": {"voltage": 3.85}}})",
        "battery.info.voltage: must be a whole number");
    row("above the range", R"({"battery": {"info": {"voltage": 65536}}})",
        "battery.info.voltage: must be from 0 to 65535");
    row("below the range", R"({"battery": {"status": {"current": -32769}}})",
        "battery.status.current: must be from -32768 to 32767");
    row("negative without a sign bit", R"({"battery": {"info": {"charge": -1}}})",
        "battery.info.charge: must be from 0 to 255");
    row("number that a double cannot hold", R"({"status": 1e300})", "status: must be a whole number");
    row("text that is no number", R"({"status": "0xZZ"})", "status: must be a whole number");
    row("version number out of range", R"({"battery": {"info": {"softwareVersion": "1.2.3.256"}}})",
        "battery.info.softwareVersion: must be a text of four numbers from 0 to 255 such as \"1.2.3.4\"");
    row("too few gimbal words", R"({"gimbal": {"state": {"words": [1]}}})",
        "gimbal.state.words: must be an array of 7 numbers");
    row("gimbal byte out of range", R"({"gimbal": {"state": {"bytes": [0,0,0,0,0,0,0,256,0,0,0,0]}}})",
        "gimbal.state.bytes[7]: must be from 0 to 255");
    row("movement without a state", R"({"gimbal": {"motion": {"roll": [{"polls": 1}]}}})",
        "gimbal.motion.roll[0]: needs a state");
    row("endless movement in the middle", R"({"gimbal": {"motion": {"roll": [{"state": 1}, {"state": 2}]}}})",
        "gimbal.motion.roll: only the last state may last for ever");
    row("movement by polls and time", R"({"gimbal": {"motion": {"roll": [{"state": 1, "polls": 1, "ms": 1}]}}})",
        "gimbal.motion.roll[0]: has both polls and ms");
    row("EEPROM block beyond the end", R"({"eeprom": {"blocks": [{"address": 8191, "text": "KO"}]}})",
        "eeprom.blocks[0]: reaches beyond the EEPROM's 8192 bytes");
    row("EEPROM block without contents", R"({"eeprom": {"blocks": [{"address": 1}]}})",
        "eeprom.blocks[0]: needs one of hex, text, word and fill");
    row("half a hexadecimal pair", R"({"eeprom": {"blocks": [{"address": 1, "hex": "4"}]}})",
        "eeprom.blocks[0].hex: must be pairs of hexadecimal digits");
    row("no such command", R"({"faults": {"ping": []}})", "faults.ping: no such command");
    row("fault without a kind", R"({"faults": {"Ping": [{}]}})", "faults.Ping[0]: needs a kind");
    row("delay without a time", R"({"faults": {"Ping": [{"kind": "delay"}]}})", "faults.Ping[0]: needs ms");
    row("value of another fault", R"({"faults": {"Ping": [{"kind": "drop", "ms": 1}]}})",
        "faults.Ping[0].ms: unknown key");
    row("address of another command", R"({"faults": {"Ping": [{"kind": "drop", "address": 1}]}})",
        "faults.Ping[0].address: unknown key");
    row("result code 0", R"({"faults": {"Ping": [{"kind": "resultCode", "code": 0}]}})",
        "faults.Ping[0].code: must be from 1 to 255");
    row("never", R"({"faults": {"Ping": [{"kind": "drop", "times": 0}]}})",
        "faults.Ping[0].times: must be from 1 to 1000000");
    row("times in words", R"({"faults": {"Ping": [{"kind": "drop", "times": "often"}]}})",
        "faults.Ping[0].times: must be a number or \"always\"");
    row("WiFi name with a line break", R"({"wifi": {"ssid": "a\nb"}})",
        "wifi.ssid: must have 1 to 32 characters and no control characters");
    row("relative file path", R"({"shell": {"files": {"etc/x": ""}}})",
        "shell.files.etc/x: must be an absolute path without empty, \".\" and \"..\" components");
    row("file path out of the camera", R"({"shell": {"files": {"/../etc/passwd": ""}}})",
        "shell.files./../etc/passwd: must be an absolute path without empty, \".\" and \"..\" components");
    row("tree path out of the camera", R"({"shell": {"trees": [{"path": "/data/../.."}]}})",
        "shell.trees[0].path: must be an absolute path without empty, \".\" and \"..\" components");
    row("tree without a path", R"({"shell": {"trees": [{"size": 1}]}})", "shell.trees[0]: needs a path");
    row("huge tree", R"({"shell": {"trees": [{"path": "/x", "size": 268435457}]}})",
        "shell.trees[0].size: must be from 0 to 268435456");
    row("user that would break the password file", R"({"shell": {"user": "a:b"}})",
        "shell.user: must be a user name of small letters, digits, - and _");
    row("FTP port 0", R"({"ftp": {"port": 0}})", "ftp.port: must be from 1 to 65535");
    row("no such FTP fault", R"({"ftp": {"fault": "slow"}})",
        "ftp.fault: must be one of none, refuse, wrongPassword, stall, close, sendNothing");
    row("the first of two mistakes", R"({"battery": {"info": {"charge": 300}}, "mac": 1})",
        "battery.info.charge: must be from 0 to 255");
}

void tst_EmulatorScenario::refused()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    QCOMPARE(parseScenario(json).error, error);
}

void tst_EmulatorScenario::shipped_data()
{
    QTest::addColumn<QString>("file");
    const QDir directory(QStringLiteral(CAMERA_SCENARIOS));
    const QStringList names = directory.entryList({QStringLiteral("*.json")});
    QVERIFY(names.contains(QStringLiteral("healthy.json")));
    for (const QString &name : names) {
        QTest::newRow(qUtf8Printable(name)) << directory.filePath(name);
    }
}

void tst_EmulatorScenario::shipped()
{
    QFETCH(QString, file);
    const ScenarioResult result = parseScenario(fileContent(file));
    QCOMPARE(result.error, QString());
    QVERIFY(result.scenario.description.endsWith(QLatin1Char('.')));
    // A scenario whose EEPROM or movement cannot be built would only show in use.
    CameraDevice device(result.scenario);
    QCOMPARE(device.answer(Command::getCameraState, {}).size(), 89);
}

namespace {
/// First cell and the rest of each table row in one chapter of the manual; only rows whose first cell is in code style.
QMap<QString, QString> manualRows(const QString &heading)
{
    QFile manual(QStringLiteral(CAMERA_MANUAL));
    QMap<QString, QString> rows;
    if (!manual.open(QIODevice::ReadOnly)) {
        return rows;
    }
    static const QRegularExpression row(QStringLiteral("^\\| `([^`]+)` \\| (.*) \\|$"));
    const auto level = static_cast<int>(heading.indexOf(QLatin1Char(' ')));
    bool inside = false;
    const QStringList lines = QString::fromUtf8(manual.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1Char('#')) && line.indexOf(QLatin1Char(' ')) <= level) {
            inside = line == heading;
        }
        const QRegularExpressionMatch match = row.match(line);
        if (inside && match.hasMatch()) {
            rows.insert(match.captured(1), match.captured(2));
        }
    }
    return rows;
}
} // namespace

void tst_EmulatorScenario::manualListsShippedScenarios()
{
    QMap<QString, QString> descriptions;
    const QDir directory(QStringLiteral(CAMERA_SCENARIOS));
    const QStringList names = directory.entryList({QStringLiteral("*.json")});
    for (const QString &name : names) {
        QFile json(directory.filePath(name));
        QVERIFY(json.open(QIODevice::ReadOnly));
        descriptions.insert(QFileInfo(name).baseName(), parseScenario(json.readAll()).scenario.description);
    }
    const QMap<QString, QString> listed = manualRows(QStringLiteral("## The scenarios"));
    QCOMPARE(listed.keys(), descriptions.keys());
    for (auto row = listed.begin(); row != listed.end(); ++row) {
        QCOMPARE(row.value(), descriptions.value(row.key()));
    }
}

void tst_EmulatorScenario::manualListsFaultKinds()
{
    const QMap<QString, QString> listed = manualRows(QStringLiteral("### Faults of commands"));
    QCOMPARE(listed.size(), static_cast<int>(faultKindTable.size()));
    for (const FaultKindRow &row : faultKindTable) {
        const QString value =
            *row.valueKey == '\0'
                ? QString()
                : QStringLiteral("`%1`, %2 to %3 | ").arg(QLatin1String(row.valueKey)).arg(row.lowest).arg(row.highest);
        const QString line = listed.value(QLatin1String(row.name));
        QVERIFY2(line.startsWith(value.isEmpty() ? QStringLiteral("| ") : value) && line.size() > value.size(),
                 qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(row.name), line)));
    }
}

QTEST_APPLESS_MAIN(tst_EmulatorScenario)
#include "tst_EmulatorScenario.moc"
