#include "emulator/command/GimbalDevice.h"

#include "emulator/command/ReplyWriter.h"

namespace emulator {

namespace {
constexpr std::size_t movementStateByte = 7;
}

QByteArray GimbalDevice::deviceInfo() const
{
    return ReplyWriter().putAll(m_gimbal.deviceInfo.bytes).putAll(m_gimbal.deviceInfo.words).bytes();
}

QByteArray GimbalDevice::escFlags() const
{
    return ReplyWriter().put(m_gimbal.escFlags).bytes();
}

QByteArray GimbalDevice::pollState()
{
    GimbalState state = m_gimbal.state;
    if (m_axis && !m_gimbal.motion[*m_axis].isEmpty()) {
        state.bytes[movementStateByte] = movementState();
    }
    return ReplyWriter().putAll(state.words).putAll(state.bytes).bytes();
}

bool GimbalDevice::startFactoryCheck(int mode)
{
    if (mode < 1 || mode > static_cast<int>(m_gimbal.motion.size())) {
        return false;
    }
    m_axis = static_cast<std::size_t>(mode - 1);
    m_phase = 0;
    m_polls = 0;
    m_phaseTime.start();
    return true;
}

std::uint8_t GimbalDevice::movementState()
{
    const QVector<MotionPhase> &phases = m_gimbal.motion[*m_axis];
    while (m_phase + 1 < phases.size() && isOver(phases[m_phase])) {
        ++m_phase;
        m_polls = 0;
        m_phaseTime.start();
    }
    ++m_polls;
    return phases[m_phase].state;
}

bool GimbalDevice::isOver(const MotionPhase &phase) const
{
    if (phase.polls > 0) {
        return m_polls >= phase.polls;
    }
    return phase.milliseconds > 0 && m_phaseTime.elapsed() >= phase.milliseconds;
}

} // namespace emulator
