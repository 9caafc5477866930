#include "history/door/Forwarder.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/commands.h"
#include "historyui/commands/Interruption.h"
#include "historyui/commands/Progress.h"

#include <cstdio>

int forwardRuns(CommandContext &context)
{
    const HistoryPlaces places = readHistoryPlaces(context.settings);
    if (!places.error.isEmpty() || !places.server) {
        return context.trouble(
            places.error.isEmpty()
                ? QStringLiteral("%1 names no server: server= in its section [History]").arg(context.settings)
                : places.error);
    }
    Forwarder forwarder(context.store->connection().address(), *places.server);
    Progress progress(QStringLiteral("forward"));
    const std::optional<int> sent = forwarder.forward([&progress](int done, qint64 queued) {
        progress.show(done, done + queued);
        return !Interruption::isWanted();
    });
    progress.clear();
    std::printf("%d sent\n", forwarder.sent());
    std::fflush(stdout);
    if (!sent) {
        return context.trouble(forwarder.error());
    }
    return Interruption::isWanted() ? historyExit::interrupted : historyExit::done;
}
