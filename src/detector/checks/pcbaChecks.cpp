#include "detector/checks/pcbaChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/judgeAnswer.h"
#include "detector/checks/noteRequest.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <array>
#include <QObject>

namespace {
/// A board's factory flag: how to ask for it, and what is told about it.
struct FactoryFlag
{
    bool (*query)(int *status); ///< whether the board passed; false if the query failed
    Field field;
    AnswerTexts texts;
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
    Field::PcbaSensor,
    {QT_TRANSLATE_NOOP("QObject", "获取工厂sensor检测标志位失败\n"), QT_TRANSLATE_NOOP("QObject", "工厂sensor未检测\n"),
     QT_TRANSLATE_NOOP("QObject", "工厂sensor检测OK\n")},
};
constexpr FactoryFlag gimbalMain = {
    controllerFlag<3>,
    Field::PcbaGimbalMain,
    {QT_TRANSLATE_NOOP("QObject", "获取云台主控板工厂检测标志位失败\n"),
     QT_TRANSLATE_NOOP("QObject", "云台主控板工厂未检测\n"), QT_TRANSLATE_NOOP("QObject", "云台主控板工厂检测OK\n")},
};
constexpr FactoryFlag gimbalRoll = {
    controllerFlag<2>,
    Field::PcbaGimbalRoll,
    {QT_TRANSLATE_NOOP("QObject", "获取Roll轴电调板工厂检测标志位失败\n"),
     QT_TRANSLATE_NOOP("QObject", "Roll轴电调板工厂未检测\n"),
     QT_TRANSLATE_NOOP("QObject", "Roll轴电调板工厂检测OK\n")},
};
constexpr FactoryFlag gimbalPitch = {
    controllerFlag<1>,
    Field::PcbaGimbalPitch,
    {QT_TRANSLATE_NOOP("QObject", "获取Pitch轴电调板工厂检测标志位失败\n"),
     QT_TRANSLATE_NOOP("QObject", "Pitch轴电调板工厂未检测\n"),
     QT_TRANSLATE_NOOP("QObject", "Pitch轴电调板工厂检测OK\n")},
};
constexpr FactoryFlag gimbalYaw = {
    controllerFlag<0>,
    Field::PcbaGimbalYaw,
    {QT_TRANSLATE_NOOP("QObject", "获取Yaw轴电调板工厂检测标志位失败\n"),
     QT_TRANSLATE_NOOP("QObject", "Yaw轴电调板工厂未检测\n"), QT_TRANSLATE_NOOP("QObject", "Yaw轴电调板工厂检测OK\n")},
};
constexpr FactoryFlag battery = {
    batteryFlag,
    Field::PcbaBattery,
    {QT_TRANSLATE_NOOP("QObject", "获取电池工厂检测标志位失败\n"), QT_TRANSLATE_NOOP("QObject", "电池工厂未检测\n"),
     QT_TRANSLATE_NOOP("QObject", "电池工厂检测OK\n")},
};

template <const FactoryFlag &flag>
void checkFlag(CheckItemLog &item)
{
    int status = requestResult::success;
    const bool passed = flag.query(&status);
    if (noteRequest(item, status) == requestResult::success) {
        item.measurements.append(measured(flag.field, passed ? 1 : 0));
    }
    judgeAnswer(item, status, passed, flag.texts, verdict::warning);
}

constexpr std::array itemTable = {
    CheckItem{itemId::pcba::lensDriver, QT_TRANSLATE_NOOP("QObject", "Lens driver"), nullptr},
    CheckItem{itemId::pcba::sensor, QT_TRANSLATE_NOOP("QObject", "EEPROM"), checkFlag<sensor>},
    CheckItem{itemId::pcba::gimbalMain, QT_TRANSLATE_NOOP("QObject", "Gimbal Main"), checkFlag<gimbalMain>},
    CheckItem{itemId::pcba::gimbalRoll, QT_TRANSLATE_NOOP("QObject", "Gimbal ROLL"), checkFlag<gimbalRoll>},
    CheckItem{itemId::pcba::gimbalPitch, QT_TRANSLATE_NOOP("QObject", "Gimbal PITCH"), checkFlag<gimbalPitch>},
    CheckItem{itemId::pcba::gimbalYaw, QT_TRANSLATE_NOOP("QObject", "Gimbal YAW"), checkFlag<gimbalYaw>},
    CheckItem{itemId::pcba::battery, QT_TRANSLATE_NOOP("QObject", "Battery"), checkFlag<battery>},
};
} // namespace

QString checkPcba(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::pcba, verdict::warning, itemTable, verdict, items);
}

QList<int> pcbaItems()
{
    return itemsOf(itemTable);
}

QString checkPcbaLenDriver(int *verdict)
{
    *verdict = verdict::ok;
    return {};
}

QString checkPcbaEEprom(int *verdict, QString &detail)
{
    return checkItem(checkFlag<sensor>, verdict, detail);
}

QString checkPcbaGimbalMain(int *verdict, QString &detail)
{
    return checkItem(checkFlag<gimbalMain>, verdict, detail);
}

QString checkPcbaGimbalRoll(int *verdict, QString &detail)
{
    return checkItem(checkFlag<gimbalRoll>, verdict, detail);
}

QString checkPcbaPitch(int *verdict, QString &detail)
{
    return checkItem(checkFlag<gimbalPitch>, verdict, detail);
}

QString checkPcbaYawch(int *verdict, QString &detail)
{
    return checkItem(checkFlag<gimbalYaw>, verdict, detail);
}

QString checkPcbaBattery(int *verdict, QString &detail)
{
    return checkItem(checkFlag<battery>, verdict, detail);
}
