#include "historyui/plots/unitPlot.h"

#include "historyui/reader/runWords.h"
#include "plots/plotNumbers.h"
#include "plots/PlotTexts.h"

#include <array>

PlotContent unitPlot(const QList<RunSummary> &runs)
{
    struct OutcomeLine
    {
        Outcome outcome;
        int colour;
    };
    constexpr std::array outcomes = {
        OutcomeLine{Outcome::Passed, plotColour::passed}, OutcomeLine{Outcome::Failed, plotColour::failed},
        OutcomeLine{Outcome::Stopped, plotColour::stopped}, OutcomeLine{Outcome::Error, plotColour::error}};
    PlotContent plot;
    plot.title = Plots::tr("Runs of the camera");
    plot.upTitle = Plots::tr("Findings");
    plot.isCount = true;
    plot.scale = PlotContent::Scale::Moments;
    for (const OutcomeLine &row : outcomes) {
        PlotLine line;
        line.name = outcomeText(row.outcome);
        line.style = PlotLine::Style::Points;
        line.colour = row.colour;
        for (const RunSummary &run : runs) {
            if (run.outcome == row.outcome) {
                line.points.append(
                    {momentNumber(run.begin), static_cast<double>(run.failedItems),
                     QStringLiteral("%1: %2 %3")
                         .arg(run.begin.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")), line.name, run.firstFinding)});
            }
        }
        if (!line.points.isEmpty()) {
            plot.lines.append(line);
        }
    }
    return plot;
}
