#include "camera/supervisor/linkChoice.h"

#include "detector/store/IpInfo.h"

QString subnetPrefix(const QString &address)
{
    return address.left(address.lastIndexOf(QLatin1Char('.')) + 1);
}

Link chooseLink(const QString &usb, const QString &wifi, const IpInfo &own)
{
    const QString pcAddress = !own.first.isEmpty() ? own.first : own.second;
    const auto leadsTo = [&pcAddress](const QString &camera) {
        return !camera.isEmpty() && pcAddress.contains(subnetPrefix(camera));
    };
    if (leadsTo(usb)) {
        return {pcAddress, usb, QStringLiteral("usb")};
    }
    if (leadsTo(wifi)) {
        return {pcAddress, wifi, QStringLiteral("wifi")};
    }
    return {pcAddress, {}, {}};
}
