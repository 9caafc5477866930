#include "plan/settingsSection.h"

#include <QSettings>

QList<SettingsLine> readSettingsSection(const QString &path, const QString &section)
{
    QSettings settings(path, QSettings::IniFormat);
    settings.beginGroup(section);
    QList<SettingsLine> lines;
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        // A value with a comma comes as a list.
        lines.append({key, settings.value(key).toStringList().join(QLatin1Char(','))});
    }
    return lines;
}

QString wrongLine(const QString &file, const QString &section, const SettingsLine &line, const QString &reason)
{
    return QStringLiteral("%1: %2/%3=\"%4\": %5").arg(file, section, line.key, line.value, reason);
}
