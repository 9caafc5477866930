#pragma once

#include "telnet/sync/FairMutex.h"
#include "telnet/sync/SyncCondMutexData.h"

#include <QObject>
#include <QString>

/// Fetches files from the camera for worker threads: each call passes its request to `FtpDownLoad` on the GUI thread
/// and blocks until the transfer has ended. Calls from several threads are served one at a time.
/// Never to be called from the GUI thread itself, which has to serve the request.
class FtpDownLoadFace : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FtpDownLoadFace)

public:
    /// Created on first use, on the GUI thread; lives until the process ends.
    static FtpDownLoadFace *Get();

    /// Downloads `url` ("ftp://<address>/<path>", without user and port) into `localFile`, which is created or
    /// truncated. 0 downloaded, -1 failed. When the run of the calling thread is stopped, -1, and an earlier file is
    /// there as it was.
    int ftpDownLoad(const QString &url, const QString &localFile);

    /// The program is closing: every present and later call returns -1 at once. From any thread.
    void giveUp();

signals:
    void signal_ftpDownLoad(QString url, SyncCondMutexData *sync, QString localFile);

private:
    FtpDownLoadFace();

    SyncCondMutexData m_sync;
    FairMutex m_oneCall; ///< one download at a time, whoever asks
};
