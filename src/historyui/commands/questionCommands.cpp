#include "history/query/questions.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/HistoryTexts.h"
#include "historyui/commands/runTexts.h"
#include "record/recordJson.h"
#include "record/recordJunit.h"
#include "record/recordNames.h"

#include <algorithm>
#include <QJsonArray>
#include <QJsonDocument>

namespace {
using Format = HistoryCommandLine::Format;

/// The record of a run that the store has; an error is told.
std::optional<RunRecord> readRecord(CommandContext &context, const QUuid &id)
{
    std::optional<RunRecord> run = context.store->read(id);
    if (!run) {
        const QString reason = context.store->error().isError() ? context.store->error().text
                                                                : HistoryTexts::tr("its record is not there");
        context.trouble(HistoryTexts::tr("run %1: %2").arg(id.toString(QUuid::WithoutBraces), reason));
    }
    return run;
}

QString momentText(const QDateTime &time)
{
    return time.isValid() ? timeText(time) : QString();
}
} // namespace

int listRuns(CommandContext &context)
{
    const std::optional<QList<RunSummary>> runs = findRuns(*context.store, context.line.filter);
    if (!runs) {
        return context.storeTrouble();
    }
    const int code = runs->isEmpty() ? historyExit::nothing : historyExit::done;
    switch (context.line.format) {
    case Format::Json:
        return context.print(listJson(*runs), code);
    case Format::Csv:
        return context.print(listCsv(*runs), code);
    case Format::Text:
    case Format::Junit:
        break;
    }
    return runs->isEmpty() ? context.nothing(HistoryTexts::tr("no such runs")) : context.print(listText(*runs));
}

int showRun(CommandContext &context)
{
    const QString wanted = context.line.targets.constFirst();
    const std::optional<QList<QUuid>> ids = findRunIds(*context.store, wanted);
    if (!ids) {
        return context.storeTrouble();
    }
    if (ids->isEmpty()) {
        return context.nothing(HistoryTexts::tr("there is no run \"%1\"").arg(wanted));
    }
    if (ids->size() > 1) {
        return context.nothing(HistoryTexts::tr("there are several runs that begin with \"%1\"").arg(wanted));
    }
    const std::optional<RunRecord> run = readRecord(context, ids->constFirst());
    if (!run) {
        return historyExit::trouble;
    }
    switch (context.line.format) {
    case Format::Json:
        return context.print(toJson(*run));
    case Format::Junit:
        return context.print(toJunit(*run));
    case Format::Text:
    case Format::Csv:
        break;
    }
    return context.print(runText(*run));
}

int showUnit(CommandContext &context)
{
    RunFilter filter;
    filter.mac = context.line.targets.constFirst();
    filter.limit = 0;
    std::optional<QList<RunSummary>> runs = findRuns(*context.store, filter);
    if (!runs) {
        return context.storeTrouble();
    }
    if (runs->isEmpty()) {
        return context.nothing(HistoryTexts::tr("no runs of \"%1\"").arg(filter.mac));
    }
    std::reverse(runs->begin(), runs->end());
    QList<Outcome> outcomes;
    for (const RunSummary &run : qAsConst(*runs)) {
        if (run.mac != runs->constFirst().mac) {
            return context.nothing(HistoryTexts::tr("\"%1\" is the beginning of several cameras: %2, %3, ...")
                                       .arg(filter.mac, runs->constFirst().mac, run.mac));
        }
        outcomes.append(run.outcome);
    }
    QList<Difference> differences;
    const std::optional<TurnForTheWorse> turn = findTurnForTheWorse(outcomes);
    if (turn) {
        const std::optional<RunRecord> before = readRecord(context, runs->at(turn->lastPass).id);
        const std::optional<RunRecord> after = readRecord(context, runs->at(turn->firstFailure).id);
        if (!before || !after) {
            return historyExit::trouble;
        }
        differences = compareRuns(*before, *after,
                                  context.line.format == Format::Json ? Wording::ForPrograms : Wording::ForPeople);
    }
    if (context.line.format == Format::Json) {
        QJsonArray all;
        for (const RunSummary &run : qAsConst(*runs)) {
            all.append(runJson(run));
        }
        QJsonArray changes;
        for (const Difference &difference : qAsConst(differences)) {
            changes.append(QJsonObject{{QStringLiteral("what"), difference.what},
                                       {QStringLiteral("before"), difference.before},
                                       {QStringLiteral("after"), difference.after}});
        }
        const auto idAt = [&runs](int place) { return runs->at(place).id.toString(QUuid::WithoutBraces); };
        return context.print(jsonText(
            {{QStringLiteral("mac"), runs->constFirst().mac},
             {QStringLiteral("runs"), all},
             {QStringLiteral("lastPass"), turn ? QJsonValue(idAt(turn->lastPass)) : QJsonValue(QJsonValue::Null)},
             {QStringLiteral("firstFailure"),
              turn ? QJsonValue(idAt(turn->firstFailure)) : QJsonValue(QJsonValue::Null)},
             {QStringLiteral("differences"), changes}}));
    }
    QString text = listText(*runs);
    if (turn) {
        text += QLatin1Char('\n') + differencesText(differences);
    }
    return context.print(text);
}

int showStatistics(CommandContext &context)
{
    const std::optional<Statistics> statistics = readStatistics(*context.store, context.line.period);
    if (!statistics) {
        return context.storeTrouble();
    }
    const bool isEmpty = statistics->total.runs == 0;
    if (context.line.format == Format::Json) {
        return context.print(statisticsJson(*statistics), isEmpty ? historyExit::nothing : historyExit::done);
    }
    return isEmpty ? context.nothing(HistoryTexts::tr("no runs in this period"))
                   : context.print(statisticsText(*statistics));
}

int showStatus(CommandContext &context)
{
    const std::optional<ForwardState> state = context.store->forwardState();
    if (!state) {
        return context.storeTrouble();
    }
    const std::optional<Statistics> statistics = readStatistics(*context.store, {});
    if (!statistics) {
        return context.storeTrouble();
    }
    const QString name = context.store->connection().address().name;
    if (context.line.format == Format::Json) {
        return context.print(jsonText({{QStringLiteral("store"), name},
                                       {QStringLiteral("runs"), statistics->total.runs},
                                       {QStringLiteral("queued"), state->queued},
                                       {QStringLiteral("lastSent"), momentText(state->lastSent)},
                                       {QStringLiteral("lastError"), state->lastError},
                                       {QStringLiteral("lastErrorTime"), momentText(state->lastErrorTime)}}));
    }
    const auto orNever = [](const QString &text) { return text.isEmpty() ? HistoryTexts::tr("never") : text; };
    const QString lastError =
        state->lastError.isEmpty()
            ? HistoryTexts::tr("none")
            : HistoryTexts::tr("%1: %2").arg(momentText(state->lastErrorTime), translatedError(state->lastError));
    return context.print(namedLine(HistoryTexts::tr("Store"), name) +
                         namedLine(HistoryTexts::tr("Runs"), QString::number(statistics->total.runs)) +
                         namedLine(HistoryTexts::tr("Queued"), QString::number(state->queued)) +
                         namedLine(HistoryTexts::tr("Last sent"), orNever(momentText(state->lastSent))) +
                         namedLine(HistoryTexts::tr("Last error"), lastError));
}
