#pragma once

#include <functional>
#include <optional>
#include <QDate>

class Store;

struct PruneWatch
{
    /// After each day: runs removed so far, and in all. False: no more is wanted; what is removed stays so.
    std::function<bool(qint64 done, qint64 all)> progress;
};

/// Removes all runs of the days before `day` (by the clocks of their stations), the oldest day first, each day in one
/// transaction, and gives the space back. Sums and cameras are afterwards as if those runs had never been. Returns how
/// many runs are gone; nothing if the store failed, and its `error` tells why: days that were removed before stay so.
/// A run that the server does not have yet is removed as well: see `countUnsentBefore`.
std::optional<qint64> pruneRuns(Store &store, const QDate &day, const PruneWatch &watch);

/// How many runs of the days before `day` wait to be sent to the server.
std::optional<qint64> countUnsentBefore(Store &store, const QDate &day);
