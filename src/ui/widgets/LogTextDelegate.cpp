#include "ui/widgets/LogTextDelegate.h"

namespace {
QString withoutLastBreaks(QString text)
{
    while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QChar::LineSeparator)) {
        text.chop(1);
    }
    return text;
}
} // namespace

bool LogTextDelegate::hasSeveralLines(const QString &text)
{
    return withoutLastBreaks(text).contains(QLatin1Char('\n'));
}

QString LogTextDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    return withoutLastBreaks(QStyledItemDelegate::displayText(value, locale));
}
