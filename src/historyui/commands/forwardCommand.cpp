#include "historyui/commands/CommandContext.h"
#include "historyui/commands/commands.h"
#include "historyui/commands/Interruption.h"
#include "historyui/commands/Progress.h"
#include "record/recordJson.h"

#include <cstdio>

namespace {
/// The rows of runs that are to be sent; nothing if the store cannot give them.
std::optional<QVector<RunRows>> readRows(Store &store, const QList<QUuid> &ids)
{
    QVector<RunRows> rows;
    for (const QUuid &id : ids) {
        const std::optional<RunRecord> run = store.read(id);
        if (!run) {
            return {};
        }
        rows.append(runRows(*run));
    }
    return rows;
}
} // namespace

int forwardRuns(CommandContext &context)
{
    constexpr int pieceSize = 200;
    const HistoryPlaces places = readHistoryPlaces(context.settings);
    if (!places.error.isEmpty() || !places.server) {
        return context.trouble(
            places.error.isEmpty()
                ? QStringLiteral("%1 names no server: server= in its section [History]").arg(context.settings)
                : places.error);
    }
    const std::optional<ForwardState> before = context.store->forwardState();
    if (!before) {
        return context.storeTrouble();
    }
    StoreError error;
    const std::unique_ptr<Store> server = Store::open(*places.server, {}, &error);
    Progress progress(QStringLiteral("forward"));
    qint64 sent = 0;
    while (server && !Interruption::isWanted()) {
        const std::optional<QList<QUuid>> ids = context.store->unsent(pieceSize);
        if (!ids) {
            return context.storeTrouble();
        }
        if (ids->isEmpty()) {
            break;
        }
        const std::optional<QVector<RunRows>> rows = readRows(*context.store, *ids);
        if (!rows) {
            return context.storeTrouble();
        }
        // The server passes over what it has already, so that it may be sent again after any break.
        if (!server->insert(*rows, false)) {
            error = server->error();
            break;
        }
        if (!context.store->setSent(*ids, QDateTime::currentDateTime())) {
            return context.storeTrouble();
        }
        sent += ids->size();
        progress.show(sent, before->queued);
    }
    progress.clear();
    std::printf("%lld sent\n", static_cast<long long>(sent));
    std::fflush(stdout);
    if (error.isError()) {
        context.store->setForwardError(error.text, QDateTime::currentDateTime());
        return context.trouble(error.text);
    }
    return Interruption::isWanted() ? historyExit::interrupted : historyExit::done;
}
