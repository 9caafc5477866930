#pragma once

#include "detector/store/RunLabels.h"
#include "detector/store/Settings.h"
#include "plan/RunPlan.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

/// What the operator asked for on the command line. Without options the program is just its window.
struct CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    enum class Mode {
        Window,     ///< the window, driven by hand
        Unattended, ///< the window, driven by the options
        Help,       ///< print `message` and leave
        Wrong,      ///< print `message` and leave with exit code 2
    };

    Mode mode = Mode::Window;
    QString message;
    QStringList boxes;        ///< object names of the check boxes to tick
    PlannedItems items;       ///< of the components for which --run names items
    RunLabels labels;         ///< those that are given
    bool serialGiven = false; ///< by --serial, though perhaps an empty one
    QString json;             ///< file for the runs' records, "-": standard output; empty: none
    QString junit;            ///< likewise, but never standard output
    QString savePath;         ///< empty: the window's default
    int connectTimeoutSeconds = 30;
    QString screenshot;    ///< file to save the window's picture in after the run; empty: none
    int repeat = 1;        ///< number of runs
    bool each = false;     ///< a run for each camera that connects, until the program is closed
    int closeAfterMs = -1; ///< close the window after this time, as a hand would; -1: after the last run

    /// Reads the program's arguments (the program's own name first), without those that Qt has taken.
    static CommandLine parse(const QStringList &arguments);

    /// Why nothing may be run with these settings, a line for each reason.
    QStringList refusalsBy(const Settings &settings) const;
    /// What a run is told to be of: what is given here, else what the settings say.
    RunLabels labelsOver(const Settings &settings) const;
};
