#pragma once

#include "detector/store/checkLog.h"

#include <optional>
#include <QObject>

class QTableWidget;

/// Fills the window's table of events: a heading row for each component, below it a row for each of its items. Failed
/// items and warnings carry an icon in their row's header. Belongs to the table; GUI thread only.
class EventLog : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(EventLog)

public:
    explicit EventLog(QTableWidget *table);

    /// Whether the texts of rows added from now on can be edited; at first they can.
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }
    /// The view follows the newest text, unless somebody has scrolled up.
    void append(const checkLog &log);
    void clear();
    /// Scrolls to the first failed item, or to the first warning where none has failed.
    void showFirstFailure();

private:
    void markRow(int row, int verdict);

    QTableWidget *const m_table;
    bool m_readOnly = false;
    int m_followedTo = 0;             ///< the scroll position after the view last followed the newest row
    std::optional<int> m_firstFailed; ///< row
    std::optional<int> m_firstWarning;
};
