#include "emulator/scenario/JsonObjectReader.h"

#include <cmath>

namespace emulator {

namespace {
constexpr double exactLimit = 9007199254740992.0; // 2^53: beyond it a double skips whole numbers

/// A whole number written as a JSON number or as decimal or "0x" text.
bool wholeNumber(const QJsonValue &value, bool &negative, std::uint64_t &magnitude)
{
    if (value.isDouble()) {
        const double number = value.toDouble();
        if (std::floor(number) != number || std::fabs(number) > exactLimit) {
            return false;
        }
        negative = number < 0;
        magnitude = static_cast<std::uint64_t>(std::fabs(number));
        return true;
    }
    if (!value.isString()) {
        return false;
    }
    const QString text = value.toString();
    const bool hexadecimal = text.startsWith(QLatin1String("0x"));
    bool ok = false;
    negative = false;
    const QString digits = hexadecimal ? text.mid(2) : text;
    magnitude = digits.toULongLong(&ok, hexadecimal ? 16 : 10);
    return ok;
}
} // namespace

void JsonComplaint::add(const QString &path, const QString &reason)
{
    if (m_text.isEmpty()) {
        m_text = path.isEmpty() ? reason : path + QStringLiteral(": ") + reason;
    }
}

bool JsonValueReader::integer(bool &negative, std::uint64_t &magnitude, std::int64_t lowest,
                              std::uint64_t highest) const
{
    if (!m_value.isDouble() && !m_value.isString()) {
        complain(QStringLiteral("must be a number"));
        return false;
    }
    if (!wholeNumber(m_value, negative, magnitude)) {
        complain(QStringLiteral("must be a whole number"));
        return false;
    }
    const bool tooLow = negative ? lowest >= 0 || magnitude > 0 - static_cast<std::uint64_t>(lowest)
                                 : lowest > 0 && magnitude < static_cast<std::uint64_t>(lowest);
    if (tooLow || (!negative && magnitude > highest)) {
        complain(QStringLiteral("must be from %1 to %2").arg(lowest).arg(highest));
        return false;
    }
    return true;
}

void JsonValueReader::read(QString &out) const
{
    if (!m_value.isString()) {
        complain(QStringLiteral("must be a text"));
        return;
    }
    out = m_value.toString();
}

JsonValueReader JsonValueReader::element(int index) const
{
    return {m_value.toArray().at(index), QStringLiteral("%1[%2]").arg(m_path).arg(index), *m_complaint};
}

JsonObjectReader::JsonObjectReader(const JsonValueReader &value) : m_value(value), m_object(value.value().toObject())
{
    if (!value.value().isObject()) {
        value.complain(QStringLiteral("must be an object"));
    }
}

JsonValueReader JsonObjectReader::member(const QString &name) const
{
    const QString path = m_value.path().isEmpty() ? name : m_value.path() + QLatin1Char('.') + name;
    return {m_object.value(name), path, m_value.complaint()};
}

void JsonObjectReader::finish() const
{
    const QStringList names = m_object.keys();
    for (const QString &name : names) {
        if (!m_known.contains(name)) {
            member(name).complain(QStringLiteral("unknown key"));
        }
    }
}

} // namespace emulator
