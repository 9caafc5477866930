#include "exchange/csv.h"
#include "exchange/quickRecord.h"
#include "history/query/questions.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/HistoryTexts.h"
#include "historyui/commands/Progress.h"
#include "platform/Interruption.h"
#include "record/recordJunit.h"
#include "record/wholeFile.h"

#include <algorithm>
#include <QDir>
#include <QUuid>

namespace {
using Format = HistoryCommandLine::Format;

/// The ids of all runs that are asked for, the latest first, page by page: a list of a million summaries is long.
std::optional<QVector<QUuid>> findIds(CommandContext &context)
{
    constexpr int pageSize = 1000;
    RunFilter filter = context.line.filter;
    const int most = filter.limit;
    QVector<QUuid> ids;
    while (!Interruption::isWanted()) {
        filter.limit = most > 0 ? std::min(pageSize, most - static_cast<int>(ids.size())) : pageSize;
        if (filter.limit <= 0) {
            break;
        }
        const std::optional<QList<RunSummary>> page = findRuns(*context.store, filter);
        if (!page) {
            return {};
        }
        for (const RunSummary &run : *page) {
            ids.append(run.id);
        }
        if (page->size() < filter.limit) {
            break;
        }
        filter.olderThan = RunPlace{page->constLast().begin.toMSecsSinceEpoch(), page->constLast().id};
    }
    return ids;
}

class Export
{
public:
    explicit Export(CommandContext *context)
        : m_context(context), m_format(context->line.format),
          m_output(m_format == Format::Junit ? QString() : context->line.out)
    {
        if (m_format == Format::Csv) {
            m_output.write(csvBegin() + csvHeading());
        }
    }

    /// What went wrong, or an empty text.
    QString write(const QUuid &id)
    {
        const QByteArray json = m_context->store->readJson(id);
        if (json.isEmpty()) {
            // Removed meanwhile, unless the store says something else.
            return m_context->store->error().text;
        }
        if (m_format == Format::Json) {
            m_output.write(json.endsWith('\n') ? json : json + '\n');
            return m_output.error();
        }
        QString error;
        const std::optional<RunRecord> run = quickRecord(json, &error);
        if (!run) {
            return HistoryTexts::tr("run %1: %2").arg(id.toString(QUuid::WithoutBraces), error);
        }
        if (m_format == Format::Csv) {
            m_output.write(csvLines(*run));
            return m_output.error();
        }
        const QString path =
            QDir(m_context->line.out).filePath(QStringLiteral("%1.xml").arg(id.toString(QUuid::WithoutBraces)));
        error = writeWholeFile(path, toJunit(*run));
        return error.isEmpty() ? QString() : HistoryTexts::tr("%1 cannot be written: %2").arg(path, error);
    }

    int finish() { return m_context->finish(&m_output, historyExit::done); }

private:
    CommandContext *m_context;
    const Format m_format;
    Output m_output;
};
} // namespace

int exportRuns(CommandContext &context)
{
    Progress progress(HistoryTexts::tr("export"));
    const std::optional<QVector<QUuid>> ids = findIds(context);
    if (!ids) {
        return context.storeTrouble();
    }
    if (ids->isEmpty() && !Interruption::isWanted()) {
        return context.nothing(HistoryTexts::tr("no such runs"));
    }
    if (context.line.format == Format::Junit && !QDir().mkpath(context.line.out)) {
        return context.trouble(HistoryTexts::tr("%1 cannot be made").arg(context.line.out));
    }
    Export runs(&context);
    for (int i = static_cast<int>(ids->size()) - 1; i >= 0; --i) {
        if (Interruption::isWanted()) {
            return historyExit::interrupted;
        }
        progress.show(ids->size() - 1 - i, ids->size());
        const QString error = runs.write(ids->at(i));
        if (!error.isEmpty()) {
            progress.clear();
            return context.trouble(error);
        }
    }
    progress.clear();
    return Interruption::isWanted() ? historyExit::interrupted : runs.finish();
}
