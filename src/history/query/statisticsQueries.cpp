#include "history/query/Conditions.h"
#include "history/query/questions.h"
#include "history/query/readRow.h"
#include "history/store/Store.h"
#include "record/recordNames.h"

#include <array>
#include <cmath>
#include <QHash>
#include <QSet>

namespace {
struct SumColumn
{
    const char *column;
    qint64 TallySums::*sum;
};

constexpr std::array sumColumns = {
    SumColumn{"runs", &TallySums::runs},
    SumColumn{"passed", &TallySums::passed},
    SumColumn{"failed", &TallySums::failed},
    SumColumn{"stopped", &TallySums::stopped},
    SumColumn{"error", &TallySums::error},
    SumColumn{"duration_ms", &TallySums::durationMs},
    SumColumn{"cameras", &TallySums::cameras},
    SumColumn{"first_passed", &TallySums::firstPassed},
    SumColumn{"final_passed", &TallySums::finalPassed},
};

QString sumOf(const char *column)
{
    return QStringLiteral("CAST(SUM(%1) AS BIGINT)").arg(QLatin1String(column));
}

struct Grouping
{
    const char *column;
    QList<RunGroup> Statistics::*groups;
};

constexpr std::array groupings = {
    Grouping{"day", &Statistics::byDay},
    Grouping{"station", &Statistics::byStation},
    Grouping{"batch", &Statistics::byBatch},
    Grouping{"firmware", &Statistics::byFirmware},
};

void addSource(const QString &table, const StatisticsFilter &filter, Conditions *conditions)
{
    conditions->addText(table + QStringLiteral(".station"), filter.station);
    conditions->addText(table + QStringLiteral(".batch"), filter.batch);
    conditions->addText(table + QStringLiteral(".firmware"), filter.firmware);
}

Conditions ofTally(const QString &table, const StatisticsFilter &filter)
{
    Conditions conditions;
    if (filter.since.isValid()) {
        conditions.add(QStringLiteral("day >= ?"), {filter.since.toString(Qt::ISODate)});
    }
    if (filter.until.isValid()) {
        conditions.add(QStringLiteral("day <= ?"), {filter.until.toString(Qt::ISODate)});
    }
    addSource(table, filter, &conditions);
    return conditions;
}

/// The moments of the period, by this PC's clock.
void addPeriod(const QString &column, const StatisticsFilter &filter, Conditions *conditions)
{
    if (filter.since.isValid()) {
        conditions->add(column + QStringLiteral(" >= ?"), {filter.since.startOfDay().toMSecsSinceEpoch()});
    }
    if (filter.until.isValid()) {
        conditions->add(column + QStringLiteral(" < ?"), {filter.until.addDays(1).startOfDay().toMSecsSinceEpoch()});
    }
}

bool hasSource(const StatisticsFilter &filter)
{
    return !filter.station.isEmpty() || !filter.batch.isEmpty() || !filter.firmware.isEmpty();
}

bool readGroups(Connection *connection, const StatisticsFilter &filter, const Grouping &grouping,
                Statistics *statistics)
{
    const QString column = QString::fromLatin1(grouping.column);
    QStringList selected = {column};
    for (const SumColumn &row : sumColumns) {
        selected.append(sumOf(row.column));
    }
    QSqlQuery *query =
        ofTally(QStringLiteral("tally"), filter)
            .run(connection, QStringLiteral("SELECT %1 FROM tally").arg(selected.join(QStringLiteral(", "))),
                 QStringLiteral(" GROUP BY %1 ORDER BY %1").arg(column));
    if (query == nullptr) {
        return false;
    }
    while (query->next()) {
        RunGroup group{query->value(0).toString(), {}};
        qint64 anything = 0;
        for (std::size_t i = 0; i < sumColumns.size(); ++i) {
            const qint64 sum = query->value(static_cast<int>(i) + 1).toLongLong();
            group.sums.*sumColumns.at(i).sum = sum;
            anything |= sum;
        }
        // What is pruned leaves rows of zeros.
        if (anything != 0) {
            (statistics->*grouping.groups).append(group);
        }
    }
    query->finish();
    return true;
}

bool readItems(Connection *connection, const StatisticsFilter &filter, QList<ItemGroup> *items)
{
    QSqlQuery *query = ofTally(QStringLiteral("item_tally"), filter)
                           .run(connection,
                                QStringLiteral("SELECT item, %1, %2, %3 FROM item_tally")
                                    .arg(sumOf("ran"), sumOf("failed"), sumOf("warned")),
                                QStringLiteral(" GROUP BY item HAVING SUM(failed) + SUM(warned) > 0"));
    if (query == nullptr) {
        return false;
    }
    while (query->next()) {
        items->append({query->value(0).toString(),
                       {query->value(1).toLongLong(), query->value(2).toLongLong(), query->value(3).toLongLong()}});
    }
    query->finish();
    sortByFailures(items);
    return true;
}

struct Series
{
    qint64 id;
    MeasurementName name;
};

bool readSeries(Connection *connection, QList<Series> *series)
{
    QSqlQuery *query =
        Conditions().run(connection, QStringLiteral("SELECT id, item, name, unit FROM series ORDER BY item, name"));
    if (query == nullptr) {
        return false;
    }
    while (query->next()) {
        series->append({query->value(0).toLongLong(),
                        {query->value(1).toString(), query->value(2).toString(), query->value(3).toString()}});
    }
    query->finish();
    return true;
}

std::optional<double> boundOf(const QVariant &value)
{
    return value.isNull() ? std::nullopt : std::optional<double>(value.toDouble());
}

/// The limit of the latest row; without a bound where there is none.
bool readLatestLimit(Connection *connection, const Conditions &conditions, Limit *limit)
{
    QSqlQuery *query = conditions.run(connection, QStringLiteral("SELECT least, most FROM measurement"),
                                      QStringLiteral(" ORDER BY measurement.begin_ms DESC LIMIT 1"));
    if (query == nullptr) {
        return false;
    }
    if (query->next()) {
        *limit = {boundOf(query->value(0)), boundOf(query->value(1)), {}};
    }
    query->finish();
    return true;
}

Distribution emptyDistribution(const MeasurementName &measurement)
{
    Distribution distribution;
    distribution.item = measurement.item;
    distribution.name = measurement.name;
    distribution.unit = measurement.unit;
    return distribution;
}

Conditions ofSeries(qint64 id, const StatisticsFilter &filter)
{
    Conditions conditions;
    conditions.add(QStringLiteral("series = ?"), {id});
    addPeriod(QStringLiteral("measurement.begin_ms"), filter, &conditions);
    return conditions;
}

bool readValues(Connection *connection, const StatisticsFilter &filter, Conditions conditions, const QString &tail,
                Distribution *distribution)
{
    QString select = QStringLiteral("SELECT number, least, most FROM measurement");
    if (hasSource(filter)) {
        select += QStringLiteral(" JOIN run ON run.begin_ms = measurement.begin_ms AND run.id = measurement.run");
        addSource(QStringLiteral("run"), filter, &conditions);
    }
    QSqlQuery *query = conditions.run(connection, select, tail);
    if (query == nullptr) {
        return false;
    }
    QVector<double> numbers;
    while (query->next()) {
        const QVariant value = query->value(0);
        if (value.isNull()) {
            continue;
        }
        const double number = value.toDouble();
        numbers.append(number);
        const std::optional<double> least = boundOf(query->value(1));
        const std::optional<double> most = boundOf(query->value(2));
        const bool isInside = (!least || number >= *least) && (!most || number <= *most);
        distribution->outside += isInside ? 0 : 1;
    }
    query->finish();
    describe(numbers, distribution);
    return true;
}

bool readFindings(Connection *connection, const StatisticsFilter &filter, QList<FailedCamera> *cameras)
{
    QHash<QUuid, int> places;
    for (int i = 0; i < cameras->size(); ++i) {
        places.insert(cameras->at(i).run.id, i);
    }
    Conditions conditions;
    addPeriod(QStringLiteral("begin_ms"), filter, &conditions);
    QSqlQuery *query =
        conditions.run(connection, QStringLiteral("SELECT run, item, place, verdict, message, measurement, value, "
                                                  "limits FROM finding"));
    if (query == nullptr) {
        return false;
    }
    while (query->next()) {
        const auto camera = places.constFind(Connection::idOf(query->value(0)));
        if (camera != places.constEnd()) {
            (*cameras)[*camera].findings.append({query->value(1).toString(), query->value(2).toInt(),
                                                 query->value(3).toString(), query->value(4).toString(),
                                                 query->value(5).toString(), query->value(6).toString(),
                                                 query->value(7).toString()});
        }
    }
    query->finish();
    for (FailedCamera &camera : *cameras) {
        std::sort(camera.findings.begin(), camera.findings.end(),
                  [](const FindingRow &left, const FindingRow &right) { return left.place < right.place; });
    }
    return true;
}
} // namespace

std::optional<Statistics> readStatistics(Store &store, const StatisticsFilter &filter)
{
    Statistics statistics;
    for (const Grouping &grouping : groupings) {
        if (!readGroups(&store.connection(), filter, grouping, &statistics)) {
            return {};
        }
    }
    if (!readItems(&store.connection(), filter, &statistics.items)) {
        return {};
    }
    for (const RunGroup &day : qAsConst(statistics.byDay)) {
        add(day.sums, &statistics.total);
    }
    if (!statistics.byDay.isEmpty()) {
        statistics.first = QDate::fromString(statistics.byDay.constFirst().name, Qt::ISODate);
        statistics.last = QDate::fromString(statistics.byDay.constLast().name, Qt::ISODate);
    }
    return statistics;
}

std::optional<QList<Distribution>> readDistributions(Store &store, const StatisticsFilter &filter)
{
    Connection &connection = store.connection();
    QList<Series> all;
    if (!readSeries(&connection, &all)) {
        return {};
    }
    QList<Distribution> distributions;
    for (const Series &series : qAsConst(all)) {
        Conditions conditions = ofSeries(series.id, filter);
        Distribution distribution = emptyDistribution(series.name);
        if (!readLatestLimit(&connection, conditions, &distribution.limit)) {
            return {};
        }
        if (!distribution.limit.least && !distribution.limit.most) {
            continue;
        }
        if (!readValues(&connection, filter, conditions, {}, &distribution)) {
            return {};
        }
        if (distribution.count > 0) {
            distributions.append(distribution);
        }
    }
    return distributions;
}

std::optional<QList<MeasurementName>> readMeasurementNames(Store &store)
{
    QList<Series> all;
    if (!readSeries(&store.connection(), &all)) {
        return {};
    }
    QList<MeasurementName> names;
    for (const Series &series : qAsConst(all)) {
        names.append(series.name);
    }
    return names;
}

std::optional<Distribution> readDistribution(Store &store, const StatisticsFilter &filter,
                                             const MeasurementName &measurement, int most)
{
    Connection &connection = store.connection();
    Distribution distribution = emptyDistribution(measurement);
    const Conditions conditions = ofSeries(seriesId(measurement.item, measurement.name, measurement.unit), filter);
    const QString tail = QStringLiteral(" ORDER BY measurement.begin_ms DESC LIMIT %1").arg(most);
    const bool isRead = readLatestLimit(&connection, conditions, &distribution.limit) &&
                        readValues(&connection, filter, conditions, tail, &distribution);
    return isRead ? std::optional<Distribution>(distribution) : std::nullopt;
}

std::optional<QList<FailedCamera>> readFailedCameras(Store &store, const StatisticsFilter &filter)
{
    Connection &connection = store.connection();
    Conditions conditions;
    conditions.add(QStringLiteral("camera.final_passed = ?"), {0});
    conditions.addText(QStringLiteral("run.outcome"), nameOf(Outcome::Failed));
    addPeriod(QStringLiteral("camera.last_judged_ms"), filter, &conditions);
    addSource(QStringLiteral("run"), filter, &conditions);
    QSqlQuery *query = conditions.run(
        &connection,
        QStringLiteral(
            "SELECT %1 FROM camera JOIN run ON run.mac = camera.mac AND run.begin_ms = camera.last_judged_ms")
            .arg(runColumns()),
        QStringLiteral(" ORDER BY run.begin_ms DESC, run.id DESC"));
    if (query == nullptr) {
        return {};
    }
    QList<FailedCamera> cameras;
    QSet<QString> seen; // two runs of a camera may have begun at the same moment
    while (query->next()) {
        const RunSummary run = readRun(*query);
        if (!seen.contains(run.mac)) {
            seen.insert(run.mac);
            cameras.append({run, {}});
        }
    }
    query->finish();
    return readFindings(&connection, filter, &cameras) ? std::optional<QList<FailedCamera>>(cameras) : std::nullopt;
}
