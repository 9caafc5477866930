#pragma once

#include <QString>

struct IpInfo;

/// The two ends of the link that the supervisor tries. An end that is not known is empty.
struct Link
{
    QString pcAddress;
    QString cameraAddress;
    QString name; ///< of the camera's address in the settings, "usb" or "wifi"
};

/// The part of an IPv4 address up to and with its last dot; empty for a text without one.
QString subnetPrefix(const QString &address);

/// The link to try, of the configured camera addresses (empty for a link that is not configured) and the PC's own
/// addresses on their networks, `getIPInfo(usb prefix, wifi prefix)`. A PC that is on both uses the WiFi.
Link chooseLink(const QString &usb, const QString &wifi, const IpInfo &own);
