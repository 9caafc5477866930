#include "plots/plotContents.h"

#include "plots/plotNumbers.h"
#include "plots/PlotTexts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QDate>

namespace {
double dayNumber(const RunGroup &day)
{
    return static_cast<double>(QDate::fromString(day.name, Qt::ISODate).toJulianDay());
}

template <class Part>
bool isSplit(const QList<Part> &parts)
{
    return parts.size() > 1 || (!parts.isEmpty() && !parts.constFirst().name.isEmpty());
}

/// The texts of a row, behind that of its part where there are several.
template <class Part>
QStringList rowOf(const QList<Part> &parts, const QString &part, const QStringList &texts)
{
    return isSplit(parts) ? QStringList(part) + texts : texts;
}

/// A hint or the name of a line, behind the part that it is of.
QString textOf(const QString &part, const QString &text)
{
    return part.isEmpty() ? text : QStringLiteral("%1, %2").arg(part, text);
}

/// Rounded down to a tenth, so that what differs can be seen.
double lowestShare(const QList<StatisticsPart> &parts)
{
    double lowest = 0.9;
    for (const StatisticsPart &part : parts) {
        for (const RunGroup &day : part.statistics.byDay) {
            lowest = std::min({lowest, firstPassYield(day.sums).value_or(1), finalYield(day.sums).value_or(1)});
        }
    }
    constexpr double tenths = 10;
    constexpr double hair = 1e-9;
    return std::floor(lowest * tenths + hair) / tenths;
}

struct Yield
{
    const char *name;
    std::optional<double> (*of)(const TallySums &sums);
    PlotLine::Style style;
};

constexpr std::array yields = {
    Yield{QT_TRANSLATE_NOOP("Plots", "first-pass yield"), firstPassYield, PlotLine::Style::Dashed},
    Yield{QT_TRANSLATE_NOOP("Plots", "final yield"), finalYield, PlotLine::Style::Solid},
};

/// Days, or the first ones of weeks: how far the nearest two of them are apart.
double spaceOf(const QList<RunGroup> &days)
{
    double space = 0;
    for (int i = 1; i < days.size(); ++i) {
        const double gap = dayNumber(days.at(i)) - dayNumber(days.at(i - 1));
        space = i == 1 ? gap : std::min(space, gap);
    }
    return std::max(space, 1.0);
}

PlotBars runsByDay(const Statistics &statistics)
{
    constexpr double share = 0.4; // of the space, on both sides
    const double half = share * spaceOf(statistics.byDay);
    PlotBars bars;
    bars.name = Plots::tr("runs");
    bars.isBehind = true;
    for (const RunGroup &day : statistics.byDay) {
        const double at = dayNumber(day);
        const QString runs = Plots::tr("%n runs", nullptr, static_cast<int>(day.sums.runs));
        bars.bars.append({at - half, at + half, static_cast<double>(day.sums.runs),
                          QStringLiteral("%1: %2").arg(day.name, runs), runs});
    }
    return bars;
}

double meanSeconds(const TallySums &sums)
{
    constexpr double msOfSecond = 1000;
    return sums.runs > 0 ? static_cast<double>(sums.durationMs) / static_cast<double>(sums.runs) / msOfSecond : 0;
}

/// Failures of an item; 0 where it has none.
ItemSums sumsOfItem(const Statistics &statistics, const QString &item)
{
    const auto found = std::find_if(statistics.items.begin(), statistics.items.end(),
                                    [&item](const ItemGroup &group) { return group.item == item; });
    return found == statistics.items.end() ? ItemSums() : found->sums;
}

double failuresOf(const Statistics &statistics)
{
    qint64 failures = 0;
    for (const ItemGroup &group : statistics.items) {
        failures += group.sums.failed;
    }
    return static_cast<double>(failures);
}

/// All items of the parts, what failed most often first; how often they ran is not summed up.
QList<ItemGroup> allItems(const QList<StatisticsPart> &parts)
{
    QList<ItemGroup> all;
    for (const StatisticsPart &part : parts) {
        for (const ItemGroup &group : part.statistics.items) {
            const auto found = std::find_if(all.begin(), all.end(),
                                            [&group](const ItemGroup &entry) { return entry.item == group.item; });
            if (found == all.end()) {
                all.append(group);
                continue;
            }
            found->sums.failed += group.sums.failed;
            found->sums.warned += group.sums.warned;
        }
    }
    sortByFailures(&all);
    return all;
}
} // namespace

QString figuresText(const Statistics &statistics)
{
    const TallySums &total = statistics.total;
    return Plots::tr(
               "%1 runs (%2 passed, %3 failed, %4 stopped, %5 errors) of %6 cameras. First-pass yield %7, final yield "
               "%8")
        .arg(QString::number(total.runs), QString::number(total.passed), QString::number(total.failed),
             QString::number(total.stopped), QString::number(total.error), QString::number(total.cameras),
             percentText(firstPassYield(total)), percentText(finalYield(total)));
}

PlotContent yieldPlot(const QList<StatisticsPart> &parts, const QString &kind)
{
    PlotContent plot;
    plot.title = Plots::tr("Yield by day");
    plot.upTitle = Plots::tr("Yield of cameras");
    plot.scale = PlotContent::Scale::Days;
    plot.isShare = true;
    plot.upFrom = lowestShare(parts);
    plot.table.columns = rowOf(parts, kind,
                               {Plots::tr("Day"), Plots::tr("Runs"), Plots::tr("Passed"), Plots::tr("Failed"),
                                Plots::tr("Cameras"), Plots::tr("First-pass yield"), Plots::tr("Final yield")});
    if (!isSplit(parts) && !parts.isEmpty() && !parts.constFirst().statistics.byDay.isEmpty()) {
        plot.behindTitle = Plots::tr("Runs");
        plot.bars.append(runsByDay(parts.constFirst().statistics));
    }
    for (int i = 0; i < parts.size(); ++i) {
        const StatisticsPart &part = parts.at(i);
        for (const Yield &yield : yields) {
            PlotLine line;
            line.name = textOf(part.name, Plots::tr(yield.name));
            line.style = yield.style;
            line.colour = i;
            for (const RunGroup &day : part.statistics.byDay) {
                if (const std::optional<double> share = yield.of(day.sums)) {
                    line.points.append(
                        {dayNumber(day), *share,
                         textOf(part.name,
                                QStringLiteral("%1: %2 %3").arg(day.name, Plots::tr(yield.name), percentText(share)))});
                }
            }
            if (!line.points.isEmpty()) {
                plot.lines.append(line);
            }
        }
        for (const RunGroup &day : part.statistics.byDay) {
            const TallySums &sums = day.sums;
            plot.table.rows.append(rowOf(parts, part.name,
                                         {day.name, QString::number(sums.runs), QString::number(sums.passed),
                                          QString::number(sums.failed), QString::number(sums.cameras),
                                          percentText(firstPassYield(sums)), percentText(finalYield(sums))}));
        }
    }
    return plot;
}

PlotContent failuresPlot(const QList<StatisticsPart> &parts, const QString &kind)
{
    constexpr int mostBars = 20; // the table has all
    constexpr double width = 0.8;
    const double share = width / static_cast<double>(std::max<qint64>(parts.size(), 1));
    PlotContent plot;
    plot.title = Plots::tr("Failures by item");
    plot.upTitle = Plots::tr("Failed runs");
    plot.isCount = true;
    plot.scale = PlotContent::Scale::Names;
    plot.table.columns = rowOf(parts, kind,
                               {Plots::tr("Item"), Plots::tr("Ran"), Plots::tr("Failed"), Plots::tr("Warned"),
                                Plots::tr("Failed of those that ran")});
    const QList<ItemGroup> items = allItems(parts);
    for (const ItemGroup &item : items) {
        if (item.sums.failed > 0 && plot.names.size() < mostBars) {
            plot.names.append(item.item);
        }
    }
    for (int i = 0; i < parts.size(); ++i) {
        const StatisticsPart &part = parts.at(i);
        PlotBars bars;
        bars.name = part.name.isEmpty() ? Plots::tr("failed") : part.name;
        bars.colour = isSplit(parts) ? i : plotColour::failed;
        const double failures = failuresOf(part.statistics);
        double soFar = 0;
        for (int k = 0; k < plot.names.size(); ++k) {
            const ItemSums sums = sumsOfItem(part.statistics, plot.names.at(k));
            const double from = k - width / 2 + i * share;
            soFar += static_cast<double>(sums.failed);
            const QString shareSoFar = percentText(failures > 0 ? soFar / failures : std::optional<double>());
            bars.bars.append(
                {from, from + share, static_cast<double>(sums.failed),
                 textOf(part.name, Plots::tr("%1: failed in %2 of %n runs", nullptr, static_cast<int>(sums.ran))
                                       .arg(plot.names.at(k), QString::number(sums.failed))),
                 Plots::tr("%1 (%2 of all so far)").arg(QString::number(sums.failed), shareSoFar)});
        }
        if (!bars.bars.isEmpty()) {
            plot.bars.append(bars);
        }
    }
    for (const ItemGroup &item : items) {
        for (const StatisticsPart &part : parts) {
            const ItemSums sums = sumsOfItem(part.statistics, item.item);
            const std::optional<double> failed =
                sums.ran > 0 ? std::optional<double>(static_cast<double>(sums.failed) / static_cast<double>(sums.ran))
                             : std::nullopt;
            plot.table.rows.append(rowOf(parts, part.name,
                                         {item.item, QString::number(sums.ran), QString::number(sums.failed),
                                          QString::number(sums.warned), percentText(failed)}));
        }
    }
    return plot;
}

PlotContent durationPlot(const QList<StatisticsPart> &parts, const QString &kind)
{
    PlotContent plot;
    plot.title = Plots::tr("Duration of runs by day");
    plot.upTitle = Plots::tr("Mean duration, s");
    plot.scale = PlotContent::Scale::Days;
    plot.table.columns = rowOf(parts, kind, {Plots::tr("Day"), Plots::tr("Runs"), Plots::tr("Mean duration, s")});
    for (int i = 0; i < parts.size(); ++i) {
        const StatisticsPart &part = parts.at(i);
        PlotLine line;
        line.name = part.name.isEmpty() ? Plots::tr("mean duration") : part.name;
        line.colour = i;
        for (const RunGroup &day : part.statistics.byDay) {
            if (day.sums.runs > 0) {
                const QString seconds = shortNumber(meanSeconds(day.sums));
                line.points.append({dayNumber(day), meanSeconds(day.sums),
                                    textOf(part.name, QStringLiteral("%1: %2 s").arg(day.name, seconds))});
                plot.table.rows.append(rowOf(parts, part.name, {day.name, QString::number(day.sums.runs), seconds}));
            }
        }
        if (!line.points.isEmpty()) {
            plot.lines.append(line);
        }
    }
    return plot;
}

namespace {
PlotBars countsOf(const Distribution &distribution)
{
    PlotBars bars;
    bars.name = Plots::tr("values");
    for (int i = 0; i < distribution.bins.size(); ++i) {
        const double from = distribution.binBegin + i * distribution.binWidth;
        const double to = from + distribution.binWidth;
        const qint64 count = distribution.bins.at(i);
        if (count > 0) {
            bars.bars.append({from,
                              to,
                              static_cast<double>(count),
                              QStringLiteral("%1..%2 %3: %4")
                                  .arg(shortNumber(from), shortNumber(to), distribution.unit, QString::number(count)),
                              {}});
        }
    }
    return bars;
}

/// Parts of different sizes, and with bins of different widths, are compared by their densities.
PlotLine densityOf(const DistributionPart &part, int colour)
{
    const Distribution &distribution = part.distribution;
    constexpr double half = 0.5;
    PlotLine line;
    line.name = part.name;
    line.colour = colour;
    for (int i = 0; i < distribution.bins.size(); ++i) {
        const double share = static_cast<double>(distribution.bins.at(i)) / static_cast<double>(distribution.count);
        const double at = distribution.binBegin + (i + half) * distribution.binWidth;
        line.points.append(
            {at, share / distribution.binWidth,
             QStringLiteral("%1, %2 %3: %4").arg(part.name, shortNumber(at), distribution.unit, percentText(share))});
    }
    return line;
}

void addLimits(const Limit &limit, QList<PlotMark> *marks)
{
    if (limit.least) {
        marks->append({*limit.least, Plots::tr("least %1").arg(shortNumber(*limit.least)), true});
    }
    if (limit.most) {
        marks->append({*limit.most, Plots::tr("most %1").arg(shortNumber(*limit.most)), true});
    }
}
} // namespace

PlotContent distributionPlot(const QList<DistributionPart> &parts, const QString &kind)
{
    PlotContent plot;
    plot.table.columns =
        rowOf(parts, kind,
              {Plots::tr("Values"), Plots::tr("Outside"), Plots::tr("Least"), Plots::tr("Most"), Plots::tr("Mean"),
               Plots::tr("Standard deviation"), Plots::tr("Lower limit"), Plots::tr("Upper limit"), Plots::tr("Cpk")});
    plot.upTitle = isSplit(parts) ? Plots::tr("Density") : Plots::tr("Values");
    plot.isCount = !isSplit(parts);
    for (int i = 0; i < parts.size(); ++i) {
        const Distribution &distribution = parts.at(i).distribution;
        plot.title = Plots::tr("%1 in %2").arg(distribution.name, distribution.item);
        plot.acrossTitle = distribution.unit.isEmpty()
                               ? distribution.name
                               : QStringLiteral("%1, %2").arg(distribution.name, distribution.unit);
        if (distribution.count == 0) {
            continue;
        }
        if (isSplit(parts)) {
            plot.lines.append(densityOf(parts.at(i), i));
        } else {
            plot.bars.append(countsOf(distribution));
            plot.marks.append({distribution.mean, Plots::tr("mean %1").arg(shortNumber(distribution.mean)), false});
        }
        if (plot.marks.size() < 2) {
            addLimits(distribution.limit, &plot.marks);
        }
        const std::optional<double> capability = cpk(distribution);
        plot.table.rows.append(rowOf(parts, parts.at(i).name,
                                     {QString::number(distribution.count), QString::number(distribution.outside),
                                      shortNumber(distribution.least), shortNumber(distribution.most),
                                      shortNumber(distribution.mean), shortNumber(distribution.deviation),
                                      boundText(distribution.limit.least), boundText(distribution.limit.most),
                                      capability ? QString::number(*capability, 'f', 2) : QStringLiteral("-")}));
    }
    return plot;
}
