#include "telnet/engine/InputGatherer.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int quietMs = 5;
constexpr int smallestPiece = 64 * 1024;      // of a long reply
constexpr int largestPiece = 8 * 1024 * 1024; // handling one must not hold up the thread, however much has come
} // namespace

InputGatherer::InputGatherer(std::function<void(const QByteArray &)> taker) : m_taker(std::move(taker))
{
    m_quiet.setSingleShot(true);
    m_quiet.setTimerType(Qt::PreciseTimer);
    m_quiet.setInterval(quietMs);
    QObject::connect(&m_quiet, &QTimer::timeout, &m_quiet, [this] { handOn(); });
}

void InputGatherer::setUrgentTexts(const QByteArrayList &texts)
{
    m_urgentTexts = texts;
    m_longestUrgentText = 0;
    for (const QByteArray &text : texts) {
        m_longestUrgentText = std::max(m_longestUrgentText, static_cast<int>(text.size()));
    }
}

void InputGatherer::add(const QByteArray &bytes)
{
    if (m_urgentTexts.isEmpty()) {
        m_taker(bytes);
        return;
    }
    const int from = std::max(0, static_cast<int>(m_bytes.size()) - m_longestUrgentText + 1);
    m_bytes += bytes;
    const bool longReply = m_handedOn >= smallestPiece;
    if (m_bytes.size() >= std::clamp(m_handedOn, smallestPiece, largestPiece) || isUrgent(from)) {
        handOn();
    } else if (longReply || !m_quiet.isActive()) {
        m_quiet.start();
    }
}

bool InputGatherer::isUrgent(int from) const
{
    return std::any_of(m_urgentTexts.begin(), m_urgentTexts.end(),
                       [&](const QByteArray &text) { return m_bytes.indexOf(text, from) != -1; });
}

void InputGatherer::handOn()
{
    m_quiet.stop();
    m_handedOn = std::min(m_handedOn + static_cast<int>(m_bytes.size()), largestPiece);
    const QByteArray piece = std::exchange(m_bytes, QByteArray());
    if (!piece.isEmpty()) {
        m_taker(piece);
    }
}

void InputGatherer::flush()
{
    handOn();
    m_handedOn = 0;
}

void InputGatherer::clear()
{
    m_quiet.stop();
    m_bytes.clear();
    m_handedOn = 0;
}
