#pragma once

#include "record/RunRecord.h"

/// Run `number` of `of` that a line of three stations made within a year up to 2026-11-20: the same numbers give the
/// same run, always. Each camera has ten runs on the average; one run of twenty fails. All items that have a test are
/// run (24 with the log collection), and six measurements have limits.
RunRecord madeRun(qint64 number, qint64 of);
