#include "detector/readers/systemInfo.h"

#include "detector/store/KestDetectorFace.h"
#include "telnet/session/shellStep.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <optional>
#include <QObject>
#include <QStringList>

namespace {
/// Prints the camera's file at `path`; returns what the shell call returns.
int printFile(const QString &path, QString *reply)
{
    return TelnetInteractiveFace::Get()->telnet(QStringLiteral("cat %1\n").arg(path), shellStep::systemInfo, reply);
}

QStringList linesOf(const QString &reply)
{
    return reply.split(QStringLiteral("\r\n"));
}

/// The address names a folder later on: only digits and colons may get through.
bool isMacAddress(const QString &text)
{
    constexpr int length = 17; // "AA:BB:CC:DD:EE:FF"
    if (text.size() != length) {
        return false;
    }
    for (int i = 0; i < length; ++i) {
        const QLatin1String allowed(i % 3 == 2 ? ":" : "0123456789ABCDEFabcdef");
        if (!allowed.contains(text.at(i))) {
            return false;
        }
    }
    return true;
}
} // namespace

QString getSysWifiInfo(int *verdict, QString &ssid, QString &password)
{
    ssid.clear();
    password.clear();
    QString reply;
    *verdict = printFile(KestDetectorFace::Get()->settings().hostApdUrl, &reply);
    if (*verdict != 0) {
        return QObject::tr("获取Wifi信息失败.");
    }
    const WifiInfo info = parseWifiInfo(reply);
    ssid = info.ssid;
    password = info.password;
    return {};
}

QString getSysMacAddress(int *verdict, QString &mac)
{
    mac.clear();
    KestDetectorFace *face = KestDetectorFace::Get();
    QString reply;
    *verdict = printFile(face->settings().macAddressUrl, &reply);
    if (*verdict != 0) {
        return QObject::tr("获取Mac地址失败.");
    }
    mac = parseMacAddress(reply);
    face->macAddress = mac;
    return {};
}

WifiInfo parseWifiInfo(const QString &reply)
{
    std::optional<QString> ssid;
    std::optional<QString> password;
    const QStringList lines = linesOf(reply);
    for (const QString &line : lines) {
        const QStringList fields = line.split(QLatin1Char('='));
        if (fields.size() == 2 && line.contains(QStringLiteral("ssid"))) {
            ssid = fields.last();
        }
        if (fields.size() == 2 && line.contains(QStringLiteral("wpa_passphrase"))) {
            password = fields.last();
        }
        if (ssid && password) {
            break;
        }
    }
    return {ssid.value_or(QString()), password.value_or(QString())};
}

QString parseMacAddress(const QString &reply)
{
    const QStringList lines = linesOf(reply);
    for (const QString &line : lines) {
        if (isMacAddress(line)) {
            return line.toUpper();
        }
    }
    return {};
}
