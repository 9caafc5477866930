#pragma once

#include "history/query/RunSummary.h"
#include "plots/PlotContent.h"

#include <QList>

/// The runs of a camera along time, by how many items failed or warned. The table is left empty. For any thread.
PlotContent unitPlot(const QList<RunSummary> &runs);
