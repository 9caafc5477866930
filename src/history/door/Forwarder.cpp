#include "history/door/Forwarder.h"

#include "record/recordJson.h"

#include <algorithm>
#include <QDateTime>
#include <utility>

namespace {
constexpr int runsPerTransaction = 100;
} // namespace

Forwarder::Forwarder(StoreAddress local, StoreAddress server)
    : m_localAddress(std::move(local)), m_serverAddress(std::move(server))
{
}

std::optional<int> Forwarder::forward(const std::function<bool(int sent, qint64 queued)> &goOn)
{
    m_error.clear();
    m_sent = 0;
    m_refused.clear();
    // Whatever ends here, neither store is kept open while there is nothing to send.
    struct Closing
    {
        Forwarder *forwarder;
        ~Closing()
        {
            forwarder->m_server.reset();
            forwarder->m_local.reset();
        }
    };
    const Closing closing{this};
    StoreError error;
    m_local = Store::open(m_localAddress, {}, &error);
    if (!m_local) {
        m_error = error.text;
        return {};
    }
    while (true) {
        const std::optional<QList<QUuid>> runs = next();
        if (!runs) {
            return {};
        }
        if (runs->isEmpty()) {
            break;
        }
        if (!openServer() || (!send(*runs) && !sendSingly(*runs))) {
            return {};
        }
        if (goOn) {
            const std::optional<ForwardState> state = m_local->forwardState();
            if (!goOn(m_sent, state ? state->queued : 0)) {
                break;
            }
        }
    }
    return m_refused.isEmpty() ? std::optional(m_sent) : std::nullopt;
}

bool Forwarder::openServer()
{
    if (m_server) {
        return true;
    }
    StoreError error;
    m_server = Store::open(m_serverAddress, {}, &error);
    return m_server != nullptr || fail(error);
}

std::optional<QList<QUuid>> Forwarder::next()
{
    std::optional<QList<QUuid>> runs = m_local->unsent(runsPerTransaction + static_cast<int>(m_refused.size()));
    if (!runs) {
        fail(m_local->error());
        return {};
    }
    const auto refused = [this](const QUuid &run) { return m_refused.contains(run); };
    runs->erase(std::remove_if(runs->begin(), runs->end(), refused), runs->end());
    return runs->mid(0, runsPerTransaction);
}

bool Forwarder::send(const QList<QUuid> &runs)
{
    QVector<RunRows> rows;
    RecordPacker packer;
    for (const QUuid &id : runs) {
        const QByteArray json = m_local->readJson(id);
        if (json.isEmpty()) {
            return fail(m_local->error());
        }
        QString reason;
        const std::optional<RunRecord> run = fromJson(json, &reason);
        if (!run) {
            return fail(reason, reason);
        }
        rows.append(runRows(*run, json, &packer));
    }
    // Two stations that write about the same cameras may get in each other's way.
    constexpr int mostAttempts = 5;
    for (int attempt = 1; !m_server->insert(rows, false); ++attempt) {
        if (!m_server->error().isPassing() || attempt == mostAttempts) {
            return fail(m_server->error());
        }
    }
    if (!m_local->setSent(runs, QDateTime::currentDateTimeUtc())) {
        return fail(m_local->error());
    }
    m_sent += static_cast<int>(runs.size());
    return true;
}

bool Forwarder::sendSingly(const QList<QUuid> &runs)
{
    for (const QUuid &run : runs) {
        if (send({run})) {
            continue;
        }
        // What a run by itself cannot be blamed for concerns the others as well.
        const StoreError::Kind kind = m_server->error().kind;
        if (kind != StoreError::Kind::Other && kind != StoreError::Kind::Unfit && kind != StoreError::Kind::None) {
            return false;
        }
        m_refused.insert(run);
    }
    return true;
}

bool Forwarder::fail(const StoreError &error)
{
    return fail(error.text, error.keptText);
}

bool Forwarder::fail(const QString &error, const QString &keptError)
{
    m_error = error;
    // Where this fails too, there is nobody left to tell.
    m_local->setForwardError(keptError, QDateTime::currentDateTimeUtc());
    return false;
}
