#pragma once

#include "plots/PlotContent.h"
#include "report/Drawing.h"

/// A plot for the page, as wide as it is. Names stand below each other, with a bar beside each; what has numbers, days
/// or moments across stands upright. A pure function, for any thread.
Drawing drawPlot(const PlotContent &content);
