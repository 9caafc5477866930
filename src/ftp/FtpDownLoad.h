#pragma once

#include "detector/store/PartFile.h"
#include "ftp/EarlierFile.h"

#include <cstdint>
#include <memory>
#include <QByteArray>
#include <QFile>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QtGlobal>

class QNetworkAccessManager;
struct SyncCondMutexData;

/// Fetches one file at a time from the camera's FTP server (RFC 959, binary transfer). Lives on the GUI thread; its
/// slot serves the requests of `FtpDownLoadFace` and keeps serving the thread's events while it waits.
///
/// Where the safeguards keep evidence, the file is called "<name>.part" until it is complete.
///
/// User, password and port come from the facade, at the time of each download. A file that cannot be created or
/// written is reported in the debug output only: the result is that of the transfer.
class FtpDownLoad : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(FtpDownLoad)

public:
    static constexpr int downloadLimitMs = 10000;

    /// Created on first use, on the GUI thread; lives until the process ends.
    static FtpDownLoad *Get();

    FtpDownLoad();
    ~FtpDownLoad() override;

public slots:
    /// Downloads `url` ("ftp://<address>/<path>") into `localFile`, for at most `downloadLimitMs`, and completes `sync`
    /// with 0, or with -1 when the transfer failed, took too long or the program is closing. An earlier file loses its
    /// name as the download begins, and is removed at its end; a closing program begins none. When the caller's run is
    /// stopped the transfer is given up with -1, and an earlier file is there again as it was.
    /// A transfer that took too long goes on writing its own file until it ends or the next download begins.
    void slot_ftpDownLoad(const QString &url, SyncCondMutexData *sync, const QString &localFile);
    void slot_readContent();
    void slot_loadError(QNetworkReply::NetworkError error);
    void slot_replyFinished(QNetworkReply *finished);

private:
    void dropReply();
    void openFile(const QString &localFile);
    void closeFile();
    void dropFile();
    void giveFileItsName();
    void reportFileError(const char *what, const QString &reason);

    QPointer<QNetworkReply> reply; ///< the current download's; null before the first and after a successful one
    std::unique_ptr<QFile> file;
    std::unique_ptr<QNetworkAccessManager> manager; ///< owns the replies
    std::int32_t loadResult = 0;                    ///< of the current download: 0 or -1, once loadDone is set
    bool loadDone = false;
    PartFile m_place;          ///< of the current file
    EarlierFile m_earlier;     ///< in its place
    QByteArray m_piece;        ///< what is on its way from the reply to the file
    bool m_fileFailed = false; ///< the current file's failure has been reported
};
