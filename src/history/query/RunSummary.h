#pragma once

#include "history/store/runRows.h"
#include "record/RunRecord.h"

#include <chrono>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QUuid>

/// A run as lists show it: what the store has beside the record. Texts are those of the columns, see schema.h of the
/// store. A plain value, for any thread.
struct RunSummary
{
    QUuid id;
    QDateTime begin; ///< with the offset of the run's own clock
    std::chrono::microseconds duration{0};
    Outcome outcome = Outcome::Error;
    QString mac;
    QString serial;
    QString station;
    QString location;
    QString batch;
    QString firmware;
    QString operatorName;
    QString reason;
    int failedItems = 0;  ///< that failed or warned
    QString firstFinding; ///< key of the first that failed, else of the first that warned
};

/// A camera whose last judgement is that it failed.
struct FailedCamera
{
    RunSummary run;             ///< the one that says so
    QList<FindingRow> findings; ///< what failed or warned in it, in the order of running
};
