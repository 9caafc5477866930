#pragma once

#include "history/store/Tallies.h"

#include <optional>
#include <QDate>
#include <QList>
#include <QString>

// What a store's runs come to when they are counted. Plain values, for any thread.

/// Which runs are counted. What is empty or null sets no bound.
struct StatisticsFilter
{
    QDate since; ///< both days included, by the clock of the run's station
    QDate until;
    QString station;
    QString batch;
    QString firmware;
};

/// The runs that have something in common.
struct RunGroup
{
    QString name; ///< the day ("2026-11-21"), or the station, batch or firmware; empty: where nobody said
    TallySums sums;
};

struct ItemGroup
{
    QString item; ///< its key
    ItemSums sums;
};

/// Yields count cameras, each where and when it was judged for the first time: see `tally` in history/store/schema.h.
struct Statistics
{
    QDate first; ///< the first and the last day with a run; null without any
    QDate last;
    TallySums total;
    QList<RunGroup> byDay; ///< ascending
    QList<RunGroup> byStation;
    QList<RunGroup> byBatch;
    QList<RunGroup> byFirmware;
    QList<ItemGroup> items; ///< those that failed or warned, what failed most often first
};

/// Adds each of the sums.
void add(const TallySums &sums, TallySums *to);

/// Of the cameras that were judged, how many passed in their first run; nothing without any.
std::optional<double> firstPassYield(const TallySums &sums);
/// Likewise in their last one.
std::optional<double> finalYield(const TallySums &sums);

/// Days of ascending time, put together where they are too many to be told apart: as they are up to a quarter of a
/// year, in weeks up to two years, else in spans of four weeks. Each bears the name of its first day, a Monday.
QList<RunGroup> groupDays(const QList<RunGroup> &days);

/// What failed most often first, then what warned most often, then by key.
void sortByFailures(QList<ItemGroup> *items);
