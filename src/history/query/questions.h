#pragma once

#include "history/query/Distribution.h"
#include "history/query/RunFilter.h"
#include "history/query/RunSummary.h"
#include "history/query/Statistics.h"

#include <chrono>
#include <optional>
#include <QList>
#include <QVector>

class Store;

// What people ask a store. Each question is for the thread that has opened the store, and reads one state of it.
// Nothing: the store could not answer, and its `error` tells why.

/// The latest of the runs that `filter` admits, the latest one first.
std::optional<QList<RunSummary>> findRuns(Store &store, const RunFilter &filter);

/// Where the pages of a long list begin.
struct RunPlaces
{
    QVector<RunPlace> steps; ///< of the last run of each page that is full
    int rest = 0;            ///< runs behind the last of `steps`; known at the end
    bool isEnd = false;      ///< there are no more
};

/// The places of every `step`th run among those that `filter` admits, from its `olderThan` on; its `limit` is not
/// looked at. Works for about `time`: where that is not enough, the next call goes on behind the last step.
std::optional<RunPlaces> findRunPlaces(Store &store, const RunFilter &filter, int step, std::chrono::milliseconds time);

/// The ids that begin with `text` ("0b5f6d0e", at least 4 digits), at most two of them: more than one is none.
std::optional<QList<QUuid>> findRunIds(Store &store, const QString &text);

/// From the sums that the store keeps: as quick with a million runs as with none.
std::optional<Statistics> readStatistics(Store &store, const StatisticsFilter &filter);

/// The numbers that had a limit in the latest run of the period, by item and name. Here and below, a day is one of this
/// PC's clock.
std::optional<QList<Distribution>> readDistributions(Store &store, const StatisticsFilter &filter);

/// What was measured in any run, by item and name.
std::optional<QList<MeasurementName>> readMeasurementNames(Store &store);

/// Likewise for one measurement, with or without a limit: of its latest `most` values. Nothing is in it if there are
/// none.
std::optional<Distribution> readDistribution(Store &store, const StatisticsFilter &filter,
                                             const MeasurementName &measurement, int most);

/// Cameras that were judged last within the period, and failed; the latest one first. Runs without a MAC address are
/// of no camera that could be told from others.
std::optional<QList<FailedCamera>> readFailedCameras(Store &store, const StatisticsFilter &filter);
