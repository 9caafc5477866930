#pragma once

#include "record/RunRecord.h"

#include <QString>

/// Run `number` of a line that tests a camera a minute from 2026-11-02 08:00 UTC on: the cameras 60:60:1F:00:00:00,
/// ...:01 and so on in turn, `cameras` of them, with the serial numbers KC000000, KC000001, ... Every fifth run fails
/// in battery.info, with a voltage of 4.4 V where others have 3.80 to 3.89 V and 3.6 to 4.35 V are allowed; every 50th
/// was stopped. Stations 左线 and 右线 in turn, batch A of the first 100 runs and B of the others.
RunRecord runOfLine(int number, int cameras = 40);

/// Puts the runs `from` to `to` - 1 of the line into the store at `path`, which is made where there is none. An error
/// text, or an empty one.
QString storeLine(const QString &path, int from, int to, int cameras = 40);
