#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

/// The PC's processes whose command line holds the text, each as "number command line".
inline QStringList processesWith(const QByteArray &text)
{
    QStringList found;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &name : names) {
        QFile file(QStringLiteral("/proc/%1/cmdline").arg(name));
        const bool readable = name.toInt() > 0 && file.open(QIODevice::ReadOnly);
        const QByteArray commandLine = readable ? file.readAll().replace('\0', ' ') : QByteArray();
        if (commandLine.contains(text)) {
            found.append(name + QLatin1Char(' ') + QString::fromUtf8(commandLine));
        }
    }
    return found;
}
