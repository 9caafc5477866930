#pragma once

#include "history/address/StoreAddress.h"
#include "historyui/commands/HistoryCommandLine.h"
#include "places/Places.h"

#include <optional>
#include <QString>

/// Carries out what the command line says: prints to standard output and standard error, and returns the exit code
/// (see `historyExit`). `places` are the station's. A report on paper needs a QGuiApplication, anything else a
/// QCoreApplication.
int runCommand(const HistoryCommandLine &line, const Places &places);

/// What option.ini says about the history.
struct HistoryPlaces
{
    std::optional<StoreAddress> file;   ///< [History] file, relative to the station's folder of state
    std::optional<StoreAddress> server; ///< [History] server
    QString error;                      ///< what is wrong with them
};
HistoryPlaces readHistoryPlaces(const Places &places);

/// The store of the command line, else that of the settings. Nothing if there is none; `error` then tells why.
std::optional<StoreAddress> chooseStore(const HistoryCommandLine &line, const Places &places, QString *error);
