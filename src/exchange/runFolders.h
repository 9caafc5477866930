#pragma once

#include "record/RunRecord.h"

#include <optional>
#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

// The folders that earlier runs have left: "<yyyy-MM-dd>_<MAC without colons>" with the last run's DetectorLog.txt in
// it and, in sub-folders named after the time of their logs ("14-03-59", "14-03-59_2"), those of the runs before.

/// What the name of such a folder tells.
struct RunFolderName
{
    QDate day;
    QString mac; ///< with colons; empty where the station knew none
};
std::optional<RunFolderName> readRunFolderName(const QString &name);

/// A log that was found.
struct FoundLog
{
    QString path;
    QString folderName; ///< of the day and the camera, whatever sub-folder the log lies in
    QString timeName;   ///< of the sub-folder; empty for the last run's
};

/// All logs below `path`, which may be such a folder itself. Those of one day and camera follow each other in the order
/// of their runs.
QList<FoundLog> findLogs(const QString &path);

/// The moment at which the log was written, as far as it is known: by the sub-folder's name, else by the file's own
/// time if that lies on the folder's day or the night after; else the begin of the day.
QDateTime logTime(const RunFolderName &folder, const QString &timeName, const QDateTime &fileTime);

/// The run's id: the same for the same log of the same day and camera, however often, from wherever and by whomever it
/// is read. `sameBefore` counts the earlier logs of that folder that hold the same: they are other runs.
QUuid runIdOfLog(const QString &folderName, const QByteArray &content, int sameBefore);

/// The record that the log of `folder` stands for; nothing if it names no component. `unknownLines` counts what could
/// not be understood.
std::optional<RunRecord> recordOfLog(const RunFolderName &folder, const QByteArray &content, const QDateTime &time,
                                     const QUuid &id, int *unknownLines);
