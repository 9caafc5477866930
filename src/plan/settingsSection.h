#pragma once

#include <QList>
#include <QString>

/// One line of a section of the settings file, as somebody has written it.
struct SettingsLine
{
    QString key;
    QString value;
};

/// The lines of one section by ascending key; none if the file or the section is not there. A value keeps its commas.
QList<SettingsLine> readSettingsSection(const QString &path, const QString &section);

/// What a wrong line is reported as: file, section, key, value and reason in one line.
QString wrongLine(const QString &file, const QString &section, const SettingsLine &line, const QString &reason);
