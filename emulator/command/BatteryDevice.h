#pragma once

#include "emulator/scenario/Scenario.h"

#include <QByteArray>

namespace emulator {

/// The battery. Serves the data of `getBatteryInfo` and `getBatteryStatus` and the result of
/// `getBatteryEscFactoryCheck`.
class BatteryDevice
{
public:
    explicit BatteryDevice(const Battery &battery) : m_battery(battery) {}

    QByteArray info() const;   ///< 40 bytes
    QByteArray status() const; ///< 11 bytes
    std::uint8_t escCheckResult() const { return m_battery.escCheckResult; }

private:
    Battery m_battery;
};

} // namespace emulator
