#include "record/Limit.h"

bool Limit::admits(const MeasuredValue &value) const
{
    if (const QString *text = std::get_if<QString>(&value)) {
        return oneOf.contains(*text);
    }
    const double number = std::get<double>(value);
    // Put so that a number that compares with nothing is outside.
    return oneOf.isEmpty() && (!least || number >= *least) && (!most || number <= *most);
}

bool operator==(const Limit &left, const Limit &right)
{
    return left.least == right.least && left.most == right.most && left.oneOf == right.oneOf;
}
