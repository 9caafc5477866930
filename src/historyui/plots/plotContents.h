#pragma once

#include "history/query/Distribution.h"
#include "history/query/RunSummary.h"
#include "history/query/Statistics.h"
#include "historyui/plots/PlotContent.h"

#include <QList>
#include <QString>

// Plots and tables of what was counted. Pure functions, for any thread.

/// What some runs have in common, such as a station: its numbers are shown beside those of the other parts.
struct StatisticsPart
{
    QString name; ///< empty: these are all runs, and there is no other part
    Statistics statistics;
};

struct DistributionPart
{
    QString name; ///< likewise
    Distribution distribution;
};

/// `kind`: what tells the parts apart, as a table's heading; not looked at where there is one part of all runs.
PlotContent yieldPlot(const QList<StatisticsPart> &parts, const QString &kind);
PlotContent failuresPlot(const QList<StatisticsPart> &parts, const QString &kind);
PlotContent durationPlot(const QList<StatisticsPart> &parts, const QString &kind);
PlotContent distributionPlot(const QList<DistributionPart> &parts, const QString &kind);

/// The runs of a camera along time, by how many items failed or warned. The table is left empty.
PlotContent unitPlot(const QList<RunSummary> &runs);

/// How many runs and cameras there are, how they ended, and both yields, in one line.
QString figuresText(const Statistics &statistics);
