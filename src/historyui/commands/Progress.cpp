#include "historyui/commands/Progress.h"

#include "platform/terminal.h"

#include <algorithm>
#include <cstdio>

Progress::Progress(const QString &what) : m_what(what), m_isShown(isErrorOutputTerminal()) {}

Progress::~Progress()
{
    clear();
}

void Progress::show(qint64 done, qint64 all)
{
    constexpr qint64 intervalMs = 100;
    if (!m_isShown || (m_isDrawn && m_lastDrawn.elapsed() < intervalMs)) {
        return;
    }
    m_lastDrawn.start();
    m_isDrawn = true;
    std::fprintf(stderr, "\r%s\033[K", qUtf8Printable(progressBar(m_what, done, all)));
    std::fflush(stderr);
}

void Progress::clear()
{
    if (m_isDrawn) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
        m_isDrawn = false;
    }
}

QString progressBar(const QString &what, qint64 done, qint64 all)
{
    if (all <= 0) {
        return QStringLiteral("%1  %2").arg(what).arg(done);
    }
    constexpr int width = 40;
    constexpr int hundred = 100;
    const double share = std::clamp(static_cast<double>(done) / static_cast<double>(all), 0.0, 1.0);
    const int filled = static_cast<int>(share * width);
    return QStringLiteral("%1  [%2%3] %4 %")
        .arg(what, QString(filled, QLatin1Char('#')), QString(width - filled, QLatin1Char(' ')))
        .arg(static_cast<int>(share * hundred), 3);
}
