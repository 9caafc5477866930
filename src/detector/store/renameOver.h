#pragma once

#include <QString>

/// Gives the file `from` the name `to`, in place of a file that has it, which `QFile::rename` would not do. Why it
/// could not be done, in the system's words; else empty.
QString renameOver(const QString &from, const QString &to);
