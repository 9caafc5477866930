#pragma once

#include "history/address/StoreAddress.h"
#include "history/store/Store.h"

#include <functional>
#include <memory>
#include <optional>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

/// Brings the runs of a local store to the server, each exactly once: a run leaves the queue of the local store after
/// the server has it, and the server passes over a run that it has already. So it may be ended at any moment. For one
/// thread, which waits for disk and network.
class Forwarder
{
public:
    Forwarder(StoreAddress local, StoreAddress server);

    /// Sends what waits, the oldest first, and asks `goOn(sent, queued)` between two transactions, where somebody wants
    /// to show or end it. Returns how many runs the server has taken in from here; nothing where that was impossible,
    /// or where it has refused some of them: `error` then tells why. The other runs are sent nevertheless. The local
    /// store notes when runs were sent last, and the last error.
    std::optional<int> forward(const std::function<bool(int sent, qint64 queued)> &goOn = {});

    /// How many the last call has sent, also where it failed in the end.
    int sent() const { return m_sent; }
    const QString &error() const { return m_error; }

private:
    bool openServer();
    /// The next runs that wait and that the server has not refused already.
    std::optional<QList<QUuid>> next();
    bool send(const QList<QUuid> &runs);
    /// One after the other, so that one that is refused does not keep the others from being sent.
    bool sendSingly(const QList<QUuid> &runs);
    /// Notes the error, here and in the local store.
    bool fail(const StoreError &error);
    bool fail(const QString &error, const QString &keptError);

    const StoreAddress m_localAddress;
    const StoreAddress m_serverAddress;
    std::unique_ptr<Store> m_local;
    std::unique_ptr<Store> m_server;
    QSet<QUuid> m_refused;
    int m_sent = 0;
    QString m_error;
};
