#pragma once

#include "history/address/StoreAddress.h"
#include "history/store/Connection.h"
#include "history/store/runRows.h"
#include "history/store/StoreError.h"
#include "history/store/Tallies.h"
#include "record/RunRecord.h"

#include <chrono>
#include <memory>
#include <optional>
#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVector>

/// How far the forwarding has come; what there never was is null or empty.
struct ForwardState
{
    qint64 queued = 0; ///< runs that the server does not have yet
    QDateTime lastSent;
    QDateTime lastErrorTime;
    QString lastError; ///< empty: the last attempt succeeded
};

/// A store of runs: a file, or a server's database. What its tables hold is told in schema.h. For the thread that has
/// opened it; further threads and programs open their own. Whatever fails leaves the store as it was and the reason in
/// `error`; after an error that is not `isPassing` it is best to open the store anew.
class Store
{
public:
    struct Options
    {
        Connection::Access access = Connection::Access::Write;
        /// How long a statement waits for another program that is writing to the same file.
        std::chrono::milliseconds patience{5000};
        int cacheKiB = 2048; ///< of SQLite's pages
    };

    /// Opens the store; with the access to write, it is made where there is none, and brought to the schema of today.
    /// Null where that is impossible; `error` then tells why.
    static std::unique_ptr<Store> open(const StoreAddress &address, const Options &options, StoreError *error);

    const StoreError &error() const { return m_connection.error(); }
    /// For the questions of others, on the same thread. Bind ids by `idValue`, and read them by `Connection::idOf`.
    Connection &connection() { return m_connection; }

    /// Adds those of the runs that are not there yet, in one transaction: all of them or none. Returns how many were
    /// added; nothing if it failed. A run that is not `isFit` is an error. `queue`: they wait to be sent to the server,
    /// unless the store is one.
    std::optional<int> insert(const QVector<RunRows> &runs, bool queue = true);

    /// The record of a run; nothing if it is not there (without an `error`), or cannot be read.
    std::optional<RunRecord> read(const QUuid &run);
    /// Likewise, as a line of JSON; empty if there is none.
    QByteArray readJson(const QUuid &run);
    /// Whether each of them can be read again: a damaged file may take rows to where nobody finds them.
    bool givesBack(const QVector<RunRows> &runs);

    /// The row of a camera; with 0 runs if it was never here. Nothing on an error.
    std::optional<CameraRow> camera(const QString &mac);

    /// The oldest runs that the server does not have yet, at most `most`. Nothing on an error.
    std::optional<QList<QUuid>> unsent(int most);
    /// The server has these now.
    bool setSent(const QList<QUuid> &runs, const QDateTime &time);
    bool setForwardError(const QString &text, const QDateTime &time);
    std::optional<ForwardState> forwardState();

private:
    enum class Purpose { Look, Change };

    explicit Store(const StoreAddress &address, const Options &options);

    bool openAndMigrate();
    bool migrate();
    std::optional<int> schemaNumber();
    bool applyStep(int number);
    bool insertNew(const QVector<RunRows> &runs, bool queue, int *added);
    bool insertRunRows(const QVector<const RunRows *> &runs, QSet<QUuid> *added);
    bool insertBesides(const QVector<const RunRows *> &runs, bool queue);
    bool insertMeasurements(const QVector<const RunRows *> &runs);
    bool count(const QVector<const RunRows *> &runs);
    bool readCameras(const QStringList &macs, Purpose purpose, QHash<QString, CameraRow> *cameras);
    bool writeCameras(const QStringList &macs, const QHash<QString, CameraRow> &cameras);
    bool writeTallies(const Tallies &tallies);
    bool setState(const char *name, const QString &value);
    bool deleteUnsent(const QList<QUuid> &runs);

    const Options m_options;
    Connection m_connection;
    QSet<qint64> m_series;    ///< that are in the store for certain
    QSet<qint64> m_newSeries; ///< of the transaction under way
};
