#pragma once

#include "support/fileContent.h"

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QStringList>

/// The PC's processes whose command line holds the text, each as "number command line".
inline QStringList processesWith(const QByteArray &text)
{
    QStringList found;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &name : names) {
        const QByteArray commandLine =
            name.toInt() > 0 ? fileContent(QStringLiteral("/proc/%1/cmdline").arg(name), {}).replace('\0', ' ')
                             : QByteArray();
        if (commandLine.contains(text)) {
            found.append(name + QLatin1Char(' ') + QString::fromUtf8(commandLine));
        }
    }
    return found;
}
