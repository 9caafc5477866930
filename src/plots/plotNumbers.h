#pragma once

#include <optional>
#include <QDateTime>
#include <QString>

// Numbers as people read them on plots, in tables and in reports.

/// "98.4 %", "-" without a value.
QString percentText(const std::optional<double> &share);
/// With as many digits as people want to read.
QString shortNumber(double number);
/// Likewise a bound of a limit; empty without one.
QString boundText(const std::optional<double> &bound);

/// A moment as a place on a scale, by its own clock as tables show it: milliseconds since the beginning of 1970, leap
/// seconds left out.
double momentNumber(const QDateTime &moment);
/// What that clock shows there, as the same time of UTC.
QDateTime clockTime(double momentNumber);
