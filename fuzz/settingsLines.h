#pragma once

#include "plan/settingsSection.h"

#include <cstddef>
#include <cstdint>
#include <QString>
#include <QStringList>

inline QStringList textLines(const std::uint8_t *data, std::size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size)).split(QLatin1Char('\n'));
}

/// Each line of the input as "key=value".
inline QList<SettingsLine> settingsLines(const std::uint8_t *data, std::size_t size)
{
    QList<SettingsLine> lines;
    const QStringList texts = textLines(data, size);
    for (const QString &text : texts) {
        const int sign = text.indexOf(QLatin1Char('='));
        lines.append({text.left(sign), sign < 0 ? QString() : text.mid(sign + 1)});
    }
    return lines;
}
