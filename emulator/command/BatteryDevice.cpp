#include "emulator/command/BatteryDevice.h"

#include "emulator/command/ReplyWriter.h"

namespace emulator {

QByteArray BatteryDevice::info() const
{
    const BatteryInfo &info = m_battery.info;
    return ReplyWriter()
        .put(info.subId)
        .put(info.versionInfo)
        .put(info.softwareVersion)
        .put(info.hardwareVersion)
        .put(info.charge)
        .put(info.voltage)
        .put(info.current)
        .put(info.temperature)
        .put(info.minutesToEmpty)
        .put(info.minutesToFull)
        .put(info.deviceType)
        .put(info.firmwareInfo)
        .put(info.hardwareInfo)
        .put(info.cycleCount)
        .put(info.fullCapacity)
        .put(info.manufacturer)
        .put(info.warningBits)
        .put(info.charger)
        .put(info.microphone)
        .put(info.pogoPin)
        .bytes();
}

QByteArray BatteryDevice::status() const
{
    const BatteryStatus &status = m_battery.status;
    return ReplyWriter()
        .put(status.charge)
        .put(status.voltage)
        .put(status.current)
        .put(status.temperature)
        .put(status.minutesToEmpty)
        .put(status.minutesToFull)
        .bytes();
}

} // namespace emulator
