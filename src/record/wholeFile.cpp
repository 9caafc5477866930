#include "record/wholeFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QIODevice>
#include <QSaveFile>

QString writeAll(QIODevice *file, const QByteArray &bytes)
{
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 taken = file->write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0) {
            return file->errorString();
        }
        done += taken;
    }
    return {};
}

QString writeWholeFile(const QString &path, const QByteArray &bytes)
{
    const QFileInfo place(path);
    if (place.exists() && !place.isFile() && !place.isDir()) {
        return QCoreApplication::translate("wholeFile", "Not a regular file"); // a device would be replaced
    }
    QSaveFile file(path);
    // A full disk takes a part and tells why only when it is asked for the rest, which Qt's buffer does not do.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    QString problem = writeAll(&file, bytes);
    if (!problem.isEmpty()) {
        return problem;
    }
    return file.commit() ? QString() : file.errorString();
}
