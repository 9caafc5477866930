#include "detector/checks/pcbaChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"

#include <array>
#include <QObject>

namespace {
constexpr std::array itemTable = {
    CheckItem{0, QT_TRANSLATE_NOOP("QObject", "Lens driver"), nullptr},
    CheckItem{1, QT_TRANSLATE_NOOP("QObject", "EEPROM"), checkPcbaEEprom},
    CheckItem{2, QT_TRANSLATE_NOOP("QObject", "Gimbal Main"), checkPcbaGimbalMain},
    CheckItem{3, QT_TRANSLATE_NOOP("QObject", "Gimbal ROLL"), checkPcbaGimbalRoll},
    CheckItem{4, QT_TRANSLATE_NOOP("QObject", "Gimbal PITCH"), checkPcbaPitch},
    CheckItem{5, QT_TRANSLATE_NOOP("QObject", "Gimbal YAW"), checkPcbaYawch},
    CheckItem{6, QT_TRANSLATE_NOOP("QObject", "Battery"), checkPcbaBattery},
};

/// A board's factory flag: how to ask for it, and its texts.
struct FactoryFlag
{
    bool (*query)(int *status); ///< whether the board passed; false if the query failed
    const char *queryFailed;
    const char *notSet;
    const char *passed;
};

bool sensorFlag(int *status)
{
    return Camera::Get()->sensorEEPromFactoryCheck(status);
}

/// Bit `position` of the controllers' flags.
template <int position>
bool controllerFlag(int *status)
{
    GimbalESCDevicesCheck check;
    *status = Camera::Get()->getGimbalESCDevicesCheck(&check);
    return (check.flags & (1U << position)) != 0;
}

bool batteryFlag(int *status)
{
    BatteryCheckResult check;
    *status = Camera::Get()->getBatteryEscFactoryCheck(&check);
    return check.result == 0; // unlike the other boards' flags: 0 means tested
}

constexpr FactoryFlag sensor = {
    sensorFlag,
    QT_TRANSLATE_NOOP("QObject", "获取工厂sensor检测标志位失败\n"),
    QT_TRANSLATE_NOOP("QObject", "工厂sensor未检测\n"),
    QT_TRANSLATE_NOOP("QObject", "工厂sensor检测OK\n"),
};
constexpr FactoryFlag gimbalMain = {
    controllerFlag<3>,
    QT_TRANSLATE_NOOP("QObject", "获取云台主控板工厂检测标志位失败\n"),
    QT_TRANSLATE_NOOP("QObject", "云台主控板工厂未检测\n"),
    QT_TRANSLATE_NOOP("QObject", "云台主控板工厂检测OK\n"),
};
constexpr FactoryFlag gimbalRoll = {
    controllerFlag<2>,
    QT_TRANSLATE_NOOP("QObject", "获取Roll轴电调板工厂检测标志位失败\n"),
    QT_TRANSLATE_NOOP("QObject", "Roll轴电调板工厂未检测\n"),
    QT_TRANSLATE_NOOP("QObject", "Roll轴电调板工厂检测OK\n"),
};
constexpr FactoryFlag gimbalPitch = {
    controllerFlag<1>,
    QT_TRANSLATE_NOOP("QObject", "获取Pitch轴电调板工厂检测标志位失败\n"),
    QT_TRANSLATE_NOOP("QObject", "Pitch轴电调板工厂未检测\n"),
    QT_TRANSLATE_NOOP("QObject", "Pitch轴电调板工厂检测OK\n"),
};
constexpr FactoryFlag gimbalYaw = {
    controllerFlag<0>,
    QT_TRANSLATE_NOOP("QObject", "获取Yaw轴电调板工厂检测标志位失败\n"),
    QT_TRANSLATE_NOOP("QObject", "Yaw轴电调板工厂未检测\n"),
    QT_TRANSLATE_NOOP("QObject", "Yaw轴电调板工厂检测OK\n"),
};
constexpr FactoryFlag battery = {
    batteryFlag,
    QT_TRANSLATE_NOOP("QObject", "获取电池工厂检测标志位失败\n"),
    QT_TRANSLATE_NOOP("QObject", "电池工厂未检测\n"),
    QT_TRANSLATE_NOOP("QObject", "电池工厂检测OK\n"),
};

QString checkFlag(const FactoryFlag &flag, int *verdict, QString &detail)
{
    detail.clear();
    *verdict = verdict::warning;
    int status = requestResult::success;
    const bool passed = flag.query(&status);
    if (status != requestResult::success) {
        return QObject::tr(flag.queryFailed);
    }
    if (!passed) {
        return QObject::tr(flag.notSet);
    }
    *verdict = verdict::ok;
    return QObject::tr(flag.passed);
}
} // namespace

QString checkPcba(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::pcba, verdict::warning, itemTable, verdict, items);
}

QString checkPcbaLenDriver(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}

QString checkPcbaEEprom(int *verdict, QString &detail)
{
    return checkFlag(sensor, verdict, detail);
}

QString checkPcbaGimbalMain(int *verdict, QString &detail)
{
    return checkFlag(gimbalMain, verdict, detail);
}

QString checkPcbaGimbalRoll(int *verdict, QString &detail)
{
    return checkFlag(gimbalRoll, verdict, detail);
}

QString checkPcbaPitch(int *verdict, QString &detail)
{
    return checkFlag(gimbalPitch, verdict, detail);
}

QString checkPcbaYawch(int *verdict, QString &detail)
{
    return checkFlag(gimbalYaw, verdict, detail);
}

QString checkPcbaBattery(int *verdict, QString &detail)
{
    return checkFlag(battery, verdict, detail);
}
