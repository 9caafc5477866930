#pragma once

#include "record/RunRecord.h"

#include <array>
#include <optional>
#include <QCoreApplication>
#include <QString>

// What the enumerations of a record are called: in what programs read, by names in ASCII that never change, and for
// people by the same names in the program's language.

template <class Value>
struct NamedValue
{
    Value value;
    const char *name;
};

inline constexpr std::array verdictNames = {
    NamedValue<Verdict>{Verdict::Passed, QT_TRANSLATE_NOOP("Record", "passed")},
    NamedValue<Verdict>{Verdict::Failed, QT_TRANSLATE_NOOP("Record", "failed")},
    NamedValue<Verdict>{Verdict::Warning, QT_TRANSLATE_NOOP("Record", "warning")},
    NamedValue<Verdict>{Verdict::NotTested, QT_TRANSLATE_NOOP("Record", "notTested")},
};

inline constexpr std::array outcomeNames = {
    NamedValue<Outcome>{Outcome::Passed, QT_TRANSLATE_NOOP("Record", "passed")},
    NamedValue<Outcome>{Outcome::Failed, QT_TRANSLATE_NOOP("Record", "failed")},
    NamedValue<Outcome>{Outcome::Stopped, QT_TRANSLATE_NOOP("Record", "stopped")},
    NamedValue<Outcome>{Outcome::Error, QT_TRANSLATE_NOOP("Record", "error")},
};

inline constexpr std::array requestEndNames = {
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::Answered, QT_TRANSLATE_NOOP("Record", "answered")},
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::NoReply, QT_TRANSLATE_NOOP("Record", "noReply")},
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::Refused, QT_TRANSLATE_NOOP("Record", "refused")},
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::WrongSize, QT_TRANSLATE_NOOP("Record", "wrongSize")},
};

/// The table of an enumeration, for whoever has only its type.
constexpr const auto &namesOf(Verdict)
{
    return verdictNames;
}
constexpr const auto &namesOf(Outcome)
{
    return outcomeNames;
}
constexpr const auto &namesOf(RequestEnd::Kind)
{
    return requestEndNames;
}

template <class Value>
QString nameOf(Value value)
{
    for (const auto &row : namesOf(value)) {
        if (row.value == value) {
            return QString::fromLatin1(row.name);
        }
    }
    return {};
}

/// For people.
template <class Value>
QString wordOf(Value value)
{
    return QCoreApplication::translate("Record", nameOf(value).toLatin1().constData());
}

template <class Value>
std::optional<Value> valueOfName(const QString &name)
{
    for (const auto &row : namesOf(Value{})) {
        if (name == QLatin1String(row.name)) {
            return row.value;
        }
    }
    return {};
}
