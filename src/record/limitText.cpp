#include "record/limitText.h"

#include <QLocale>

namespace {
QString numberText(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString boundText(const std::optional<double> &bound)
{
    return bound ? numberText(*bound) : QString();
}
} // namespace

QString valueText(const MeasuredValue &value)
{
    const QString *text = std::get_if<QString>(&value);
    return text != nullptr ? *text : numberText(std::get<double>(value));
}

QString limitText(const Limit &limit)
{
    return limit.oneOf.isEmpty() ? boundText(limit.least) + QLatin1String("..") + boundText(limit.most)
                                 : limit.oneOf.join(QLatin1Char('|'));
}
