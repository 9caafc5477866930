#pragma once

#include "record/Measurement.h"
#include "record/RunRecord.h"

#include <optional>
#include <QString>
#include <QStringView>

// What the lines of a DetectorLog.txt say. The texts are those that the checks write; they never change, since every
// log that a station has left is read by them. Pure functions, for any thread.

/// A line that tells how an item ended, or a step of it.
struct VerdictLine
{
    int item; ///< number of the item within its component
    Verdict verdict;
    QString message;       ///< as the item writes it, with its line break if it has one
    QString rest;          ///< what another item has written behind it on the same line; empty as a rule
    bool isReport = false; ///< the line is the item's report already, and there is no message
};

/// The component whose block begins with this line ("[TF Card]:"); none if it is no such line.
std::optional<int> componentOfHeading(QStringView line);
/// What the component is called in the log, "TF Card"; empty for a component that leaves no block.
QString componentHeadingName(int component);
/// What the item is called for people, "Use condition"; empty for an item that leaves no lines.
QString loggedItemName(int component, int item);

/// `line` without its line break.
std::optional<VerdictLine> readVerdictLine(int component, const QString &line);

/// Whether the verdict of the item is made of several such lines, one a step.
bool hasSteps(int component, int item);

/// A line of a report ("voltage:3.85V") as the measurement that it shows. As exact as the text is.
std::optional<Measurement> readReportLine(int component, int item, const QString &line);

/// A line that tells a measurement outside its limit, as that measurement: "battery.voltage: 4.36 V (3.6..4.35)".
std::optional<Measurement> readLimitLine(const QString &line);
