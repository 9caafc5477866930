#pragma once

#include "history/query/Conditions.h"
#include "history/query/RunFilter.h"

#include <optional>
#include <QSqlQuery>
#include <QString>

class Store;

/// The runs that a filter admits, the latest one first, whatever is asked of them. Its `olderThan` and `limit` are left
/// to each question.
class RunSelection
{
public:
    /// Nothing if the store fails.
    static std::optional<RunSelection> of(Store &store, const RunFilter &filter);

    /// `columns` of those before `olderThan`, executed. Null if the engine refuses it: the reason is in `connection`.
    QSqlQuery *run(Connection *connection, const QString &columns, const std::optional<RunPlace> &olderThan,
                   const QString &tail) const;
    /// Likewise `columns` of the table `run`, of the first `limit` ones; 0 or less: of all.
    QSqlQuery *runRows(Connection *connection, const QString &columns, const std::optional<RunPlace> &olderThan,
                       int limit) const;

    /// Of a `RunPlace`, in its order.
    QString placeColumns() const { return m_time + QStringLiteral(", ") + m_id; }

private:
    RunSelection() = default;

    Conditions before(const std::optional<RunPlace> &olderThan, Connection *connection) const;
    QString order() const;

    Conditions m_conditions;
    QString m_from;
    QString m_time;
    QString m_id;
    bool m_areFew = false; ///< an index finds them, out of their order
};
