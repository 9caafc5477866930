#pragma once

#include <QDateTime>
#include <QString>

/// Where a station leaves the files of a run below the folder that was chosen for results:
/// "log/<yyyy-MM-dd>_<MAC without colons>", or the sub-folder there that a later run has moved them to, which is named
/// after the time of the log ("14-03-59"). `begin` and `end` by the station's clock. Empty if there is no such folder.
QString runFolderOf(const QString &results, const QString &mac, const QDateTime &begin, const QDateTime &end);
