#include "history/query/pruneRuns.h"

#include "history/query/Conditions.h"
#include "history/store/Store.h"
#include "record/recordNames.h"

#include <algorithm>
#include <limits>
#include <QHash>
#include <QStringList>

namespace {
struct CameraSums
{
    qint64 cameras = 0;
    qint64 firstPassed = 0;
    qint64 finalPassed = 0;
};

CameraSums sumsOf(const CameraRow &camera)
{
    return {1, camera.first->passed ? 1 : 0, camera.last->passed ? 1 : 0};
}

/// Removes one day.
class DayPruner
{
public:
    DayPruner(Store *store, const QString &day) : m_store(store), m_connection(&store->connection()), m_day(day)
    {
        // A day by any clock lies within these.
        const QDateTime noon(QDate::fromString(day, Qt::ISODate), QTime(12, 0), Qt::UTC);
        constexpr qint64 reachMs = qint64{36} * 60 * 60 * 1000;
        m_from = noon.toMSecsSinceEpoch() - reachMs;
        m_to = noon.toMSecsSinceEpoch() + reachMs;
    }

    bool prune()
    {
        QStringList macs;
        return readMacs(&macs) && readCameras(macs) && removeRuns() && correctCameras(macs) && removeSums();
    }

private:
    /// The statement with its values, whose rows nobody wants.
    bool execute(const QString &statement, const QVariantList &values)
    {
        QSqlQuery *query = m_connection->prepared(statement);
        if (query == nullptr) {
            return false;
        }
        for (const QVariant &value : values) {
            query->addBindValue(value);
        }
        const bool done = m_connection->run(query);
        query->finish();
        return done;
    }

    QVariantList ofDay() const { return {m_from, m_to, m_day}; }

    /// In their order, so that two who write take hold of them in the same one.
    bool readMacs(QStringList *macs)
    {
        Conditions conditions;
        conditions.add(QStringLiteral("begin_ms >= ? AND begin_ms < ? AND day = ? AND mac <> ''"), ofDay());
        QSqlQuery *query = conditions.run(m_connection, QStringLiteral("SELECT DISTINCT mac FROM run"),
                                          QStringLiteral(" ORDER BY mac"));
        if (query == nullptr) {
            return false;
        }
        while (query->next()) {
            macs->append(query->value(0).toString());
        }
        query->finish();
        return true;
    }

    bool readCameras(const QStringList &macs)
    {
        for (const QString &mac : macs) {
            if (m_connection->isServer() &&
                !execute(QStringLiteral("SELECT mac FROM camera WHERE mac = ? FOR UPDATE"), {mac})) {
                return false;
            }
            const std::optional<CameraRow> camera = m_store->camera(mac);
            if (!camera) {
                return false;
            }
            m_before.insert(mac, *camera);
        }
        return true;
    }

    bool removeRuns()
    {
        const QString ids = QStringLiteral("(SELECT id FROM run WHERE begin_ms >= ? AND begin_ms < ? AND day = ?)");
        const QVariantList range = {m_from, m_to};
        const auto removeParts = [&](const char *table, const char *column, const QString &of, const QVariant &value) {
            return execute(QStringLiteral("DELETE FROM %1 WHERE %2 = %3 AND begin_ms >= ? AND begin_ms < ? AND run IN ")
                                   .arg(QLatin1String(table), QLatin1String(column), of) +
                               ids,
                           QVariantList{value} + range + ofDay());
        };
        QVariantList series;
        QVariantList items;
        if (!readColumn(QStringLiteral("SELECT id FROM series"), {}, &series) ||
            !readColumn(QStringLiteral("SELECT DISTINCT item FROM item_tally WHERE day = ?"), {m_day}, &items)) {
            return false;
        }
        const QString value = QStringLiteral("?");
        for (const QVariant &entry : qAsConst(series)) {
            if (!removeParts("measurement", "series", value, entry)) {
                return false;
            }
        }
        for (const QVariant &entry : qAsConst(items)) {
            if (!removeParts("finding", "item", value, entry)) {
                return false;
            }
        }
        return execute(QStringLiteral("DELETE FROM unsent WHERE begin_ms >= ? AND begin_ms < ? AND run IN ") + ids,
                       range + ofDay()) &&
               execute(QStringLiteral("DELETE FROM record WHERE run IN ") + ids, ofDay()) &&
               execute(QStringLiteral("DELETE FROM run WHERE begin_ms >= ? AND begin_ms < ? AND day = ?"), ofDay());
    }

    bool readColumn(const QString &statement, const QVariantList &values, QVariantList *column)
    {
        QSqlQuery *query = m_connection->prepared(statement);
        if (query == nullptr) {
            return false;
        }
        for (const QVariant &value : values) {
            query->addBindValue(value);
        }
        if (!m_connection->run(query)) {
            return false;
        }
        while (query->next()) {
            column->append(query->value(0));
        }
        query->finish();
        return true;
    }

    bool correctCameras(const QStringList &macs)
    {
        for (const QString &mac : macs) {
            CameraRow after;
            after.mac = mac;
            if (!readRemaining(&after) || !write(after) || !moveCohort(m_before.value(mac), after)) {
                return false;
            }
        }
        return true;
    }

    /// What the camera's runs come to that are still there.
    bool readRemaining(CameraRow *camera)
    {
        Conditions conditions;
        conditions.addText(QStringLiteral("mac"), camera->mac);
        QSqlQuery *query = conditions.run(
            m_connection, QStringLiteral("SELECT id, begin_ms, outcome, day, station, batch, firmware FROM run"),
            QStringLiteral(" ORDER BY begin_ms, id"));
        if (query == nullptr) {
            return false;
        }
        while (query->next()) {
            ++camera->runs;
            camera->lastRun = Connection::idOf(query->value(0));
            camera->lastBeginMs = query->value(1).toLongLong();
            camera->lastOutcome = query->value(2).toString();
            const bool passed = camera->lastOutcome == nameOf(Outcome::Passed);
            if (!passed && camera->lastOutcome != nameOf(Outcome::Failed)) {
                continue;
            }
            const CameraRow::Judgement judgement{camera->lastBeginMs, passed};
            if (!camera->first) {
                camera->first = judgement;
                camera->cohort = {query->value(3).toString(), query->value(4).toString(), query->value(5).toString(),
                                  query->value(6).toString()};
            }
            camera->last = judgement;
        }
        query->finish();
        return true;
    }

    bool write(const CameraRow &camera)
    {
        if (camera.runs == 0) {
            return execute(QStringLiteral("DELETE FROM camera WHERE mac = ?"), {camera.mac});
        }
        const auto time = [](const std::optional<CameraRow::Judgement> &judgement) {
            return judgement ? QVariant(judgement->beginMs) : QVariant(QVariant::LongLong);
        };
        const auto passed = [](const std::optional<CameraRow::Judgement> &judgement) {
            return judgement ? QVariant(judgement->passed ? 1 : 0) : QVariant(QVariant::Int);
        };
        const auto text = [&camera](const QString &value) {
            return camera.first ? QVariant(value) : QVariant(QVariant::String);
        };
        return execute(QStringLiteral("UPDATE camera SET runs = ?, last_begin_ms = ?, last_run = ?, last_outcome = ?, "
                                      "first_judged_ms = ?, first_day = ?, first_station = ?, first_batch = ?, "
                                      "first_firmware = ?, first_passed = ?, last_judged_ms = ?, final_passed = ? "
                                      "WHERE mac = ?"),
                       {camera.runs, camera.lastBeginMs, m_connection->idValue(camera.lastRun), camera.lastOutcome,
                        time(camera.first), text(camera.cohort.day), text(camera.cohort.station),
                        text(camera.cohort.batch), text(camera.cohort.firmware), passed(camera.first),
                        time(camera.last), passed(camera.last), camera.mac});
    }

    /// The camera counts from now on where it was judged first of what is left.
    bool moveCohort(const CameraRow &before, const CameraRow &after)
    {
        return (!before.first || addToTally(before.cohort, sumsOf(before), -1)) &&
               (!after.first || addToTally(after.cohort, sumsOf(after), 1));
    }

    bool addToTally(const TallyKey &key, const CameraSums &sums, int sign)
    {
        return execute(QStringLiteral("UPDATE tally SET cameras = cameras + ?, first_passed = first_passed + ?, "
                                      "final_passed = final_passed + ? "
                                      "WHERE day = ? AND station = ? AND batch = ? AND firmware = ?"),
                       {sign * sums.cameras, sign * sums.firstPassed, sign * sums.finalPassed, key.day, key.station,
                        key.batch, key.firmware});
    }

    bool removeSums()
    {
        return execute(QStringLiteral("DELETE FROM item_tally WHERE day = ?"), {m_day}) &&
               execute(QStringLiteral("DELETE FROM tally WHERE day = ?"), {m_day});
    }

    Store *m_store;
    Connection *m_connection;
    const QString m_day;
    qint64 m_from = 0;
    qint64 m_to = 0;
    QHash<QString, CameraRow> m_before;
};

/// A day before `day` that the sums know, the oldest one; empty if there is none.
bool readOldestDay(Connection *connection, const QDate &day, QString *oldest)
{
    Conditions conditions;
    conditions.add(QStringLiteral("day < ?"), {day.toString(Qt::ISODate)});
    QSqlQuery *query = conditions.run(connection, QStringLiteral("SELECT MIN(day) FROM tally"));
    if (query == nullptr) {
        return false;
    }
    *oldest = query->next() ? query->value(0).toString() : QString();
    query->finish();
    return true;
}

bool readRunsBefore(Connection *connection, const QString &day, qint64 *runs)
{
    Conditions conditions;
    conditions.add(QStringLiteral("day < ?"), {day});
    QSqlQuery *query = conditions.run(connection, QStringLiteral("SELECT CAST(SUM(runs) AS BIGINT) FROM tally"));
    if (query == nullptr) {
        return false;
    }
    *runs = query->next() ? query->value(0).toLongLong() : 0;
    query->finish();
    return true;
}

/// SQLite's pages that hold nothing; 0 if it does not tell.
qint64 freePages(Connection *connection)
{
    QSqlQuery query(connection->database());
    return query.exec(QStringLiteral("PRAGMA freelist_count")) && query.next() ? query.value(0).toLongLong() : 0;
}

/// Hands the file's empty pages back, some in each transaction, so that stations can write in between. Qt makes one
/// step of such a statement, which is one page.
void shrinkFile(Connection *connection)
{
    constexpr int pagesAtOnce = 4096;
    qint64 before = std::numeric_limits<qint64>::max();
    for (qint64 left = freePages(connection); left > 0 && left < before; left = freePages(connection)) {
        before = left;
        connection->transaction([&] {
            QSqlQuery query(connection->database());
            bool goesOn = true;
            for (qint64 i = 0; goesOn && i < std::min<qint64>(left, pagesAtOnce); ++i) {
                goesOn = query.exec(QStringLiteral("PRAGMA incremental_vacuum(1)"));
            }
            return goesOn;
        });
    }
    QSqlQuery(connection->database()).exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
}

void giveSpaceBack(Connection *connection)
{
    if (connection->isServer()) {
        // An engine that cannot do this does it by itself, later.
        connection->execute(QStringLiteral("VACUUM run, record, finding, measurement, camera, tally, item_tally"));
    } else {
        shrinkFile(connection);
    }
}
} // namespace

std::optional<qint64> pruneRuns(Store &store, const QDate &day, const PruneWatch &watch)
{
    Connection &connection = store.connection();
    const QString end = day.toString(Qt::ISODate);
    qint64 all = 0;
    if (!readRunsBefore(&connection, end, &all)) {
        return {};
    }
    qint64 left = all;
    bool goesOn = true;
    while (goesOn) {
        QString oldest;
        if (!readOldestDay(&connection, day, &oldest)) {
            return {};
        }
        if (oldest.isEmpty()) {
            break;
        }
        DayPruner pruner(&store, oldest);
        if (!connection.transaction([&pruner] { return pruner.prune(); }) || !readRunsBefore(&connection, end, &left)) {
            return {};
        }
        goesOn = watch.progress(all - left, all);
    }
    giveSpaceBack(&connection);
    return all - left;
}

std::optional<qint64> countUnsentBefore(Store &store, const QDate &day)
{
    if (store.connection().isServer()) {
        return 0;
    }
    Conditions conditions;
    conditions.add(QStringLiteral("run.day < ?"), {day.toString(Qt::ISODate)});
    QSqlQuery *query =
        conditions.run(&store.connection(), QStringLiteral("SELECT COUNT(*) FROM unsent JOIN run ON run.begin_ms = "
                                                           "unsent.begin_ms AND run.id = unsent.run"));
    if (query == nullptr) {
        return {};
    }
    const qint64 count = query->next() ? query->value(0).toLongLong() : 0;
    query->finish();
    return count;
}
