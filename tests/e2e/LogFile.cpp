#include "LogFile.h"

#include "support/fileContent.h"
#include "waiting.h"

QByteArray LogFile::content() const
{
    return fileContent(m_path, {});
}

bool LogFile::waitFor(const QByteArray &text, int times, int limitMs) const
{
    return waitUntil([&] { return count(text) >= times; }, limitMs);
}
