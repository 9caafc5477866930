#pragma once

#include "detector/store/checkHelpers.h"
#include "detector/store/KestDetectorFace.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <QDebug>
#include <QList>
#include <QObject>

/// Walks the requested items of one component: names each item that `table` knows, has `run` deal with its row, and
/// reports the progress, 0 first and then a step for each item. An item that the table does not know is only told in
/// the debug output. Rows have an `index` (an `itemId`) and a `name` (a text for translation in the context "QObject").
///
/// False when the run was cut short before all items were through.
template <class Row, std::size_t size, class Run>
bool walkItems(int component, const std::array<Row, size> &table, const QList<int> &items, Run run)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    emit face->signal_showCurrentPersent(0);
    for (int i = 0; i < items.size(); ++i) {
        if (face->runIsCutShort()) {
            return false;
        }
        const int index = items.at(i);
        const auto row =
            std::find_if(table.begin(), table.end(), [index](const Row &entry) { return entry.index == index; });
        if (row != table.end()) {
            emit face->signal_showCurrentCheckItem(QObject::tr(row->name));
            run(*row);
        } else {
            qWarning().noquote() << "Unknown item" << index << "of the component" << getComponent(component);
        }
        emit face->signal_showCurrentPersent(static_cast<int>((i + 1) * 100 / items.size()));
    }
    return true;
}

/// The items that a table knows, in its order.
template <class Row, std::size_t size>
QList<int> itemsOf(const std::array<Row, size> &table)
{
    QList<int> items;
    for (const Row &row : table) {
        items.append(row.index);
    }
    return items;
}
