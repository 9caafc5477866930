#include "history/query/pruneRuns.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/commands.h"
#include "historyui/commands/HistoryTexts.h"
#include "historyui/commands/Progress.h"
#include "platform/Interruption.h"

int removeRuns(CommandContext &context)
{
    const HistoryCommandLine &line = context.line;
    const std::optional<qint64> unsent = countUnsentBefore(*context.store, line.before);
    if (!unsent) {
        return context.storeTrouble();
    }
    const bool hasServer = readHistoryPlaces(context.places).server.has_value();
    if (*unsent > 0 && hasServer && !line.removesUnsent) {
        return context.trouble(HistoryTexts::tr("%n of these runs are not on the server yet; \"forward\" sends them, "
                                                "--unsent removes them all the same",
                                                nullptr, static_cast<int>(*unsent)));
    }
    Progress progress(HistoryTexts::tr("prune"));
    const std::optional<qint64> removed = pruneRuns(*context.store, line.before, {[&progress](qint64 done, qint64 all) {
        progress.show(done, all);
        return !Interruption::isWanted();
    }});
    progress.clear();
    if (!removed) {
        return context.storeTrouble();
    }
    context.say(HistoryTexts::tr("%1 removed").arg(*removed));
    return Interruption::isWanted() ? historyExit::interrupted : historyExit::done;
}
