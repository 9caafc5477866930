#pragma once

#include <QByteArray>
#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QVariant>
#include <QVector>

struct pg_conn;
struct pg_result;

/// Appends `text` to `to`, with an escape before each character that would end it.
using ServerEscape = void (*)(const QByteArray &text, QByteArray *to);

/// Appends a value as PostgreSQL reads it from a text, in UTF-8; what may hold any character by `escape`.
void addServerText(const QVariant &value, QByteArray *text, ServerEscape escape);

/// Rows on their way into a table of a PostgreSQL server, by COPY in its text format (PostgreSQL's manual, "COPY"): a
/// server takes them in several times as fast as in a statement. Within a transaction, over a connection of Qt's of
/// which no result is being read, and in its thread. What goes wrong stands in `error`; then the rows are given up, and
/// the transaction has to be.
class ServerCopy
{
public:
    /// `into`: "table (column, ...)".
    ServerCopy(const QSqlDatabase &database, const QString &into);
    ServerCopy(const ServerCopy &) = delete;
    ServerCopy &operator=(const ServerCopy &) = delete;
    /// Gives up what has not ended.
    ~ServerCopy();

    /// A row takes as many values as there are columns.
    bool put(const QVector<QVariant> &values, int columns);
    bool end();

    const QSqlError &error() const { return m_error; }

private:
    struct Library;

    bool send();
    /// Reads what the server answers until it waits for the next statement.
    void takeAnswers();
    void fail(const pg_result *result);

    const Library &m_library;
    pg_conn *m_connection = nullptr; ///< Qt's
    bool m_isOpen = false;           ///< the server waits for rows
    QByteArray m_text;
    QSqlError m_error;
};
