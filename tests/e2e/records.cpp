#include "records.h"

#include "../record/outsideProgram.h"
#include "support/fileContent.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QTemporaryDir>

namespace {
/// The outcomes that an exit code may stand for; none: any, or no record at all.
QStringList outcomesOf(int exitCode)
{
    static const QMap<int, QStringList> outcomes{
        {0, {QStringLiteral("passed")}},
        {1, {QStringLiteral("failed")}},
        {3, {QStringLiteral("error")}},
        {5, {QStringLiteral("passed"), QStringLiteral("failed")}},
    };
    return outcomes.value(exitCode);
}

QString printed(const QString &verdict)
{
    static const QMap<QString, QString> texts{{QStringLiteral("passed"), QStringLiteral("OK")},
                                              {QStringLiteral("failed"), QStringLiteral("NG")},
                                              {QStringLiteral("warning"), QStringLiteral("warning")},
                                              {QStringLiteral("notTested"), QStringLiteral("not tested")}};
    return texts.value(verdict, verdict);
}

/// As the station prints them: "Camera: OK, Lens: NG". The log collection is not among them.
QString verdictsIn(const QJsonObject &record)
{
    QStringList verdicts;
    const QJsonArray components = record.value(QLatin1String("components")).toArray();
    for (const QJsonValue &value : components) {
        const QJsonObject component = value.toObject();
        if (component.value(QLatin1String("key")).toString() != QLatin1String("log")) {
            verdicts.append(component.value(QLatin1String("name")).toString() + QStringLiteral(": ") +
                            printed(component.value(QLatin1String("verdict")).toString()));
        }
    }
    return verdicts.join(QStringLiteral(", "));
}
} // namespace

QList<QByteArray> recordsIn(const QByteArray &json)
{
    if (json.startsWith("{\n")) {
        return {json};
    }
    QList<QByteArray> records = json.split('\n');
    records.removeAll({});
    return records;
}

QStringList schemaProblems(const QList<QByteArray> &records)
{
    QStringList problems;
    const QTemporaryDir folder;
    QStringList files;
    for (const QByteArray &record : records) {
        files.append(folder.filePath(QStringLiteral("%1.json").arg(files.size())));
        QFile file(files.constLast());
        const bool written = file.open(QIODevice::WriteOnly) && file.write(record) == record.size();
        problems.append(written ? QString() : file.errorString());
    }
    if (files.isEmpty()) {
        return problems;
    }
    const ProgramEnd valid = runOutside(QStringLiteral("/usr/bin/python3"),
                                        QStringList{QStringLiteral(KEST_SOURCE_DIR "/tests/record/validate.py"),
                                                    QStringLiteral(KEST_SOURCE_DIR "/docs/record.schema.json")} +
                                            files);
    for (int i = 0; i < files.size(); ++i) {
        if (valid.exitCode != 0 && (valid.output.contains(files.at(i)) || !valid.output.contains(folder.path()))) {
            problems[i] += valid.output;
        }
    }
    return problems;
}

QString recordsProblem(const Story &story, const StoryOutcome &outcome)
{
    QStringList outcomes;
    QJsonObject last;
    for (const QByteArray &record : outcome.records) {
        last = QJsonDocument::fromJson(record).object();
        outcomes.append(last.value(QLatin1String("outcome")).toString());
    }
    const QStringList expected = outcomesOf(outcome.exitCode);
    // With the exit code 3 a run has been lost, or there was no camera to run.
    const bool ran = !story.verdicts.isEmpty() && !expected.isEmpty();
    if (!ran) {
        return expected.isEmpty() || outcomes.isEmpty() ? QString() : QStringLiteral("a record, and no run");
    }
    const auto isExpected = [&expected](const QString &text) { return expected.contains(text); };
    if (std::none_of(outcomes.begin(), outcomes.end(), isExpected)) {
        return QStringLiteral("the records' outcomes are \"%1\" with the exit code %2")
            .arg(outcomes.join(QStringLiteral(", ")), QString::number(outcome.exitCode));
    }
    const QString verdicts = story.verdicts.left(story.verdicts.lastIndexOf(QStringLiteral("Result: ")));
    const QString recorded = verdictsIn(last);
    return verdicts == recorded + (recorded.isEmpty() ? QString() : QStringLiteral(", "))
               ? QString()
               : QStringLiteral("the record's verdicts are \"%1\"").arg(recorded);
}

QString partsProblem(const StationProcess &station)
{
    const QFileInfo file(station.recordsPath());
    QStringList names = file.dir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.removeAll(file.fileName());
    if (!names.isEmpty()) {
        return QStringLiteral("beside the record lies ") + names.join(QLatin1Char(' '));
    }
    const QByteArray json = fileContent(station.recordsPath(), {});
    if (!json.isEmpty() && !json.endsWith('\n')) {
        return QStringLiteral("the last record is cut off");
    }
    const QList<QByteArray> records = recordsIn(json);
    for (const QByteArray &record : records) {
        if (!QJsonDocument::fromJson(record).isObject()) {
            return QStringLiteral("no record: ") + QString::fromUtf8(record);
        }
    }
    return {};
}
