#pragma once

#include <QString>

class KestDetectorFace;

/// Reads the settings file (INI format) at `iniPath` into the facade's settings. A missing file or key gives an empty
/// text; hexadecimal text that does not parse counts as 0. The two network keys "BaseOption/usb" and
/// "BaseOption/wifi" are not read here: the camera supervisor reads them on every connection attempt.
void loadSettings(const QString &iniPath, KestDetectorFace *face);
