#include "app/station/HandsFree.h"

void HandsFree::linkIs(bool connected)
{
    m_connected = connected;
    if (!connected) {
        m_present.clear();
        m_served.clear();
    }
    consider();
}

void HandsFree::cameraIs(const QString &macAddress)
{
    m_present = macAddress;
    consider();
}

void HandsFree::runEnds(const QString &macAddress, bool kept)
{
    m_busy = false;
    // The camera may have gone between the run's end and now.
    m_served = kept && macAddress == m_present ? macAddress : QString();
    consider();
}

void HandsFree::consider()
{
    if (m_connected && !m_busy && !m_present.isEmpty() && m_present != m_served) {
        m_served = m_present;
        m_start();
    }
}
