#pragma once

#include "record/RunRecord.h"

#include <optional>
#include <QList>
#include <QString>

// What became different between two runs of a camera. Pure functions, for any thread.

struct Difference
{
    QString what; ///< "firmware", "battery.info", "battery.info/battery.voltage"
    QString before;
    QString after;
};

/// Who reads the differences: programs read names that no language changes.
enum class Wording { ForPeople, ForPrograms };

/// Surroundings first (station, program, firmware, ...), then items whose verdict or text differs, each followed by its
/// measurements that differ. Measurements of items that ended the same way are left out, unless their limit differs: a
/// voltage is never the same twice.
QList<Difference> compareRuns(const RunRecord &before, const RunRecord &after, Wording wording = Wording::ForPeople);

/// Places in a list of outcomes.
struct TurnForTheWorse
{
    int lastPass;
    int firstFailure;
};

/// Where the latest series of failures began, and the last pass before it, in outcomes of ascending time; nothing if
/// there is no failure with a pass before it. Stopped runs and errors judge nothing, and are passed over.
std::optional<TurnForTheWorse> findTurnForTheWorse(const QList<Outcome> &outcomes);
