#include "history/store/Store.h"

#include "history/store/schema.h"
#include "record/recordJson.h"
#include "record/recordNames.h"

#include <algorithm>
#include <array>
#include <QHash>
#include <QSqlQuery>
#include <QStringList>
#include <QThread>

namespace {
/// Names of `state`.
constexpr auto lastSent = "last_sent";
constexpr auto lastError = "last_error";
constexpr auto lastErrorTime = "last_error_time";

constexpr auto stepTable = "schema_step";

const QString onConflictNothing = QStringLiteral(" ON CONFLICT DO NOTHING");

QVariant orNull(const std::optional<double> &number)
{
    return number ? QVariant(*number) : QVariant(QVariant::Double);
}

/// Qt binds a text that is null as NULL.
QVariant orEmpty(const QString &text)
{
    return text.isNull() ? QString(QLatin1String("")) : text;
}

std::optional<CameraRow::Judgement> judgementOf(const QVariant &beginMs, const QVariant &passed)
{
    if (beginMs.isNull()) {
        return {};
    }
    return CameraRow::Judgement{beginMs.toLongLong(), passed.toInt() != 0};
}

void addKey(RowValues *values, const TallyKey &key)
{
    *values << orEmpty(key.day) << orEmpty(key.station) << orEmpty(key.batch) << orEmpty(key.firmware);
}

QString timeValue(const QDateTime &time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}

/// "name = table.name + excluded.name", for each.
QString sumsOf(const QString &table, const QStringList &names)
{
    QStringList sums;
    for (const QString &name : names) {
        sums.append(QStringLiteral("%1 = %2.%1 + excluded.%1").arg(name, table));
    }
    return sums.join(QStringLiteral(", "));
}

/// What an `insert` of `CameraRow`s binds, behind the MAC address.
const QStringList &cameraColumns()
{
    static const QStringList columns = {
        QStringLiteral("runs"),          QStringLiteral("last_begin_ms"),   QStringLiteral("last_run"),
        QStringLiteral("last_outcome"),  QStringLiteral("first_judged_ms"), QStringLiteral("first_day"),
        QStringLiteral("first_station"), QStringLiteral("first_batch"),     QStringLiteral("first_firmware"),
        QStringLiteral("first_passed"),  QStringLiteral("last_judged_ms"),  QStringLiteral("final_passed")};
    return columns;
}
} // namespace

Store::Store(const StoreAddress &address, const Options &options)
    : m_options(options), m_connection(address, options.access, options.patience)
{
}

std::unique_ptr<Store> Store::open(const StoreAddress &address, const Options &options, StoreError *error)
{
    std::unique_ptr<Store> store(new Store(address, options));
    if (!store->openAndMigrate()) {
        *error = store->error();
        return nullptr;
    }
    return store;
}

bool Store::openAndMigrate()
{
    if (!m_connection.open()) {
        return false;
    }
    if (!m_connection.isServer() &&
        !m_connection.execute(QStringLiteral("PRAGMA cache_size = -%1").arg(m_options.cacheKiB))) {
        return false;
    }
    return migrate();
}

std::optional<int> Store::schemaNumber()
{
    // A damaged file has no tables, and gives its reason only to a statement.
    QSqlQuery query(m_connection.database());
    if (!m_connection.isServer() && !query.exec(QStringLiteral("SELECT count(*) FROM sqlite_master"))) {
        m_connection.fail(storeError(query.lastError(), m_connection.address().name));
        return {};
    }
    const QStringList tables = m_connection.database().tables();
    if (!tables.contains(QLatin1String(stepTable))) {
        if (!m_connection.isServer() && !tables.isEmpty()) {
            m_connection.fail(StoreError::Kind::Foreign);
            return {};
        }
        return 0;
    }
    if (!query.exec(QStringLiteral("SELECT max(number) FROM %1").arg(QLatin1String(stepTable))) || !query.next()) {
        m_connection.fail(storeError(query.lastError(), m_connection.address().name));
        return {};
    }
    return query.value(0).toInt();
}

bool Store::migrate()
{
    const int newest = schemaSteps().back().number;
    // Several stations may bring the same store up to date at once; on a server the slower ones fail, and look again.
    constexpr int mostAttempts = 10;
    constexpr unsigned long pauseMs = 100;
    for (int attempt = 1;; ++attempt) {
        const std::optional<int> number = schemaNumber();
        if (!number) {
            return false;
        }
        if (*number > newest) {
            return m_connection.fail(StoreError::Kind::Newer, QStringLiteral("%1 > %2").arg(*number).arg(newest));
        }
        if (*number == newest) {
            return true;
        }
        if (m_options.access == Connection::Access::Read) {
            return m_connection.fail(*number == 0 ? StoreError::Kind::Missing : StoreError::Kind::Other,
                                     QStringLiteral("%1 < %2").arg(*number).arg(newest));
        }
        if (!applyStep(*number + 1)) {
            const StoreError::Kind kind = m_connection.error().kind;
            const bool mayHaveMet = kind == StoreError::Kind::Busy || kind == StoreError::Kind::Other;
            if (!m_connection.isServer() || !mayHaveMet || attempt == mostAttempts) {
                return false;
            }
            QThread::msleep(pauseMs);
        }
    }
}

bool Store::applyStep(int number)
{
    return m_connection.transaction([this, number] {
        const std::optional<int> now = schemaNumber();
        if (!now || *now >= number) {
            return now.has_value();
        }
        const QString table = QLatin1String(stepTable);
        if (!m_connection.execute(
                QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (number INTEGER NOT NULL PRIMARY KEY)").arg(table))) {
            return false;
        }
        for (const SchemaStep &step : schemaSteps()) {
            if (step.number != number) {
                continue;
            }
            for (const char *statement : step.statements) {
                if (!m_connection.execute(inWordsOf(m_connection.address().engine, statement))) {
                    return false;
                }
            }
        }
        return m_connection.execute(QStringLiteral("INSERT INTO %1 (number) VALUES (%2)").arg(table).arg(number));
    });
}

std::optional<int> Store::insert(const QVector<RunRows> &runs, bool queue)
{
    const bool fit = std::all_of(runs.begin(), runs.end(), [](const RunRows &run) { return run.isFit(); });
    if (!fit) {
        m_connection.fail(StoreError::Kind::Unfit);
        return {};
    }
    int added = 0;
    m_newSeries.clear();
    if (!m_connection.transaction([&] { return insertNew(runs, queue, &added); })) {
        return {};
    }
    m_series.unite(m_newSeries);
    return added;
}

bool Store::insertNew(const QVector<RunRows> &runs, bool queue, int *added)
{
    QVector<const RunRows *> candidates;
    QSet<QUuid> seen;
    for (const RunRows &run : runs) {
        if (!seen.contains(run.id)) {
            seen.insert(run.id);
            candidates.append(&run);
        }
    }
    QSet<QUuid> fresh;
    if (!insertRunRows(candidates, &fresh)) {
        return false;
    }
    QVector<const RunRows *> rows;
    std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(rows),
                 [&fresh](const RunRows *run) { return fresh.contains(run->id); });
    *added = static_cast<int>(rows.size());
    // What a server has need not be sent to it.
    const bool waits = queue && !m_connection.isServer();
    return rows.isEmpty() || (insertBesides(rows, waits) && insertMeasurements(rows) && count(rows));
}

bool Store::insertRunRows(const QVector<const RunRows *> &runs, QSet<QUuid> *added)
{
    static const QString into = QStringLiteral(
        "run (begin_ms, id, offset_s, day, end_ms, duration_us, outcome, mac, serial, station, location, "
        "batch, firmware, operator_name, wifi_name, link, program_version, reason, failed_items, first_finding)");
    constexpr int columns = 20;
    const auto bind = [this](RowValues *values, const RunRows *run) {
        *values << run->beginMs << m_connection.idValue(run->id) << run->offsetSeconds << orEmpty(run->tally.day)
                << run->endMs << run->durationUs << nameOf(run->outcome) << orEmpty(run->mac) << orEmpty(run->serial)
                << orEmpty(run->tally.station) << orEmpty(run->location) << orEmpty(run->tally.batch)
                << orEmpty(run->tally.firmware) << orEmpty(run->operatorName) << orEmpty(run->wifiName)
                << orEmpty(run->link) << orEmpty(run->programVersion) << orEmpty(run->reason) << run->failedItems
                << orEmpty(run->firstFinding);
    };
    const auto take = [added](QSqlQuery *query) {
        while (query->next()) {
            added->insert(Connection::idOf(query->value(0)));
        }
    };
    return m_connection.insertRows(into, columns, onConflictNothing + QStringLiteral(" RETURNING id"), runs, bind,
                                   take);
}

bool Store::insertBesides(const QVector<const RunRows *> &runs, bool queue)
{
    static const QString record = QStringLiteral("record (run, body)");
    if (!m_connection.insertNewRows(record, 2, runs, [this](RowValues *values, const RunRows *run) {
            *values << m_connection.idValue(run->id) << run->body;
        })) {
        return false;
    }
    static const QString unsent = QStringLiteral("unsent (begin_ms, run)");
    if (queue && !m_connection.insertNewRows(unsent, 2, runs, [this](RowValues *values, const RunRows *run) {
            *values << run->beginMs << m_connection.idValue(run->id);
        })) {
        return false;
    }
    struct Finding
    {
        const RunRows *run;
        const FindingRow *row;
    };
    QVector<Finding> findings;
    for (const RunRows *run : runs) {
        for (const FindingRow &row : run->findings) {
            findings.append({run, &row});
        }
    }
    static const QString finding =
        QStringLiteral("finding (item, begin_ms, run, place, verdict, message, measurement, value, limits)");
    constexpr int findingColumns = 9;
    return m_connection.insertNewRows(finding, findingColumns, findings, [this](RowValues *values, const Finding &at) {
        *values << orEmpty(at.row->item) << at.run->beginMs << m_connection.idValue(at.run->id) << at.row->place
                << at.row->verdict << orEmpty(at.row->message) << orEmpty(at.row->measurement) << orEmpty(at.row->value)
                << orEmpty(at.row->limits);
    });
}

bool Store::insertMeasurements(const QVector<const RunRows *> &runs)
{
    struct Measured
    {
        qint64 series;
        const RunRows *run;
        const QVariant *id;
        const MeasurementRow *row;
    };
    QVector<QVariant> ids;
    QVector<Measured> rows;
    ids.reserve(runs.size());
    QVector<const SeriesRow *> series;
    for (const RunRows *run : runs) {
        ids.append(m_connection.idValue(run->id));
        for (const MeasurementRow &row : run->measurements) {
            const qint64 id = row.series->id;
            if (!m_series.contains(id) && !m_newSeries.contains(id)) {
                m_newSeries.insert(id);
                series.append(row.series.get());
            }
            rows.append({id, run, &ids.last(), &row});
        }
    }
    static const QString seriesInto = QStringLiteral("series (id, item, name, unit)");
    constexpr int seriesColumns = 4;
    if (!m_connection.insertRows(
            seriesInto, seriesColumns, onConflictNothing, series, [](RowValues *values, const SeriesRow *row) {
                *values << row->id << orEmpty(row->item) << orEmpty(row->name) << orEmpty(row->unit);
            })) {
        return false;
    }
    // In the order in which they lie in the table: neighbours are written to the same page.
    std::sort(rows.begin(), rows.end(), [](const Measured &left, const Measured &right) {
        return std::tie(left.series, left.run->beginMs) < std::tie(right.series, right.run->beginMs);
    });
    static const QString into = QStringLiteral("measurement (series, begin_ms, run, place, number, text, least, most)");
    constexpr int columns = 8;
    return m_connection.insertNewRows(into, columns, rows, [](RowValues *values, const Measured &at) {
        *values << at.series << at.run->beginMs << *at.id << at.row->place << orNull(at.row->number)
                << orEmpty(at.row->text) << orNull(at.row->least) << orNull(at.row->most);
    });
}

bool Store::count(const QVector<const RunRows *> &runs)
{
    QStringList macs;
    for (const RunRows *run : runs) {
        if (!run->mac.isEmpty()) {
            macs.append(run->mac);
        }
    }
    // Two writers that take hold of the same rows in the same order do not wait for each other.
    std::sort(macs.begin(), macs.end());
    macs.erase(std::unique(macs.begin(), macs.end()), macs.end());
    QHash<QString, CameraRow> cameras;
    if (!readCameras(macs, Purpose::Change, &cameras)) {
        return false;
    }
    Tallies tallies;
    for (const RunRows *run : runs) {
        tallies.add(*run, run->mac.isEmpty() ? nullptr : &cameras[run->mac]);
    }
    return writeCameras(macs, cameras) && writeTallies(tallies);
}

bool Store::readCameras(const QStringList &macs, Purpose purpose, QHash<QString, CameraRow> *cameras)
{
    for (const QString &mac : macs) {
        (*cameras)[mac].mac = mac;
    }
    // A row that is not there yet cannot be held against another writer.
    const bool hold = purpose == Purpose::Change && m_connection.isServer();
    if (hold && !m_connection.insertRows(QStringLiteral("camera (mac, runs)"), 2, onConflictNothing, macs,
                                         [](RowValues *values, const QString &mac) { *values << mac << 0; })) {
        return false;
    }
    const QString select = QStringLiteral("SELECT mac, %1 FROM camera WHERE mac IN (%2) ORDER BY mac%3")
                               .arg(cameraColumns().join(QStringLiteral(", ")), QStringLiteral("%1"),
                                    hold ? QStringLiteral(" FOR UPDATE") : QString());
    return m_connection.readRows(select, macs, [cameras](QSqlQuery *query) {
        CameraRow &row = (*cameras)[query->value(0).toString()];
        int column = 1;
        row.runs = query->value(column++).toLongLong();
        row.lastBeginMs = query->value(column++).toLongLong();
        row.lastRun = Connection::idOf(query->value(column++));
        row.lastOutcome = query->value(column++).toString();
        const QVariant firstMs = query->value(column++);
        for (QString *text : {&row.cohort.day, &row.cohort.station, &row.cohort.batch, &row.cohort.firmware}) {
            *text = query->value(column++).toString();
        }
        row.first = judgementOf(firstMs, query->value(column++));
        const QVariant lastMs = query->value(column++);
        row.last = judgementOf(lastMs, query->value(column));
    });
}

bool Store::writeCameras(const QStringList &macs, const QHash<QString, CameraRow> &cameras)
{
    static const QString into = QStringLiteral("camera (mac, %1)").arg(cameraColumns().join(QStringLiteral(", ")));
    static const QString tail = [] {
        QStringList sets;
        for (const QString &column : cameraColumns()) {
            sets.append(QStringLiteral("%1 = excluded.%1").arg(column));
        }
        return QStringLiteral(" ON CONFLICT (mac) DO UPDATE SET ") + sets.join(QStringLiteral(", "));
    }();
    return m_connection.insertRows(
        into, 1 + static_cast<int>(cameraColumns().size()), tail, macs,
        [this, &cameras](RowValues *values, const QString &mac) {
            const CameraRow row = cameras.value(mac);
            *values << mac << row.runs << row.lastBeginMs << m_connection.idValue(row.lastRun) << row.lastOutcome
                    << (row.first ? QVariant(row.first->beginMs) : QVariant(QVariant::LongLong));
            addKey(values, row.cohort);
            *values << (row.first ? QVariant(row.first->passed ? 1 : 0) : QVariant(QVariant::Int))
                    << (row.last ? QVariant(row.last->beginMs) : QVariant(QVariant::LongLong))
                    << (row.last ? QVariant(row.last->passed ? 1 : 0) : QVariant(QVariant::Int));
        });
}

bool Store::writeTallies(const Tallies &tallies)
{
    static const QStringList sums = {
        QStringLiteral("runs"),    QStringLiteral("passed"),       QStringLiteral("failed"),
        QStringLiteral("stopped"), QStringLiteral("error"),        QStringLiteral("duration_ms"),
        QStringLiteral("cameras"), QStringLiteral("first_passed"), QStringLiteral("final_passed")};
    static const QString into =
        QStringLiteral("tally (day, station, batch, firmware, %1)").arg(sums.join(QStringLiteral(", ")));
    static const QString tail = QStringLiteral(" ON CONFLICT (day, station, batch, firmware) DO UPDATE SET ") +
                                sumsOf(QStringLiteral("tally"), sums);
    constexpr int keyColumns = 4;
    if (!m_connection.insertRows(into, keyColumns + static_cast<int>(sums.size()), tail, tallies.sums(),
                                 [](RowValues *values, const std::pair<const TallyKey, TallySums> &row) {
                                     addKey(values, row.first);
                                     for (const qint64 sum :
                                          {row.second.runs, row.second.passed, row.second.failed, row.second.stopped,
                                           row.second.error, row.second.durationMs, row.second.cameras,
                                           row.second.firstPassed, row.second.finalPassed}) {
                                         *values << sum;
                                     }
                                 })) {
        return false;
    }
    static const QStringList itemSums = {QStringLiteral("ran"), QStringLiteral("failed"), QStringLiteral("warned")};
    static const QString itemInto =
        QStringLiteral("item_tally (day, station, batch, firmware, item, %1)").arg(itemSums.join(QStringLiteral(", ")));
    static const QString itemTail =
        QStringLiteral(" ON CONFLICT (day, station, batch, firmware, item) DO UPDATE SET ") +
        sumsOf(QStringLiteral("item_tally"), itemSums);
    struct ItemRow
    {
        const TallyKey *key;
        const QString *item;
        const ItemSums *sums;
    };
    QVector<ItemRow> rows;
    for (const auto &[key, items] : tallies.itemSums()) {
        for (const auto &[item, sumsOfItem] : items) {
            rows.append({&key, &item, &sumsOfItem});
        }
    }
    return m_connection.insertRows(itemInto, keyColumns + 1 + static_cast<int>(itemSums.size()), itemTail, rows,
                                   [](RowValues *values, const ItemRow &row) {
                                       addKey(values, *row.key);
                                       *values << orEmpty(*row.item) << row.sums->ran << row.sums->failed
                                               << row.sums->warned;
                                   });
}

QByteArray Store::readJson(const QUuid &run)
{
    m_connection.fail(StoreError{});
    QSqlQuery *query = m_connection.prepared(QStringLiteral("SELECT body FROM record WHERE run = ?"));
    if (query == nullptr) {
        return {};
    }
    query->addBindValue(m_connection.idValue(run));
    if (!m_connection.run(query) || !query->next()) {
        return {};
    }
    QByteArray json = unpackRecord(query->value(0).toByteArray());
    query->finish();
    if (json.isEmpty()) {
        m_connection.fail(StoreError::Kind::Damaged, run.toString(QUuid::WithoutBraces));
    }
    return json;
}

bool Store::givesBack(const QVector<RunRows> &runs)
{
    for (const RunRows &run : runs) {
        if (readJson(run.id).isEmpty()) {
            return error().isError() ? false : m_connection.fail(StoreError::Kind::Damaged);
        }
    }
    return true;
}

std::optional<RunRecord> Store::read(const QUuid &run)
{
    const QByteArray json = readJson(run);
    if (json.isEmpty()) {
        return {};
    }
    QString reason;
    std::optional<RunRecord> record = fromJson(json, &reason);
    if (!record) {
        m_connection.fail(StoreError::Kind::Damaged, reason);
    }
    return record;
}

std::optional<CameraRow> Store::camera(const QString &mac)
{
    const QString key = columnMac(mac);
    QHash<QString, CameraRow> cameras;
    if (!readCameras({key}, Purpose::Look, &cameras)) {
        return {};
    }
    return cameras.value(key);
}

std::optional<QList<QUuid>> Store::unsent(int most)
{
    QSqlQuery *query = m_connection.prepared(QStringLiteral("SELECT run FROM unsent ORDER BY begin_ms, run LIMIT ?"));
    if (query == nullptr) {
        return {};
    }
    query->addBindValue(most);
    if (!m_connection.run(query)) {
        return {};
    }
    QList<QUuid> runs;
    while (query->next()) {
        runs.append(Connection::idOf(query->value(0)));
    }
    query->finish();
    return runs;
}

bool Store::setSent(const QList<QUuid> &runs, const QDateTime &time)
{
    return m_connection.transaction(
        [&] { return deleteUnsent(runs) && setState(lastSent, timeValue(time)) && setState(lastError, QString()); });
}

bool Store::deleteUnsent(const QList<QUuid> &runs)
{
    QSqlQuery *query = m_connection.prepared(
        QStringLiteral("DELETE FROM unsent WHERE run = ? AND begin_ms = (SELECT begin_ms FROM run WHERE id = ?)"));
    if (query == nullptr) {
        return false;
    }
    return std::all_of(runs.begin(), runs.end(), [&](const QUuid &run) {
        query->addBindValue(m_connection.idValue(run));
        query->addBindValue(m_connection.idValue(run));
        return m_connection.run(query);
    });
}

bool Store::setForwardError(const QString &text, const QDateTime &time)
{
    return m_connection.transaction(
        [&] { return setState(lastError, text) && setState(lastErrorTime, timeValue(time)); });
}

bool Store::setState(const char *name, const QString &value)
{
    QSqlQuery *query = m_connection.prepared(QStringLiteral(
        "INSERT INTO state (name, value) VALUES (?, ?) ON CONFLICT (name) DO UPDATE SET value = excluded.value"));
    if (query == nullptr) {
        return false;
    }
    query->addBindValue(QString::fromLatin1(name));
    query->addBindValue(orEmpty(value));
    return m_connection.run(query);
}

std::optional<ForwardState> Store::forwardState()
{
    ForwardState state;
    QSqlQuery query(m_connection.database());
    if (!query.exec(QStringLiteral("SELECT count(*) FROM unsent")) || !query.next()) {
        m_connection.fail(storeError(query.lastError(), m_connection.address().name));
        return {};
    }
    // Version 1.0.3 queued what was imported into a server.
    state.queued = m_connection.isServer() ? 0 : query.value(0).toLongLong();
    if (!query.exec(QStringLiteral("SELECT name, value FROM state"))) {
        m_connection.fail(storeError(query.lastError(), m_connection.address().name));
        return {};
    }
    while (query.next()) {
        const QString name = query.value(0).toString();
        const QString value = query.value(1).toString();
        if (name == QLatin1String(lastSent)) {
            state.lastSent = QDateTime::fromString(value, Qt::ISODateWithMs);
        } else if (name == QLatin1String(lastErrorTime)) {
            state.lastErrorTime = QDateTime::fromString(value, Qt::ISODateWithMs);
        } else if (name == QLatin1String(lastError)) {
            state.lastError = value;
        }
    }
    return state;
}
