#pragma once

#include <optional>
#include <QString>
#include <QStringList>
#include <variant>

/// What was read: a number in the unit of its field, or a text such as a version. Never NaN or infinite.
using MeasuredValue = std::variant<double, QString>;

/// What a measurement has to be: a number from `least` to `most`, both included, or one of the texts in `oneOf`.
struct Limit
{
    std::optional<double> least; ///< none: no lower bound
    std::optional<double> most;  ///< none: no upper bound
    QStringList oneOf;           ///< not empty: the limit of a text

    /// Whether `value` keeps the limit. A value of the other kind does not.
    bool admits(const MeasuredValue &value) const;
};

bool operator==(const Limit &left, const Limit &right);
inline bool operator!=(const Limit &left, const Limit &right)
{
    return !(left == right);
}
