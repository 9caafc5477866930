#pragma once

#include "Story.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// The records that a station has left with --json, one a JSON text, read without the station's own code.

/// The single records of a file of one run or of several.
QList<QByteArray> recordsIn(const QByteArray &json);

/// Every key that docs/record.schema.json wants, and none that it does not know, for all records in one call of a
/// public validator. For each record what is wrong with it, or an empty text.
QStringList schemaProblems(const QList<QByteArray> &records);

/// What the records of a story tell otherwise than its exit code and its verdicts do; an empty text if nothing.
QString recordsProblem(const Story &story, const StoryOutcome &outcome);

/// What is wrong with what lies in the folder of a station's record: parts of files, or of records; an empty text if
/// nothing.
QString partsProblem(const StationProcess &station);
