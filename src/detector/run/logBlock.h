#pragma once

#include "detector/store/checkLog.h"

#include <QString>

/// One component's record as text, as it stands in DetectorLog.txt and on an unattended run's standard output: its
/// name, the texts and reports of its items, an empty line.
QString logBlock(const checkLog &log);
