#include "ui/window/EventLog.h"

#include "detector/store/checkHelpers.h"
#include "detector/store/verdict.h"
#include "ui/widgets/LogTextDelegate.h"
#include "ui/window/verdictLook.h"

#include <QHeaderView>
#include <QIcon>
#include <QScrollBar>
#include <QTableWidget>

namespace {
QTableWidgetItem *cell(const QString &text, bool readOnly)
{
    auto *item = new QTableWidgetItem(text);
    item->setTextAlignment(static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
    if (readOnly) {
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    }
    return item;
}
} // namespace

EventLog::EventLog(QTableWidget *table) : QObject(table), m_table(table)
{
    table->setRowCount(0);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->setItemDelegate(new LogTextDelegate(table));
    table->setTabKeyNavigation(false); // the keyboard gets out again; the arrow keys walk the cells
}

void EventLog::append(const checkLog &log)
{
    const QScrollBar *scrollBar = m_table->verticalScrollBar();
    const bool followed = scrollBar->value() >= m_followedTo; // nobody has scrolled up

    // A list of our own: the runner's thread made this one, and taking a share of it also tells the thread sanitizer,
    // which does not see how Qt hands a record over, that the items were written before they are read here.
    const QList<CheckItemLog> items = log.itemLogs;

    // All rows at once: every insertion makes the view lay out the whole table anew.
    int row = m_table->rowCount();
    m_table->setRowCount(static_cast<int>(row + 1 + items.size()));

    QTableWidgetItem *heading = cell(getComponent(log.component), true);
    m_table->setItem(row, 0, heading);
    QTableWidgetItem *newestText = heading; // the rows of the log collection hold none
    for (const CheckItemLog &item : items) {
        ++row;
        m_table->setItem(row, 1, cell(item.message, m_readOnly));
        m_table->setItem(row, 2, cell(item.detail, m_readOnly));
        markRow(row, item.result);
        if (!item.message.isEmpty() || !item.detail.isEmpty()) {
            newestText = m_table->item(row, 1);
        }
        if (LogTextDelegate::hasSeveralLines(item.message) || LogTextDelegate::hasSeveralLines(item.detail)) {
            m_table->resizeRowToContents(row);
        }
    }
    if (followed) {
        m_table->scrollToBottom(); // also lays out the new rows
        m_table->scrollToItem(newestText, QAbstractItemView::PositionAtBottom);
        m_followedTo = scrollBar->value();
    }
}

void EventLog::markRow(int row, int verdict)
{
    if (verdict != verdict::failed && verdict != verdict::warning) {
        return;
    }
    std::optional<int> &first = verdict == verdict::failed ? m_firstFailed : m_firstWarning;
    first = first.value_or(row);
    const VerdictLook &look = lookOf(verdict);
    auto *header = new QTableWidgetItem(QIcon(QLatin1String(look.picture)), QString::number(row + 1));
    header->setToolTip(verdictState(look));
    header->setData(Qt::AccessibleDescriptionRole, verdictState(look));
    m_table->setVerticalHeaderItem(row, header);
}

void EventLog::clear()
{
    m_table->setRowCount(0);
    m_followedTo = 0;
    m_firstFailed.reset();
    m_firstWarning.reset();
}

void EventLog::showFirstFailure()
{
    if (const std::optional<int> row = m_firstFailed ? m_firstFailed : m_firstWarning) {
        m_table->scrollToItem(m_table->item(*row, 1), QAbstractItemView::PositionAtCenter);
    }
}
