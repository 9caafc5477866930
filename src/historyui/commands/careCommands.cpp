#include "history/query/pruneRuns.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/commands.h"
#include "historyui/commands/Progress.h"
#include "platform/Interruption.h"

#include <cstdio>

int removeRuns(CommandContext &context)
{
    const HistoryCommandLine &line = context.line;
    const std::optional<qint64> unsent = countUnsentBefore(*context.store, line.before);
    if (!unsent) {
        return context.storeTrouble();
    }
    const bool hasServer = readHistoryPlaces(context.places).server.has_value();
    if (*unsent > 0 && hasServer && !line.removesUnsent) {
        return context.trouble(QStringLiteral("%1 of these runs are not on the server yet; \"forward\" sends them, "
                                              "--unsent removes them all the same")
                                   .arg(*unsent));
    }
    Progress progress(QStringLiteral("prune"));
    const std::optional<qint64> removed = pruneRuns(*context.store, line.before, {[&progress](qint64 done, qint64 all) {
        progress.show(done, all);
        return !Interruption::isWanted();
    }});
    progress.clear();
    if (!removed) {
        return context.storeTrouble();
    }
    std::printf("%lld removed\n", static_cast<long long>(*removed));
    std::fflush(stdout);
    return Interruption::isWanted() ? historyExit::interrupted : historyExit::done;
}
