#include "history/query/Conditions.h"
#include "history/query/questions.h"
#include "history/query/readRow.h"
#include "history/query/RunSelection.h"
#include "history/store/Store.h"
#include "record/recordNames.h"

#include <QDeadlineTimer>
#include <QRegularExpression>

namespace {
constexpr int wholeMac = 17;

/// Behind everything that begins with the same text.
QString endOf(const QString &beginning)
{
    constexpr uint lastCharacter = 0x10FFFF;
    return beginning + QString::fromUcs4(&lastCharacter, 1);
}

/// Up to so many runs are found by an index, and then sorted, sooner than by looking at one after the other until there
/// are enough of them.
constexpr int fewInIndex = 20000;
constexpr int fewInTable = 3000; ///< where the index does not hold all that is asked of them

/// The runs whose `column` begins with a text. Where they are few, the column's index finds them, and they are to be
/// sorted; where they are many, the first ones in the order of time are found sooner by looking at all.
bool addBeginning(const QString &column, const QString &beginning, int few, Connection *connection,
                  Conditions *conditions, bool *areFew)
{
    Conditions beginsSo;
    const QVariantList bounds = {beginning, endOf(beginning)};
    beginsSo.add(column + QStringLiteral(" >= ? AND ") + column + QStringLiteral(" < ?"), bounds);
    QSqlQuery *query = beginsSo.run(connection, QStringLiteral("SELECT 1 FROM run"),
                                    QStringLiteral(" LIMIT 1 OFFSET %1").arg(few - 1));
    if (query == nullptr) {
        return false;
    }
    *areFew = !query->next();
    query->finish();
    // An expression has no index; this one takes the least time.
    const QString shown = (*areFew ? QStringLiteral("run.%1") : QStringLiteral("COALESCE(run.%1, '')")).arg(column);
    conditions->add(QStringLiteral("%1 >= ? AND %1 < ?").arg(shown), bounds);
    return true;
}

bool addIdentity(const RunFilter &filter, Connection *connection, Conditions *conditions, bool *areFew)
{
    const QString mac = macAsStored(filter.mac);
    const bool isOneText = mac.isEmpty() || filter.serial.isEmpty();
    const bool isMore = !filter.station.isEmpty() || !filter.batch.isEmpty() || !filter.firmware.isEmpty() ||
                        filter.outcome || !filter.item.isEmpty();
    const int few = isOneText && !isMore ? fewInIndex : fewInTable;
    if (mac.size() == wholeMac) {
        conditions->addText(QStringLiteral("run.mac"), mac);
    } else if (!mac.isEmpty() && !addBeginning(QStringLiteral("mac"), mac, few, connection, conditions, areFew)) {
        return false;
    }
    return filter.serial.isEmpty() ||
           addBeginning(QStringLiteral("serial"), filter.serial, few, connection, conditions, areFew);
}
} // namespace

std::optional<QList<QUuid>> findRunIds(Store &store, const QString &text)
{
    constexpr int digitsOfId = 32;
    constexpr int fewest = 4;
    static const QRegularExpression digitsOnly(QStringLiteral(R"(\A[0-9a-f]+\z)"));
    QString digits = text.trimmed().toLower();
    digits.remove(QLatin1Char('-')).remove(QLatin1Char('{')).remove(QLatin1Char('}'));
    if (!digitsOnly.match(digits).hasMatch() || digits.size() < fewest || digits.size() > digitsOfId) {
        return QList<QUuid>();
    }
    const auto filled = [&digits](char with) {
        const QByteArray hex = digits.leftJustified(digitsOfId, QLatin1Char(with)).toLatin1();
        return QUuid::fromRfc4122(QByteArray::fromHex(hex));
    };
    Connection &connection = store.connection();
    Conditions conditions;
    conditions.add(QStringLiteral("id >= ? AND id <= ?"),
                   {connection.idValue(filled('0')), connection.idValue(filled('f'))});
    QSqlQuery *query = conditions.run(&connection, QStringLiteral("SELECT id FROM run"), QStringLiteral(" LIMIT 2"));
    if (query == nullptr) {
        return {};
    }
    QList<QUuid> ids;
    while (query->next()) {
        ids.append(Connection::idOf(query->value(0)));
    }
    query->finish();
    return ids;
}

std::optional<RunSelection> RunSelection::of(Store &store, const RunFilter &filter)
{
    Connection &connection = store.connection();
    const bool isOfItem = !filter.item.isEmpty();
    RunSelection selection;
    // In the order of the index that leads: that of the findings, or that of the runs.
    selection.m_time = isOfItem ? QStringLiteral("finding.begin_ms") : QStringLiteral("run.begin_ms");
    selection.m_id = isOfItem ? QStringLiteral("finding.run") : QStringLiteral("run.id");
    selection.m_from =
        isOfItem ? QStringLiteral("finding JOIN run ON run.begin_ms = finding.begin_ms AND run.id = finding.run")
                 : QStringLiteral("run");
    Conditions &conditions = selection.m_conditions;
    if (isOfItem) {
        // An item that failed twice in a run is in two rows.
        conditions.add(
            QStringLiteral("finding.item = ? AND finding.place = (SELECT MIN(other.place) FROM finding other "
                           "WHERE other.item = finding.item AND other.begin_ms = finding.begin_ms AND "
                           "other.run = finding.run)"),
            {filter.item});
    }
    if (!addIdentity(filter, &connection, &conditions, &selection.m_areFew)) {
        return {};
    }
    if (filter.since.isValid()) {
        conditions.add(selection.m_time + QStringLiteral(" >= ?"), {filter.since.toMSecsSinceEpoch()});
    }
    if (filter.until.isValid()) {
        conditions.add(selection.m_time + QStringLiteral(" < ?"), {filter.until.toMSecsSinceEpoch()});
    }
    conditions.addText(QStringLiteral("run.station"), filter.station);
    conditions.addText(QStringLiteral("run.batch"), filter.batch);
    conditions.addText(QStringLiteral("run.firmware"), filter.firmware);
    if (filter.outcome) {
        conditions.addText(QStringLiteral("run.outcome"), nameOf(*filter.outcome));
    }
    return selection;
}

Conditions RunSelection::before(const std::optional<RunPlace> &olderThan, Connection *connection) const
{
    Conditions conditions = m_conditions;
    if (olderThan) {
        conditions.add(QStringLiteral("%1 <= ? AND (%1 < ? OR %2 < ?)").arg(m_time, m_id),
                       {olderThan->beginMs, olderThan->beginMs, connection->idValue(olderThan->id)});
    }
    return conditions;
}

QString RunSelection::order() const
{
    return QStringLiteral(" ORDER BY %1 DESC, %2 DESC").arg(m_time, m_id);
}

QSqlQuery *RunSelection::run(Connection *connection, const QString &columns, const std::optional<RunPlace> &olderThan,
                             const QString &tail) const
{
    return before(olderThan, connection)
        .run(connection, QStringLiteral("SELECT %1 FROM %2").arg(columns, m_from), order() + tail);
}

QSqlQuery *RunSelection::runRows(Connection *connection, const QString &columns,
                                 const std::optional<RunPlace> &olderThan, int limit) const
{
    const QString atMost = limit > 0 ? QStringLiteral(" LIMIT %1").arg(limit) : QString();
    if (!m_areFew || limit <= 0) {
        return run(connection, columns, olderThan, atMost);
    }
    // What is sorted are the places that the index holds; only the rows that are left afterwards are fetched.
    return before(olderThan, connection)
        .run(connection,
             QStringLiteral("SELECT %1 FROM (SELECT %2 AS at, %3 AS id FROM %4").arg(columns, m_time, m_id, m_from),
             order() + atMost +
                 QStringLiteral(") AS chosen JOIN run ON run.begin_ms = chosen.at AND run.id = chosen.id "
                                "ORDER BY chosen.at DESC, chosen.id DESC"));
}

std::optional<QList<RunSummary>> findRuns(Store &store, const RunFilter &filter)
{
    const std::optional<RunSelection> selection = RunSelection::of(store, filter);
    if (!selection) {
        return {};
    }
    QSqlQuery *query = selection->runRows(&store.connection(), runColumns(), filter.olderThan, filter.limit);
    if (query == nullptr) {
        return {};
    }
    QList<RunSummary> runs;
    while (query->next()) {
        runs.append(readRun(*query));
    }
    query->finish();
    return runs;
}

std::optional<RunPlaces> findRunPlaces(Store &store, const RunFilter &filter, int step, std::chrono::milliseconds time)
{
    const std::optional<RunSelection> selection = RunSelection::of(store, filter);
    if (!selection) {
        return {};
    }
    const QDeadlineTimer deadline(time);
    const QString lastOfStep = QStringLiteral(" LIMIT 1 OFFSET %1").arg(step - 1);
    RunPlaces places;
    std::optional<RunPlace> olderThan = filter.olderThan;
    do {
        QSqlQuery *query = selection->run(&store.connection(), selection->placeColumns(), olderThan, lastOfStep);
        if (query == nullptr) {
            return {};
        }
        const bool isWhole = query->next();
        if (isWhole) {
            olderThan = RunPlace{query->value(0).toLongLong(), Connection::idOf(query->value(1))};
            places.steps.append(*olderThan);
        }
        query->finish();
        if (isWhole) {
            continue;
        }
        query =
            selection->run(&store.connection(), QStringLiteral("1"), olderThan, QStringLiteral(" LIMIT %1").arg(step));
        if (query == nullptr) {
            return {};
        }
        places.isEnd = true;
        while (query->next()) {
            ++places.rest;
        }
        query->finish();
    } while (!places.isEnd && !deadline.hasExpired());
    return places;
}
