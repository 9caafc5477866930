#pragma once

#include "record/RunRecord.h"

/// The run that docs/record.md shows: a camera whose battery is charged too high.
RunRecord exampleRecord();

/// `exampleRecord` with `text` wherever a text of the camera, the operator or a check may stand.
RunRecord recordWithText(const QString &text);
