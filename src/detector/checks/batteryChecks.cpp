#include "detector/checks/batteryChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/noteRequest.h"
#include "detector/checks/reportNumber.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <array>
#include <cstdint>
#include <QDebug>
#include <QObject>

namespace {
constexpr StatusBit batteryLink = {
    3,
    {QT_TRANSLATE_NOOP("QObject", "获取电池通信状态失败\n"), QT_TRANSLATE_NOOP("QObject", "相机电池通信NG\n"),
     QT_TRANSLATE_NOOP("QObject", "相机电池通信OK\n")},
};

const QLatin1String reportStart("++++++++++\n");
const QLatin1String reportEnd("----------\n\n");

// As reportNumber(), for what is not shown as a decimal number.

void reportHex(CheckItemLog &item, const QString &line, Field field, unsigned int value)
{
    item.measurements.append(measured(field, value));
    item.detail += line.arg(QString::number(value, 16));
}

/// `value`: a version word; `line` shows its four bytes, the most significant first.
void reportVersion(CheckItemLog &item, const QString &line, Field field, std::uint32_t value)
{
    const auto filled = [value](const QString &text) {
        return text.arg(value >> 24).arg((value >> 16) & 0xFFU).arg((value >> 8) & 0xFFU).arg(value & 0xFFU);
    };
    item.measurements.append(measured(field, filled(QStringLiteral("%1.%2.%3.%4"))));
    item.detail += filled(line);
}

void reportContact(CheckItemLog &item, const QString &line, Field field, std::uint8_t plugged, const QString &absent,
                   const QString &present)
{
    item.measurements.append(measured(field, plugged));
    item.detail += line.arg(plugged == 0 ? absent : present);
}

/// getBatteryWar() begins in Chinese, whatever language is spoken.
QString warningsText(std::uint32_t warningBits)
{
    static const QString inGoodOrder = getBatteryWar(0);
    return QObject::tr("状态良好") + getBatteryWar(warningBits).mid(inGoodOrder.size());
}

/// The three lines that both reports share: volts, milliamperes, degrees Celsius.
template <class Record>
void reportElectrics(CheckItemLog &item, const Record &record)
{
    reportNumber(item, QObject::tr("voltage:%1V\n"), Field::BatteryVoltage, record.voltage / 1000.0);
    reportNumber(item, QObject::tr("electricity:%1mA\n"), Field::BatteryCurrent, record.current);
    reportNumber(item, QObject::tr("temperature:%1℃\n"), Field::BatteryTemperature, record.temperature / 100.0);
}

/// Reads a record of the battery by `query` and has `report` fill the lines of its report.
template <class Record, class Report>
void checkReport(CheckItemLog &item, int (Camera::*query)(Record *), const char *failed, const char *passed,
                 Report report)
{
    Record record;
    if (noteRequest(item, (*Camera::Get().*query)(&record)) != requestResult::success) {
        item.result = verdict::failed;
        item.message = QObject::tr(failed);
        return;
    }
    item.detail += reportStart;
    report(record);
    item.detail += reportEnd;
    qDebug().noquote() << item.detail;
    item.result = verdict::ok;
    item.message = QObject::tr(passed);
}

void checkStatus(CheckItemLog &item)
{
    checkReport(
        item, &Camera::getBatteryStatus, QT_TRANSLATE_NOOP("QObject", "获取电池状态失败\n"),
        QT_TRANSLATE_NOOP("QObject", "获取电池状态成功\n"), [&item](const BatteryStatus &status) {
            reportNumber(item, QObject::tr("electric quantity:%1%\n"), Field::BatteryCharge, status.charge);
            reportElectrics(item, status);
            reportNumber(item, QObject::tr("充电至满时间:%1min\n"), Field::BatteryTimeToFull, status.minutesToFull);
            reportNumber(item, QObject::tr("放电至空时间:%1min\n"), Field::BatteryTimeToEmpty, status.minutesToEmpty);
        });
}

void reportInfo(CheckItemLog &item, const BatteryInfo &info)
{
    reportHex(item, QObject::tr("Sub_ID:0x%1\n"), Field::BatterySubId, info.subId);
    reportHex(item, QObject::tr("version Info:0x%1\n"), Field::BatteryVersionInfo, info.versionInfo);
    reportVersion(item, QObject::tr("software version:%1.%2.%3.%4\n"), Field::BatterySoftwareVersion,
                  info.softwareVersion);
    reportVersion(item, QObject::tr("hardware version:%1.%2.%3.%4\n"), Field::BatteryHardwareVersion,
                  info.hardwareVersion);
    reportNumber(item, QObject::tr("electric quantity :%1%\n"), Field::BatteryCharge, info.charge);
    reportElectrics(item, info);
    reportNumber(item, QObject::tr("至空时间:%1min\n"), Field::BatteryTimeToEmpty, info.minutesToEmpty);
    reportNumber(item, QObject::tr("至满时间:%1min\n"), Field::BatteryTimeToFull, info.minutesToFull);
    reportHex(item, QObject::tr("设备类型:0x%1\n"), Field::BatteryDeviceType, info.deviceType);
    reportHex(item, QObject::tr("电池固件信息:0x%1\n"), Field::BatteryFirmwareInfo, info.firmwareInfo);
    reportHex(item, QObject::tr("电池硬件信息:0x%1\n"), Field::BatteryHardwareInfo, info.hardwareInfo);
    reportNumber(item, QObject::tr("循环次数:%1\n"), Field::BatteryCycles, info.cycleCount);
    reportNumber(item, QObject::tr("满电容量:%1mAh\n"), Field::BatteryCapacity, info.fullCapacity);
    reportHex(item, QObject::tr("制造商:0x%1\n"), Field::BatteryManufacturer, info.manufacturer);
    item.measurements.append(measured(Field::BatteryWarningBits, info.warningBits));
    item.detail += QObject::tr("电池警告:%1\n").arg(warningsText(info.warningBits));
    reportContact(item, QObject::tr("充电器状态:%1\n"), Field::BatteryCharger, info.charger,
                  QObject::tr("充电器未插入"), QObject::tr("充电器插入"));
    reportContact(item, QObject::tr("麦克风状态:%1\n"), Field::BatteryMicrophone, info.microphone,
                  QObject::tr("麦克风未插入"), QObject::tr("麦克风插入"));
    reportContact(item, QObject::tr("POGO_PIN状态:%1\n"), Field::BatteryPogoPin, info.pogoPin,
                  QObject::tr("未插入外设"), QObject::tr("已插入外设"));
}

void checkInfo(CheckItemLog &item)
{
    checkReport(item, &Camera::getBatteryInfo, QT_TRANSLATE_NOOP("QObject", "获取电池信息失败\n"),
                QT_TRANSLATE_NOOP("QObject", "获取电池信息成功\n"),
                [&item](const BatteryInfo &info) { reportInfo(item, info); });
}

constexpr std::array itemTable = {
    CheckItem{itemId::battery::link, QT_TRANSLATE_NOOP("QObject", "Battery connection"), checkStatusBit<batteryLink>},
    CheckItem{itemId::battery::status, QT_TRANSLATE_NOOP("QObject", "Battery status"), checkStatus},
    CheckItem{itemId::battery::info, QT_TRANSLATE_NOOP("QObject", "Battery Info"), checkInfo},
    CheckItem{itemId::battery::charge, QT_TRANSLATE_NOOP("QObject", "Charge"), nullptr},
};
} // namespace

QString checkBattery(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::battery, verdict::failed, itemTable, verdict, items);
}

QList<int> batteryItems()
{
    return itemsOf(itemTable);
}

QString checkBatteryNet(int *verdict, QString &detail)
{
    return checkItem(checkStatusBit<batteryLink>, verdict, detail);
}

QString checkBatteryStatus(int *verdict, QString &detail)
{
    return checkItem(checkStatus, verdict, detail);
}

QString checkBatteryInfo(int *verdict, QString &detail)
{
    return checkItem(checkInfo, verdict, detail);
}

QString checkBatteryCharge(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}
