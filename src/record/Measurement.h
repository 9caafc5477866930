#pragma once

#include "record/Limit.h"

#include <optional>
#include <QString>

/// What the items of a run can read. Each has a name and a unit that never change, see `fieldInfo`; a new one is one
/// line here and one row in the table of Measurement.cpp, in the same place.
enum class Field {
    CameraStatusWord, ///< hexadecimal text: 64 bits are more than a number keeps
    CameraMtfSigned,  ///< flags are 0 or 1
    CameraMtfLength,
    CameraMtfCrc,
    CameraDarkSpotSigned,
    CameraDarkSpotLength,
    CameraDarkSpotCrc,
    CameraWhiteBalanceSigned,
    CameraWhiteBalanceLength,
    CameraWhiteBalanceCrc,
    CameraFocusSigned,
    GimbalRollFlag, ///< the byte as the camera sent it, 0 = no link
    GimbalPitchFlag,
    GimbalYawFlag,
    GimbalRollTime, ///< from the order to the axis's last state
    GimbalPitchTime,
    GimbalYawTime,
    GimbalRollState, ///< the last one seen
    GimbalPitchState,
    GimbalYawState,
    BatteryCharge,
    BatteryVoltage,
    BatteryCurrent, ///< negative while discharging
    BatteryTemperature,
    BatteryTimeToEmpty,
    BatteryTimeToFull,
    BatteryCycles,
    BatteryCapacity,
    BatterySubId,
    BatteryVersionInfo,
    BatterySoftwareVersion, ///< text, four numbers joined by points
    BatteryHardwareVersion, ///< likewise
    BatteryDeviceType,
    BatteryFirmwareInfo,
    BatteryHardwareInfo,
    BatteryManufacturer,
    BatteryWarningBits,
    BatteryCharger, ///< 0 = not plugged in
    BatteryMicrophone,
    BatteryPogoPin,
    CardState,
    CardReason,
    CardSectorSize,
    CardTotal,
    CardAvailable,
    CardUsed,
    CardMounted,
    CardFast,
    PcbaSensor, ///< the board's factory flag, 1 = tested
    PcbaGimbalMain,
    PcbaGimbalRoll,
    PcbaGimbalPitch,
    PcbaGimbalYaw,
    PcbaBattery,
    Firmware, ///< text, the camera's version file
    FileSize, ///< of a collected file
    FileTime, ///< that it took to collect it
};

struct FieldInfo
{
    enum class Kind { Number, Text };

    Field field;
    const char *name; ///< such as "battery.voltage"; ASCII
    const char *unit; ///< such as "V"; UTF-8, empty for counts, codes, flags and texts
    Kind kind;
};

const FieldInfo &fieldInfo(Field field);
/// The field of that name; null if there is none.
const FieldInfo *findField(const QString &name);

/// One value that an item read: taken where the reply is decoded, once; the texts for people are made from it or beside
/// it. A plain value, for any thread.
struct Measurement
{
    QString name;
    MeasuredValue value;
    QString unit;
    std::optional<Limit> limit; ///< where somebody has set one
};

Measurement measured(Field field, double number);
Measurement measured(Field field, const QString &text);

bool operator==(const Measurement &left, const Measurement &right);
inline bool operator!=(const Measurement &left, const Measurement &right)
{
    return !(left == right);
}
