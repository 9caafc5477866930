#include "detector/store/Settings.h"

#include "history/address/StoreAddress.h"
#include "places/Places.h"
#include "plan/Limits.h"

#include <QCoreApplication>
#include <QFile>
#include <QHostAddress>
#include <QLatin1String>
#include <QSettings>

namespace {
constexpr int statusBitCount = 64;
constexpr auto wifiKey = "BaseOption/wifi";
constexpr auto usbKey = "BaseOption/usb";

/// Takes over a text as it is: any text will do.
template <QString Settings::*field>
bool anyText(const QString &value, Settings *settings)
{
    settings->*field = value;
    return true;
}

/// Likewise, but an empty one leads nowhere.
template <QString Settings::*field>
bool name(const QString &value, Settings *settings)
{
    settings->*field = value;
    return !value.isEmpty();
}

/// A file being edited may hold half an address: what is no dotted IPv4 address counts as a link that is not used.
template <QString Settings::*field>
bool address(const QString &value, Settings *settings)
{
    const QHostAddress host(value);
    const bool sound = host.protocol() == QAbstractSocket::IPv4Protocol && host.toString() == value;
    settings->*field = sound ? value : QString();
    return sound || value.isEmpty();
}

bool port(const QString &value, Settings *settings)
{
    settings->ftpPort = value;
    return value.toUShort() != 0;
}

bool expectedStatus(const QString &value, Settings *settings)
{
    bool sound = false;
    // Kept complemented: a status bit that differs from what is expected leaves a 0 when the two are combined.
    settings->cameraStatusMask = ~value.toULongLong(&sound, 16);
    return sound;
}

bool examinedStatus(const QString &value, Settings *settings)
{
    bool sound = false;
    const quint64 bits = value.toULongLong(&sound, 16);
    settings->statusBitList.clear();
    for (int bit = 0; bit < statusBitCount; ++bit) {
        settings->statusBitList.append(((bits >> bit) & 1U) != 0);
    }
    return sound;
}

/// An address with a password is none.
bool server(const QString &value, Settings *settings)
{
    QString reason;
    const bool sound = StoreAddress::server(value, &reason).has_value();
    settings->historyServer = sound ? value : QString();
    return sound || value.isEmpty();
}

template <bool Settings::*field>
bool flag(const QString &value, Settings *settings)
{
    settings->*field = value == QLatin1String("true");
    return settings->*field || value == QLatin1String("false");
}

bool language(const QString &value, Settings *settings)
{
    bool isKnown = false;
    settings->language = languageNamed(value, &isKnown);
    return isKnown;
}

struct Row
{
    const char *key;
    const char *byDefault; ///< what a missing key stands for; null: the key is needed, and stands for an empty text
    bool (*take)(const QString &value, Settings *settings); ///< puts the value into its field; false: it is malformed
    const char *fault; ///< what a malformed value is: `"<value>" is <fault>`; both texts in the context "Settings"
    const char *consequence; ///< of a missing or malformed value
    bool isHidden = false;   ///< what is malformed may hold a password: it is <fault>, without being told
};

constexpr auto noText = "";
constexpr auto noAddress = QT_TRANSLATE_NOOP("Settings", "no IPv4 address");
constexpr auto noNumber = QT_TRANSLATE_NOOP("Settings", "not a hexadecimal number of at most 64 bits");
constexpr auto isMissing = QT_TRANSLATE_NOOP("Settings", "missing");
constexpr auto neitherOr = QT_TRANSLATE_NOOP("Settings", "neither true nor false");
constexpr auto noLink = QT_TRANSLATE_NOOP("Settings", "this link is not used");
constexpr auto noCamera = QT_TRANSLATE_NOOP("Settings", "no camera can be found");
constexpr auto noLogin = QT_TRANSLATE_NOOP("Settings", "the station cannot log in to the camera's shell");
constexpr auto noArchives = QT_TRANSLATE_NOOP("Settings", "the camera's archives cannot be fetched");
constexpr auto notTold = QT_TRANSLATE_NOOP("Settings", "the records do not tell it");
constexpr auto noSuchLog = QT_TRANSLATE_NOOP("Settings", "this log of the camera cannot be fetched");

constexpr Row rows[] = {
    {wifiKey, "", address<&Settings::wifi>, noAddress, noLink},
    {usbKey, "", address<&Settings::usb>, noAddress, noLink},
    {"BaseOption/username", nullptr, name<&Settings::username>, noText, noLogin},
    {"BaseOption/password", nullptr, anyText<&Settings::password>, noText, noLogin},
    {"BaseOption/ftpName", nullptr, name<&Settings::ftpName>, noText, noArchives},
    {"BaseOption/ftpPsw", nullptr, anyText<&Settings::ftpPsw>, noText, noArchives},
    {"BaseOption/ftpPort", nullptr, port, QT_TRANSLATE_NOOP("Settings", "no TCP port"), noArchives},
    {"SystemLogPath/HostApdUrl", nullptr, name<&Settings::hostApdUrl>, noText,
     QT_TRANSLATE_NOOP("Settings", "the camera's WiFi name and passphrase stay unknown")},
    {"SystemLogPath/MacAddressUrl", nullptr, name<&Settings::macAddressUrl>, noText,
     QT_TRANSLATE_NOOP("Settings", "the camera's MAC address stays unknown")},
    {"SystemLogPath/TFCardInfoUrl", "", anyText<&Settings::tfCardInfoUrl>, noText, noText},
    {"ZipLogPath/ZipLogTargetPath", nullptr, name<&Settings::zipLogTargetPath>, noText, noArchives},
    {"DownloadLogSrcPath/LogPath", nullptr, name<&Settings::logPath>, noText, noSuchLog},
    {"DownloadLogSrcPath/PrivatePath", nullptr, name<&Settings::privatePath>, noText, noSuchLog},
    {"DownloadLogSrcPath/NetconfPath", nullptr, name<&Settings::netconfPath>, noText, noSuchLog},
    {"DownloadLogSrcPath/SharefsPath", nullptr, name<&Settings::sharefsPath>, noText, noSuchLog},
    {"DownloadLogSrcPath/VersionPath", nullptr, name<&Settings::versionPath>, noText, noSuchLog},
    {"DownloadLogSrcPath/MciInfoPath", nullptr, name<&Settings::mciInfoPath>, noText, noSuchLog},
    {"CameraStatus/expectedVal", nullptr, expectedStatus, noNumber,
     QT_TRANSLATE_NOOP("Settings", "a healthy camera is expected to report 0 in every status bit")},
    {"CameraStatus/statusBits", nullptr, examinedStatus, noNumber,
     QT_TRANSLATE_NOOP("Settings", "no status bit is examined, and every camera passes")},
    {"Station/safeguards", "false", flag<&Settings::safeguards>, neitherOr,
     QT_TRANSLATE_NOOP("Settings", "the safeguards are off")},
    {"Station/autoStart", "false", flag<&Settings::autoStart>, neitherOr,
     QT_TRANSLATE_NOOP("Settings", "no run begins by itself")},
    {"Station/sound", "false", flag<&Settings::sound>, neitherOr, QT_TRANSLATE_NOOP("Settings", "there are no sounds")},
    {"Station/name", "", anyText<&Settings::stationName>, noText,
     QT_TRANSLATE_NOOP("Settings", "the records tell the host's name")},
    {"Station/location", "", anyText<&Settings::stationLocation>, noText, notTold},
    {"Station/operator", "", anyText<&Settings::stationOperator>, noText, notTold},
    {"Station/batch", "", anyText<&Settings::stationBatch>, noText, notTold},
    {"History/file", "", anyText<&Settings::historyFile>, noText,
     QT_TRANSLATE_NOOP("Settings", "no run is kept in a history")},
    {"History/server", "", server,
     QT_TRANSLATE_NOOP("Settings", "not of the form postgresql://user@host/database, or with a password, which belongs "
                                   "into .pgpass"),
     QT_TRANSLATE_NOOP("Settings", "the runs stay at this station"), true},
    {"Interface/language", "", language, QT_TRANSLATE_NOOP("Settings", "neither en nor zh_CN"),
     QT_TRANSLATE_NOOP("Settings", "the texts are partly English, partly Chinese")},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("Settings", text);
}

void readRow(const Row &row, const QSettings &file, Settings *settings)
{
    using Kind = SettingProblem::Kind;
    const QString key = QLatin1String(row.key);
    const auto complain = [&](Kind kind, const QString &message) {
        settings->problems.append({kind, key, message, translated(row.consequence)});
    };
    const QVariant stored = file.value(key, row.byDefault == nullptr ? QVariant() : QLatin1String(row.byDefault));
    // A comma outside of double quotes makes a list, whose text is empty.
    const QString value = stored.toString();
    const bool sound = row.take(value, settings);
    if (!stored.isValid()) {
        complain(Kind::Missing, translated(isMissing));
    } else if (!sound && stored.userType() == QMetaType::QString && value.isEmpty()) {
        complain(Kind::Missing, translated(QT_TRANSLATE_NOOP("Settings", "empty")));
    } else if (stored.userType() == QMetaType::QStringList) {
        complain(Kind::Malformed, translated(QT_TRANSLATE_NOOP("Settings", "a comma stands outside of double quotes")));
    } else if (!sound) {
        complain(Kind::Malformed,
                 row.isHidden
                     ? translated(row.fault)
                     : translated(QT_TRANSLATE_NOOP("Settings", "\"%1\" is %2")).arg(value, translated(row.fault)));
    }
}

/// What the line's engineer has decided, which is followed as a whole or not at all.
void readPlans(const QString &path, Settings *settings)
{
    const RunPlan plan = readRunPlan(readSettingsSection(path, QStringLiteral("RunPlan")), path);
    const Limits limits = readLimits(readSettingsSection(path, QStringLiteral("Limits")), path);
    settings->plannedItems = plan.items;
    settings->limits = limits.byName;
    settings->questions = readQuestions(readSettingsSection(path, QStringLiteral("Station")), path);
    settings->refusals = plan.errors + limits.errors + settings->questions.errors;
}
} // namespace

QString SettingProblem::text() const
{
    return QStringLiteral("%1: %2: %3").arg(key, message, consequence);
}

QList<SettingProblem> Settings::addressProblems() const
{
    QList<SettingProblem> found;
    for (const SettingProblem &problem : problems) {
        if (problem.key == QLatin1String(wifiKey) || problem.key == QLatin1String(usbKey)) {
            found.append(problem);
        }
    }
    return found;
}

Settings readSettings(const QString &path)
{
    using Kind = SettingProblem::Kind;
    const QSettings file(path, QSettings::IniFormat);
    Settings settings;
    for (const Row &row : rows) {
        readRow(row, file, &settings);
    }
    readPlans(path, &settings);
    if (!QFile::exists(path) || file.status() == QSettings::AccessError) {
        // One problem, not one for each key.
        const char *reason = QFile::exists(path) ? QT_TRANSLATE_NOOP("Settings", "cannot be read") : isMissing;
        settings.problems = {{Kind::Missing, path, translated(reason), translated(noCamera)}};
        return settings;
    }
    if (file.status() == QSettings::FormatError) {
        settings.problems.prepend({Kind::Malformed, path,
                                   translated(QT_TRANSLATE_NOOP("Settings", "some lines are no settings")),
                                   translated(QT_TRANSLATE_NOOP("Settings", "these lines are ignored"))});
    }
    if (settings.wifi.isEmpty() && settings.usb.isEmpty() && settings.addressProblems().isEmpty()) {
        settings.problems.prepend({Kind::Missing,
                                   QStringLiteral("%1, %2").arg(QLatin1String(wifiKey), QLatin1String(usbKey)),
                                   translated(isMissing), translated(noCamera)});
    }
    return settings;
}

QString settingsPath()
{
    return Places::ofProgram().settings();
}
