#include "historyui/window/tableCopy.h"

#include <algorithm>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QTableWidget>

namespace {
QString rowText(const QAbstractItemModel &model, const QModelIndex &first)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(first.parent()); ++column) {
        QString text = first.sibling(first.row(), column).data().toString();
        cells.append(text.replace(QLatin1Char('\t'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    }
    return cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
}

void copyRows(const QAbstractItemView *view)
{
    QModelIndexList rows = view->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QString text;
    for (const QModelIndex &row : qAsConst(rows)) {
        text += rowText(*view->model(), row);
    }
    if (!text.isEmpty()) {
        QApplication::clipboard()->setText(text);
    }
}
} // namespace

void copyRowsOnDemand(QAbstractItemView *view)
{
    auto *copy = new QAction(QApplication::translate("History", "Copy"), view);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, view, [view] { copyRows(view); });
    view->addAction(copy);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

QTableWidget *makeTable(const QString &objectName, const QString &accessibleName)
{
    auto *table = new QTableWidget;
    table->setObjectName(objectName);
    table->setAccessibleName(accessibleName);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    constexpr int margin = 6;
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + margin);
    copyRowsOnDemand(table);
    return table;
}

void fillTable(QTableWidget *table, const QStringList &columns, const QList<QStringList> &rows)
{
    table->clear();
    table->setColumnCount(static_cast<int>(columns.size()));
    table->setHorizontalHeaderLabels(columns);
    table->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < rows.at(row).size(); ++column) {
            table->setItem(row, column, new QTableWidgetItem(rows.at(row).at(column)));
        }
    }
    // As wide as what is seen asks for; of thousands of rows, the first ones tell.
    table->horizontalHeader()->setResizeContentsPrecision(50);
    table->resizeColumnsToContents();
}
