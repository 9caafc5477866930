#include "plots/plotNumbers.h"

#include <cmath>

QString percentText(const std::optional<double> &share)
{
    return share ? QString::number(*share * 100, 'f', 1) + QStringLiteral(" %") : QStringLiteral("-");
}

QString shortNumber(double number)
{
    constexpr int digits = 6;
    // What the arithmetic leaves of a zero.
    return QString::number(std::abs(number) < 1e-12 ? 0.0 : number, 'g', digits);
}

QString boundText(const std::optional<double> &bound)
{
    return bound ? shortNumber(*bound) : QString();
}

double momentNumber(const QDateTime &moment)
{
    return static_cast<double>(QDateTime(moment.date(), moment.time(), Qt::UTC).toMSecsSinceEpoch());
}

QDateTime clockTime(double momentNumber)
{
    return QDateTime::fromMSecsSinceEpoch(qRound64(momentNumber), Qt::UTC);
}
