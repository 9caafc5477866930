#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

/// Writes a file that is there completely or not at all: it is written beside its place and renamed. An earlier file
/// stays if that fails. The reason of a failure, in the system's words; empty when the file is in its place.
QString writeWholeFile(const QString &path, const QByteArray &bytes);

/// Writes all of it to an open, unbuffered device. The reason of a failure, as above; a part may be written then.
QString writeAll(QIODevice *file, const QByteArray &bytes);
