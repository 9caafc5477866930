#include "report/Report.h"

#include "plots/plotContents.h"
#include "plots/plotNumbers.h"
#include "record/recordNames.h"
#include "record/RunRecord.h"
#include "report/drawPlot.h"
#include "report/ReportTexts.h"

#include <array>
#include <cmath>

namespace {
QString countText(qint64 count)
{
    return QString::number(count);
}

QString nameText(const QString &name)
{
    return name.isEmpty() ? ReportTexts::tr("(none)") : name;
}

QString dayText(const QDate &day)
{
    return day.toString(Qt::ISODate);
}

/// "2026-11-01 to 2026-11-21, station line-2"
QString periodText(const Report &report)
{
    const QDate since = report.filter.since.isValid() ? report.filter.since : report.statistics.first;
    const QDate until = report.filter.until.isValid() ? report.filter.until : report.statistics.last;
    QString text = since.isValid() && until.isValid() ? ReportTexts::tr("%1 to %2").arg(dayText(since), dayText(until))
                                                      : ReportTexts::tr("No runs");
    const std::array<std::pair<const char *, QString>, 3> bounds = {
        {{QT_TRANSLATE_NOOP("ReportTexts", "%1, station %2"), report.filter.station},
         {QT_TRANSLATE_NOOP("ReportTexts", "%1, batch %2"), report.filter.batch},
         {QT_TRANSLATE_NOOP("ReportTexts", "%1, firmware %2"), report.filter.firmware}}};
    for (const auto &bound : bounds) {
        if (!bound.second.isEmpty()) {
            text = ReportTexts::tr(bound.first).arg(text, bound.second);
        }
    }
    return text;
}

std::chrono::microseconds meanDuration(const TallySums &sums)
{
    return std::chrono::milliseconds(sums.runs > 0 ? sums.durationMs / sums.runs : 0);
}

Figures summary(const TallySums &sums)
{
    return {{{ReportTexts::tr("Cameras"), countText(sums.cameras)},
             {ReportTexts::tr("First-pass yield"), percentText(firstPassYield(sums))},
             {ReportTexts::tr("Final yield"), percentText(finalYield(sums))},
             {ReportTexts::tr("Mean duration"), durationText(meanDuration(sums))},
             {ReportTexts::tr("Runs"), countText(sums.runs)},
             {ReportTexts::tr("passed"), countText(sums.passed)},
             {ReportTexts::tr("failed"), countText(sums.failed)},
             {ReportTexts::tr("stopped or no answer"), countText(sums.stopped + sums.error)}}};
}

Table groupTable(const QString &what, const QList<RunGroup> &groups)
{
    Table table{{{what, false},
                 {ReportTexts::tr("Runs"), true},
                 {ReportTexts::tr("Passed"), true},
                 {ReportTexts::tr("Failed"), true},
                 {ReportTexts::tr("Other"), true},
                 {ReportTexts::tr("Cameras"), true},
                 {ReportTexts::tr("First-pass"), true},
                 {ReportTexts::tr("Final"), true},
                 {ReportTexts::tr("Mean duration"), true}},
                {}};
    for (const RunGroup &group : groups) {
        const TallySums &sums = group.sums;
        table.rows.append({nameText(group.name), countText(sums.runs), countText(sums.passed), countText(sums.failed),
                           countText(sums.stopped + sums.error), countText(sums.cameras),
                           percentText(firstPassYield(sums)), percentText(finalYield(sums)),
                           durationText(meanDuration(sums))});
    }
    return table;
}

Table itemTable(const QList<ItemGroup> &items)
{
    Table table{{{ReportTexts::tr("Item"), false},
                 {ReportTexts::tr("Tested"), true},
                 {ReportTexts::tr("Failed"), true},
                 {ReportTexts::tr("Warned"), true},
                 {ReportTexts::tr("Failed of tested"), true}},
                {}};
    for (const ItemGroup &item : items) {
        const std::optional<double> share =
            item.sums.ran > 0
                ? std::optional<double>(static_cast<double>(item.sums.failed) / static_cast<double>(item.sums.ran))
                : std::nullopt;
        table.rows.append({item.item, countText(item.sums.ran), countText(item.sums.failed),
                           countText(item.sums.warned), percentText(share)});
    }
    return table;
}

QString distributionText(const Distribution &distribution)
{
    const std::optional<double> capability = cpk(distribution);
    QString text =
        ReportTexts::tr("n = %1, mean %2, standard deviation %3, from %4 to %5, limit %6..%7, Cpk %8, "
                        "%9 outside their limit")
            .arg(QString::number(distribution.count), shortNumber(distribution.mean),
                 shortNumber(distribution.deviation), shortNumber(distribution.least), shortNumber(distribution.most),
                 boundText(distribution.limit.least), boundText(distribution.limit.most),
                 capability ? QString::number(*capability, 'f', 2) : QStringLiteral("-"),
                 QString::number(distribution.outside));
    if (distribution.below + distribution.above == 0) {
        return text;
    }
    return ReportTexts::tr("%1; %2 far off to the left and %3 to the right are not drawn")
        .arg(text, QString::number(distribution.below), QString::number(distribution.above));
}

QString minuteText(const QDateTime &time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm"));
}

/// "battery.info: battery.voltage 4.36 (3.6..4.35)", or the item's text where no limit tells more.
QString findingText(const FindingRow &finding)
{
    const QString text = finding.measurement.isEmpty()
                             ? finding.message
                             : QStringLiteral("%1 %2 (%3)").arg(finding.measurement, finding.value, finding.limits);
    const QString item =
        finding.verdict == nameOf(Verdict::Warning) ? ReportTexts::tr("%1 (warning)").arg(finding.item) : finding.item;
    return text.isEmpty() ? item : ReportTexts::tr("%1: %2").arg(item, text);
}

Table failedTable(const QList<FailedCamera> &failed)
{
    // What is kept whole leaves room for the failure on a page of A4.
    constexpr int macLength = 17;
    constexpr int timeLength = 16;
    constexpr int serialLength = 14;
    constexpr int nameLength = 10;
    Table table{{{ReportTexts::tr("Camera"), false, macLength},
                 {ReportTexts::tr("Serial"), false, serialLength},
                 {ReportTexts::tr("Last run"), false, timeLength},
                 {ReportTexts::tr("Station"), false, nameLength},
                 {ReportTexts::tr("Batch"), false, nameLength},
                 {ReportTexts::tr("Firmware"), false, nameLength},
                 {ReportTexts::tr("Failure: value (limit)"), false}},
                {}};
    for (const FailedCamera &camera : failed) {
        QStringList findings;
        for (const FindingRow &finding : camera.findings) {
            findings.append(findingText(finding));
        }
        if (findings.isEmpty()) {
            findings.append(camera.run.reason);
        }
        table.rows.append({camera.run.mac, camera.run.serial, minuteText(camera.run.begin), camera.run.station,
                           camera.run.batch, camera.run.firmware, findings.join(QLatin1Char('\n'))});
    }
    return table;
}

void addGroups(const QString &title, const QString &what, const QList<RunGroup> &groups, Page *page)
{
    if (!groups.isEmpty()) {
        page->parts.append(Heading{title});
        page->parts.append(groupTable(what, groups));
    }
}
} // namespace

QString durationText(std::chrono::microseconds duration)
{
    const double seconds = std::chrono::duration<double>(duration).count();
    constexpr double minute = 60;
    if (seconds < minute) {
        return ReportTexts::tr("%1 s").arg(QString::number(seconds, 'f', seconds < 10 ? 2 : 1));
    }
    const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(duration).count();
    if (minutes < 60) {
        return ReportTexts::tr("%1 min %2 s").arg(minutes).arg(static_cast<int>(seconds) % 60, 2, 10, QLatin1Char('0'));
    }
    return ReportTexts::tr("%1 h %2 min").arg(minutes / 60).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

Page reportPage(const Report &report)
{
    const QString period = periodText(report);
    Page page{ReportTexts::tr("Test report, %1").arg(period), {}};
    const Statistics &statistics = report.statistics;
    page.parts = {
        Heading{ReportTexts::tr("Test report"), 1}, Paragraph{period},
        Paragraph{
            ReportTexts::tr("From %1, made %2 by %3").arg(report.store, minuteText(report.made), report.programName),
            true}};
    if (statistics.total.runs == 0) {
        page.parts.append(Paragraph{ReportTexts::tr("There are no runs in this period.")});
        return page;
    }
    page.parts.append(summary(statistics.total));
    page.parts.append(Paragraph{ReportTexts::tr("Yields count cameras, each on the day and at the station of its first "
                                                "judged run: by how that run ended (first-pass), and by how its last "
                                                "one ended (final)."),
                                true});
    page.parts.append(Heading{ReportTexts::tr("Yield over time")});
    Statistics grouped = statistics; // a page is not wide enough for all days of a year
    grouped.byDay = groupDays(statistics.byDay);
    page.parts.append(Picture{drawPlot(yieldPlot({{QString(), grouped}}, {})), {}});
    page.parts.append(Heading{ReportTexts::tr("What fails")});
    page.parts.append(Picture{drawPlot(failuresPlot({{QString(), statistics}}, {})), {}});
    if (!statistics.items.isEmpty()) {
        page.parts.append(itemTable(statistics.items));
    }
    if (!report.distributions.isEmpty()) {
        page.parts.append(Heading{ReportTexts::tr("Measurements with limits")});
        for (const Distribution &distribution : report.distributions) {
            const QString name =
                distribution.unit.isEmpty()
                    ? ReportTexts::tr("%1 in %2").arg(distribution.name, distribution.item)
                    : ReportTexts::tr("%1 in %2, in %3").arg(distribution.name, distribution.item, distribution.unit);
            page.parts.append(Heading{name, 3});
            page.parts.append(
                Picture{drawPlot(distributionPlot({{QString(), distribution}}, {})), distributionText(distribution)});
        }
    }
    addGroups(ReportTexts::tr("Stations"), ReportTexts::tr("Station"), statistics.byStation, &page);
    addGroups(ReportTexts::tr("Batches"), ReportTexts::tr("Batch"), statistics.byBatch, &page);
    addGroups(ReportTexts::tr("Firmware"), ReportTexts::tr("Firmware"), statistics.byFirmware, &page);
    page.parts.append(Heading{ReportTexts::tr("Failed cameras (%1)").arg(report.failed.size())});
    if (report.failed.isEmpty()) {
        page.parts.append(Paragraph{ReportTexts::tr("Every camera passed in its last judged run.")});
    } else {
        page.parts.append(failedTable(report.failed));
    }
    return page;
}
