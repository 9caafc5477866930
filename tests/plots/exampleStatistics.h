#pragma once

#include "history/query/Distribution.h"
#include "history/query/Statistics.h"

// What was counted on two days of a line.

inline TallySums sums(qint64 runs, qint64 cameras, qint64 first, qint64 last, qint64 durationMs = 0)
{
    TallySums all;
    all.runs = runs;
    all.passed = last;
    all.failed = runs - last;
    all.cameras = cameras;
    all.firstPassed = first;
    all.finalPassed = last;
    all.durationMs = durationMs;
    return all;
}

inline Statistics twoDays()
{
    Statistics statistics;
    statistics.byDay = {{QStringLiteral("2026-11-20"), sums(10, 8, 6, 7, 25000)},
                        {QStringLiteral("2026-11-21"), sums(5, 4, 2, 4, 5000)}};
    statistics.items = {{QStringLiteral("battery.info"), {15, 4, 1}}, {QStringLiteral("lens.link"), {12, 2, 0}}};
    return statistics;
}

inline Distribution voltages()
{
    Distribution distribution;
    distribution.item = QStringLiteral("battery.info");
    distribution.name = QStringLiteral("battery.voltage");
    distribution.unit = QStringLiteral("V");
    distribution.limit = {3.6, 4.35, {}};
    distribution.outside = 1;
    describe({3.8, 3.8, 4.0, 4.4}, &distribution);
    return distribution;
}
