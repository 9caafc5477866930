#include "detector/checks/batteryChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"

#include <array>
#include <cstdint>
#include <QDebug>
#include <QObject>

namespace {
constexpr std::array itemTable = {
    CheckItem{0, QT_TRANSLATE_NOOP("QObject", "Battery connection"), checkBatteryNet},
    CheckItem{1, QT_TRANSLATE_NOOP("QObject", "Battery status"), checkBatteryStatus},
    CheckItem{2, QT_TRANSLATE_NOOP("QObject", "Battery Info"), checkBatteryInfo},
    CheckItem{3, QT_TRANSLATE_NOOP("QObject", "Charge"), nullptr},
};

constexpr StatusBit batteryLink = {
    3,
    QT_TRANSLATE_NOOP("QObject", "获取电池通信状态失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机电池通信NG\n"),
    QT_TRANSLATE_NOOP("QObject", "相机电池通信OK\n"),
};

const QLatin1String reportStart("++++++++++\n");
const QLatin1String reportEnd("----------\n\n");

QString hex(unsigned int value)
{
    return QString::number(value, 16);
}

/// A report line with a version word's four bytes, the most significant first.
QString versionLine(const QString &line, std::uint32_t version)
{
    return line.arg(version >> 24).arg((version >> 16) & 0xFFU).arg((version >> 8) & 0xFFU).arg(version & 0xFFU);
}

/// The three lines that both reports share: volts, milliamperes, degrees Celsius.
template <class Record>
QString measurements(const Record &record)
{
    return QObject::tr("voltage:%1V\n").arg(record.voltage / 1000.0) +
           QObject::tr("electricity:%1mA\n").arg(record.current) +
           QObject::tr("temperature:%1℃\n").arg(record.temperature / 100.0);
}

QString contact(std::uint8_t plugged, const QString &absent, const QString &present)
{
    return plugged == 0 ? absent : present;
}
} // namespace

QString checkBattery(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::battery, verdict::failed, itemTable, verdict, items);
}

QString checkBatteryNet(int *verdict, QString &detail)
{
    return checkStatusBit(batteryLink, verdict, detail);
}

QString checkBatteryStatus(int *verdict, QString &detail)
{
    detail.clear();
    BatteryStatus status;
    if (Camera::Get()->getBatteryStatus(&status) != requestResult::success) {
        *verdict = verdict::failed;
        return QObject::tr("获取电池状态失败\n");
    }
    detail += reportStart;
    detail += QObject::tr("electric quantity:%1%\n").arg(status.charge);
    detail += measurements(status);
    detail += QObject::tr("充电至满时间:%1min\n").arg(status.minutesToFull);
    detail += QObject::tr("放电至空时间:%1min\n").arg(status.minutesToEmpty);
    detail += reportEnd;
    qDebug().noquote() << detail;
    *verdict = verdict::ok;
    return QObject::tr("获取电池状态成功\n");
}

QString checkBatteryInfo(int *verdict, QString &detail)
{
    detail.clear();
    BatteryInfo info;
    if (Camera::Get()->getBatteryInfo(&info) != requestResult::success) {
        *verdict = verdict::failed;
        return QObject::tr("获取电池信息失败\n");
    }
    detail += reportStart;
    detail += QObject::tr("Sub_ID:0x%1\n").arg(hex(info.subId));
    detail += QObject::tr("version Info:0x%1\n").arg(hex(info.versionInfo));
    detail += versionLine(QObject::tr("software version:%1.%2.%3.%4\n"), info.softwareVersion);
    detail += versionLine(QObject::tr("hardware version:%1.%2.%3.%4\n"), info.hardwareVersion);
    detail += QObject::tr("electric quantity :%1%\n").arg(info.charge);
    detail += measurements(info);
    detail += QObject::tr("至空时间:%1min\n").arg(info.minutesToEmpty);
    detail += QObject::tr("至满时间:%1min\n").arg(info.minutesToFull);
    detail += QObject::tr("设备类型:0x%1\n").arg(hex(info.deviceType));
    detail += QObject::tr("电池固件信息:0x%1\n").arg(hex(info.firmwareInfo));
    detail += QObject::tr("电池硬件信息:0x%1\n").arg(hex(info.hardwareInfo));
    detail += QObject::tr("循环次数:%1\n").arg(info.cycleCount);
    detail += QObject::tr("满电容量:%1mAh\n").arg(info.fullCapacity);
    detail += QObject::tr("制造商:0x%1\n").arg(hex(info.manufacturer));
    detail += QObject::tr("电池警告:%1\n").arg(getBatteryWar(info.warningBits));
    detail += QObject::tr("充电器状态:%1\n")
                  .arg(contact(info.charger, QObject::tr("充电器未插入"), QObject::tr("充电器插入")));
    detail += QObject::tr("麦克风状态:%1\n")
                  .arg(contact(info.microphone, QObject::tr("麦克风未插入"), QObject::tr("麦克风插入")));
    detail += QObject::tr("POGO_PIN状态:%1\n")
                  .arg(contact(info.pogoPin, QObject::tr("未插入外设"), QObject::tr("已插入外设")));
    detail += reportEnd;
    qDebug().noquote() << detail;
    *verdict = verdict::ok;
    return QObject::tr("获取电池信息成功\n");
}

QString checkBatteryCharge(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}
