#include "history/query/questions.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/HistoryTexts.h"
#include "historyui/commands/Progress.h"
#include "platform/Interruption.h"
#include "report/Report.h"

int writeReport(CommandContext &context)
{
    constexpr int steps = 4;
    Progress progress(HistoryTexts::tr("report"));
    Report report;
    report.store = context.store->connection().address().name;
    report.programName = QStringLiteral("KestHistory " KEST_VERSION);
    report.made = QDateTime::currentDateTime();
    report.filter = context.line.period;

    progress.show(0, steps);
    const std::optional<Statistics> statistics = readStatistics(*context.store, report.filter);
    if (!statistics) {
        return context.storeTrouble();
    }
    report.statistics = *statistics;
    progress.show(1, steps);
    const std::optional<QList<Distribution>> distributions = readDistributions(*context.store, report.filter);
    if (!distributions) {
        return context.storeTrouble();
    }
    report.distributions = *distributions;
    progress.show(2, steps);
    const std::optional<QList<FailedCamera>> failed = readFailedCameras(*context.store, report.filter);
    if (!failed) {
        return context.storeTrouble();
    }
    report.failed = *failed;
    progress.show(3, steps);
    if (Interruption::isWanted()) {
        return historyExit::interrupted;
    }
    const Page page = reportPage(report);
    const bool isEmpty = report.statistics.total.runs == 0;
    if (isEmpty) {
        progress.clear();
        context.complain(HistoryTexts::tr("no runs in this period"));
    }
    const int code = isEmpty ? historyExit::nothing : historyExit::done;
    if (context.line.out.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
        const QString error = writePdf(page, context.line.out);
        progress.clear();
        return error.isEmpty()
                   ? code
                   : context.trouble(HistoryTexts::tr("%1 cannot be written: %2").arg(context.line.out, error));
    }
    progress.clear();
    return context.print(toHtml(page), code);
}
