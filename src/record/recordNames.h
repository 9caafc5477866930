#pragma once

#include "record/RunRecord.h"

#include <array>
#include <optional>
#include <QString>

// What the enumerations of a record are called in its renderings. ASCII; they never change.

template <class Value>
struct NamedValue
{
    Value value;
    const char *name;
};

inline constexpr std::array verdictNames = {
    NamedValue<Verdict>{Verdict::Passed, "passed"},
    NamedValue<Verdict>{Verdict::Failed, "failed"},
    NamedValue<Verdict>{Verdict::Warning, "warning"},
    NamedValue<Verdict>{Verdict::NotTested, "notTested"},
};

inline constexpr std::array outcomeNames = {
    NamedValue<Outcome>{Outcome::Passed, "passed"},
    NamedValue<Outcome>{Outcome::Failed, "failed"},
    NamedValue<Outcome>{Outcome::Stopped, "stopped"},
    NamedValue<Outcome>{Outcome::Error, "error"},
};

inline constexpr std::array requestEndNames = {
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::Answered, "answered"},
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::NoReply, "noReply"},
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::Refused, "refused"},
    NamedValue<RequestEnd::Kind>{RequestEnd::Kind::WrongSize, "wrongSize"},
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
