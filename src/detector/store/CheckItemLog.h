#pragma once

#include "detector/store/verdict.h"

#include <QString>

/// What one tested item left behind.
struct CheckItemLog
{
    int result = verdict::notTested; ///< the item's verdict code
    QString message;                 ///< short verdict text, ends in a line break
    QString detail;                  ///< long report, empty for most items
};
