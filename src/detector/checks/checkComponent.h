#pragma once

#include "detector/checks/itemWalk.h"
#include "detector/store/CheckItemLog.h"
#include "detector/store/checkLog.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/verdict.h"

#include <array>
#include <cstddef>
#include <QList>
#include <QString>

/// One item of a component: where it stands in the run plan, what the operator reads while it runs, and its routine.
/// An item without routine is only named: it leaves no record and cannot fail.
struct CheckItem
{
    int index;
    const char *name; ///< for translation in the context "QObject"
    QString (*check)(int *verdict, QString &detail);
};

/// What the items of one component left behind.
struct ComponentResult
{
    checkLog record;
    QString text;                  ///< the last item's verdict text
    int verdict = verdict::failed; ///< ok, `verdictIfNotAllPassed`, or notTested when the program closed meanwhile
};

/// Runs the requested items of one component and records them. `check(row, &verdict, detail)` runs one item; `isTest`
/// tells the rows that are more than a name. An item that does not pass while the program begins to close is not
/// recorded: it may just have had no time, and nobody could tell that from a camera that failed.
template <class Row, std::size_t size, class IsTest, class Check>
ComponentResult recordItems(int component, int verdictIfNotAllPassed, const std::array<Row, size> &table,
                            const QList<int> &items, IsTest isTest, Check check)
{
    ComponentResult result;
    result.record.component = component;
    bool allPassed = true;
    bool cutShort = false;
    const bool complete = walkItems(table, items, [&](const Row &row) {
        if (!isTest(row)) {
            result.text.clear();
            return;
        }
        CheckItemLog item;
        item.message = check(row, &item.result, item.detail);
        if (item.result != verdict::ok && KestDetectorFace::Get()->stopRequested()) {
            cutShort = true;
            return;
        }
        allPassed = allPassed && item.result == verdict::ok;
        result.text = item.message;
        result.record.itemLogs.append(item);
    });
    if (complete && !cutShort) {
        result.verdict = allPassed ? verdict::ok : verdictIfNotAllPassed;
    } else {
        result.verdict = verdict::notTested;
    }
    return result;
}

/// A component whose record goes into the event table and into the detection log. Returns the last item's text.
template <std::size_t size>
QString checkComponent(int component, int verdictIfNotAllPassed, const std::array<CheckItem, size> &table, int *verdict,
                       const QList<int> &items)
{
    const ComponentResult result = recordItems(
        component, verdictIfNotAllPassed, table, items, [](const CheckItem &item) { return item.check != nullptr; },
        [](const CheckItem &item, int *itemVerdict, QString &detail) { return item.check(itemVerdict, detail); });
    KestDetectorFace *face = KestDetectorFace::Get();
    face->run.append(result.record);
    emit face->signal_showCheckLog(result.record);
    *verdict = result.verdict;
    return result.text;
}
