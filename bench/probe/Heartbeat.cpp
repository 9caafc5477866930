#include "probe/Heartbeat.h"

#include "probe/report.h"

namespace {
constexpr int intervalMs = 1;
constexpr std::int64_t nsPerMs = 1'000'000;
} // namespace

Heartbeat::Heartbeat(QObject *parent) : QObject(parent)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(intervalMs);
    connect(&m_timer, &QTimer::timeout, this, &Heartbeat::beat);
}

void Heartbeat::begin()
{
    m_longest = {};
    m_first = monotonicNs();
    m_last = m_first;
    m_processorAtLast = threadProcessorNs();
    m_timer.start();
}

Heartbeat::Absence Heartbeat::end()
{
    beat();
    m_timer.stop();
    return m_longest;
}

void Heartbeat::beat()
{
    const std::int64_t now = monotonicNs();
    const std::int64_t absence = now - m_last - intervalMs * nsPerMs;
    const std::int64_t processor = threadProcessorNs();
    if (absence > m_longest.ns) {
        m_longest = {absence, processor - m_processorAtLast, now - m_first};
    }
    m_last = now;
    m_processorAtLast = processor;
}
