#pragma once

#include "detector/checks/itemWalk.h"
#include "detector/checks/judgeMeasurements.h"
#include "detector/store/CheckItemLog.h"
#include "detector/store/checkLog.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/requestTally.h"
#include "detector/store/verdict.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <QList>
#include <QObject>
#include <QString>

/// Runs one item: writes verdict, texts and measurements into a fresh record.
using ItemCheck = void (*)(CheckItemLog &item);

/// One item of a component: its number, what the operator reads while it runs, and its routine.
/// An item without routine is only named: it leaves no record and cannot fail.
struct CheckItem
{
    int index;        ///< an `itemId` of the component
    const char *name; ///< for translation in the context "QObject"
    ItemCheck check;
};

/// What the items of one component left behind.
struct ComponentResult
{
    checkLog record;
    QString text;                  ///< the last item's verdict text
    int verdict = verdict::failed; ///< ok, `verdictIfNotAllPassed`, or notTested when the run was cut short meanwhile
};

/// Runs the requested items of one component and records them. `check(row, item)` runs one item into its fresh record;
/// `isTest` tells the rows that are more than a name. An item that does not pass while the run is cut short is not
/// recorded: it may just have had no time, and nobody could tell that from a camera that failed.
template <class Row, std::size_t size, class IsTest, class Check>
ComponentResult recordItems(int component, int verdictIfNotAllPassed, const std::array<Row, size> &table,
                            const QList<int> &items, IsTest isTest, Check check)
{
    ComponentResult result;
    result.record.component = component;
    bool allPassed = true;
    bool cutShort = false;
    const bool complete = walkItems(component, table, items, [&](const Row &row) {
        if (!isTest(row)) {
            result.text.clear();
            return;
        }
        CheckItemLog item;
        item.number = row.index;
        item.name = QObject::tr(row.name);
        const auto begin = std::chrono::steady_clock::now();
        const RequestTally before = requestTally();
        check(row, item);
        if (item.request) {
            item.request->attempts += (requestTally() - before).resent;
        }
        item.duration = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin);
        judgeMeasurements(item);
        if (item.result != verdict::ok && KestDetectorFace::Get()->runIsCutShort()) {
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
        [](const CheckItem &row, CheckItemLog &item) { row.check(item); });
    KestDetectorFace *face = KestDetectorFace::Get();
    face->run.append(result.record);
    emit face->signal_showCheckLog(result.record);
    *verdict = result.verdict;
    return result.text;
}

/// An item by itself, as its named entry point runs it: hands verdict and report out and returns the verdict's text.
inline QString checkItem(ItemCheck check, int *verdict, QString &detail)
{
    CheckItemLog item;
    check(item);
    *verdict = item.result;
    detail = item.detail;
    return item.message;
}
