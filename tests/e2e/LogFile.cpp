#include "LogFile.h"

#include "waiting.h"

#include <QFile>

QByteArray LogFile::content() const
{
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool LogFile::waitFor(const QByteArray &text, int times, int limitMs) const
{
    return waitUntil([&] { return count(text) >= times; }, limitMs);
}
