#include "history/door/Spool.h"

#include "record/recordJson.h"
#include "record/wholeFile.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace {
const QString ending = QStringLiteral(".json");
const QString asideEnding = QStringLiteral(".unreadable");
} // namespace

Spool::Spool(const QString &storePath) : m_folder(storePath + QStringLiteral("-spool")) {}

QString Spool::put(const RunRecord &run) const
{
    QDir().mkpath(m_folder);
    return writeWholeFile(QDir(m_folder).filePath(run.id.toString(QUuid::WithoutBraces) + ending), toJson(run));
}

QStringList Spool::files(int most) const
{
    QStringList found;
    QDirIterator entries(m_folder, {QLatin1Char('*') + ending}, QDir::Files);
    while (found.size() < most && entries.hasNext()) {
        found.append(entries.next());
    }
    return found;
}

std::optional<RunRecord> Spool::read(const QString &file, QString *problem)
{
    QFile content(file);
    if (!content.open(QIODevice::ReadOnly)) {
        // Another program may have taken it in meanwhile.
        *problem = content.exists()
                       ? QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), content.errorString())
                       : QString();
        return {};
    }
    QString reason;
    std::optional<RunRecord> run = fromJson(content.readAll(), &reason);
    if (!run) {
        *problem = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), reason);
        content.rename(file + asideEnding);
    }
    return run;
}

void Spool::remove(const QString &file)
{
    QFile::remove(file);
}
