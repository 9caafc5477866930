#pragma once

#include "emulator/scenario/Scenario.h"

#include <optional>
#include <QByteArray>
#include <QElapsedTimer>

namespace emulator {

/// The gimbal. Serves the data of `getGimbalDeviceInfo`, `fetchGimbalState` and `getGimbalESCDevicesCheck`; starts a
/// factory movement for `setGimbalFactoryCheck`. A movement walks through its phases while the state is being polled;
/// before the first one, the state is the scenario's.
class GimbalDevice
{
public:
    explicit GimbalDevice(const Gimbal &gimbal) : m_gimbal(gimbal) {}

    QByteArray deviceInfo() const; ///< 64 bytes
    QByteArray escFlags() const;   ///< 1 byte
    /// 26 bytes. Counts as one poll of the running movement.
    QByteArray pollState();

    /// `mode`: 1 roll, 2 pitch, 3 yaw; false for any other.
    bool startFactoryCheck(int mode);
    /// As after power-up: no movement.
    void reset() { m_axis.reset(); }

private:
    std::uint8_t movementState();
    bool isOver(const MotionPhase &phase) const;

    Gimbal m_gimbal;
    std::optional<std::size_t> m_axis; ///< of the running movement
    int m_phase = 0;
    int m_polls = 0; ///< in the current phase
    QElapsedTimer m_phaseTime;
};

} // namespace emulator
