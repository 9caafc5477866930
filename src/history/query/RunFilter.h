#pragma once

#include "record/RunRecord.h"

#include <optional>
#include <QDateTime>
#include <QString>
#include <QUuid>

/// Where a run stands in the order of time.
struct RunPlace
{
    qint64 beginMs = 0; ///< since 1970 UTC
    QUuid id;
};

/// Which runs are looked for. What is empty or null sets no bound.
struct RunFilter
{
    QString mac;     ///< or its beginning; with or without colons, in capital or small letters
    QString serial;  ///< or its beginning
    QDateTime since; ///< begin of the run, included
    QDateTime until; ///< not included
    QString station;
    QString batch;
    QString firmware;
    std::optional<Outcome> outcome;
    QString item; ///< key of an item that failed or warned in the run
    /// Only runs before this one: the next page behind the last run of one.
    std::optional<RunPlace> olderThan;
    int limit = 100; ///< the latest of the runs; 0 or less: all
};

/// A MAC address, or its beginning, as the store has it: "60601f0" is "60:60:1F:0". Any other text is only put into
/// capital letters.
QString macAsStored(const QString &text);
