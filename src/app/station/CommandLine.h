#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// What the operator asked for on the command line. Without options the program is just its window.
struct CommandLine
{
    enum class Mode {
        Window,     ///< the window, driven by hand
        Unattended, ///< the window, driven by the options
        Help,       ///< print `message` and leave
        Wrong,      ///< print `message` and leave with exit code 2
    };

    Mode mode = Mode::Window;
    QString message;
    QStringList boxes; ///< object names of the check boxes to tick
    QString savePath;  ///< empty: the window's default
    int connectTimeoutSeconds = 30;
    QString screenshot;    ///< file to save the window's picture in after the run; empty: none
    int repeat = 1;        ///< number of runs
    int closeAfterMs = -1; ///< close the window after this time, as a hand would; -1: after the last run

    /// Reads the program's arguments (the program's own name first), without those that Qt has taken.
    static CommandLine parse(const QStringList &arguments);
};
