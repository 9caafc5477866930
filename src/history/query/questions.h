#pragma once

#include "history/query/Distribution.h"
#include "history/query/RunFilter.h"
#include "history/query/RunSummary.h"
#include "history/query/Statistics.h"

#include <optional>
#include <QList>

class Store;

// What people ask a store. Each question is for the thread that has opened the store, and reads one state of it.
// Nothing: the store could not answer, and its `error` tells why.

/// The latest of the runs that `filter` admits, the latest one first.
std::optional<QList<RunSummary>> findRuns(Store &store, const RunFilter &filter);

/// The ids that begin with `text` ("0b5f6d0e", at least 4 digits), at most two of them: more than one is none.
std::optional<QList<QUuid>> findRunIds(Store &store, const QString &text);

/// From the sums that the store keeps: as quick with a million runs as with none.
std::optional<Statistics> readStatistics(Store &store, const StatisticsFilter &filter);

/// The numbers that had a limit in the latest run of the period, by item and name. Here and below, a day is one of this
/// PC's clock.
std::optional<QList<Distribution>> readDistributions(Store &store, const StatisticsFilter &filter);

/// Cameras that were judged last within the period, and failed; the latest one first. Runs without a MAC address are
/// of no camera that could be told from others.
std::optional<QList<FailedCamera>> readFailedCameras(Store &store, const StatisticsFilter &filter);
