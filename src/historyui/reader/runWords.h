#pragma once

#include "record/RunRecord.h"

#include <QColor>
#include <QString>
#include <QVariant>

// How the window tells what stands in a record. Texts of a record are data: nothing in them is markup.

QString outcomeText(Outcome outcome);
/// Legible on white and on a selected row alike.
QColor outcomeColour(Outcome outcome);
QString verdictText(Verdict verdict);
QColor verdictColour(Verdict verdict);

/// A tool tip that shows `text` as it is; nothing for an empty one.
QVariant plainToolTip(const QString &text);
