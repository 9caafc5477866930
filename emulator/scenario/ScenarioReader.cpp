#include "emulator/scenario/ScenarioReader.h"

#include "emulator/scenario/JsonObjectReader.h"
#include "emulator/scenario/repeatedKey.h"

#include <QHash>
#include <QJsonDocument>
#include <QRegularExpression>

namespace emulator {

namespace {
constexpr int longestDelay = 3600 * 1000;
constexpr int mostTimes = 1000000;
constexpr int largestTree = 256 * 1024 * 1024;

template <class Enum>
struct EnumName
{
    Enum value;
    const char *name;
};

constexpr EnumName<ShellFault> shellFaults[]{
    {ShellFault::none, "none"},
    {ShellFault::refuse, "refuse"},
    {ShellFault::silent, "silent"},
    {ShellFault::bannerWithoutPrompt, "bannerWithoutPrompt"},
    {ShellFault::splitPrompt, "splitPrompt"},
    {ShellFault::flood, "flood"},
};

constexpr EnumName<FtpFault> ftpFaults[]{
    {FtpFault::none, "none"},   {FtpFault::refuse, "refuse"}, {FtpFault::wrongPassword, "wrongPassword"},
    {FtpFault::stall, "stall"}, {FtpFault::close, "close"},   {FtpFault::sendNothing, "sendNothing"},
};

constexpr EnumName<ShellTree::Kind> treeKinds[]{
    {ShellTree::Kind::text, "text"},
    {ShellTree::Kind::binary, "binary"},
};

/// The row of `table` whose name the value is; null, and a complaint, when there is none.
template <class Table>
auto readRow(const JsonValueReader &reader, const Table &table) -> decltype(&*std::begin(table))
{
    QString text;
    reader.read(text);
    QStringList known;
    for (const auto &row : table) {
        if (text == QLatin1String(row.name)) {
            return &row;
        }
        known.append(QLatin1String(row.name));
    }
    reader.complain(QStringLiteral("must be one of ") + known.join(QStringLiteral(", ")));
    return nullptr;
}

template <class Enum, std::size_t size>
void readEnum(const JsonValueReader &reader, const EnumName<Enum> (&names)[size], Enum &out)
{
    if (const EnumName<Enum> *row = readRow(reader, names)) {
        out = row->value;
    }
}

void readNonEmpty(const JsonValueReader &reader, QString &out, int longest)
{
    reader.read(out);
    static const QRegularExpression control(QStringLiteral("[\\x00-\\x1f\\x7f]"));
    if (out.isEmpty() || out.size() > longest || out.contains(control)) {
        reader.complain(QStringLiteral("must have 1 to %1 characters and no control characters").arg(longest));
    }
}

/// Four numbers joined by points, the first in the most significant byte.
void readVersion(const JsonValueReader &reader, std::uint32_t &out)
{
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(
        QStringLiteral("([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})")));
    const QRegularExpressionMatch match = pattern.match(reader.value().toString());
    std::uint32_t version = 0;
    bool inRange = match.hasMatch();
    for (int i = 1; i <= match.lastCapturedIndex(); ++i) {
        const std::uint32_t number = match.captured(i).toUInt();
        inRange = inRange && number <= 0xFF;
        version = version << 8 | number;
    }
    if (!inRange) {
        reader.complain(QStringLiteral("must be a text of four numbers from 0 to 255 such as \"1.2.3.4\""));
        return;
    }
    out = version;
}

template <class Record>
void readMeasurements(JsonObjectReader &object, Record &record)
{
    object.read("charge", record.charge);
    object.read("voltage", record.voltage);
    object.read("current", record.current);
    object.read("temperature", record.temperature);
    object.read("minutesToEmpty", record.minutesToEmpty);
    object.read("minutesToFull", record.minutesToFull);
}

void readBatteryInfo(const JsonValueReader &reader, BatteryInfo &info)
{
    JsonObjectReader object(reader);
    readMeasurements(object, info);
    object.read("subId", info.subId);
    object.read("versionInfo", info.versionInfo);
    object.with("softwareVersion", [&](const JsonValueReader &value) { readVersion(value, info.softwareVersion); });
    object.with("hardwareVersion", [&](const JsonValueReader &value) { readVersion(value, info.hardwareVersion); });
    object.read("deviceType", info.deviceType);
    object.read("firmwareInfo", info.firmwareInfo);
    object.read("hardwareInfo", info.hardwareInfo);
    object.read("cycleCount", info.cycleCount);
    object.read("fullCapacity", info.fullCapacity);
    object.read("manufacturer", info.manufacturer);
    object.read("warningBits", info.warningBits);
    object.read("charger", info.charger);
    object.read("microphone", info.microphone);
    object.read("pogoPin", info.pogoPin);
    object.finish();
}

void readBatteryStatus(const JsonValueReader &reader, BatteryStatus &status)
{
    JsonObjectReader object(reader);
    readMeasurements(object, status);
    object.finish();
}

void readBattery(const JsonValueReader &reader, Battery &battery)
{
    JsonObjectReader object(reader);
    object.with("info", [&](const JsonValueReader &value) { readBatteryInfo(value, battery.info); });
    object.with("status", [&](const JsonValueReader &value) { readBatteryStatus(value, battery.status); });
    object.read("escCheckResult", battery.escCheckResult);
    object.finish();
}

void readDeviceInfo(const JsonValueReader &reader, GimbalDeviceInfo &info)
{
    JsonObjectReader object(reader);
    object.read("bytes", info.bytes);
    object.read("words", info.words);
    object.read("rollLink", info.bytes[4]);
    object.read("pitchLink", info.bytes[8]);
    object.read("yawLink", info.bytes[12]);
    object.finish();
}

void readGimbalState(const JsonValueReader &reader, GimbalState &state)
{
    JsonObjectReader object(reader);
    object.read("bytes", state.bytes);
    object.read("words", state.words);
    object.finish();
}

void readMotion(const JsonValueReader &reader, QVector<MotionPhase> &phases)
{
    phases.clear();
    reader.forEach([&](const JsonValueReader &element) {
        JsonObjectReader object(element);
        MotionPhase phase;
        if (!object.read("state", phase.state)) {
            element.complain(QStringLiteral("needs a state"));
        }
        const bool polls = object.read("polls", phase.polls, 1, mostTimes);
        const bool milliseconds = object.read("ms", phase.milliseconds, 1, longestDelay);
        if (polls && milliseconds) {
            element.complain(QStringLiteral("has both polls and ms"));
        }
        object.finish();
        phases.append(phase);
    });
    for (int i = 0; i + 1 < phases.size(); ++i) {
        if (phases[i].polls == 0 && phases[i].milliseconds == 0) {
            reader.complain(QStringLiteral("only the last state may last for ever"));
        }
    }
}

void readGimbal(const JsonValueReader &reader, Gimbal &gimbal)
{
    JsonObjectReader object(reader);
    object.with("deviceInfo", [&](const JsonValueReader &value) { readDeviceInfo(value, gimbal.deviceInfo); });
    object.with("state", [&](const JsonValueReader &value) { readGimbalState(value, gimbal.state); });
    object.read("escFlags", gimbal.escFlags);
    object.with("motion", [&](const JsonValueReader &value) {
        constexpr std::array<const char *, 3> axes{"roll", "pitch", "yaw"};
        JsonObjectReader motion(value);
        for (std::size_t i = 0; i < axes.size(); ++i) {
            motion.with(axes[i], [&](const JsonValueReader &phases) { readMotion(phases, gimbal.motion[i]); });
        }
        motion.finish();
    });
    object.finish();
}

void readTfCard(const JsonValueReader &reader, TfCard &card)
{
    JsonObjectReader object(reader);
    object.read("state", card.state);
    object.read("reason", card.reason);
    object.read("sectorSize", card.sectorSize);
    object.read("total", card.total);
    object.read("available", card.available);
    object.read("used", card.used);
    object.finish();
}

QByteArray hexadecimalContent(const JsonValueReader &reader)
{
    QString text;
    reader.read(text);
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(QStringLiteral("([0-9A-Fa-f]{2} *)+")));
    if (!pattern.match(text).hasMatch()) {
        reader.complain(QStringLiteral("must be pairs of hexadecimal digits"));
    }
    return QByteArray::fromHex(text.toLatin1());
}

void readEepromBlock(const JsonValueReader &reader, QVector<EepromBlock> &blocks)
{
    EepromBlock block;
    JsonObjectReader object(reader);
    if (!object.read("address", block.address, 0, Eeprom::size - 1)) {
        object.complain(QStringLiteral("needs an address"));
    }
    int contents = 0;
    contents += object.with("hex", [&](const JsonValueReader &value) { block.content = hexadecimalContent(value); });
    contents += object.with("text", [&](const JsonValueReader &value) {
        QString text;
        value.read(text);
        block.content = text.toUtf8();
    });
    contents += object.with("word", [&](const JsonValueReader &value) {
        std::uint32_t word = 0;
        value.read(word);
        for (int shift = 0; shift < 32; shift += 8) {
            block.content.append(static_cast<char>(word >> shift & 0xFF));
        }
    });
    contents += object.with("fill", [&](const JsonValueReader &value) {
        std::uint8_t byte = 0;
        int length = 1;
        value.read(byte);
        object.read("length", length, 1, Eeprom::size);
        block.content = QByteArray(length, static_cast<char>(byte));
    });
    object.finish();
    if (contents != 1) {
        object.complain(QStringLiteral("needs one of hex, text, word and fill"));
    }
    if (block.address + block.content.size() > Eeprom::size) {
        object.complain(QStringLiteral("reaches beyond the EEPROM's %1 bytes").arg(Eeprom::size));
    }
    blocks.append(block);
}

void readEeprom(const JsonValueReader &reader, Eeprom &eeprom)
{
    JsonObjectReader object(reader);
    object.with("blocks", [&](const JsonValueReader &value) {
        value.forEach([&](const JsonValueReader &block) { readEepromBlock(block, eeprom.blocks); });
    });
    object.finish();
}

void readWifi(const JsonValueReader &reader, Scenario &scenario)
{
    JsonObjectReader object(reader);
    object.with("ssid", [&](const JsonValueReader &value) { readNonEmpty(value, scenario.ssid, 32); });
    object.with("passphrase", [&](const JsonValueReader &value) { readNonEmpty(value, scenario.passphrase, 63); });
    object.finish();
}

/// An absolute path that stays below the root: it goes into a file system that is built on the user's disk.
bool isSafePath(const QString &path)
{
    if (!path.startsWith(QLatin1Char('/')) || path.contains(QChar::Null)) {
        return false;
    }
    const QStringList names = path.mid(1).split(QLatin1Char('/'));
    return std::none_of(names.begin(), names.end(), [](const QString &name) {
        return name.isEmpty() || name == QLatin1String(".") || name == QLatin1String("..") ||
               name.toUtf8().size() > 255;
    });
}

void complainAboutPath(const JsonValueReader &reader)
{
    reader.complain(QStringLiteral("must be an absolute path without empty, \".\" and \"..\" components"));
}

void readShellFiles(const JsonValueReader &reader, QMap<QString, QByteArray> &files)
{
    JsonObjectReader object(reader);
    object.forEach([&](const QString &path, const JsonValueReader &value) {
        if (!isSafePath(path)) {
            complainAboutPath(value);
        }
        QString text;
        value.read(text);
        files.insert(path, text.toUtf8());
    });
}

void readShellTrees(const JsonValueReader &reader, QVector<ShellTree> &trees)
{
    trees.clear();
    reader.forEach([&](const JsonValueReader &element) {
        JsonObjectReader object(element);
        ShellTree tree;
        const bool hasPath = object.with("path", [&](const JsonValueReader &value) {
            value.read(tree.path);
            if (!isSafePath(tree.path)) {
                complainAboutPath(value);
            }
        });
        if (!hasPath) {
            element.complain(QStringLiteral("needs a path"));
        }
        object.read("size", tree.size, 0, largestTree);
        object.read("seed", tree.seed);
        object.with("kind", [&](const JsonValueReader &value) { readEnum(value, treeKinds, tree.kind); });
        object.finish();
        trees.append(tree);
    });
}

void readShell(const JsonValueReader &reader, Shell &shell)
{
    JsonObjectReader object(reader);
    object.with("user", [&](const JsonValueReader &value) {
        value.read(shell.user);
        static const QRegularExpression pattern(
            QRegularExpression::anchoredPattern(QStringLiteral("[a-z_][a-z0-9_-]{0,30}")));
        if (!pattern.match(shell.user).hasMatch()) {
            value.complain(QStringLiteral("must be a user name of small letters, digits, - and _"));
        }
    });
    object.with("password", [&](const JsonValueReader &value) { readNonEmpty(value, shell.password, 64); });
    object.with("files", [&](const JsonValueReader &value) { readShellFiles(value, shell.files); });
    object.with("trees", [&](const JsonValueReader &value) { readShellTrees(value, shell.trees); });
    object.with("fault", [&](const JsonValueReader &value) { readEnum(value, shellFaults, shell.fault); });
    object.finish();
}

void readFtp(const JsonValueReader &reader, Ftp &ftp)
{
    JsonObjectReader object(reader);
    object.with("user", [&](const JsonValueReader &value) { readNonEmpty(value, ftp.user, 64); });
    object.with("password", [&](const JsonValueReader &value) { readNonEmpty(value, ftp.password, 64); });
    object.read("port", ftp.port, 1);
    object.with("fault", [&](const JsonValueReader &value) { readEnum(value, ftpFaults, ftp.fault); });
    object.finish();
}

void readTimes(const JsonValueReader &reader, std::optional<int> &times)
{
    if (reader.value().toString() == QLatin1String("always")) {
        times.reset();
        return;
    }
    if (reader.value().isString()) {
        reader.complain(QStringLiteral("must be a number or \"always\""));
        return;
    }
    int number = 1;
    reader.read(number, 1, mostTimes);
    times = number;
}

void readFaultKind(const JsonValueReader &reader, JsonObjectReader &object, Fault &fault)
{
    const FaultKindRow *row = nullptr;
    if (!object.with("kind", [&](const JsonValueReader &value) { row = readRow(value, faultKindTable); })) {
        reader.complain(QStringLiteral("needs a kind"));
    }
    if (row == nullptr) {
        return;
    }
    fault.kind = row->kind;
    if (*row->valueKey != '\0' && !object.read(row->valueKey, fault.value, row->lowest, row->highest)) {
        reader.complain(QStringLiteral("needs %1").arg(QLatin1String(row->valueKey)));
    }
}

Fault readFault(const JsonValueReader &reader, Command command)
{
    Fault fault;
    JsonObjectReader object(reader);
    readFaultKind(reader, object, fault);
    object.read("after", fault.after, 0, mostTimes);
    object.with("times", [&](const JsonValueReader &value) { readTimes(value, fault.times); });
    if (command == Command::ReadEEPROM) {
        object.with("address", [&](const JsonValueReader &value) {
            int address = 0;
            value.read(address, 0, 0xFFFF);
            fault.address = address;
        });
    }
    object.finish();
    return fault;
}

void readFaults(const JsonValueReader &reader, Scenario &scenario)
{
    JsonObjectReader object(reader);
    object.forEach([&](const QString &name, const JsonValueReader &value) {
        const std::optional<Command> command = commandNamed(name);
        if (!command) {
            value.complain(QStringLiteral("no such command"));
            return;
        }
        value.forEach([&](const JsonValueReader &element) {
            scenario.faults[commandIndex(*command)].append(readFault(element, *command));
        });
    });
}

void readReplyLoss(const JsonValueReader &reader, ReplyLoss &loss)
{
    JsonObjectReader object(reader);
    object.read("percent", loss.percent, 0, 100);
    object.read("seed", loss.seed);
    object.finish();
}

void readScenario(const JsonValueReader &reader, Scenario &scenario)
{
    JsonObjectReader object(reader);
    object.read("description", scenario.description);
    object.read("status", scenario.status);
    object.with("battery", [&](const JsonValueReader &value) { readBattery(value, scenario.battery); });
    object.with("gimbal", [&](const JsonValueReader &value) { readGimbal(value, scenario.gimbal); });
    object.with("tfCard", [&](const JsonValueReader &value) { readTfCard(value, scenario.tfCard); });
    object.with("eeprom", [&](const JsonValueReader &value) { readEeprom(value, scenario.eeprom); });
    object.with("wifi", [&](const JsonValueReader &value) { readWifi(value, scenario); });
    object.with("mac", [&](const JsonValueReader &value) { readNonEmpty(value, scenario.mac, 64); });
    object.with("shell", [&](const JsonValueReader &value) { readShell(value, scenario.shell); });
    object.with("ftp", [&](const JsonValueReader &value) { readFtp(value, scenario.ftp); });
    object.read("rebootSeconds", scenario.rebootSeconds, 0, 3600);
    object.with("replyLoss", [&](const JsonValueReader &value) { readReplyLoss(value, scenario.replyLoss); });
    object.with("faults", [&](const JsonValueReader &value) { readFaults(value, scenario); });
    object.finish();
}

QString syntaxError(const QByteArray &json, int offset, const QString &reason)
{
    const QByteArray before = json.left(offset);
    const int line = static_cast<int>(before.count('\n') + 1);
    const auto column = static_cast<int>(offset - before.lastIndexOf('\n'));
    return QStringLiteral("line %1, column %2 (offset %3): %4").arg(line).arg(column).arg(offset).arg(reason);
}
} // namespace

ScenarioResult parseScenario(const QByteArray &json)
{
    ScenarioResult result;
    // Before the parser sees it, which would also lose the memory of the value that it drops.
    if (const auto repeated = findRepeatedKey(json)) {
        result.error = syntaxError(json, repeated->offset, QStringLiteral("%1: is there twice").arg(repeated->name));
        return result;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        result.error = syntaxError(json, error.offset, error.errorString());
        return result;
    }
    if (!document.isObject()) {
        result.error = QStringLiteral("must be an object");
        return result;
    }
    JsonComplaint complaint;
    readScenario(JsonValueReader(document.object(), QString(), complaint), result.scenario);
    result.error = complaint.text();
    return result;
}

} // namespace emulator
