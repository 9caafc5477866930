#include "detector/store/loadSettings.h"

#include "detector/store/KestDetectorFace.h"

#include <QSettings>

namespace {
struct TextSetting
{
    const char *key;
    QString KestDetectorFace::*field;
};

constexpr TextSetting textSettings[] = {
    {"BaseOption/username", &KestDetectorFace::username},
    {"BaseOption/password", &KestDetectorFace::password},
    {"SystemLogPath/HostApdUrl", &KestDetectorFace::hostApdUrl},
    {"SystemLogPath/MacAddressUrl", &KestDetectorFace::macAddressUrl},
    {"SystemLogPath/TFCardInfoUrl", &KestDetectorFace::tfCardInfoUrl},
    {"BaseOption/ftpName", &KestDetectorFace::ftpName},
    {"BaseOption/ftpPsw", &KestDetectorFace::ftpPsw},
    {"BaseOption/ftpPort", &KestDetectorFace::ftpPort},
    {"ZipLogPath/ZipLogTargetPath", &KestDetectorFace::zipLogTargetPath},
    {"DownloadLogSrcPath/LogPath", &KestDetectorFace::logPath},
    {"DownloadLogSrcPath/PrivatePath", &KestDetectorFace::privatePath},
    {"DownloadLogSrcPath/VersionPath", &KestDetectorFace::versionPath},
    {"DownloadLogSrcPath/NetconfPath", &KestDetectorFace::netconfPath},
    {"DownloadLogSrcPath/MciInfoPath", &KestDetectorFace::mciInfoPath},
    {"DownloadLogSrcPath/SharefsPath", &KestDetectorFace::sharefsPath},
};

constexpr int statusBitCount = 64;

quint64 hexNumber(const QSettings &settings, const QString &key)
{
    return settings.value(key).toString().toULongLong(nullptr, 16);
}
} // namespace

void loadSettings(const QString &iniPath, KestDetectorFace *face)
{
    const QSettings settings(iniPath, QSettings::IniFormat);
    for (const TextSetting &setting : textSettings) {
        face->*setting.field = settings.value(QLatin1String(setting.key)).toString();
    }

    // Kept complemented: a status bit that differs from what is expected leaves a 0 when the two are combined.
    face->cameraStatusMask = ~hexNumber(settings, QStringLiteral("CameraStatus/expectedVal"));

    const quint64 statusBits = hexNumber(settings, QStringLiteral("CameraStatus/statusBits"));
    QList<bool> bits;
    bits.reserve(statusBitCount);
    for (int bit = 0; bit < statusBitCount; ++bit) {
        bits.append(((statusBits >> bit) & 1U) != 0);
    }
    face->statusBitList = bits;
}
