#include "ftp/FtpDownLoad.h"

#include "detector/store/KestDetectorFace.h"
#include "detector/store/serveEvents.h"
#include "ftp/FtpAccessManager.h"
#include "telnet/sync/SyncCondMutexData.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QNetworkRequest>
#include <QUrl>
#include <utility>

namespace {
constexpr int pieceSize = 64 * 1024;
constexpr int success = 0;
constexpr int failure = -1;

/// The camera's URL with the login of the settings.
QUrl withLogin(const QString &text)
{
    const Settings &settings = KestDetectorFace::Get()->settings();
    QUrl url(text);
    url.setPort(settings.ftpPort.toInt());
    url.setUserName(settings.ftpName, QUrl::DecodedMode);
    url.setPassword(settings.ftpPsw, QUrl::DecodedMode);
    return url;
}

/// Qt's manager loads plug-ins that ask the system about its networks: D-Bus and 2 MiB of memory for something that a
/// download from the camera does not care about. It is made while none can be found.
std::unique_ptr<QNetworkAccessManager> makeManager(QObject *parent)
{
    const QStringList folders = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({});
    auto manager = std::make_unique<FtpAccessManager>(parent);
    QCoreApplication::setLibraryPaths(folders);
    return manager;
}

/// A full disk takes a part, and tells why only when it is asked for the rest.
bool writeAll(QFile &file, const char *data, qint64 size)
{
    qint64 taken = 0;
    for (qint64 done = 0; done < size; done += taken) {
        taken = file.write(data + done, size - done);
        if (taken <= 0) {
            return false;
        }
    }
    return true;
}
} // namespace

FtpDownLoad *FtpDownLoad::Get()
{
    static auto *ptr = new FtpDownLoad;
    return ptr;
}

FtpDownLoad::FtpDownLoad()
    : file(std::make_unique<QFile>()), manager(makeManager(this)), m_piece(pieceSize, Qt::Uninitialized)
{
    connect(manager.get(), &QNetworkAccessManager::finished, this, &FtpDownLoad::slot_replyFinished);
}

FtpDownLoad::~FtpDownLoad()
{
    dropReply();
}

void FtpDownLoad::slot_ftpDownLoad(const QString &url, SyncCondMutexData *sync, const QString &localFile)
{
    if (sync->isUnwanted() || KestDetectorFace::Get()->closing()) {
        sync->complete(failure); // an earlier file stays
        return;
    }
    dropReply();
    closeFile();
    loadResult = success;
    loadDone = false;

    reply = manager->get(QNetworkRequest(withLogin(url)));
    connect(reply, &QNetworkReply::readyRead, this, &FtpDownLoad::slot_readContent);
    connect(reply, &QNetworkReply::errorOccurred, this, &FtpDownLoad::slot_loadError);
    openFile(localFile); // while the camera takes the connection

    serveEventsUntil(downloadLimitMs,
                     [&] { return loadDone || KestDetectorFace::Get()->closing() || sync->isUnwanted(); });
    if (!loadDone && sync->isUnwanted() && !KestDetectorFace::Get()->closing()) {
        dropReply();
        dropFile();
    }
    m_earlier.remove();
    const int outcome = loadDone ? loadResult : failure;
    loadResult = success;
    loadDone = false;
    sync->complete(outcome);
}

void FtpDownLoad::slot_readContent()
{
    if (reply == nullptr || sender() != reply) {
        return;
    }
    // Everything that is there, by way of one buffer that stays.
    qint64 size = 0;
    while ((size = reply->read(m_piece.data(), m_piece.size())) > 0) {
        if (file->isOpen() && !writeAll(*file, m_piece.constData(), size)) {
            reportFileError("cannot write", file->errorString());
        }
    }
}

void FtpDownLoad::slot_loadError(QNetworkReply::NetworkError error)
{
    if (reply == nullptr || sender() != reply) {
        return;
    }
    // Not Qt's own error text, which quotes the whole URL with the password.
    qWarning() << "download failed:" << reply->url().path() << error;
    loadResult = failure;
    loadDone = true;
}

void FtpDownLoad::slot_replyFinished(QNetworkReply *finished)
{
    finished->deleteLater();
    if (finished != reply) {
        return;
    }
    loadResult = finished->error() == QNetworkReply::NoError ? success : failure;
    loadDone = true;
    reply = nullptr;
    closeFile();
    if (loadResult == success) {
        giveFileItsName();
    }
}

/// Whatever an earlier download still does, it no longer reaches its file nor the slots.
void FtpDownLoad::dropReply()
{
    QNetworkReply *earlier = reply;
    reply = nullptr;
    if (earlier != nullptr) {
        earlier->disconnect(this);
        earlier->abort();
        earlier->deleteLater();
    }
}

void FtpDownLoad::openFile(const QString &localFile)
{
    m_fileFailed = false;
    // Made anew: ext4 writes a file that was emptied instead to the disk as it is closed, for which the window's thread
    // would wait. A link is followed.
    m_place = PartFile(localFile, KestDetectorFace::Get()->safeguards().keepsEvidence());
    const QString path = m_place.writtenTo();
    m_earlier = EarlierFile(path);
    file->setFileName(path);
    // Unbuffered: what arrived of a transfer that never ends is in the file when the program does.
    if (!file->open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
        reportFileError("cannot create", file->errorString());
    }
}

void FtpDownLoad::closeFile()
{
    if (file->isOpen() && !file->flush()) {
        reportFileError("cannot write", file->errorString());
    }
    file->close();
}

/// As if it had never been begun.
void FtpDownLoad::dropFile()
{
    file->close();
    if (const QFileInfo written(file->fileName()); written.isFile() && !written.isSymLink()) {
        file->remove();
    }
    m_earlier.putBack();
}

void FtpDownLoad::giveFileItsName()
{
    if (m_fileFailed) {
        return;
    }
    if (const QString reason = m_place.takeName(); !reason.isEmpty()) {
        reportFileError("cannot rename", reason);
    }
}

void FtpDownLoad::reportFileError(const char *what, const QString &reason)
{
    if (!std::exchange(m_fileFailed, true)) {
        qWarning() << what << file->fileName() << reason;
        KestDetectorFace::Get()->run.noteUnsaved({m_place.path(), reason});
    }
}
