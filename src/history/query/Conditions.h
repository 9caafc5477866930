#pragma once

#include "history/store/Connection.h"

#include <QList>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>

/// What rows have to fulfil: texts of SQL that are ours, and values that are bound to them.
class Conditions
{
public:
    /// `sql` has a "?" for each of `values`.
    void add(const QString &sql, const QVariantList &values)
    {
        m_texts.append(sql);
        m_values += values;
    }

    /// "column = ?", unless `text` is empty.
    void addText(const QString &column, const QString &text)
    {
        if (!text.isEmpty()) {
            add(column + QStringLiteral(" = ?"), {text});
        }
    }

    /// " WHERE ... AND ...", empty without any.
    QString where() const
    {
        return m_texts.isEmpty() ? QString() : QStringLiteral(" WHERE ") + m_texts.join(QStringLiteral(" AND "));
    }

    /// The query `select` + `where` + `tail`, executed. Null if the engine refuses it: the reason is in `connection`.
    QSqlQuery *run(Connection *connection, const QString &select, const QString &tail = {}) const
    {
        QSqlQuery *query = connection->prepared(select + where() + tail);
        if (query == nullptr) {
            return nullptr;
        }
        for (const QVariant &value : m_values) {
            query->addBindValue(value);
        }
        return connection->run(query) ? query : nullptr;
    }

private:
    QStringList m_texts;
    QVariantList m_values;
};
