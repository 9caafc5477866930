#include "record/Measurement.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {
constexpr auto number = FieldInfo::Kind::Number;
constexpr auto text = FieldInfo::Kind::Text;

constexpr std::array fields = {
    FieldInfo{Field::CameraStatusWord, "camera.statusWord", "", text},
    FieldInfo{Field::CameraMtfSigned, "camera.mtf.signed", "", number},
    FieldInfo{Field::CameraMtfLength, "camera.mtf.length", "B", number},
    FieldInfo{Field::CameraMtfCrc, "camera.mtf.crc", "", number},
    FieldInfo{Field::CameraDarkSpotSigned, "camera.darkSpot.signed", "", number},
    FieldInfo{Field::CameraDarkSpotLength, "camera.darkSpot.length", "B", number},
    FieldInfo{Field::CameraDarkSpotCrc, "camera.darkSpot.crc", "", number},
    FieldInfo{Field::CameraWhiteBalanceSigned, "camera.whiteBalance.signed", "", number},
    FieldInfo{Field::CameraWhiteBalanceLength, "camera.whiteBalance.length", "B", number},
    FieldInfo{Field::CameraWhiteBalanceCrc, "camera.whiteBalance.crc", "", number},
    FieldInfo{Field::CameraFocusSigned, "camera.focus.signed", "", number},
    FieldInfo{Field::GimbalRollFlag, "gimbal.roll.flag", "", number},
    FieldInfo{Field::GimbalPitchFlag, "gimbal.pitch.flag", "", number},
    FieldInfo{Field::GimbalYawFlag, "gimbal.yaw.flag", "", number},
    FieldInfo{Field::GimbalRollTime, "gimbal.roll.time", "s", number},
    FieldInfo{Field::GimbalPitchTime, "gimbal.pitch.time", "s", number},
    FieldInfo{Field::GimbalYawTime, "gimbal.yaw.time", "s", number},
    FieldInfo{Field::GimbalRollState, "gimbal.roll.state", "", number},
    FieldInfo{Field::GimbalPitchState, "gimbal.pitch.state", "", number},
    FieldInfo{Field::GimbalYawState, "gimbal.yaw.state", "", number},
    FieldInfo{Field::BatteryCharge, "battery.charge", "%", number},
    FieldInfo{Field::BatteryVoltage, "battery.voltage", "V", number},
    FieldInfo{Field::BatteryCurrent, "battery.current", "mA", number},
    FieldInfo{Field::BatteryTemperature, "battery.temperature", "°C", number},
    FieldInfo{Field::BatteryTimeToEmpty, "battery.timeToEmpty", "min", number},
    FieldInfo{Field::BatteryTimeToFull, "battery.timeToFull", "min", number},
    FieldInfo{Field::BatteryCycles, "battery.cycles", "", number},
    FieldInfo{Field::BatteryCapacity, "battery.capacity", "mAh", number},
    FieldInfo{Field::BatterySubId, "battery.subId", "", number},
    FieldInfo{Field::BatteryVersionInfo, "battery.versionInfo", "", number},
    FieldInfo{Field::BatterySoftwareVersion, "battery.softwareVersion", "", text},
    FieldInfo{Field::BatteryHardwareVersion, "battery.hardwareVersion", "", text},
    FieldInfo{Field::BatteryDeviceType, "battery.deviceType", "", number},
    FieldInfo{Field::BatteryFirmwareInfo, "battery.firmwareInfo", "", number},
    FieldInfo{Field::BatteryHardwareInfo, "battery.hardwareInfo", "", number},
    FieldInfo{Field::BatteryManufacturer, "battery.manufacturer", "", number},
    FieldInfo{Field::BatteryWarningBits, "battery.warningBits", "", number},
    FieldInfo{Field::BatteryCharger, "battery.charger", "", number},
    FieldInfo{Field::BatteryMicrophone, "battery.microphone", "", number},
    FieldInfo{Field::BatteryPogoPin, "battery.pogoPin", "", number},
    FieldInfo{Field::CardState, "card.state", "", number},
    FieldInfo{Field::CardReason, "card.reason", "", number},
    FieldInfo{Field::CardSectorSize, "card.sectorSize", "KiB", number},
    FieldInfo{Field::CardTotal, "card.total", "MiB", number},
    FieldInfo{Field::CardAvailable, "card.available", "MiB", number},
    FieldInfo{Field::CardUsed, "card.used", "MiB", number},
    FieldInfo{Field::CardMounted, "card.mounted", "", number},
    FieldInfo{Field::CardFast, "card.fast", "", number},
    FieldInfo{Field::PcbaSensor, "pcba.sensor.flag", "", number},
    FieldInfo{Field::PcbaGimbalMain, "pcba.gimbalMain.flag", "", number},
    FieldInfo{Field::PcbaGimbalRoll, "pcba.gimbalRoll.flag", "", number},
    FieldInfo{Field::PcbaGimbalPitch, "pcba.gimbalPitch.flag", "", number},
    FieldInfo{Field::PcbaGimbalYaw, "pcba.gimbalYaw.flag", "", number},
    FieldInfo{Field::PcbaBattery, "pcba.battery.flag", "", number},
    FieldInfo{Field::Firmware, "firmware", "", text},
    FieldInfo{Field::FileSize, "file.size", "B", number},
    FieldInfo{Field::FileTime, "file.time", "s", number},
};

constexpr bool inOrder()
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].field != static_cast<Field>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(inOrder(), "the rows stand in the order of the enumeration, so that a field finds its row");
static_assert(fields.size() == static_cast<std::size_t>(Field::FileTime) + 1, "every field has a row");

Measurement make(Field field, MeasuredValue value)
{
    const FieldInfo &info = fieldInfo(field);
    return {QString::fromLatin1(info.name), std::move(value), QString::fromUtf8(info.unit), {}};
}
} // namespace

const FieldInfo &fieldInfo(Field field)
{
    return fields.at(static_cast<std::size_t>(field));
}

const FieldInfo *findField(const QString &name)
{
    const auto *row = std::find_if(fields.begin(), fields.end(),
                                   [&name](const FieldInfo &info) { return name == QLatin1String(info.name); });
    return row == fields.end() ? nullptr : row;
}

Measurement measured(Field field, double value)
{
    return make(field, value);
}

Measurement measured(Field field, const QString &value)
{
    return make(field, value);
}

bool operator==(const Measurement &left, const Measurement &right)
{
    return left.name == right.name && left.value == right.value && left.unit == right.unit && left.limit == right.limit;
}
