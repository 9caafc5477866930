#include "history/store/ServerCopy.h"

#include <array>
#include <charconv>
#include <libpq-fe.h>
#include <QLibrary>
#include <QSqlDriver>
#include <QUuid>

namespace {
/// Of rows, until they go to the library.
constexpr int pieceSize = 64 * 1024;

/// How a byte is written that would end a value, a row or an escape; 0: as it is.
char escapeOf(char c)
{
    switch (c) {
    case '\\':
        return '\\';
    case '\t':
        return 't';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    default:
        return 0;
    }
}

/// The shortest text that is read as this number.
template <class Number>
void addNumber(Number number, QByteArray *text)
{
    constexpr std::size_t longest = 32;
    std::array<char, longest> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    text->append(digits.data(), static_cast<int>(end - digits.data()));
}

void addEscaped(const QByteArray &text, QByteArray *row)
{
    const char *begin = text.begin();
    const char *const end = text.end();
    for (const char *at = begin; at != end; ++at) {
        if (const char escape = escapeOf(*at)) {
            row->append(begin, static_cast<int>(at - begin));
            row->append('\\').append(escape);
            begin = at + 1;
        }
    }
    row->append(begin, static_cast<int>(end - begin));
}
} // namespace

void addServerText(const QVariant &value, QByteArray *text, ServerEscape escape)
{
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        addNumber(value.toLongLong(), text);
        break;
    case QMetaType::Double:
        addNumber(value.toDouble(), text);
        break;
    case QMetaType::QByteArray:
        escape("\\x" + value.toByteArray().toHex(), text);
        break;
    case QMetaType::QUuid:
        text->append(value.toUuid().toByteArray(QUuid::WithoutBraces));
        break;
    default:
        escape(value.toString().toUtf8(), text);
        break;
    }
}

/// What is used of libpq, which Qt's driver has loaded: who never asks a server never loads it.
struct ServerCopy::Library
{
    Library() : library(QStringLiteral("pq"), version)
    {
        resolve("PQexec", &exec);
        resolve("PQputCopyData", &putCopyData);
        resolve("PQputCopyEnd", &putCopyEnd);
        resolve("PQgetResult", &getResult);
        resolve("PQresultStatus", &resultStatus);
        resolve("PQresultErrorField", &resultErrorField);
        resolve("PQstatus", &status);
        resolve("PQerrorMessage", &errorMessage);
        resolve("PQclear", &clear);
    }

    static const Library &loaded()
    {
        static const Library only;
        return only;
    }

    template <class Function>
    void resolve(const char *name, Function **function)
    {
        *function = reinterpret_cast<Function *>(library.resolve(name));
        isComplete = isComplete && *function != nullptr;
    }

    static constexpr int version = 5; ///< of its interface, since 2006

    QLibrary library;
    bool isComplete = true;
    decltype(PQexec) *exec = nullptr;
    decltype(PQputCopyData) *putCopyData = nullptr;
    decltype(PQputCopyEnd) *putCopyEnd = nullptr;
    decltype(PQgetResult) *getResult = nullptr;
    decltype(PQresultStatus) *resultStatus = nullptr;
    decltype(PQresultErrorField) *resultErrorField = nullptr;
    decltype(PQstatus) *status = nullptr;
    decltype(PQerrorMessage) *errorMessage = nullptr;
    decltype(PQclear) *clear = nullptr;
};

ServerCopy::ServerCopy(const QSqlDatabase &database, const QString &into) : m_library(Library::loaded())
{
    const QVariant handle = database.driver()->handle();
    const auto isType = [&handle](const char *name) { return qstrcmp(handle.typeName(), name) == 0; };
    if (!m_library.isComplete || !(isType("PGconn*") || isType("pg_conn*"))) { // as Qt 5 and as Qt 6 name it
        const QString reason =
            m_library.isComplete ? QString::fromLatin1(handle.typeName()) : m_library.library.errorString();
        m_error = QSqlError(reason, QString(), QSqlError::UnknownError);
        return;
    }
    m_connection = *static_cast<PGconn *const *>(handle.constData());
    const QByteArray statement = "COPY " + into.toUtf8() + " FROM STDIN";
    pg_result *result = m_library.exec(m_connection, statement.constData());
    m_isOpen = m_library.resultStatus(result) == PGRES_COPY_IN;
    if (!m_isOpen) {
        fail(result);
    }
    m_library.clear(result);
}

ServerCopy::~ServerCopy()
{
    if (m_isOpen) {
        m_library.putCopyEnd(m_connection, "given up");
        takeAnswers();
    }
}

bool ServerCopy::put(const QVector<QVariant> &values, int columns)
{
    int column = 0;
    for (const QVariant &value : values) {
        if (value.isNull()) {
            m_text += "\\N";
        } else {
            addServerText(value, &m_text, addEscaped);
        }
        ++column;
        m_text += column == columns ? '\n' : '\t';
        column %= columns;
    }
    return m_text.size() < pieceSize || send();
}

bool ServerCopy::end()
{
    if (!send()) {
        return false;
    }
    m_isOpen = false;
    if (m_library.putCopyEnd(m_connection, nullptr) != 1) {
        fail(nullptr);
    }
    takeAnswers();
    return m_error.type() == QSqlError::NoError;
}

bool ServerCopy::send()
{
    if (m_isOpen && m_library.putCopyData(m_connection, m_text.constData(), static_cast<int>(m_text.size())) != 1) {
        fail(nullptr);
    }
    m_text.resize(0); // keeps its room
    return m_error.type() == QSqlError::NoError;
}

void ServerCopy::takeAnswers()
{
    while (pg_result *result = m_library.getResult(m_connection)) {
        const ExecStatusType status = m_library.resultStatus(result);
        if (status != PGRES_COMMAND_OK) {
            fail(result);
        }
        m_library.clear(result);
        if (status == PGRES_COPY_IN) {
            return; // the end could not be told: it would say so for ever
        }
    }
}

void ServerCopy::fail(const pg_result *result)
{
    // As Qt's driver tells an error.
    QString text = QString::fromUtf8(m_library.errorMessage(m_connection));
    const QString code =
        result == nullptr ? QString() : QString::fromLatin1(m_library.resultErrorField(result, PG_DIAG_SQLSTATE));
    if (!code.isEmpty()) {
        text += QStringLiteral("(%1)").arg(code);
    }
    const bool isGone = m_library.status(m_connection) == CONNECTION_BAD;
    m_error =
        QSqlError(QStringLiteral("COPY"), text, isGone ? QSqlError::ConnectionError : QSqlError::StatementError, code);
}
