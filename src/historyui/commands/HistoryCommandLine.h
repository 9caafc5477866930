#pragma once

#include "history/query/RunFilter.h"
#include "history/query/Statistics.h"

#include <QDate>
#include <QString>
#include <QStringList>

/// What somebody asked KestHistory for on its command line.
struct HistoryCommandLine
{
    enum class Command {
        None,  ///< the window
        Help,  ///< print `message` and leave
        Wrong, ///< likewise, with the exit code of wrong usage
        List,
        Show,
        Unit,
        Stats,
        Report,
        Export,
        Import,
        Status,
        Forward,
        Prune,
    };
    enum class Format { Text, Json, Csv, Junit };

    Command command = Command::None;
    QString message;
    QString store; ///< file or server's address; empty: that of the settings
    RunFilter filter;
    StatisticsFilter period;
    Format format = Format::Text;
    QString out;         ///< file or folder; empty: standard output
    QStringList targets; ///< run, MAC address, or paths
    QDate before;
    QString results; ///< the window's: the folder that was chosen for results at the station
    bool removesUnsent = false;

    /// Reads the program's arguments (the program's own name first). `today` is what "7d" counts from.
    static HistoryCommandLine parse(const QStringList &arguments, const QDate &today);
};

/// What the program leaves with, like `grep`: something, nothing, or trouble.
namespace historyExit {
inline constexpr int done = 0;
inline constexpr int nothing = 1; ///< nothing was found, or not everything could be taken in
inline constexpr int wrongUsage = 2;
inline constexpr int trouble = 3;       ///< the store, a file or the server did not do what it should
inline constexpr int interrupted = 130; ///< by Ctrl+C; what was done by then stays
} // namespace historyExit
