#pragma once

#include <QString>

/// The firmware's version in the shell's reply to printing the camera's version file, with its echo and its prompt:
/// what stands behind the label "firmware" ("firmware: 1.2.3", "FW_VERSION=1.2.3") or, where no line has that,
/// "version"; in a file without either, the first line that is not empty. Empty if there is none, or if the file could
/// not be printed. A pure function.
QString firmwareText(const QString &reply);
