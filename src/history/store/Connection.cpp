#include "history/store/Connection.h"

#include "history/store/ServerCopy.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace {
QString freshName()
{
    static std::atomic<int> count{0};
    return QStringLiteral("history-%1").arg(++count);
}

/// The first one only has an effect on a file that is still empty.
constexpr std::array writerPragmas = {
    "PRAGMA auto_vacuum = INCREMENTAL",
    "PRAGMA journal_mode = WAL",
    "PRAGMA synchronous = FULL",
    "PRAGMA temp_store = MEMORY",
    "PRAGMA journal_size_limit = 16777216",
};
/// What PostgreSQL calls the type of a value.
QString serverType(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
        return QStringLiteral("INTEGER");
    case QMetaType::LongLong:
        return QStringLiteral("BIGINT");
    case QMetaType::Double:
        return QStringLiteral("DOUBLE PRECISION");
    case QMetaType::QByteArray:
        return QStringLiteral("BYTEA");
    case QMetaType::QUuid:
        return QStringLiteral("UUID");
    default:
        return QStringLiteral("TEXT");
    }
}

/// A value as the next entry of an array in PostgreSQL's notation (its manual, 8.15.6).
void addEntry(const QVariant &value, QByteArray *array)
{
    if (value.isNull()) {
        array->append("NULL");
        return;
    }
    addServerText(value, array, [](const QByteArray &text, QByteArray *to) {
        QByteArray escaped = text;
        escaped.replace('\\', "\\\\").replace('"', "\\\"");
        to->append('"').append(escaped).append('"');
    });
}

/// The values of a column, `first` of each row, as an array.
QString serverArray(const RowValues &values, int first, int columns)
{
    QByteArray array("{");
    for (int i = first; i < values.size(); i += columns) {
        if (i > first) {
            array += ',';
        }
        addEntry(values.at(i), &array);
    }
    return QString::fromUtf8(array + '}');
}

/// What makes rows out of an array for each column; of what types, the first row tells.
QString unnested(const RowValues &values, int columns)
{
    QStringList arrays;
    for (int column = 0; column < columns; ++column) {
        arrays.append(QStringLiteral("CAST(? AS %1[])").arg(serverType(values.at(column))));
    }
    return QStringLiteral("SELECT * FROM unnest(%1)").arg(arrays.join(QStringLiteral(", ")));
}
} // namespace

Connection::Connection(StoreAddress address, Access access, std::chrono::milliseconds patience)
    : m_address(std::move(address)), m_access(access), m_patience(patience), m_name(freshName())
{
}

Connection::~Connection()
{
    m_prepared.clear();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase Connection::database() const
{
    return QSqlDatabase::database(m_name, false);
}

bool Connection::fail(const StoreError &error)
{
    m_error = error;
    return false;
}

bool Connection::fail(StoreError::Kind kind, const QString &detail)
{
    return fail(storeError(kind, m_address.name, detail));
}

bool Connection::open()
{
    QSqlDatabase database =
        QSqlDatabase::addDatabase(isServer() ? QStringLiteral("QPSQL") : QStringLiteral("QSQLITE"), m_name);
    if (!database.isValid()) {
        return fail(StoreError::Kind::Missing, database.lastError().driverText());
    }
    if (isServer()) {
        database.setConnectOptions(m_address.conninfo);
    } else {
        if (m_access == Access::Read && !QFileInfo::exists(m_address.path)) {
            return fail(StoreError::Kind::Missing);
        }
        QDir().mkpath(QFileInfo(m_address.path).absolutePath());
        database.setDatabaseName(m_address.path);
        database.setConnectOptions(
            QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1%2")
                .arg(m_patience.count())
                .arg(m_access == Access::Read ? QStringLiteral(";QSQLITE_OPEN_READONLY") : QString()));
    }
    if (!database.open()) {
        return fail(storeError(database.lastError(), m_address.name));
    }
    if (!isServer() && m_access == Access::Write) {
        for (const char *pragma : writerPragmas) {
            if (!execute(QString::fromLatin1(pragma))) {
                return false;
            }
        }
    }
    return true;
}

bool Connection::execute(const QString &statement)
{
    QSqlQuery query(database());
    return query.exec(statement) || fail(storeError(query.lastError(), m_address.name));
}

QSqlQuery *Connection::prepared(const QString &statement)
{
    return prepared(statement, [&statement] { return statement; });
}

QSqlQuery *Connection::prepared(const QString &key, const Statement &statement)
{
    const auto known = m_prepared.find(key);
    if (known != m_prepared.end()) {
        return &known->second;
    }
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (!query.prepare(statement())) {
        fail(storeError(query.lastError(), m_address.name));
        return nullptr;
    }
    return &m_prepared.emplace(key, query).first->second;
}

bool Connection::run(QSqlQuery *query)
{
    if (query->exec()) {
        return true;
    }
    fail(storeError(query->lastError(), m_address.name));
    query->finish();
    return false;
}

bool Connection::commit()
{
    return execute(QStringLiteral("COMMIT"));
}

void Connection::rollBack()
{
    // What went wrong has been told already; an engine that has rolled back by itself refuses this.
    QSqlQuery(database()).exec(QStringLiteral("ROLLBACK"));
}

QVariant Connection::idValue(const QUuid &id) const
{
    return isServer() ? QVariant(id) : QVariant(id.toRfc4122());
}

QUuid Connection::idOf(const QVariant &value)
{
    return value.type() == QVariant::ByteArray ? QUuid::fromRfc4122(value.toByteArray())
                                               : QUuid::fromString(value.toString());
}

int Connection::rowsOf(int left) const
{
    // A server is told an array for each column, whatever their length: the statement is the same.
    constexpr int mostOnServer = 1000;
    if (isServer()) {
        return std::min(left, mostOnServer);
    }
    // A power of two, so that few statements are prepared.
    constexpr int most = 64;
    int rows = most;
    while (rows > left) {
        rows /= 2;
    }
    return rows;
}

QSqlQuery *Connection::insertion(const QString &into, int columns, const QString &tail, const RowValues &values)
{
    const QString insert = QStringLiteral("INSERT INTO ") + into;
    if (isServer()) {
        return withArrays(insert + QLatin1Char(' ') + unnested(values, columns) + tail, values, columns);
    }
    return withValues(insert + tail, values, [&] {
        QStringList rows;
        for (int first = 0; first < values.size(); first += columns) {
            rows.append(QLatin1Char('(') + placeholders(first, columns) + QLatin1Char(')'));
        }
        return insert + QStringLiteral(" VALUES ") + rows.join(QLatin1Char(',')) + tail;
    });
}

QSqlQuery *Connection::choice(const QString &select, const RowValues &values)
{
    // With a placeholder for each, a server would look at every row of the table, and at every value for each.
    return isServer() ? withArrays(select.arg(unnested(values, 1)), values, 1) : withValues(select, values, [&] {
        return select.arg(placeholders(0, static_cast<int>(values.size())));
    });
}

QSqlQuery *Connection::withValues(const QString &key, const RowValues &values, const Statement &statement)
{
    QSqlQuery *query = prepared(QString::number(values.size()) + QLatin1Char(' ') + key, statement);
    if (query != nullptr) {
        // By name: Qt makes a name for each that has none, every time.
        for (int i = 0; i < values.size(); ++i) {
            query->bindValue(m_names.at(i), values.at(i));
        }
    }
    return query;
}

QSqlQuery *Connection::withArrays(const QString &statement, const RowValues &values, int columns)
{
    QSqlQuery *query = prepared(statement);
    if (query != nullptr) {
        for (int column = 0; column < columns; ++column) {
            query->addBindValue(serverArray(values, column, columns));
        }
    }
    return query;
}

QString Connection::placeholders(int first, int count)
{
    for (int i = static_cast<int>(m_names.size()); i < first + count; ++i) {
        m_names.append(QLatin1Char(':') + QString::number(i));
    }
    return QStringList(m_names.mid(first, count)).join(QLatin1Char(','));
}
