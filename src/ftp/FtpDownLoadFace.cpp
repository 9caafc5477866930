#include "ftp/FtpDownLoadFace.h"

#include "detector/store/KestDetectorFace.h"
#include "ftp/FtpDownLoad.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

namespace {
constexpr int waitSeconds = 15000; // a safety net only: the worker always answers within its own limit
} // namespace

FtpDownLoadFace *FtpDownLoadFace::Get()
{
    static auto *ptr = new FtpDownLoadFace;
    return ptr;
}

FtpDownLoadFace::FtpDownLoadFace()
{
    connect(this, &FtpDownLoadFace::signal_ftpDownLoad, FtpDownLoad::Get(), &FtpDownLoad::slot_ftpDownLoad);
}

int FtpDownLoadFace::ftpDownLoad(const QString &url, const QString &localFile)
{
    if (QThread::currentThread() == thread()) {
        qWarning("A download from the thread that has to serve it");
        return -1;
    }
    // Getting rid of a large file of an earlier run takes many milliseconds, which the window's thread does not have.
    // As long as the file is open here, its removal there is that of a name.
    QFile earlier(localFile);
    if (QFileInfo(earlier).isFile()) {
        earlier.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    return m_sync.call(
        m_oneCall, waitSeconds, KestDetectorFace::Get()->run.stopSign(),
        [&] { emit signal_ftpDownLoad(url, &m_sync, localFile); }, [] {});
}

void FtpDownLoadFace::giveUp()
{
    m_sync.abandon();
}
