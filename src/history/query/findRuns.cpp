#include "history/query/Conditions.h"
#include "history/query/questions.h"
#include "history/query/readRow.h"
#include "history/store/Store.h"
#include "record/recordNames.h"

#include <QRegularExpression>

namespace {
constexpr int wholeMac = 17;

/// Behind everything that begins with the same text.
QString endOf(const QString &beginning)
{
    constexpr uint lastCharacter = 0x10FFFF;
    return beginning + QString::fromUcs4(&lastCharacter, 1);
}

/// The runs whose `column` begins with a text. Where they are few, the column's index finds them and they are sorted;
/// where they are many, the first ones in the order of time are found sooner by looking at all.
bool addBeginning(const QString &column, const QString &beginning, Connection *connection, Conditions *conditions)
{
    constexpr int few = 3000;
    Conditions beginsSo;
    const QVariantList bounds = {beginning, endOf(beginning)};
    beginsSo.add(column + QStringLiteral(" >= ? AND ") + column + QStringLiteral(" < ?"), bounds);
    QSqlQuery *query = beginsSo.run(connection, QStringLiteral("SELECT COUNT(*) FROM (SELECT 1 FROM run"),
                                    QStringLiteral(" LIMIT %1) AS beginnings").arg(few));
    if (query == nullptr) {
        return false;
    }
    const bool areFew = query->next() && query->value(0).toInt() < few;
    query->finish();
    // An expression has no index.
    const QString shown = QStringLiteral("run.") + column + (areFew ? QString() : QStringLiteral(" || ''"));
    conditions->add(QStringLiteral("%1 >= ? AND %1 < ?").arg(shown), bounds);
    return true;
}

bool addIdentity(const RunFilter &filter, Connection *connection, Conditions *conditions)
{
    const QString mac = macAsStored(filter.mac);
    if (mac.size() == wholeMac) {
        conditions->addText(QStringLiteral("run.mac"), mac);
    } else if (!mac.isEmpty() && !addBeginning(QStringLiteral("mac"), mac, connection, conditions)) {
        return false;
    }
    return filter.serial.isEmpty() || addBeginning(QStringLiteral("serial"), filter.serial, connection, conditions);
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

std::optional<QList<RunSummary>> findRuns(Store &store, const RunFilter &filter)
{
    Connection &connection = store.connection();
    Conditions conditions;
    if (!filter.item.isEmpty()) {
        // An item that failed twice in a run is in two rows.
        conditions.add(
            QStringLiteral("finding.item = ? AND finding.place = (SELECT MIN(other.place) FROM finding other "
                           "WHERE other.item = finding.item AND other.begin_ms = finding.begin_ms AND "
                           "other.run = finding.run)"),
            {filter.item});
    }
    if (!addIdentity(filter, &connection, &conditions)) {
        return {};
    }
    // In the order of the index that leads: that of the findings, or that of the runs.
    const QString lead = filter.item.isEmpty() ? QStringLiteral("run") : QStringLiteral("finding");
    const QString id = filter.item.isEmpty() ? QStringLiteral("run.id") : QStringLiteral("finding.run");
    const QString time = lead + QStringLiteral(".begin_ms");
    if (filter.since.isValid()) {
        conditions.add(time + QStringLiteral(" >= ?"), {filter.since.toMSecsSinceEpoch()});
    }
    if (filter.until.isValid()) {
        conditions.add(time + QStringLiteral(" < ?"), {filter.until.toMSecsSinceEpoch()});
    }
    if (filter.olderThan) {
        const RunPlace &place = *filter.olderThan;
        conditions.add(QStringLiteral("%1 <= ? AND (%1 < ? OR %2 < ?)").arg(time, id),
                       {place.beginMs, place.beginMs, connection.idValue(place.id)});
    }
    conditions.addText(QStringLiteral("run.station"), filter.station);
    conditions.addText(QStringLiteral("run.batch"), filter.batch);
    conditions.addText(QStringLiteral("run.firmware"), filter.firmware);
    if (filter.outcome) {
        conditions.addText(QStringLiteral("run.outcome"), nameOf(*filter.outcome));
    }
    QString select = QStringLiteral("SELECT ") + runColumns() + QStringLiteral(" FROM ");
    select += filter.item.isEmpty()
                  ? QStringLiteral("run")
                  : QStringLiteral("finding JOIN run ON run.begin_ms = finding.begin_ms AND run.id = finding.run");
    QString tail = QStringLiteral(" ORDER BY %1 DESC, %2 DESC").arg(time, id);
    if (filter.limit > 0) {
        tail += QStringLiteral(" LIMIT %1").arg(filter.limit);
    }
    QSqlQuery *query = conditions.run(&connection, select, tail);
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
