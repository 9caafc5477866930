#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// A query of the camera, by its name in scenarios and in the emulated camera's log.
struct Query
{
    const char *command;
    int perRun; ///< how often a run of all components asks it of a healthy camera
};

/// All that a run of the window's plan asks.
inline constexpr Query allQueries[] = {
    {"getCameraState", 4},      {"getTFCardStatus", 1},          {"getTFCardUsedStatus", 1},
    {"getBatteryInfo", 1},      {"getBatteryStatus", 1},         {"getBatteryEscFactoryCheck", 1},
    {"getGimbalDeviceInfo", 3}, {"getGimbalESCDevicesCheck", 4}, {"ReadEEPROM", 1},
};
QByteArrayList namesOfAllQueries();

/// A fault of a scenario. `times` is a number or `always`; `value` begins with a comma.
QByteArray fault(const QByteArray &kind, const QByteArray &times, const QByteArray &value = {});
inline constexpr char always[] = "\"always\"";
/// A scenario in which each of `commands` suffers `faults`, one or several with commas between them.
QByteArray faulty(const QByteArrayList &commands, const QByteArray &faults);
