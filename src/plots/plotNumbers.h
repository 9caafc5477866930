#pragma once

#include <optional>
#include <QString>

// Numbers as people read them on plots, in tables and in reports.

/// "98.4 %", "-" without a value.
QString percentText(const std::optional<double> &share);
/// With as many digits as people want to read.
QString shortNumber(double number);
/// Likewise a bound of a limit; empty without one.
QString boundText(const std::optional<double> &bound);
