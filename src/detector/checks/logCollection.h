#pragma once

#include <QList>
#include <QString>

// Copies the camera's logs into the folder of the camera and the day (`logFolder`). Directories are packed on the
// camera, fetched over FTP and deleted there again; the output of shell commands is written to text files.
// Runner thread only: every item makes blocking shell and FTP calls.
//
// Where the safeguards keep evidence, a file is called "<name>.part" until it is complete: for good where the command
// failed that was to make it.
//
// Nothing stops an item early but the closing program, which leaves earlier files as they are: each of its steps runs
// even if an earlier one failed. A file that cannot be written leaves a warning with its path in the debug output.

/// Component routine, items 0 to 9 in the order below. Shows its record in the event table, but leaves none for the
/// detection log.
QString downLoadLogs(int *verdict, const QList<int> &items);
/// The items that it knows.
QList<int> logItems();

// Items. `date` ("yyyy-MM-dd") chooses the folder; `*verdict` takes the result of the last shell call, 0 or -1. The
// returned text is always empty.

QString downloadCameraLog(int *verdict, const QString &date);       ///< log.tar.gz
QString downloadPrivateLog(int *verdict, const QString &date);      ///< private.tar.gz
QString downloadDmesgLog(int *verdict, const QString &date);        ///< dmesg.txt
QString downloadPstreePsLog(int *verdict, const QString &date);     ///< pstree_ps.txt
QString downloadIfconfLog(int *verdict, const QString &date);       ///< ifconfig.txt
QString downloadVersionLog(int *verdict, const QString &date);      ///< kest_verison.txt
QString downloadNetConfLog(int *verdict, const QString &date);      ///< netconf.tar.gz
QString downloadIwDevAp0ScanLog(int *verdict, const QString &date); ///< iw_dev_ap0_scan.txt
QString downloadMciInfoLog(int *verdict, const QString &date);      ///< mci_info.txt
QString downloadSharefsLog(int *verdict, const QString &date);      ///< sharefs.tar.gz
