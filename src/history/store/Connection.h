#pragma once

#include "history/address/StoreAddress.h"
#include "history/store/ServerCopy.h"
#include "history/store/StoreError.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariant>
#include <QVector>
#include <utility>

/// Of one or more rows, one row after the other.
using RowValues = QVector<QVariant>;

/// One connection to an engine: for the thread that has opened it. Every call that can fail returns false and leaves
/// the reason in `error`.
class Connection
{
public:
    enum class Access { Read, Write };

    /// `patience`: how long a statement waits for another program that is writing to the same file.
    Connection(StoreAddress address, Access access, std::chrono::milliseconds patience);
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    ~Connection();

    bool open();

    const StoreAddress &address() const { return m_address; }
    bool isServer() const { return m_address.engine == StoreAddress::Engine::PostgreSql; }
    const StoreError &error() const { return m_error; }
    bool fail(const StoreError &error);
    bool fail(StoreError::Kind kind, const QString &detail = {});
    QSqlDatabase database() const;

    bool execute(const QString &statement);
    /// Null if the engine refuses it. Kept, so that a statement is prepared once; none of its rows is being read.
    QSqlQuery *prepared(const QString &statement);
    /// Executes what `prepared` gave, with the values that were bound.
    bool run(QSqlQuery *query);

    /// Runs `work`, which returns false where it has failed, as one transaction: all of it is done, or nothing.
    template <class Work>
    bool transaction(Work work)
    {
        if (!execute(isServer() ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE"))) {
            return false;
        }
        if (work() && commit()) {
            return true;
        }
        rollBack();
        return false;
    }

    /// `into` ("run (begin_ms, ...)"), `tail` ("ON CONFLICT ..."). `values(values, row)` adds the `columns` values of a
    /// row, in every row of the same types; `take(query)` is called after each piece, for what the tail returns.
    template <class Rows, class Values, class Take>
    bool insertRows(const QString &into, int columns, const QString &tail, const Rows &rows, Values values, Take take)
    {
        return inPieces(rows, values, [&](const RowValues &piece) {
            QSqlQuery *query = insertion(into, columns, tail, piece);
            if (query == nullptr || !run(query)) {
                return false;
            }
            take(query);
            query->finish();
            return true;
        });
    }
    template <class Rows, class Values>
    bool insertRows(const QString &into, int columns, const QString &tail, const Rows &rows, Values values)
    {
        return insertRows(into, columns, tail, rows, values, [](QSqlQuery *) {});
    }
    /// Rows that are not there yet, likewise; the quickest way that the engine has.
    template <class Rows, class Values>
    bool insertNewRows(const QString &into, int columns, const Rows &rows, Values values)
    {
        if (!isServer() || rows.isEmpty()) {
            return insertRows(into, columns, {}, rows, values);
        }
        ServerCopy copy(database(), into);
        const bool isDone =
            inPieces(rows, values, [&](const RowValues &piece) { return copy.put(piece, columns); }) && copy.end();
        return isDone || fail(storeError(copy.error(), address().name));
    }

    /// An id as the engine binds it, and as it gives it back.
    QVariant idValue(const QUuid &id) const;
    static QUuid idOf(const QVariant &value);

    /// Reads the rows that `select` ("SELECT ... WHERE name IN (%1) ...") finds for these texts; `take(query)` is
    /// called on each.
    template <class Take>
    bool readRows(const QString &select, const QStringList &texts, Take take)
    {
        const auto value = [](RowValues *values, const QString &text) { *values << text; };
        return inPieces(texts, value, [&](const RowValues &piece) {
            QSqlQuery *query = choice(select, piece);
            if (query == nullptr || !run(query)) {
                return false;
            }
            while (query->next()) {
                take(query);
            }
            query->finish();
            return true;
        });
    }

private:
    using Statement = std::function<QString()>;

    /// Calls `put(values)` with the values of some rows after the others, until it fails.
    template <class Rows, class Values, class Put>
    bool inPieces(const Rows &rows, Values values, Put put)
    {
        RowValues piece;
        for (auto next = rows.begin(); next != rows.end();) {
            const int count = rowsOf(static_cast<int>(std::distance(next, rows.end())));
            piece.clear();
            for (int i = 0; i < count; ++i, ++next) {
                values(&piece, *next);
            }
            if (!put(piece)) {
                return false;
            }
        }
        return true;
    }
    /// How many of `left` rows go into the next statement.
    int rowsOf(int left) const;
    // With the values bound; null if the engine refuses it.
    QSqlQuery *insertion(const QString &into, int columns, const QString &tail, const RowValues &values);
    QSqlQuery *choice(const QString &select, const RowValues &values);
    /// `statement` has a placeholder for each value.
    QSqlQuery *withValues(const QString &key, const RowValues &values, const Statement &statement);
    /// Each column as an array.
    QSqlQuery *withArrays(const QString &statement, const RowValues &values, int columns);
    /// ":0,:1,:2"
    QString placeholders(int first, int count);
    /// `statement` is asked for its text once for each `key`.
    QSqlQuery *prepared(const QString &key, const Statement &statement);
    bool commit();
    void rollBack();

    const StoreAddress m_address;
    const Access m_access;
    const std::chrono::milliseconds m_patience;
    const QString m_name; ///< Qt's for the connection
    StoreError m_error;
    std::map<QString, QSqlQuery> m_prepared;
    QStringList m_names; ///< of placeholders, by number
};
