#pragma once

#include <QString>

/// What an access point's hostapd configuration says about its network.
struct WifiInfo
{
    QString ssid;
    QString password;
};

// Readers of the camera's own files over the shell. They block like every shell call: never from the GUI thread.
// `*verdict` takes the shell call's result (0 or -1); the returned error text is empty when the call succeeded, also
// when the file did not hold what was looked for.

/// Reads network name and passphrase from the file at the facade's `hostApdUrl`; both are empty after a failed call.
QString getSysWifiInfo(int *verdict, QString &ssid, QString &password);

/// Reads the MAC address, in upper case, from the file at the facade's `macAddressUrl` and stores it in the facade:
/// an empty text when no line is a MAC address. A failed call leaves the facade's address as it is.
QString getSysMacAddress(int *verdict, QString &mac);

// The pure parsers behind the readers. `reply` is a whole shell reply with its echo and prompt; lines end in "\r\n".

/// Takes the first lines that contain "ssid" and "wpa_passphrase" and hold exactly one "=": the scan goes on, and a
/// later line replaces an earlier one of its kind, until both have been met.
WifiInfo parseWifiInfo(const QString &reply);

/// The first line that is nothing but a MAC address ("aa:bb:cc:dd:ee:ff"), in upper case; empty if there is none.
QString parseMacAddress(const QString &reply);
