#include "plots/PlotContent.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {
constexpr std::array<QRgb, 6> palette = {0xFF0072B2, 0xFFD55E00, 0xFF009E73, 0xFFCC79A7, 0xFF7A5C00, 0xFF56B4E9};

struct Reach
{
    double from = std::numeric_limits<double>::infinity();
    double to = -std::numeric_limits<double>::infinity();

    void take(double value)
    {
        from = std::min(from, value);
        to = std::max(to, value);
    }
};

} // namespace

QPair<double, double> PlotContent::across() const
{
    Reach reach;
    for (const PlotBars &one : bars) {
        for (const PlotBar &bar : one.bars) {
            reach.take(bar.from);
            reach.take(bar.to);
        }
    }
    for (const PlotLine &line : lines) {
        for (const PlotPoint &point : line.points) {
            reach.take(point.across);
        }
    }
    if (!(reach.from <= reach.to)) {
        return {0, 1};
    }
    if (scale == Scale::Names) {
        constexpr double fewest = 5; // a single bar must not fill the plot
        reach.take(fewest - 0.5);
    }
    // A limit far off must not press all values into one line.
    const double width = std::max(reach.to - reach.from, 1e-9);
    const Reach values = reach;
    for (const PlotMark &mark : marks) {
        if (mark.across > values.from - 2 * width && mark.across < values.to + 2 * width) {
            reach.take(mark.across);
        }
    }
    constexpr double marginShare = 0.03;
    constexpr double hourMs = 3600e3;
    const double least = scale == Scale::Moments ? hourMs : scale == Scale::Days ? 0.5 : 0;
    const double margin = std::max((reach.to - reach.from) * marginShare, least);
    return {reach.from - margin, reach.to + margin};
}

QColor colourOfPlot(int number)
{
    return QColor(palette.at(static_cast<std::size_t>(number) % palette.size()));
}
