#pragma once

#include "exampleRecord.h"

/// The example as a run of this camera, so many seconds later.
inline RunRecord runOf(const QString &mac, int seconds, Outcome outcome)
{
    RunRecord run = exampleRecord();
    run.id = QUuid::createUuid();
    run.camera.mac = mac;
    run.begin = run.begin.addSecs(seconds);
    run.end = run.end.addSecs(seconds);
    run.outcome = outcome;
    return run;
}

/// The `number`th of many runs: of every second camera, one of five failed.
inline RunRecord runNumber(int number)
{
    constexpr int camerasWithTwoRuns = 2;
    constexpr int oneOf = 5;
    return runOf(QStringLiteral("60:60:1F:00:%1").arg(number / camerasWithTwoRuns, 4, 16, QLatin1Char('0')), number,
                 number % oneOf == 0 ? Outcome::Failed : Outcome::Passed);
}
