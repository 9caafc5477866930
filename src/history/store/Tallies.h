#pragma once

#include "history/store/runRows.h"

#include <map>
#include <optional>
#include <QString>
#include <QUuid>

/// A row of `tally` without its key: what is to be added to it.
struct TallySums
{
    qint64 runs = 0;
    qint64 passed = 0;
    qint64 failed = 0;
    qint64 stopped = 0;
    qint64 error = 0;
    qint64 durationMs = 0;
    qint64 cameras = 0;
    qint64 firstPassed = 0;
    qint64 finalPassed = 0;
};

/// A row of `item_tally` likewise.
struct ItemSums
{
    qint64 ran = 0;
    qint64 failed = 0;
    qint64 warned = 0;
};

/// A row of `camera`.
struct CameraRow
{
    /// How a run that judged the camera ended.
    struct Judgement
    {
        qint64 beginMs = 0;
        bool passed = false;
    };

    QString mac;
    qint64 runs = 0;
    qint64 lastBeginMs = 0;
    QUuid lastRun;       ///< null: no run yet
    QString lastOutcome; ///< as in the record
    std::optional<Judgement> first;
    TallyKey cohort; ///< where `first` was made
    std::optional<Judgement> last;
};

/// What a transaction adds to the sums: many runs change the same few rows, which are written once.
class Tallies
{
public:
    /// Counts a run that is new. `camera`: the row of its MAC address, which is brought up to date; null without one.
    void add(const RunRows &run, CameraRow *camera);

    /// By key, so that two writers take hold of the rows in the same order.
    const std::map<TallyKey, TallySums> &sums() const { return m_sums; }
    /// Of each key the items.
    const std::map<TallyKey, std::map<QString, ItemSums>> &itemSums() const { return m_itemSums; }

private:
    void judge(const RunRows &run, CameraRow *camera);
    /// Enters the camera into the sums of its cohort, or takes it out again (`sign` -1).
    void countCamera(const CameraRow &camera, int sign);

    std::map<TallyKey, TallySums> m_sums;
    std::map<TallyKey, std::map<QString, ItemSums>> m_itemSums;
};
