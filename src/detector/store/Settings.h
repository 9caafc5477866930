#pragma once

#include "language/Language.h"
#include "plan/Questions.h"
#include "plan/RunPlan.h"
#include "record/Limit.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/// A setting that is not what it should be. Nobody is kept from working by it; whoever can show a text shows this one.
struct SettingProblem
{
    enum class Kind {
        Missing,   ///< the file, or a key that is needed, is not there
        Malformed, ///< there is something, but it is no such value
    };

    Kind kind = Kind::Missing;
    QString key;         ///< "CameraStatus/statusBits"; the file's path where it is about the whole file
    QString message;     ///< "\"8O01A\" is not a hexadecimal number of at most 64 bits"; never a password
    QString consequence; ///< "no status bit is examined, and every camera passes"

    /// Key, message and consequence in one line.
    QString text() const;
};

/// What option.ini says: a value, read once at start and held by the facade. The two addresses of the camera are read
/// again on every attempt to connect, so the facade's are only those of the start.
///
/// A further setting is one field here, one row in Settings.cpp, one row of its test and one line in the README.
struct Settings
{
    QString wifi; ///< the camera's address on its access point: dotted IPv4, or empty for a link that is not used
    QString usb;  ///< its address on the USB link, likewise

    // The camera's shell and FTP server.
    QString username;
    QString password;
    QString ftpName;
    QString ftpPsw;
    QString ftpPort; ///< kept as text

    // Files and directories of the camera.
    QString hostApdUrl;
    QString macAddressUrl;
    QString tfCardInfoUrl;
    QString zipLogTargetPath; ///< the camera's archive directory, which is its FTP server's root
    QString logPath;
    QString privatePath;
    QString versionPath;
    QString netconfPath;
    QString mciInfoPath;
    QString sharefsPath;

    quint64 cameraStatusMask = 0; ///< complement of the expected status word
    QList<bool> statusBitList;    ///< entry i: whether status bit i is examined; 64 entries once read

    bool safeguards = false; ///< see `Safeguards`

    bool autoStart = false; ///< the window tests each camera that connects by itself
    bool sound = false;     ///< a run's verdict is told by ear, too

    // What a run's record tells of the station, unless somebody says otherwise.
    QString stationName; ///< empty: the host's name
    QString stationLocation;
    QString stationOperator;
    QString stationBatch;

    QString historyFile;   ///< where every run is kept, from option.ini's folder on; empty: nowhere
    QString historyServer; ///< where these runs are sent, see `StoreAddress::server`; empty: nowhere

    Language language = Language::AsWritten; ///< of the window and of all texts, unless --language says another

    PlannedItems plannedItems;   ///< [RunPlan]: what a ticked component runs, where that is not what it runs by itself
    QMap<QString, Limit> limits; ///< [Limits]: by measurement
    Questions questions;         ///< [Station] ask, serialPattern: what Start asks for
    QStringList refusals;        ///< what is wrong with these three, a line each: nothing may be run with them

    QList<SettingProblem> problems; ///< in the order of the file's sections as the README lists them

    /// The problems of the two addresses alone, which may be mended while the program runs.
    QList<SettingProblem> addressProblems() const;
};

/// Reads the settings file (INI format) at `path`. A missing file or key gives an empty text, hexadecimal text that
/// does not parse counts as 0, and an address that is none as empty; what is wrong stands in `problems`. Writes
/// nothing. From any thread.
Settings readSettings(const QString &path);

/// Where the program's settings lie: option.ini beside the executable.
QString settingsPath();
