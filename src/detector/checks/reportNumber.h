#pragma once

#include "detector/store/CheckItemLog.h"

#include <QString>

/// Notes a number that the item read, and shows it in the report: `line` has a place for it. The number is in the unit
/// of the field, which is the line's as well.
inline void reportNumber(CheckItemLog &item, const QString &line, Field field, double value)
{
    item.measurements.append(measured(field, value));
    item.detail += line.arg(value);
}
