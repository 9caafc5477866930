#pragma once

#include <QHostAddress>
#include <QString>
#include <QStringList>

namespace emulator {

/// The command line.
struct Options
{
    QHostAddress address;
    quint16 commandPort = 9999;
    quint16 shellPort = 23;
    quint16 ftpPort = 0;  ///< 0: the scenario's
    QString scenarioFile; ///< empty: a healthy camera
    QString runDirectory; ///< empty: a fresh one beside the program
    bool shell = true;
    bool ftp = true;
    bool verbose = false;
    QString error; ///< what is wrong with the command line; empty when nothing is
};

/// Ends the program itself for --help and --version.
Options parseOptions(const QStringList &arguments);

} // namespace emulator
