#include "historyui/commands/commands.h"

#include "historyui/commands/CommandContext.h"
#include "historyui/commands/Interruption.h"
#include "plan/settingsSection.h"

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
};

constexpr std::array commands = {
    CommandRow{Command::List, listRuns, Connection::Access::Read},
    CommandRow{Command::Show, showRun, Connection::Access::Read},
    CommandRow{Command::Unit, showUnit, Connection::Access::Read},
    CommandRow{Command::Stats, showStatistics, Connection::Access::Read},
    CommandRow{Command::Report, writeReport, Connection::Access::Read},
    CommandRow{Command::Export, exportRuns, Connection::Access::Read},
    CommandRow{Command::Import, importRuns, Connection::Access::Write},
    CommandRow{Command::Status, showStatus, Connection::Access::Read},
    CommandRow{Command::Forward, forwardRuns, Connection::Access::Write},
    CommandRow{Command::Prune, removeRuns, Connection::Access::Write},
};

bool isServerAddress(const QString &text)
{
    return text.contains(QLatin1String("://"));
}
} // namespace

std::optional<StoreAddress> chooseStore(const HistoryCommandLine &line, const QString &settings, QString *error)
{
    if (!line.store.isEmpty()) {
        return isServerAddress(line.store) ? StoreAddress::server(line.store, error) : StoreAddress::file(line.store);
    }
    const HistoryPlaces places = readHistoryPlaces(settings);
    *error = places.error;
    if (!places.error.isEmpty()) {
        return {};
    }
    if (!places.file && !places.server) {
        *error = QStringLiteral("%1 names no store: give --store, or file= in its section [History]").arg(settings);
    }
    return places.file ? places.file : places.server;
}

int CommandContext::trouble(const QString &text) const
{
    std::fprintf(stderr, "KestHistory: %s\n", qUtf8Printable(text));
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
        const QString name = line.out.isEmpty() ? QStringLiteral("standard output") : line.out;
        return trouble(QStringLiteral("%1 cannot be written: %2").arg(name, output->error()));
    }
    return code;
}

HistoryPlaces readHistoryPlaces(const QString &settings)
{
    HistoryPlaces places;
    const QDir folder = QFileInfo(settings).absoluteDir();
    const QList<SettingsLine> lines = readSettingsSection(settings, QStringLiteral("History"));
    for (const SettingsLine &line : lines) {
        if (line.key == QLatin1String("file") && !line.value.isEmpty()) {
            places.file = StoreAddress::file(folder.absoluteFilePath(line.value));
        } else if (line.key == QLatin1String("server") && !line.value.isEmpty()) {
            places.server = StoreAddress::server(line.value, &places.error);
        }
    }
    return places;
}

int runCommand(const HistoryCommandLine &line, const QString &settings)
{
    CommandContext context{line, settings, nullptr};
    QString error;
    const std::optional<StoreAddress> address = chooseStore(line, settings, &error);
    if (!address) {
        return context.trouble(error);
    }
    for (const CommandRow &row : commands) {
        if (row.command != line.command) {
            continue;
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
