#include "historyui/reader/runFolderOf.h"

#include <QDir>
#include <QTime>

namespace {
/// How long after the end of a run its log may be written.
constexpr int patience = 60;

QTime timeOfName(const QString &name)
{
    return QTime::fromString(name.section(QLatin1Char('_'), 0, 0), QStringLiteral("HH-mm-ss"));
}
} // namespace

QString runFolderOf(const QString &results, const QString &mac, const QDateTime &begin, const QDateTime &end)
{
    const QDir folder(
        QStringLiteral("%1/log/%2_%3")
            .arg(results, begin.toString(QStringLiteral("yyyy-MM-dd")), QString(mac).remove(QLatin1Char(':'))));
    if (mac.isEmpty() || mac.contains(QLatin1Char('/')) || !folder.exists()) {
        return {};
    }
    const QTime wholeSecond(end.time().hour(), end.time().minute(), end.time().second());
    const QStringList earlier = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    QString found;
    int nearest = patience;
    for (const QString &name : earlier) {
        const QTime time = timeOfName(name);
        const int late = time.isValid() ? wholeSecond.secsTo(time) : -1;
        if (late >= 0 && late < nearest) {
            nearest = late;
            found = name;
        }
    }
    return found.isEmpty() ? folder.path() : folder.filePath(found);
}
