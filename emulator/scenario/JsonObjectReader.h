#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QString>
#include <type_traits>

namespace emulator {

/// The first complaint about a document: later ones are ignored.
class JsonComplaint
{
public:
    void add(const QString &path, const QString &reason);
    bool isEmpty() const { return m_text.isEmpty(); }
    /// "path: reason"
    QString text() const { return m_text; }

private:
    QString m_text;
};

/// A bound of a number's range; of the number's own type, without taking part in its deduction.
template <class Integer>
using Limit = std::common_type_t<Integer>;

/// A value of a JSON document and where it stands ("battery.info.voltage"). Each `read` leaves its output alone and
/// complains when the value is of another type or out of range.
///
/// Numbers may be written as numbers or as texts such as "0x8001b", which also reach beyond 53 bits.
class JsonValueReader
{
public:
    JsonValueReader(const QJsonValue &value, const QString &path, JsonComplaint &complaint)
        : m_value(value), m_path(path), m_complaint(&complaint)
    {
    }

    template <class Integer, std::enable_if_t<std::is_integral_v<Integer>, int> = 0>
    void read(Integer &out, Limit<Integer> lowest = std::numeric_limits<Integer>::min(),
              Limit<Integer> highest = std::numeric_limits<Integer>::max()) const
    {
        bool negative = false;
        std::uint64_t magnitude = 0;
        if (integer(negative, magnitude, static_cast<std::int64_t>(lowest), static_cast<std::uint64_t>(highest))) {
            out = static_cast<Integer>(negative ? 0 - magnitude : magnitude);
        }
    }
    void read(QString &out) const;
    /// An array of exactly as many numbers.
    template <class Integer, std::size_t size>
    void read(std::array<Integer, size> &out) const
    {
        if (!m_value.isArray() || m_value.toArray().size() != static_cast<int>(size)) {
            complain(QStringLiteral("must be an array of %1 numbers").arg(size));
            return;
        }
        for (std::size_t i = 0; i < size; ++i) {
            element(static_cast<int>(i)).read(out[i]);
        }
    }
    /// Calls `take(JsonValueReader)` for each element of an array.
    template <class Take>
    void forEach(Take take) const
    {
        if (!m_value.isArray()) {
            complain(QStringLiteral("must be an array"));
            return;
        }
        for (int i = 0; i < m_value.toArray().size(); ++i) {
            take(element(i));
        }
    }

    void complain(const QString &reason) const { m_complaint->add(m_path, reason); }
    const QJsonValue &value() const { return m_value; }
    const QString &path() const { return m_path; }
    JsonComplaint &complaint() const { return *m_complaint; }

private:
    bool integer(bool &negative, std::uint64_t &magnitude, std::int64_t lowest, std::uint64_t highest) const;
    JsonValueReader element(int index) const;

    QJsonValue m_value;
    QString m_path;
    JsonComplaint *m_complaint;
};

/// The members of a JSON object. Every member that nobody asked for is an unknown key: `finish` complains about it.
class JsonObjectReader
{
public:
    explicit JsonObjectReader(const JsonValueReader &value);

    /// Calls `take(JsonValueReader)` when the member exists. Returns whether it does.
    template <class Take>
    bool with(const char *key, Take take)
    {
        const QString name = QString::fromLatin1(key);
        m_known.insert(name);
        if (!m_object.contains(name)) {
            return false;
        }
        take(member(name));
        return true;
    }
    template <class Value>
    bool read(const char *key, Value &out)
    {
        return with(key, [&](const JsonValueReader &value) { value.read(out); });
    }
    template <class Integer>
    bool read(const char *key, Integer &out, Limit<Integer> lowest,
              Limit<Integer> highest = std::numeric_limits<Integer>::max())
    {
        return with(key, [&](const JsonValueReader &value) { value.read(out, lowest, highest); });
    }
    /// Calls `take(name, JsonValueReader)` for every member.
    template <class Take>
    void forEach(Take take)
    {
        const QStringList names = m_object.keys();
        for (const QString &name : names) {
            m_known.insert(name);
            take(name, member(name));
        }
    }

    void complain(const QString &reason) const { m_value.complain(reason); }
    void finish() const;

private:
    JsonValueReader member(const QString &name) const;

    JsonValueReader m_value;
    QJsonObject m_object;
    QSet<QString> m_known;
};

} // namespace emulator
