#pragma once

#include "record/RunRecord.h"

#include <QByteArray>
#include <QList>

/// Runs' records as one JUnit report, UTF-8: for each run a test suite "run" whose one case is the outcome, and a test
/// suite for each component with a case for each item that was tested. Keeps to what the two schemas that are in common
/// use accept both, see docs/record.md. What XML cannot carry becomes U+FFFD.
QByteArray toJunit(const QList<RunRecord> &runs);
QByteArray toJunit(const RunRecord &run);
