#include "historyui/commands/commands.h"

#include "history/door/History.h"
#include "historyui/commands/CommandContext.h"
#include "historyui/commands/HistoryTexts.h"
#include "plan/settingsSection.h"
#include "platform/Interruption.h"

#include <array>
#include <cstdio>
#include <QDir>
#include <QFileInfo>

namespace {
using Command = HistoryCommandLine::Command;

struct CommandRow
{
    Command command;
    int (*run)(CommandContext &context);
    Connection::Access access;
    bool isAboutSending = false; ///< from the station's own store to the server
};

constexpr std::array commands = {
    CommandRow{Command::List, listRuns, Connection::Access::Read},
    CommandRow{Command::Show, showRun, Connection::Access::Read},
    CommandRow{Command::Unit, showUnit, Connection::Access::Read},
    CommandRow{Command::Stats, showStatistics, Connection::Access::Read},
    CommandRow{Command::Report, writeReport, Connection::Access::Read},
    CommandRow{Command::Export, exportRuns, Connection::Access::Read},
    CommandRow{Command::Import, importRuns, Connection::Access::Write},
    CommandRow{Command::Status, showStatus, Connection::Access::Read, true},
    CommandRow{Command::Forward, forwardRuns, Connection::Access::Write, true},
    CommandRow{Command::Prune, removeRuns, Connection::Access::Write},
};

bool isServerAddress(const QString &text)
{
    return text.contains(QLatin1String("://"));
}

/// What waits to be sent lies in the station's own store, also where the settings name a server alone.
std::optional<StoreAddress> storeThatSends(const HistoryCommandLine &line, const Places &places)
{
    const HistoryPlaces named = readHistoryPlaces(places);
    const QFileInfo usual(QDir(places.state()).absoluteFilePath(QLatin1String(usualHistoryFile)));
    const bool isUsual = line.store.isEmpty() && named.server && !named.file && usual.exists();
    return isUsual ? StoreAddress::file(usual.filePath()) : std::optional<StoreAddress>();
}
} // namespace

std::optional<StoreAddress> chooseStore(const HistoryCommandLine &line, const Places &places, QString *error)
{
    if (!line.store.isEmpty()) {
        return isServerAddress(line.store) ? StoreAddress::server(line.store, error) : StoreAddress::file(line.store);
    }
    const HistoryPlaces named = readHistoryPlaces(places);
    *error = named.error;
    if (!named.error.isEmpty()) {
        return {};
    }
    if (!named.file && !named.server) {
        *error = HistoryTexts::tr("%1 names no store: give --store, or file= in its section [History]")
                     .arg(places.settings());
    }
    return named.file ? named.file : named.server;
}

void CommandContext::say(const QString &text) const
{
    std::printf("%s\n", qUtf8Printable(text));
    std::fflush(stdout);
}

void CommandContext::complain(const QString &text) const
{
    std::fprintf(stderr, "KestHistory: %s\n", qUtf8Printable(text));
}

int CommandContext::nothing(const QString &text) const
{
    complain(text);
    return historyExit::nothing;
}

int CommandContext::trouble(const QString &text) const
{
    complain(text);
    return historyExit::trouble;
}

int CommandContext::storeTrouble() const
{
    return trouble(store->error().text);
}

int CommandContext::finish(Output *output, int code) const
{
    output->finish();
    if (!output->error().isEmpty()) {
        const QString name = line.out.isEmpty() ? HistoryTexts::tr("standard output") : line.out;
        return trouble(HistoryTexts::tr("%1 cannot be written: %2").arg(name, output->error()));
    }
    return code;
}

HistoryPlaces readHistoryPlaces(const Places &places)
{
    HistoryPlaces named;
    const QDir folder(places.state());
    const QList<SettingsLine> lines = readSettingsSection(places.settings(), QStringLiteral("History"));
    for (const SettingsLine &line : lines) {
        if (line.key == QLatin1String("file") && !line.value.isEmpty()) {
            named.file = StoreAddress::file(folder.absoluteFilePath(line.value));
        } else if (line.key == QLatin1String("server") && !line.value.isEmpty()) {
            named.server = StoreAddress::server(line.value, &named.error);
        }
    }
    return named;
}

int runCommand(const HistoryCommandLine &line, const Places &places)
{
    CommandContext context{line, places, nullptr};
    QString error;
    std::optional<StoreAddress> address = chooseStore(line, places, &error);
    if (!address) {
        return context.trouble(error);
    }
    for (const CommandRow &row : commands) {
        if (row.command != line.command) {
            continue;
        }
        if (row.isAboutSending) {
            address = storeThatSends(line, places).value_or(*address);
        }
        Store::Options options;
        options.access = row.access;
        constexpr int cacheKiB = 65536; // a program that works through many runs and ends
        options.cacheKiB = cacheKiB;
        StoreError storeError;
        context.store = Store::open(*address, options, &storeError);
        if (!context.store) {
            return context.trouble(storeError.text);
        }
        Interruption::watch();
        return row.run(context);
    }
    return historyExit::wrongUsage;
}
