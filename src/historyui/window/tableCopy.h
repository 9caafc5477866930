#pragma once

#include <QStringList>

class QAbstractItemView;
class QTableWidget;

/// Ctrl+C in `view` puts its selected rows into the clipboard: cells apart by tabs, as spreadsheets take them.
void copyRowsOnDemand(QAbstractItemView *view);

/// Shows `rows` in a table that is only read, under the headings `columns`.
void fillTable(QTableWidget *table, const QStringList &columns, const QList<QStringList> &rows);
/// Likewise, for a table that is never filled otherwise.
QTableWidget *makeTable(const QString &objectName, const QString &accessibleName);
