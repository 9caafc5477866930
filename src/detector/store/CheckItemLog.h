#pragma once

#include "detector/store/verdict.h"
#include "record/Measurement.h"
#include "record/RequestEnd.h"

#include <chrono>
#include <optional>
#include <QList>
#include <QString>
#include <QStringList>

/// What one tested item left behind.
struct CheckItemLog
{
    int result = verdict::notTested;       ///< the item's verdict code
    QString message;                       ///< short verdict text, ends in a line break
    QString detail;                        ///< long report, empty for most items
    int number = -1;                       ///< an `itemId` of the record's component
    QString name{};                        ///< as the operator read it while the item ran
    QList<Measurement> measurements{};     ///< what the item read, in the order of reading
    QStringList files{};                   ///< paths of what the item has brought from the camera, complete
    std::optional<RequestEnd> request{};   ///< none: the item asked the camera for nothing
    std::chrono::microseconds duration{0}; ///< of the item's routine
    bool breaksLimit = false;              ///< a limit that somebody has set is not kept
};
