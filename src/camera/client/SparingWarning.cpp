#include "camera/client/SparingWarning.h"

#include <QDebug>
#include <utility>

void SparingWarning::tell(const QString &text, Clock::time_point now)
{
    int untold = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_last && now - *m_last < m_pause) {
            ++m_untold;
            return;
        }
        m_last = now;
        untold = std::exchange(m_untold, 0);
    }
    QString line = text;
    if (untold > 0) {
        line += QStringLiteral(" (and %1 more since the last one told)").arg(untold);
    }
    qWarning().noquote() << line;
}
