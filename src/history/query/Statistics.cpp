#include "history/query/Statistics.h"

#include <algorithm>
#include <tuple>

namespace {
std::optional<double> share(qint64 part, qint64 whole)
{
    return whole > 0 ? std::optional<double>(static_cast<double>(part) / static_cast<double>(whole)) : std::nullopt;
}
} // namespace

std::optional<double> firstPassYield(const TallySums &sums)
{
    return share(sums.firstPassed, sums.cameras);
}

std::optional<double> finalYield(const TallySums &sums)
{
    return share(sums.finalPassed, sums.cameras);
}

QList<RunGroup> groupDays(const QList<RunGroup> &days)
{
    constexpr qint64 quarter = 92;
    constexpr qint64 twoYears = 731;
    constexpr qint64 week = 7;
    if (days.isEmpty()) {
        return {};
    }
    const auto dayOf = [](const RunGroup &group) { return QDate::fromString(group.name, Qt::ISODate); };
    const qint64 all = dayOf(days.constFirst()).daysTo(dayOf(days.constLast())) + 1;
    if (all <= quarter) {
        return days;
    }
    const qint64 span = all <= twoYears ? week : 4 * week;
    QList<RunGroup> groups;
    for (const RunGroup &day : days) {
        // The first Julian day was a Monday.
        const QDate begin = QDate::fromJulianDay(dayOf(day).toJulianDay() / span * span);
        const QString name = begin.toString(Qt::ISODate);
        if (groups.isEmpty() || groups.constLast().name != name) {
            groups.append({name, {}});
        }
        add(day.sums, &groups.last().sums);
    }
    return groups;
}

void add(const TallySums &sums, TallySums *to)
{
    to->runs += sums.runs;
    to->passed += sums.passed;
    to->failed += sums.failed;
    to->stopped += sums.stopped;
    to->error += sums.error;
    to->durationMs += sums.durationMs;
    to->cameras += sums.cameras;
    to->firstPassed += sums.firstPassed;
    to->finalPassed += sums.finalPassed;
}

void sortByFailures(QList<ItemGroup> *items)
{
    std::sort(items->begin(), items->end(), [](const ItemGroup &left, const ItemGroup &right) {
        return std::tie(right.sums.failed, right.sums.warned, left.item) <
               std::tie(left.sums.failed, left.sums.warned, right.item);
    });
}
