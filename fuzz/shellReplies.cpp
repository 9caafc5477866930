// What the camera's shell prints: the readers of WiFi, MAC address, mount table and card information.

#include "detector/checks/tfCardChecks.h"
#include "detector/readers/systemInfo.h"
#include "require.h"

#include <algorithm>
#include <QRegularExpression>
#include <QString>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString reply = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));

    const WifiInfo wifi = parseWifiInfo(reply);
    require(reply.contains(wifi.ssid) && reply.contains(wifi.password), "WiFi texts come from the reply");
    require(!wifi.ssid.contains(QLatin1Char('=')) && !wifi.password.contains(QLatin1Char('=')),
            "a WiFi line has one equals sign");

    static const QRegularExpression macPattern(QStringLiteral("\\A([0-9A-F]{2}:){5}[0-9A-F]{2}\\z"));
    const QString mac = parseMacAddress(reply);
    require(mac.isEmpty() || macPattern.match(mac).hasMatch(), "a MAC address names a folder and nothing else");

    const auto aLineContains = [lines = reply.split(QStringLiteral("\r\n"))](const QString &text) {
        return std::any_of(lines.begin(), lines.end(), [&](const QString &line) { return line.contains(text); });
    };
    require(isCardMounted(reply) == aLineContains(QStringLiteral("mmcblk0p1")), "mounted when a line names the card");
    require(isCardFast(reply) == aLineContains(QStringLiteral("UHS SDR104")), "fast when a line names the mode");
    return 0;
}
