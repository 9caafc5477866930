#pragma once

#include "detector/store/CheckItemLog.h"
#include "record/Measurement.h"

#include <QList>

/// Holds what the item has read against the limits of the settings: one that is outside makes the item NG, and its
/// report gets a line with value, unit and limit. Without limits nothing happens.
void judgeMeasurements(CheckItemLog &item);

/// Likewise for what the item should have read: a field with a limit that is not among its measurements. For an item
/// that would fail nothing otherwise.
void judgeMissing(CheckItemLog &item, const QList<Field> &expected);
