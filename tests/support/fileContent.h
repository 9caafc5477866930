#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// All bytes of a file, also of one that the kernel makes while it is read; `otherwise` when it cannot be opened.
inline QByteArray fileContent(const QString &path, const QByteArray &otherwise = "(no file)")
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : otherwise;
}
