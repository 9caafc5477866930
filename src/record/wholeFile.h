#pragma once

#include <QByteArray>
#include <QString>

/// Writes a file that is there completely or not at all: it is written beside its place and renamed. An earlier file
/// stays if that fails. The reason of a failure, in the system's words; empty when the file is in its place.
QString writeWholeFile(const QString &path, const QByteArray &bytes);
