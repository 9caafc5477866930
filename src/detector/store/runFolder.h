#pragma once

#include <QString>

/// The folder of one camera and one day: "<savePath>/log/<yyyy-MM-dd>_<MAC without colons>". The facade supplies
/// `savePath` and `macAddress`. Where evidence is kept, day and camera are those of the begin of the run under way, or
/// of the last one, whatever `date` and the link say now.
QString logFolder(const QString &date);

/// Whether what the camera's shell says now comes from the camera after which the run's folder is named. Where evidence
/// is kept it does not, or nobody can tell, once another MAC address has been read, and from the loss of the shell
/// until the address has been read anew; else it is never asked. Runner thread.
bool isCameraOfRunFolder();

/// Creates `folder` with all missing parents; the reason in the system's words if it is not there afterwards, else an
/// empty text. Where evidence is kept, the first call in a run moves what an earlier run has left there into a
/// sub-folder, named after the time of that run's log ("14-03-59"); a file that cannot be moved is noted as not saved.
/// Runner thread.
QString openLogFolder(const QString &folder);
