#pragma once

#include "plan/settingsSection.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

// Which items a component runs, and in which order, where somebody has said so. Pure functions, for any thread. An item
// is one that itemKeys.h names; a range such as 0-4 stands for its numbers in ascending order.

/// Component id to item numbers. A component that is not in it runs what it runs by itself.
using PlannedItems = QMap<int, QList<int>>;

/// The section [RunPlan] of the settings: `gimbal=0,1,2,3,4`, the key being the component's name on the command line.
struct RunPlan
{
    PlannedItems items; ///< empty if anything is wrong: a plan is never run in part
    QStringList errors; ///< each with file, key and value
};

/// `file` is what the errors call the file.
RunPlan readRunPlan(const QList<SettingsLine> &lines, const QString &file);

/// The components of one unattended run: `camera:0+1,gimbal:0-4,log`, or `all`.
struct RequestedRun
{
    QList<int> components; ///< ids in the order in which they are named, each once
    PlannedItems items;    ///< of those for which items are named
    QString error;         ///< empty if the text could be read
};

/// `knownComponents`: what an unknown one is told to be one of, in the order of the window.
RequestedRun readRequestedRun(const QString &text, const QStringList &knownComponents);
