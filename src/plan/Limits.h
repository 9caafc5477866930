#pragma once

#include "plan/settingsSection.h"
#include "record/Limit.h"
#include "record/Measurement.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

// What somebody wants the measurements to be. Pure functions, for any thread.

/// The section [Limits] of the settings: `battery.voltage=3.6..4.35`, `battery.temperature=..45`, `card.total=30000..`,
/// `firmware=1.2.3|1.2.4`. The key is a measurement's name, the numbers are in its unit, and both bounds are included.
struct Limits
{
    QMap<QString, Limit> byName; ///< empty if anything is wrong
    QStringList errors;          ///< each with file, key and value
};

/// `file` is what the errors call the file.
Limits readLimits(const QList<SettingsLine> &lines, const QString &file);

/// Writes each measurement's limit into it, and tells which are outside: for each one a line with name, value, unit and
/// limit, "battery.voltage: 4.36 V (3.6..4.35)".
QStringList applyLimits(const QMap<QString, Limit> &limits, QList<Measurement> *measurements);
