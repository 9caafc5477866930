#pragma once

#include "history/store/Store.h"
#include "historyui/commands/HistoryCommandLine.h"
#include "historyui/commands/Output.h"
#include "places/Places.h"

#include <memory>
#include <QString>

/// What every command has: the command line, the store, and its ways to say what it found.
struct CommandContext
{
    const HistoryCommandLine &line;
    const Places &places;
    std::unique_ptr<Store> store;

    /// A line on standard output, at once.
    void say(const QString &text) const;
    /// "KestHistory: " and the text on standard error.
    void complain(const QString &text) const;
    /// The same with the exit code of nothing found.
    int nothing(const QString &text) const;
    /// The same with the exit code of trouble.
    int trouble(const QString &text) const;
    /// The same with the store's error.
    int storeTrouble() const;
    /// `text` to where the command line says; `code` if that succeeded.
    template <class Text>
    int print(const Text &text, int code = historyExit::done) const
    {
        Output output(line.out);
        output.write(text);
        return finish(&output, code);
    }
    int finish(Output *output, int code) const;
};

// One function a command; each returns the exit code.
int listRuns(CommandContext &context);
int showRun(CommandContext &context);
int showUnit(CommandContext &context);
int showStatistics(CommandContext &context);
int showStatus(CommandContext &context);
int writeReport(CommandContext &context);
int exportRuns(CommandContext &context);
int importRuns(CommandContext &context);
int forwardRuns(CommandContext &context);
int removeRuns(CommandContext &context);
