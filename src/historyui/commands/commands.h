#pragma once

#include "history/address/StoreAddress.h"
#include "historyui/commands/HistoryCommandLine.h"

#include <optional>
#include <QString>

/// Carries out what the command line says: prints to standard output and standard error, and returns the exit code
/// (see `historyExit`). `settings` is the path of option.ini. A report on paper needs a QGuiApplication, anything else
/// a QCoreApplication.
int runCommand(const HistoryCommandLine &line, const QString &settings);

/// What option.ini says about the history.
struct HistoryPlaces
{
    std::optional<StoreAddress> file;   ///< [History] file, relative to option.ini
    std::optional<StoreAddress> server; ///< [History] server
    QString error;                      ///< what is wrong with them
};
HistoryPlaces readHistoryPlaces(const QString &settings);

/// The store of the command line, else that of the settings. Nothing if there is none; `error` then tells why.
std::optional<StoreAddress> chooseStore(const HistoryCommandLine &line, const QString &settings, QString *error);
