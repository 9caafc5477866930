#include "detector/store/runFolder.h"

#include "detector/store/KestDetectorFace.h"

#include <filesystem>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <system_error>

namespace {
std::filesystem::path native(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

/// The earlier run's time: of its log, which it wrote last, or of whatever it wrote last.
QDateTime timeOf(const QFileInfoList &files)
{
    QDateTime latest;
    for (const QFileInfo &file : files) {
        if (file.fileName() == QLatin1String("DetectorLog.txt")) {
            return file.lastModified();
        }
        if (!latest.isValid() || file.lastModified() > latest) {
            latest = file.lastModified();
        }
    }
    return latest;
}

void setAsideEarlierRun(const QDir &folder)
{
    const QFileInfoList files = folder.entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    if (files.isEmpty()) {
        return;
    }
    const QString time = timeOf(files).toString(QStringLiteral("HH-mm-ss"));
    QString name = time;
    for (int count = 2; folder.exists(name); ++count) {
        name = QStringLiteral("%1_%2").arg(time, QString::number(count));
    }
    std::error_code error;
    std::filesystem::create_directory(native(folder.filePath(name)), error);
    for (const QFileInfo &file : files) {
        if (!error) {
            std::filesystem::rename(native(file.filePath()),
                                    native(folder.filePath(name) + QLatin1Char('/') + file.fileName()), error);
        }
        if (error) {
            KestDetectorFace::Get()->run.noteUnsaved(
                {file.filePath(), QString::fromLocal8Bit(error.message().c_str())});
        }
    }
}
} // namespace

QString logFolder(const QString &date)
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    const RunIdentity run = face->run.identity();
    const bool ofTheBegin = face->safeguards().keepsEvidence() && run.begin.isValid();
    const QString day = ofTheBegin ? run.begin.toString(QStringLiteral("yyyy-MM-dd")) : date;
    QString mac = ofTheBegin ? run.macAddress : face->macAddress.get();
    return face->savePath.get() + QStringLiteral("/log/%1_%2").arg(day, mac.remove(QLatin1Char(':')));
}

bool isCameraOfRunFolder()
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    const RunIdentity run = face->run.identity();
    if (!face->safeguards().keepsEvidence() || !run.begin.isValid()) {
        return true;
    }
    // In this order: the address is the new camera's before it counts as current.
    const bool isCurrent = face->macAddressIsCurrent;
    const QString address = face->macAddress;
    return address == run.macAddress && (isCurrent || address.isEmpty());
}

QString openLogFolder(const QString &folder)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    std::error_code error;
    std::filesystem::create_directories(native(folder), error);
    if (error) {
        return QString::fromLocal8Bit(error.message().c_str());
    }
    if (face->safeguards().keepsEvidence() && face->run.claimFolder()) {
        setAsideEarlierRun(QDir(folder));
    }
    return {};
}
