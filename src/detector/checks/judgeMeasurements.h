#pragma once

#include "detector/store/CheckItemLog.h"

/// Holds what the item has read against the limits of the settings: one that is outside makes the item NG, and its
/// report gets a line with value, unit and limit. Without limits nothing happens.
void judgeMeasurements(CheckItemLog &item);
