#pragma once

#include "record/Limit.h"

#include <QString>

// Measured values and limits as people and the settings write them: decimal point, no grouping, as few digits as tell
// the number from every other.

/// "3.85", or the text itself.
QString valueText(const MeasuredValue &value);
/// "3.6..4.35", "..45", "30000..", or "1.2.3|1.2.4".
QString limitText(const Limit &limit);
