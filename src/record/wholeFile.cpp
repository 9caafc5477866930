#include "record/wholeFile.h"

#include <QSaveFile>

QString writeWholeFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // A full disk takes a part and tells why only when it is asked for the rest, which Qt's buffer does not do.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 taken = file.write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0) {
            return file.errorString();
        }
        done += taken;
    }
    return file.commit() ? QString() : file.errorString();
}
