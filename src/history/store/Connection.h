#pragma once

#include "history/address/StoreAddress.h"
#include "history/store/StoreError.h"

#include <chrono>
#include <map>
#include <memory>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
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

    /// `head` ("INSERT INTO run (...)"), what stands for `rows`, `tail` ("ON CONFLICT ..."). `values(values, row)` adds
    /// the `columns` values of a row, in every row of the same types; `take(query)` is called after each piece, for
    /// what the tail returns.
    template <class Rows, class Values, class Take>
    bool insertRows(const QString &head, int columns, const QString &tail, const Rows &rows, Values values, Take take)
    {
        RowValues piece;
        for (auto next = rows.begin(); next != rows.end();) {
            const int count = rowsOf(static_cast<int>(std::distance(next, rows.end())));
            piece.clear();
            for (int i = 0; i < count; ++i, ++next) {
                values(&piece, *next);
            }
            QSqlQuery *query = insertion(head, columns, tail, piece);
            if (query == nullptr || !run(query)) {
                return false;
            }
            take(query);
            query->finish();
        }
        return true;
    }
    template <class Rows, class Values>
    bool insertRows(const QString &head, int columns, const QString &tail, const Rows &rows, Values values)
    {
        return insertRows(head, columns, tail, rows, values, [](QSqlQuery *) {});
    }

    /// An id as the engine binds it, and as it gives it back.
    QVariant idValue(const QUuid &id) const;
    static QUuid idOf(const QVariant &value);

    /// How many of `left` values go into the next statement: a power of two, so that few statements are prepared.
    static int pieceOf(int left);
    /// "?,?,?"
    static QString listOf(int count) { return repeated(QStringLiteral("?"), count); }

private:
    static QString repeated(const QString &text, int count);
    /// How many of `left` rows go into the next statement.
    int rowsOf(int left) const;
    /// With the values bound. Null if the engine refuses it.
    QSqlQuery *insertion(const QString &head, int columns, const QString &tail, const RowValues &values);
    bool commit();
    void rollBack();

    const StoreAddress m_address;
    const Access m_access;
    const std::chrono::milliseconds m_patience;
    const QString m_name; ///< Qt's for the connection
    StoreError m_error;
    std::map<QString, QSqlQuery> m_prepared;
};
