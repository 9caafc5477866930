#include "plan/SerialPattern.h"

namespace {
/// Steps after which a match is given up: far more than a sound pattern needs, and over before anybody notices.
const QLatin1String stepLimit("(*LIMIT_MATCH=100000)");
} // namespace

SerialPattern::SerialPattern(const QString &pattern) : m_text(pattern)
{
    if (pattern.isEmpty()) {
        return;
    }
    m_expression.setPattern(stepLimit + QRegularExpression::anchoredPattern(pattern));
    // By itself as well: "a)|(b" is no pattern, but becomes one between the anchors.
    for (const QRegularExpression &expression : {QRegularExpression(pattern), m_expression}) {
        if (!expression.isValid()) {
            m_error = expression.errorString();
            return;
        }
    }
}

bool SerialPattern::matches(const QString &serial) const
{
    return !serial.isEmpty() && m_error.isEmpty() && m_expression.match(serial).hasMatch();
}
