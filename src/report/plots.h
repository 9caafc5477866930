#pragma once

#include "history/query/Distribution.h"
#include "history/query/Statistics.h"
#include "report/Drawing.h"

// Statistics as pictures. Pure functions, for any thread.

/// Items by how often they failed, with what they and all before them make up of the failures. At most `mostItems`.
Drawing paretoPlot(const QList<ItemGroup> &items, int mostItems = 15);

/// Runs of each day (of each week or more in a long period, see `groupDays`) as bars, first-pass and final yield as
/// lines over them.
Drawing yieldPlot(const QList<RunGroup> &days);

/// Histogram with the limits and the mean. A limit that is far from all values is told and not drawn.
Drawing distributionPlot(const Distribution &distribution);

/// "98.4 %", "-" without a value.
QString percentText(const std::optional<double> &share);
/// With as many digits as people want to read.
QString shortNumber(double number);
