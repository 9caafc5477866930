#pragma once

#include "history/query/Distribution.h"
#include "history/query/RunSummary.h"
#include "history/query/Statistics.h"
#include "report/Page.h"

#include <QDateTime>
#include <QList>
#include <QString>

/// What a report is made of. Plain values, for any thread.
struct Report
{
    QString store;       ///< where the runs are from, for people
    QString programName; ///< with its version
    QDateTime made;
    StatisticsFilter filter;
    Statistics statistics;
    QList<Distribution> distributions;
    QList<FailedCamera> failed; ///< cameras whose last judgement within the period is that they failed
};

/// The report with its headings, numbers, pictures and tables.
Page reportPage(const Report &report);

/// A duration as people say it: "0.48 s", "1 min 12 s", "2 h 05 min".
QString durationText(std::chrono::microseconds duration);
