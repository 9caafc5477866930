#include "emulator/command/CameraDevice.h"

#include "emulator/command/ReplyWriter.h"

namespace emulator {

namespace {
QByteArray result(std::uint8_t code)
{
    return QByteArray(1, static_cast<char>(code));
}

QByteArray success(const QByteArray &data = {})
{
    return result(0) + data;
}

int littleEndian16At(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<std::uint16_t>(bytes.constData() + offset);
}
} // namespace

CameraDevice::CameraDevice(const Scenario &scenario)
    : m_status(scenario.status), m_battery(scenario.battery), m_gimbal(scenario.gimbal), m_tfCard(scenario.tfCard),
      m_eeprom(scenario.eeprom)
{
}

QByteArray CameraDevice::answer(Command command, const QByteArray &request)
{
    if (request.size() != rowOf(command).requestSize) {
        return result(badRequest);
    }
    switch (command) {
    case Command::registerPC:
    case Command::Ping:
    case Command::setGimbalAnguVeloPosi:
        return success();
    case Command::getCameraState:
        return success(cameraState());
    case Command::getTFCardStatus:
        return success(m_tfCard.status());
    case Command::getTFCardUsedStatus:
        return success(m_tfCard.usage());
    case Command::getBatteryInfo:
        return success(m_battery.info());
    case Command::getBatteryStatus:
        return success(m_battery.status());
    case Command::getBatteryEscFactoryCheck:
        return result(m_battery.escCheckResult());
    case Command::getGimbalDeviceInfo:
        return success(m_gimbal.deviceInfo());
    case Command::fetchGimbalState:
        return success(m_gimbal.pollState());
    case Command::getGimbalESCDevicesCheck:
        return success(m_gimbal.escFlags());
    case Command::setGimbalFactoryCheck:
        return m_gimbal.startFactoryCheck(request.at(0)) ? success() : result(badRequest);
    case Command::ReadEEPROM:
        if (const auto data = m_eeprom.read(littleEndian16At(request, 0), littleEndian16At(request, 2))) {
            return success(*data);
        }
        return result(badRequest);
    }
    return result(badRequest);
}

QByteArray CameraDevice::cameraState() const
{
    constexpr int statusOffset = 4;
    constexpr int size = 88;
    return ReplyWriter()
        .zeros(statusOffset)
        .put(m_status)
        .zeros(size - statusOffset - static_cast<int>(sizeof m_status))
        .bytes();
}

} // namespace emulator
