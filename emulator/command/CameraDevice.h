#pragma once

#include "emulator/command/BatteryDevice.h"
#include "emulator/command/EepromDevice.h"
#include "emulator/command/GimbalDevice.h"
#include "emulator/command/TfCardDevice.h"
#include "emulator/scenario/Scenario.h"

#include <QByteArray>

namespace emulator {

/// Answers all 14 commands: `registerPC`, `Ping` and `getCameraState` itself, the others through its devices.
class CameraDevice
{
public:
    /// Result byte of a reply to a request that makes no sense (payload size, mode, EEPROM range).
    static constexpr std::uint8_t badRequest = 1;

    explicit CameraDevice(const Scenario &scenario);

    /// The payload of the reply: result byte and reply data.
    QByteArray answer(Command command, const QByteArray &request);
    void reset() { m_gimbal.reset(); }

private:
    QByteArray cameraState() const; ///< 88 bytes

    std::uint64_t m_status;
    BatteryDevice m_battery;
    GimbalDevice m_gimbal;
    TfCardDevice m_tfCard;
    EepromDevice m_eeprom;
};

} // namespace emulator
