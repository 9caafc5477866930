#pragma once

#include "history/query/Distribution.h"
#include "history/query/Statistics.h"
#include "plots/PlotContent.h"

#include <QList>
#include <QString>

// Plots and tables of what was counted, for window and report alike. Pure functions, for any thread.

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

/// How many runs and cameras there are, how they ended, and both yields, in one line.
QString figuresText(const Statistics &statistics);
