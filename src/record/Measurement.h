#pragma once

#include "record/Limit.h"

#include <array>
#include <optional>
#include <QString>

/// What the items of a run can read. Each has a name and a unit that never change, see `fieldInfo`; a new one is one
/// line here and one row in the table below it, in the same place.
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

/// A row for each field, in the order of the enumeration.
inline constexpr std::array fieldInfos = {
    FieldInfo{Field::CameraStatusWord, "camera.statusWord", "", FieldInfo::Kind::Text},
    FieldInfo{Field::CameraMtfSigned, "camera.mtf.signed", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraMtfLength, "camera.mtf.length", "B", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraMtfCrc, "camera.mtf.crc", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraDarkSpotSigned, "camera.darkSpot.signed", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraDarkSpotLength, "camera.darkSpot.length", "B", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraDarkSpotCrc, "camera.darkSpot.crc", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraWhiteBalanceSigned, "camera.whiteBalance.signed", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraWhiteBalanceLength, "camera.whiteBalance.length", "B", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraWhiteBalanceCrc, "camera.whiteBalance.crc", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CameraFocusSigned, "camera.focus.signed", "", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalRollFlag, "gimbal.roll.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalPitchFlag, "gimbal.pitch.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalYawFlag, "gimbal.yaw.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalRollTime, "gimbal.roll.time", "s", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalPitchTime, "gimbal.pitch.time", "s", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalYawTime, "gimbal.yaw.time", "s", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalRollState, "gimbal.roll.state", "", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalPitchState, "gimbal.pitch.state", "", FieldInfo::Kind::Number},
    FieldInfo{Field::GimbalYawState, "gimbal.yaw.state", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryCharge, "battery.charge", "%", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryVoltage, "battery.voltage", "V", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryCurrent, "battery.current", "mA", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryTemperature, "battery.temperature", "°C", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryTimeToEmpty, "battery.timeToEmpty", "min", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryTimeToFull, "battery.timeToFull", "min", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryCycles, "battery.cycles", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryCapacity, "battery.capacity", "mAh", FieldInfo::Kind::Number},
    FieldInfo{Field::BatterySubId, "battery.subId", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryVersionInfo, "battery.versionInfo", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatterySoftwareVersion, "battery.softwareVersion", "", FieldInfo::Kind::Text},
    FieldInfo{Field::BatteryHardwareVersion, "battery.hardwareVersion", "", FieldInfo::Kind::Text},
    FieldInfo{Field::BatteryDeviceType, "battery.deviceType", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryFirmwareInfo, "battery.firmwareInfo", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryHardwareInfo, "battery.hardwareInfo", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryManufacturer, "battery.manufacturer", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryWarningBits, "battery.warningBits", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryCharger, "battery.charger", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryMicrophone, "battery.microphone", "", FieldInfo::Kind::Number},
    FieldInfo{Field::BatteryPogoPin, "battery.pogoPin", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CardState, "card.state", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CardReason, "card.reason", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CardSectorSize, "card.sectorSize", "KiB", FieldInfo::Kind::Number},
    FieldInfo{Field::CardTotal, "card.total", "MiB", FieldInfo::Kind::Number},
    FieldInfo{Field::CardAvailable, "card.available", "MiB", FieldInfo::Kind::Number},
    FieldInfo{Field::CardUsed, "card.used", "MiB", FieldInfo::Kind::Number},
    FieldInfo{Field::CardMounted, "card.mounted", "", FieldInfo::Kind::Number},
    FieldInfo{Field::CardFast, "card.fast", "", FieldInfo::Kind::Number},
    FieldInfo{Field::PcbaSensor, "pcba.sensor.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::PcbaGimbalMain, "pcba.gimbalMain.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::PcbaGimbalRoll, "pcba.gimbalRoll.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::PcbaGimbalPitch, "pcba.gimbalPitch.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::PcbaGimbalYaw, "pcba.gimbalYaw.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::PcbaBattery, "pcba.battery.flag", "", FieldInfo::Kind::Number},
    FieldInfo{Field::Firmware, "firmware", "", FieldInfo::Kind::Text},
    FieldInfo{Field::FileSize, "file.size", "B", FieldInfo::Kind::Number},
    FieldInfo{Field::FileTime, "file.time", "s", FieldInfo::Kind::Number},
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
