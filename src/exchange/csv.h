#pragma once

#include "record/RunRecord.h"

#include <QByteArray>
#include <QStringList>

// Comma-separated values after RFC 4180, so that spreadsheets open them with every text intact: UTF-8 with a byte order
// mark, lines that end in CR LF, cells in quotes where they need them. Pure functions, for any thread.

/// What every such file begins with.
QByteArray csvBegin();

/// A text as a cell. A spreadsheet would take a text that begins with = + - @ (also in full width), a tab or a line
/// break for a formula: it gets an apostrophe in front, unless it is a number. What is no text becomes U+FFFD.
QByteArray csvCell(const QString &text);

/// A line with its end.
QByteArray csvLine(const QStringList &texts);

/// The heading of `csvLines`, with the names of the columns.
QByteArray csvHeading();

/// A run as lines: one for each measurement, and one for an item without any; one for a run without items. Every line
/// says whose it is, so that a spreadsheet can sort and filter.
QByteArray csvLines(const RunRecord &run);
