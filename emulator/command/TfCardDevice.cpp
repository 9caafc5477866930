#include "emulator/command/TfCardDevice.h"

#include "emulator/command/ReplyWriter.h"

namespace emulator {

QByteArray TfCardDevice::status() const
{
    return ReplyWriter().put(m_card.state).put(m_card.reason).bytes();
}

QByteArray TfCardDevice::usage() const
{
    return ReplyWriter().put(m_card.sectorSize).put(m_card.total).put(m_card.available).put(m_card.used).bytes();
}

} // namespace emulator
