#include "plan/Limits.h"

#include "record/limitText.h"

#include <cmath>
#include <QCoreApplication>
#include <QLocale>

namespace {
const QLatin1String section("Limits");
const QLatin1String rangeSign("..");

struct ReadLimit
{
    Limit limit;
    QString error;
};

/// The bound that `text` names, none if it is empty; false if it is no number.
bool readBound(const QString &text, std::optional<double> *bound)
{
    if (text.isEmpty()) {
        return true;
    }
    static const QLocale plain = [] {
        QLocale locale = QLocale::c();
        locale.setNumberOptions(QLocale::RejectGroupSeparator);
        return locale;
    }();
    bool isNumber = false;
    const double number = plain.toDouble(text, &isNumber);
    *bound = number;
    return isNumber && std::isfinite(number);
}

ReadLimit readRange(const QString &text)
{
    ReadLimit read;
    const auto sign = static_cast<int>(text.indexOf(rangeSign));
    if (sign < 0 || !readBound(text.left(sign).trimmed(), &read.limit.least) ||
        !readBound(text.mid(sign + rangeSign.size()).trimmed(), &read.limit.most)) {
        read.error = QCoreApplication::translate("Limits", "not a range such as 3.6..4.35, ..45 or 30000..");
    } else if (!read.limit.least && !read.limit.most) {
        read.error = QCoreApplication::translate("Limits", "a range needs a bound");
    } else if (read.limit.least && read.limit.most && *read.limit.least > *read.limit.most) {
        read.error = QCoreApplication::translate("Limits", "the lower bound is above the upper one");
    }
    return read;
}

ReadLimit readTexts(const QString &text)
{
    ReadLimit read;
    const QStringList parts = text.split(QLatin1Char('|'));
    for (const QString &part : parts) {
        read.limit.oneOf.append(part.trimmed());
        if (part.trimmed().isEmpty()) {
            read.error = QCoreApplication::translate("Limits", "not a list of texts such as 1.2.3|1.2.4");
        }
    }
    return read;
}

ReadLimit readLimit(const SettingsLine &line)
{
    const FieldInfo *field = findField(line.key);
    if (field == nullptr) {
        return {{}, QCoreApplication::translate("Limits", "there is no such measurement")};
    }
    return field->kind == FieldInfo::Kind::Text ? readTexts(line.value) : readRange(line.value);
}
} // namespace

Limits readLimits(const QList<SettingsLine> &lines, const QString &file)
{
    Limits limits;
    for (const SettingsLine &line : lines) {
        const ReadLimit read = readLimit(line);
        if (read.error.isEmpty()) {
            limits.byName.insert(line.key, read.limit);
        } else {
            limits.errors.append(wrongLine(file, section, line, read.error));
        }
    }
    if (!limits.errors.isEmpty()) {
        limits.byName.clear();
    }
    return limits;
}

QStringList applyLimits(const QMap<QString, Limit> &limits, QList<Measurement> *measurements)
{
    QStringList outside;
    for (Measurement &measurement : *measurements) {
        const auto limit = limits.constFind(measurement.name);
        if (limit == limits.constEnd()) {
            continue;
        }
        measurement.limit = *limit;
        if (!limit->admits(measurement.value)) {
            const QString unit = measurement.unit.isEmpty() ? QString() : QLatin1Char(' ') + measurement.unit;
            outside.append(QStringLiteral("%1: %2%3 (%4)")
                               .arg(measurement.name, valueText(measurement.value), unit, limitText(*limit)));
        }
    }
    return outside;
}
