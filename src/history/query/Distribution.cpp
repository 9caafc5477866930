#include "history/query/Distribution.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {
constexpr int wantedBins = 24;

/// Where the bulk of the values lies, in values sorted ascending. Some far off must not press all others into one bin.
struct Range
{
    double begin;
    double end;
};

Range rangeOfBins(const QVector<double> &sorted)
{
    constexpr double share = 0.005;
    const int last = static_cast<int>(sorted.size()) - 1;
    const int cut = static_cast<int>(std::floor(share * last));
    const double low = sorted.at(cut);
    const double high = sorted.at(last - cut);
    const double margin = high - low;
    return {std::max(sorted.constFirst(), low - margin), std::min(sorted.constLast(), high + margin)};
}

void fillBins(const QVector<double> &sorted, Distribution *distribution)
{
    const Range range = rangeOfBins(sorted);
    const double width = range.end / wantedBins - range.begin / wantedBins;
    // Values that differ by less than a number can tell are one value.
    const double smallest = std::max(std::abs(range.begin), std::abs(range.end)) * 1e-12;
    const bool isOneValue = !(width > smallest) || !std::isfinite(width);
    distribution->binWidth = roundStep(isOneValue ? std::max(std::abs(range.begin) / 1000, 1e-6) : width);
    distribution->binBegin = std::floor(range.begin / distribution->binWidth) * distribution->binWidth;
    const auto binOf = [distribution](double value) {
        return std::floor(value / distribution->binWidth - distribution->binBegin / distribution->binWidth);
    };
    // A step that was rounded up needs no more than the wanted ones and one at each end.
    const double bins = std::min(binOf(range.end) + 1, wantedBins + 2.0);
    distribution->bins.fill(0, static_cast<int>(bins));
    for (const double value : sorted) {
        const double bin = binOf(value);
        if (bin < 0) {
            ++distribution->below;
        } else if (bin >= bins) {
            ++distribution->above;
        } else {
            ++distribution->bins[static_cast<int>(bin)];
        }
    }
}
} // namespace

void describe(QVector<double> values, Distribution *distribution)
{
    values.erase(std::remove_if(values.begin(), values.end(), [](double value) { return !std::isfinite(value); }),
                 values.end());
    distribution->count = values.size();
    if (values.isEmpty()) {
        return;
    }
    std::sort(values.begin(), values.end());
    distribution->least = values.constFirst();
    distribution->most = values.constLast();
    // In one pass and without the difference of two large sums.
    double mean = 0;
    double squares = 0;
    double count = 0;
    for (const double value : qAsConst(values)) {
        const double difference = value - mean;
        mean += difference / ++count;
        squares += difference * (value - mean);
    }
    distribution->mean = mean;
    distribution->deviation = count > 1 ? std::sqrt(squares / (count - 1)) : 0;
    fillBins(values, distribution);
}

std::optional<double> cpk(const Distribution &distribution)
{
    const double spread = 3 * distribution.deviation;
    if (!(spread > 0) || (!distribution.limit.least && !distribution.limit.most)) {
        return {};
    }
    double nearest = std::numeric_limits<double>::infinity();
    if (distribution.limit.least) {
        nearest = std::min(nearest, distribution.mean - *distribution.limit.least);
    }
    if (distribution.limit.most) {
        nearest = std::min(nearest, *distribution.limit.most - distribution.mean);
    }
    return nearest / spread;
}

double roundStep(double step)
{
    const double power = std::pow(10, std::floor(std::log10(step)));
    // What is a hair above a round number by the arithmetic alone is that number.
    constexpr double hair = 1 - 1e-9;
    for (const double factor : std::array{1.0, 2.0, 5.0}) {
        if (power * factor >= step * hair) {
            return power * factor;
        }
    }
    return power * 10;
}
