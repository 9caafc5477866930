#include "exchange/runFolders.h"

#include "exchange/detectorLog.h"

#include <algorithm>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <tuple>

namespace {
const QLatin1String logName("DetectorLog.txt");

/// Never changes: the ids of all runs that were taken in from folders are made of it.
const QUuid logNamespace(0x5d1b7c1e, 0x94a2, 0x4f0b, 0x8e, 0x35, 0x27, 0x60, 0x1f, 0x4a, 0xc9, 0x12);

const QRegularExpression &timeNamePattern()
{
    static const QRegularExpression pattern(QStringLiteral(R"(\A(\d\d-\d\d-\d\d)(?:_(\d{1,4}))?\z)"));
    return pattern;
}

/// A time of the PC's own zone with the offset that holds there at that moment.
QDateTime withOffset(const QDateTime &local)
{
    return local.toOffsetFromUtc(local.offsetFromUtc());
}

/// The last run's log is the latest one.
auto orderOf(const FoundLog &log)
{
    const QRegularExpressionMatch match = timeNamePattern().match(log.timeName);
    return std::make_tuple(log.folderName, log.timeName.isEmpty(), match.captured(1), match.captured(2).toInt(),
                           log.path);
}
} // namespace

std::optional<RunFolderName> readRunFolderName(const QString &name)
{
    static const QRegularExpression pattern(QStringLiteral(R"(\A(\d{4}-\d\d-\d\d)_((?:[0-9A-Fa-f]{12})?)\z)"));
    const QRegularExpressionMatch match = pattern.match(name);
    RunFolderName read{QDate::fromString(match.captured(1), Qt::ISODate), match.captured(2)};
    if (!match.hasMatch() || !read.day.isValid()) {
        return {};
    }
    constexpr int digitsOfByte = 2;
    for (int at = static_cast<int>(read.mac.size()) - digitsOfByte; at > 0; at -= digitsOfByte) {
        read.mac.insert(at, QLatin1Char(':'));
    }
    return read;
}

QList<FoundLog> findLogs(const QString &path)
{
    QList<FoundLog> logs;
    QDirIterator files(QDir(path).absolutePath(), {logName}, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QDir folder = QFileInfo(file).dir();
        const QString name = folder.dirName();
        const QString above = QFileInfo(folder.path()).dir().dirName();
        if (readRunFolderName(name)) {
            logs.append({file, name, {}});
        } else if (timeNamePattern().match(name).hasMatch() && readRunFolderName(above)) {
            logs.append({file, above, name});
        }
    }
    std::sort(logs.begin(), logs.end(),
              [](const FoundLog &left, const FoundLog &right) { return orderOf(left) < orderOf(right); });
    return logs;
}

QDateTime logTime(const RunFolderName &folder, const QString &timeName, const QDateTime &fileTime)
{
    const QTime time = QTime::fromString(timeNamePattern().match(timeName).captured(1), QStringLiteral("HH-mm-ss"));
    if (time.isValid()) {
        return withOffset(QDateTime(folder.day, time));
    }
    const QDateTime local = fileTime.toLocalTime();
    const bool isOfThatDay = local.date() == folder.day || local.date() == folder.day.addDays(1);
    return withOffset(isOfThatDay ? local : folder.day.startOfDay());
}

QUuid runIdOfLog(const QString &folderName, const QByteArray &content, int sameBefore)
{
    const QByteArray name = folderName.toUtf8() + '\n' + QByteArray::number(sameBefore) + '\n' + content;
    return QUuid::createUuidV5(logNamespace, name);
}

std::optional<RunRecord> recordOfLog(const RunFolderName &folder, const QByteArray &content, const QDateTime &time,
                                     const QUuid &id, int *unknownLines)
{
    const LoggedRun log = readDetectorLog(QString::fromUtf8(content));
    *unknownLines = log.unknownLines;
    if (log.components.isEmpty()) {
        return {};
    }
    RunRecord run;
    run.id = id;
    run.camera.mac = folder.mac;
    run.begin = time;
    run.end = time;
    run.components = log.components;
    QStringList failed;
    bool tested = false;
    for (const ComponentRecord &component : log.components) {
        PlannedComponent planned{component.id, component.key, {}};
        for (const ItemRecord &item : component.items) {
            tested = true;
            planned.items.append(item.number);
            if (component.verdict == Verdict::Failed && item.verdict != Verdict::Passed) {
                failed.append(item.key);
            }
        }
        run.plan.append(planned);
    }
    run.outcome = !tested ? Outcome::Stopped : failed.isEmpty() ? Outcome::Passed : Outcome::Failed;
    run.reason = failed.join(QLatin1String(", "));
    return run;
}
