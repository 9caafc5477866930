#include "record/Measurement.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {
constexpr bool inOrder()
{
    for (std::size_t i = 0; i < fieldInfos.size(); ++i) {
        if (fieldInfos[i].field != static_cast<Field>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(inOrder(), "the rows stand in the order of the enumeration, so that a field finds its row");
static_assert(fieldInfos.size() == static_cast<std::size_t>(Field::FileTime) + 1,
              "every field has a row, and a new one stands before the last");

Measurement make(Field field, MeasuredValue value)
{
    const FieldInfo &info = fieldInfo(field);
    return {QString::fromLatin1(info.name), std::move(value), QString::fromUtf8(info.unit), {}};
}
} // namespace

const FieldInfo &fieldInfo(Field field)
{
    return fieldInfos.at(static_cast<std::size_t>(field));
}

const FieldInfo *findField(const QString &name)
{
    const auto *row = std::find_if(fieldInfos.begin(), fieldInfos.end(),
                                   [&name](const FieldInfo &info) { return name == QLatin1String(info.name); });
    return row == fieldInfos.end() ? nullptr : row;
}

Measurement measured(Field field, double value)
{
    return make(field, value);
}

Measurement measured(Field field, const QString &value)
{
    return make(field, value);
}

bool operator==(const Measurement &left, const Measurement &right)
{
    return left.name == right.name && left.value == right.value && left.unit == right.unit && left.limit == right.limit;
}
