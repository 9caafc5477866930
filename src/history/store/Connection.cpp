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

/// A value as an entry of an array in PostgreSQL's notation (its manual, 8.15.6).
QByteArray serverEntry(const QVariant &value)
{
    if (value.isNull()) {
        return "NULL";
    }
    QByteArray text = serverText(value);
    const auto type = value.userType();
    if (type != QMetaType::QByteArray && type != QMetaType::QString) {
        return text;
    }
    text.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + text + '"';
}

/// The values of a column, `first` of each row, as an array.
QString serverArray(const RowValues &values, int first, int columns)
{
    QByteArray array("{");
    for (int i = first; i < values.size(); i += columns) {
        if (i > first) {
            array += ',';
        }
        array += serverEntry(values.at(i));
    }
    return QString::fromUtf8(array + '}');
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
    const auto known = m_prepared.find(statement);
    if (known != m_prepared.end()) {
        return &known->second;
    }
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (!query.prepare(statement)) {
        fail(storeError(query.lastError(), m_address.name));
        return nullptr;
    }
    return &m_prepared.emplace(statement, query).first->second;
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
    return isServer() ? std::min(left, mostOnServer) : pieceOf(left);
}

QSqlQuery *Connection::insertion(const QString &into, int columns, const QString &tail, const RowValues &values)
{
    const QString insert = QStringLiteral("INSERT INTO ") + into;
    if (!isServer()) {
        const QString row = QLatin1Char('(') + listOf(columns) + QLatin1Char(')');
        QSqlQuery *query = prepared(insert + QStringLiteral(" VALUES ") +
                                    repeated(row, static_cast<int>(values.size()) / columns) + tail);
        if (query != nullptr) {
            for (const QVariant &value : values) {
                query->addBindValue(value);
            }
        }
        return query;
    }
    QStringList arrays;
    for (int column = 0; column < columns; ++column) {
        arrays.append(QStringLiteral("CAST(? AS %1[])").arg(serverType(values.at(column))));
    }
    QSqlQuery *query =
        prepared(insert + QStringLiteral(" SELECT * FROM unnest(%1)").arg(arrays.join(QStringLiteral(", "))) + tail);
    if (query != nullptr) {
        for (int column = 0; column < columns; ++column) {
            query->addBindValue(serverArray(values, column, columns));
        }
    }
    return query;
}

int Connection::pieceOf(int left)
{
    constexpr int most = 64;
    int piece = most;
    while (piece > left) {
        piece /= 2;
    }
    return piece;
}

QString Connection::repeated(const QString &text, int count)
{
    QString list = text;
    for (int i = 1; i < count; ++i) {
        list += QLatin1Char(',') + text;
    }
    return list;
}
