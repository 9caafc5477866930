#pragma once

#include "record/RunRecord.h"

#include <QList>
#include <QString>

/// What a DetectorLog.txt tells of a run: components and items with verdicts, texts, and the measurements that the
/// texts show. Durations, requests and files are not in it and stay empty.
struct LoggedRun
{
    QList<ComponentRecord> components; ///< in the order of the log; none: it is no such log, or the run left no block
    int unknownLines = 0;              ///< lines that belong to no component or item
};

/// Pure function, for any thread.
LoggedRun readDetectorLog(const QString &text);
