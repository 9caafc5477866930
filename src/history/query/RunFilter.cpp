#include "history/query/RunFilter.h"

#include <QRegularExpression>

QString macAsStored(const QString &text)
{
    static const QRegularExpression digitsOnly(QStringLiteral(R"(\A[0-9A-F]{1,12}\z)"));
    constexpr int digitsOfByte = 2;
    QString capital = text.trimmed().toUpper();
    QString digits = capital;
    digits.remove(QLatin1Char(':')).remove(QLatin1Char('-'));
    if (!digitsOnly.match(digits).hasMatch()) {
        return capital;
    }
    for (int at = (static_cast<int>(digits.size()) - 1) / digitsOfByte * digitsOfByte; at > 0; at -= digitsOfByte) {
        digits.insert(at, QLatin1Char(':'));
    }
    return digits;
}
