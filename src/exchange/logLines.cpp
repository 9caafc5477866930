#include "exchange/logLines.h"

#include "language/everyLanguage.h"
#include "plan/Limits.h"
#include "record/itemKeys.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace {
/// A text of the checks as a log may hold it.
QStringList textsOf(const QString &text, const char *sense = nullptr)
{
    return textInEveryLanguage("QObject", text, sense);
}

/// Likewise, of one that ends its line: without the line break.
QStringList linesOf(const char *line, const char *sense = nullptr)
{
    QStringList lines = textsOf(QString::fromUtf8(line) + QLatin1Char('\n'), sense);
    for (QString &text : lines) {
        text.chop(1);
    }
    return lines;
}

struct LoggedComponent
{
    int id;
    const char *name;
};

/// Those that leave a block.
constexpr std::array loggedComponents = {
    LoggedComponent{0, "Camera"}, LoggedComponent{1, "Gimbal"},  LoggedComponent{2, "Battery"},
    LoggedComponent{5, "Lens"},   LoggedComponent{6, "TF Card"}, LoggedComponent{8, "PCBA"},
};

struct LoggedItem
{
    int component;
    int item;
    const char *name;
    bool hasSteps;
};

constexpr std::array loggedItems = {
    LoggedItem{0, itemId::camera::video, "Video", false},
    LoggedItem{0, itemId::camera::factoryCheck, "Factory Check", true},
    LoggedItem{1, itemId::gimbal::mainLink, "Main connection", false},
    LoggedItem{1, itemId::gimbal::rollLink, "ROLL connection", false},
    LoggedItem{1, itemId::gimbal::pitchLink, "PITCH connection", false},
    LoggedItem{1, itemId::gimbal::yawLink, "YAW connection", false},
    LoggedItem{1, itemId::gimbal::motion, "Cation test", true},
    LoggedItem{2, itemId::battery::link, "Battery connection", false},
    LoggedItem{2, itemId::battery::status, "Battery status", false},
    LoggedItem{2, itemId::battery::info, "Battery Info", false},
    LoggedItem{5, itemId::lens::link, "Lens connection", false},
    LoggedItem{6, itemId::tfCard::usage, "Use condition", false},
    LoggedItem{6, itemId::tfCard::speed, "Literacy rate", false},
    LoggedItem{8, itemId::pcba::sensor, "EEPROM", false},
    LoggedItem{8, itemId::pcba::gimbalMain, "Gimbal Main", false},
    LoggedItem{8, itemId::pcba::gimbalRoll, "Gimbal ROLL", false},
    LoggedItem{8, itemId::pcba::gimbalPitch, "Gimbal PITCH", false},
    LoggedItem{8, itemId::pcba::gimbalYaw, "Gimbal YAW", false},
    LoggedItem{8, itemId::pcba::battery, "Battery", false},
};

const LoggedItem *findItem(int component, int item)
{
    const auto *row = std::find_if(loggedItems.begin(), loggedItems.end(), [component, item](const LoggedItem &entry) {
        return entry.component == component && entry.item == item;
    });
    return row == loggedItems.end() ? nullptr : row;
}

struct KnownLine
{
    int component;
    int item;
    Verdict verdict;
    const char *text;
};

constexpr Verdict passed = Verdict::Passed;
constexpr Verdict failed = Verdict::Failed;
constexpr Verdict warning = Verdict::Warning;

constexpr std::array knownLines = {
    KnownLine{0, itemId::camera::video, failed, "获取相机视频流状态失败"},
    KnownLine{0, itemId::camera::video, failed, "相机视频流NG"},
    KnownLine{0, itemId::camera::video, passed, "相机视频流OK"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机MTF检测签名失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "相机MTF检测未签名"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机MTF检测数据失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机MTF检测Crc校验值失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "相机MTF测试Crc校验值有误"},
    KnownLine{0, itemId::camera::factoryCheck, passed, "相机MTF测试成功"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机暗斑检测签名失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "相机暗斑检测未签名"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机暗斑检测数据失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机暗斑检测Crc校验值失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "相机暗斑检测Crc校验值有误"},
    KnownLine{0, itemId::camera::factoryCheck, passed, "相机暗斑检测成功"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取白平衡检测签名失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "相机白平衡检测未签名"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机白平衡检测数据失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取相机白平衡检测Crc校验值失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "相机白平衡检测Crc校验值有误"},
    KnownLine{0, itemId::camera::factoryCheck, passed, "相机白平衡检测成功"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "获取Focus检测签名失败"},
    KnownLine{0, itemId::camera::factoryCheck, failed, "相机Focus检测未签名"},
    KnownLine{0, itemId::camera::factoryCheck, passed, "相机Focus检测成功"},
    KnownLine{1, itemId::gimbal::mainLink, failed, "获取云台主控通信状态失败"},
    KnownLine{1, itemId::gimbal::mainLink, failed, "云台主控通信失败"},
    KnownLine{1, itemId::gimbal::mainLink, passed, "云台主控通信OK"},
    KnownLine{1, itemId::gimbal::rollLink, failed, "获取Roll轴通信状态失败"},
    KnownLine{1, itemId::gimbal::rollLink, failed, "Roll轴通信异常"},
    KnownLine{1, itemId::gimbal::rollLink, passed, "Roll轴通信OK"},
    KnownLine{1, itemId::gimbal::pitchLink, failed, "获取Pitch轴通信状态失败"},
    KnownLine{1, itemId::gimbal::pitchLink, failed, "Pitch轴通信异常"},
    KnownLine{1, itemId::gimbal::pitchLink, passed, "Pitch轴通信OK"},
    KnownLine{1, itemId::gimbal::yawLink, failed, "获取Yaw轴通信状态失败"},
    KnownLine{1, itemId::gimbal::yawLink, failed, "Yaw轴通信异常"},
    KnownLine{1, itemId::gimbal::yawLink, passed, "Yaw轴通信OK"},
    KnownLine{1, itemId::gimbal::motion, passed, "Roll轴运动检测OK"},
    KnownLine{1, itemId::gimbal::motion, failed, "Roll轴运动检测超时"},
    KnownLine{1, itemId::gimbal::motion, failed, "Roll轴运动检测NG"},
    KnownLine{1, itemId::gimbal::motion, passed, "Pitch轴运动检测OK"},
    KnownLine{1, itemId::gimbal::motion, failed, "Pitch轴运动检测超时"},
    KnownLine{1, itemId::gimbal::motion, failed, "Pitch轴运动检测NG"},
    KnownLine{1, itemId::gimbal::motion, passed, "Yaw轴运动检测OK"},
    KnownLine{1, itemId::gimbal::motion, failed, "Yaw轴运动检测超时"},
    KnownLine{2, itemId::battery::link, failed, "获取电池通信状态失败"},
    KnownLine{2, itemId::battery::link, failed, "相机电池通信NG"},
    KnownLine{2, itemId::battery::link, passed, "相机电池通信OK"},
    KnownLine{2, itemId::battery::status, failed, "获取电池状态失败"},
    KnownLine{2, itemId::battery::status, passed, "获取电池状态成功"},
    KnownLine{2, itemId::battery::info, failed, "获取电池信息失败"},
    KnownLine{2, itemId::battery::info, passed, "获取电池信息成功"},
    KnownLine{5, itemId::lens::link, failed, "获取相机镜头状态失败"},
    KnownLine{5, itemId::lens::link, failed, "相机镜头连接失败"},
    KnownLine{5, itemId::lens::link, passed, "相机通信正常"},
    KnownLine{6, itemId::tfCard::usage, failed, "获取TF卡状态失败"},
    KnownLine{6, itemId::tfCard::usage, failed, "获取TF卡使用状态失败"},
    KnownLine{6, itemId::tfCard::speed, failed, "mount SD Card faild"},
    KnownLine{6, itemId::tfCard::speed, failed, "SD卡未挂载"},
    KnownLine{6, itemId::tfCard::speed, failed, "获取SD卡信息失败"},
    KnownLine{6, itemId::tfCard::speed, passed, "SD Card OK"},
    KnownLine{6, itemId::tfCard::speed, warning, "警告:非高SD速卡"},
    KnownLine{8, itemId::pcba::sensor, warning, "获取工厂sensor检测标志位失败"},
    KnownLine{8, itemId::pcba::sensor, warning, "工厂sensor未检测"},
    KnownLine{8, itemId::pcba::sensor, passed, "工厂sensor检测OK"},
    KnownLine{8, itemId::pcba::gimbalMain, warning, "获取云台主控板工厂检测标志位失败"},
    KnownLine{8, itemId::pcba::gimbalMain, warning, "云台主控板工厂未检测"},
    KnownLine{8, itemId::pcba::gimbalMain, passed, "云台主控板工厂检测OK"},
    KnownLine{8, itemId::pcba::gimbalRoll, warning, "获取Roll轴电调板工厂检测标志位失败"},
    KnownLine{8, itemId::pcba::gimbalRoll, warning, "Roll轴电调板工厂未检测"},
    KnownLine{8, itemId::pcba::gimbalRoll, passed, "Roll轴电调板工厂检测OK"},
    KnownLine{8, itemId::pcba::gimbalPitch, warning, "获取Pitch轴电调板工厂检测标志位失败"},
    KnownLine{8, itemId::pcba::gimbalPitch, warning, "Pitch轴电调板工厂未检测"},
    KnownLine{8, itemId::pcba::gimbalPitch, passed, "Pitch轴电调板工厂检测OK"},
    KnownLine{8, itemId::pcba::gimbalYaw, warning, "获取Yaw轴电调板工厂检测标志位失败"},
    KnownLine{8, itemId::pcba::gimbalYaw, warning, "Yaw轴电调板工厂未检测"},
    KnownLine{8, itemId::pcba::gimbalYaw, passed, "Yaw轴电调板工厂检测OK"},
    KnownLine{8, itemId::pcba::battery, warning, "获取电池工厂检测标志位失败"},
    KnownLine{8, itemId::pcba::battery, warning, "电池工厂未检测"},
    KnownLine{8, itemId::pcba::battery, passed, "电池工厂检测OK"},
};

/// Null if the line is none of them; each is of one component alone.
const KnownLine *knownLineOf(const QString &line)
{
    static const QHash<QString, const KnownLine *> byText = [] {
        QHash<QString, const KnownLine *> texts;
        for (const KnownLine &known : knownLines) {
            const QStringList lines = linesOf(known.text) + linesOf(known.text, "of the yaw axis");
            for (const QString &text : lines) {
                texts.insert(text, &known);
            }
        }
        return texts;
    }();
    return byText.value(line);
}

/// Of a card that is not ready. The text of its state has no line break of its own: only that of the reason ends the
/// line.
constexpr std::array cardStates = {"SD卡被拔出", "SD卡初始化中", "SD卡初始化完成", "SD卡格式化中", "SD卡修复中",
                                   "SD卡错误",   "SD卡复用中",   "SD卡写保护中",   "SD卡满"};
constexpr std::array cardReasons = {",错误原因:SD卡碎片严重",       ",错误原因:SD卡簇错误",
                                    ",错误原因:SD卡文件系统错误",   ",错误原因:SD卡低速卡",
                                    ",错误原因:SD卡挂载失败",       ",错误原因:SD卡存储系统错误",
                                    ",错误原因:SD卡文件系统不支持", ",错误原因:SD卡修复文件失败"};

/// The first of `texts` that `line` goes on with at `from`; empty if there is none.
QString textAt(const QString &line, qsizetype from, const QStringList &texts)
{
    for (const QString &text : texts) {
        if (QStringView(line).mid(from).startsWith(text)) {
            return text;
        }
    }
    return {};
}

template <std::size_t size, class TextsOf>
QStringList inEveryLanguage(const std::array<const char *, size> &texts, TextsOf textsOfOne)
{
    QStringList all;
    for (const char *const text : texts) {
        all += textsOfOne(text);
    }
    return all;
}

std::optional<VerdictLine> readCardState(const QString &line)
{
    static const QStringList states =
        inEveryLanguage(cardStates, [](const char *text) { return textsOf(QString::fromUtf8(text)); });
    static const QStringList reasons = inEveryLanguage(cardReasons, [](const char *text) { return linesOf(text); });
    const QString state = textAt(line, 0, states);
    const QString reason = textAt(line, state.size(), reasons);
    if (state.isEmpty() && reason.isEmpty()) {
        return {};
    }
    const QString message = state + reason;
    const QString rest = line.mid(message.size());
    return VerdictLine{itemId::tfCard::usage, failed, reason.isEmpty() ? message : message + QLatin1Char('\n'), rest,
                       false};
}

enum class Shown { Decimal, Hexadecimal, Text };

struct ReportLine
{
    int component;
    int item;
    const char *line; ///< with places for its value
    Field field;
    Shown shown = Shown::Decimal;
};

constexpr int cardComponent = 6;
/// A card that is ready shows its report and nothing else, from this line on.
constexpr const char *firstCardLine = "扇区大小:%1K";

constexpr int batteryStatus = itemId::battery::status;
constexpr int batteryInfo = itemId::battery::info;

constexpr std::array reportLines = {
    ReportLine{2, batteryStatus, "electric quantity:%1%", Field::BatteryCharge},
    ReportLine{2, batteryStatus, "voltage:%1V", Field::BatteryVoltage},
    ReportLine{2, batteryStatus, "electricity:%1mA", Field::BatteryCurrent},
    ReportLine{2, batteryStatus, "temperature:%1℃", Field::BatteryTemperature},
    ReportLine{2, batteryStatus, "充电至满时间:%1min", Field::BatteryTimeToFull},
    ReportLine{2, batteryStatus, "放电至空时间:%1min", Field::BatteryTimeToEmpty},
    ReportLine{2, batteryInfo, "Sub_ID:0x%1", Field::BatterySubId, Shown::Hexadecimal},
    ReportLine{2, batteryInfo, "version Info:0x%1", Field::BatteryVersionInfo, Shown::Hexadecimal},
    ReportLine{2, batteryInfo, "software version:%1.%2.%3.%4", Field::BatterySoftwareVersion, Shown::Text},
    ReportLine{2, batteryInfo, "hardware version:%1.%2.%3.%4", Field::BatteryHardwareVersion, Shown::Text},
    ReportLine{2, batteryInfo, "electric quantity :%1%", Field::BatteryCharge},
    ReportLine{2, batteryInfo, "voltage:%1V", Field::BatteryVoltage},
    ReportLine{2, batteryInfo, "electricity:%1mA", Field::BatteryCurrent},
    ReportLine{2, batteryInfo, "temperature:%1℃", Field::BatteryTemperature},
    ReportLine{2, batteryInfo, "至空时间:%1min", Field::BatteryTimeToEmpty},
    ReportLine{2, batteryInfo, "至满时间:%1min", Field::BatteryTimeToFull},
    ReportLine{2, batteryInfo, "设备类型:0x%1", Field::BatteryDeviceType, Shown::Hexadecimal},
    ReportLine{2, batteryInfo, "电池固件信息:0x%1", Field::BatteryFirmwareInfo, Shown::Hexadecimal},
    ReportLine{2, batteryInfo, "电池硬件信息:0x%1", Field::BatteryHardwareInfo, Shown::Hexadecimal},
    ReportLine{2, batteryInfo, "循环次数:%1", Field::BatteryCycles},
    ReportLine{2, batteryInfo, "满电容量:%1mAh", Field::BatteryCapacity},
    ReportLine{2, batteryInfo, "制造商:0x%1", Field::BatteryManufacturer, Shown::Hexadecimal},
    ReportLine{6, itemId::tfCard::usage, firstCardLine, Field::CardSectorSize},
    ReportLine{6, itemId::tfCard::usage, "总内存:%1MB", Field::CardTotal},
    ReportLine{6, itemId::tfCard::usage, "可用内存:%1MB", Field::CardAvailable},
    ReportLine{6, itemId::tfCard::usage, "已用内存:%1MB", Field::CardUsed},
};

/// A line of the report as one language has it.
struct Frame
{
    QString begin; ///< before the value
    QString end;
};

/// Its lines in every language.
QList<Frame> framesOf(const char *line)
{
    static const QRegularExpression places(QStringLiteral("%[1-9](?:\\.%[1-9])*"));
    QList<Frame> frames;
    const QStringList lines = linesOf(line);
    for (const QString &text : lines) {
        const QRegularExpressionMatch match = places.match(text);
        frames.append({text.left(match.capturedStart()), text.mid(match.capturedEnd())});
    }
    return frames;
}

/// In the order of `reportLines`.
const std::array<QList<Frame>, reportLines.size()> &reportFrames()
{
    static const auto all = [] {
        std::array<QList<Frame>, reportLines.size()> frames;
        for (std::size_t i = 0; i < reportLines.size(); ++i) {
            frames.at(i) = framesOf(reportLines.at(i).line);
        }
        return frames;
    }();
    return all;
}

/// What stands between; empty if the line is another one.
QString valueIn(const QString &line, const QList<Frame> &frames)
{
    for (const auto &[begin, end] : frames) {
        if (line.startsWith(begin) && line.endsWith(end) && line.size() > begin.size() + end.size()) {
            return line.mid(begin.size(), line.size() - begin.size() - end.size());
        }
    }
    return {};
}

bool beginsCardReport(const QString &line)
{
    static const QList<Frame> frames = framesOf(firstCardLine);
    return std::any_of(frames.begin(), frames.end(),
                       [&line](const Frame &frame) { return line.startsWith(frame.begin); });
}

std::optional<Measurement> readValue(Field field, Shown shown, const QString &value)
{
    constexpr int hexadecimal = 16;
    if (shown == Shown::Text) {
        return measured(field, value);
    }
    bool isNumber = false;
    const double number = shown == Shown::Hexadecimal ? static_cast<double>(value.toULongLong(&isNumber, hexadecimal))
                                                      : value.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional<Measurement>(measured(field, number)) : std::nullopt;
}
} // namespace

std::optional<int> componentOfHeading(QStringView line)
{
    static const QHash<QString, int> headings = [] {
        QHash<QString, int> texts;
        for (const LoggedComponent &component : loggedComponents) {
            const QStringList names = textsOf(QLatin1String(component.name));
            for (const QString &name : names) {
                texts.insert(QStringLiteral("[%1]:").arg(name), component.id);
            }
        }
        return texts;
    }();
    const auto found = headings.constFind(line.toString());
    return found == headings.constEnd() ? std::nullopt : std::optional<int>(*found);
}

QString componentHeadingName(int component)
{
    for (const LoggedComponent &entry : loggedComponents) {
        if (entry.id == component) {
            return QString::fromLatin1(entry.name);
        }
    }
    return {};
}

QString loggedItemName(int component, int item)
{
    const LoggedItem *row = findItem(component, item);
    return row == nullptr ? QString() : QString::fromLatin1(row->name);
}

bool hasSteps(int component, int item)
{
    const LoggedItem *row = findItem(component, item);
    return row != nullptr && row->hasSteps;
}

std::optional<VerdictLine> readVerdictLine(int component, const QString &line)
{
    const KnownLine *known = knownLineOf(line);
    if (known != nullptr && known->component == component) {
        return VerdictLine{known->item, known->verdict, line + QLatin1Char('\n'), {}, false};
    }
    if (component != cardComponent) {
        return {};
    }
    if (beginsCardReport(line)) {
        return VerdictLine{itemId::tfCard::usage, passed, {}, {}, true};
    }
    return readCardState(line);
}

std::optional<Measurement> readReportLine(int component, int item, const QString &line)
{
    for (std::size_t i = 0; i < reportLines.size(); ++i) {
        const ReportLine &row = reportLines.at(i);
        if (row.component != component || row.item != item) {
            continue;
        }
        const QString value = valueIn(line, reportFrames().at(i));
        if (!value.isEmpty()) {
            return readValue(row.field, row.shown, value);
        }
    }
    return {};
}

std::optional<Measurement> readLimitLine(const QString &line)
{
    const auto colon = static_cast<int>(line.indexOf(QLatin1String(": ")));
    const auto bracket = static_cast<int>(line.lastIndexOf(QLatin1String(" (")));
    if (colon < 0 || bracket <= colon || !line.endsWith(QLatin1Char(')'))) {
        return {};
    }
    const QString name = line.left(colon);
    const QString limitText = line.mid(bracket + 2, line.size() - bracket - 3);
    const Limits limits = readLimits({{name, limitText}}, {});
    const FieldInfo *field = findField(name);
    if (field == nullptr || limits.byName.isEmpty()) {
        return {};
    }
    QString value = line.mid(colon + 2, bracket - colon - 2);
    const QString unit = QString::fromUtf8(field->unit);
    if (!unit.isEmpty() && value.endsWith(QLatin1Char(' ') + unit)) {
        value.chop(unit.size() + 1);
    }
    const bool isText = field->kind == FieldInfo::Kind::Text;
    std::optional<Measurement> read = readValue(field->field, isText ? Shown::Text : Shown::Decimal, value);
    if (read) {
        read->limit = limits.byName.first();
    }
    return read;
}
