#include "history/door/Forwarder.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/commands.h"
#include "historyui/commands/HistoryTexts.h"
#include "historyui/commands/Progress.h"
#include "platform/Interruption.h"

int forwardRuns(CommandContext &context)
{
    const HistoryPlaces named = readHistoryPlaces(context.places);
    if (!named.error.isEmpty() || !named.server) {
        return context.trouble(named.error.isEmpty()
                                   ? HistoryTexts::tr("%1 names no server: server= in its section [History]")
                                         .arg(context.places.settings())
                                   : named.error);
    }
    Forwarder forwarder(context.store->connection().address(), *named.server);
    Progress progress(HistoryTexts::tr("forward"));
    const std::optional<int> sent = forwarder.forward([&progress](int done, qint64 queued) {
        progress.show(done, done + queued);
        return !Interruption::isWanted();
    });
    progress.clear();
    context.say(HistoryTexts::tr("%1 sent").arg(forwarder.sent()));
    if (!sent) {
        return context.trouble(forwarder.error());
    }
    return Interruption::isWanted() ? historyExit::interrupted : historyExit::done;
}
