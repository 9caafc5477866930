#include "historyui/commands/runTexts.h"

#include "exchange/csv.h"
#include "historyui/commands/terminalText.h"
#include "record/limitText.h"
#include "record/plainText.h"
#include "record/recordNames.h"
#include "report/plots.h"
#include "report/Report.h"

#include <algorithm>
#include <array>
#include <QJsonArray>
#include <QJsonDocument>

namespace {
constexpr double microsecondsPerMs = 1000;

QString idText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces);
}

/// As much of it as tells it from all others, as good as always.
QString shortId(const QUuid &id)
{
    constexpr int digits = 8;
    return idText(id).left(digits);
}

QString clockText(const QDateTime &time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString findingText(const RunSummary &run)
{
    if (run.firstFinding.isEmpty()) {
        return run.reason;
    }
    return run.failedItems > 1 ? QStringLiteral("%1 and %2 more").arg(run.firstFinding).arg(run.failedItems - 1)
                               : run.firstFinding;
}

/// A line of a heading and a text, left out where there is no text.
QString named(const char *name, const QString &text)
{
    constexpr int width = 11;
    const QString shown = terminalText(text);
    return shown.isEmpty() ? QString() : QStringLiteral("%1 %2\n").arg(QLatin1String(name), -width).arg(shown);
}

QString measurementText(const Measurement &measurement)
{
    QString text = valueText(measurement.value);
    if (!measurement.unit.isEmpty()) {
        text += QLatin1Char(' ') + measurement.unit;
    }
    if (measurement.limit) {
        text += QStringLiteral(" (%1)").arg(limitText(*measurement.limit));
        text += measurement.limit->admits(measurement.value) ? QString() : QStringLiteral("  OUTSIDE");
    }
    return text;
}

QString requestText(const ItemRecord &item)
{
    if (!item.request || (item.request->kind == RequestEnd::Kind::Answered && item.request->attempts == 1)) {
        return {};
    }
    QString text = QStringLiteral(", request %1").arg(nameOf(item.request->kind));
    if (item.request->code != 0) {
        text += QStringLiteral(" (code %1)").arg(item.request->code);
    }
    return item.request->attempts > 1 ? text + QStringLiteral(", %1 attempts").arg(item.request->attempts) : text;
}

QString itemText(const ItemRecord &item)
{
    QString text =
        QStringLiteral("\n%1: %2 (%3%4)\n")
            .arg(terminalText(item.key), nameOf(item.verdict), durationText(item.duration), requestText(item));
    const QString message = terminalLines(item.message.trimmed());
    if (!message.isEmpty()) {
        text += QStringLiteral("    ") + QString(message).replace(QLatin1Char('\n'), QLatin1String("\n    ")) +
                QLatin1Char('\n');
    }
    for (const Measurement &measurement : item.measurements) {
        constexpr int width = 26;
        text += QStringLiteral("    %1 %2\n")
                    .arg(terminalText(measurement.name), -width)
                    .arg(terminalText(measurementText(measurement)));
    }
    for (const CollectedFile &file : item.files) {
        text += QStringLiteral("    %1, %2 B\n").arg(terminalText(file.name), QString::number(file.size));
    }
    return text;
}

int urgency(Verdict verdict)
{
    constexpr std::array order = {Verdict::Failed, Verdict::Warning};
    return static_cast<int>(std::find(order.begin(), order.end(), verdict) - order.begin());
}

QString groupsText(const char *name, const QList<RunGroup> &groups)
{
    QVector<QStringList> rows;
    for (const RunGroup &group : groups) {
        const TallySums &sums = group.sums;
        rows.append({group.name.isEmpty() ? QStringLiteral("(none)") : group.name, QString::number(sums.runs),
                     QString::number(sums.passed), QString::number(sums.failed),
                     QString::number(sums.stopped + sums.error), QString::number(sums.cameras),
                     percentText(firstPassYield(sums)), percentText(finalYield(sums))});
    }
    return QLatin1Char('\n') + textTable({{QString::fromLatin1(name), false},
                                          {QStringLiteral("RUNS"), true},
                                          {QStringLiteral("PASSED"), true},
                                          {QStringLiteral("FAILED"), true},
                                          {QStringLiteral("OTHER"), true},
                                          {QStringLiteral("CAMERAS"), true},
                                          {QStringLiteral("FIRST-PASS"), true},
                                          {QStringLiteral("FINAL"), true}},
                                         rows);
}

QJsonValue shareJson(const std::optional<double> &share)
{
    return share ? QJsonValue(*share) : QJsonValue(QJsonValue::Null);
}

QJsonObject sumsJson(const TallySums &sums)
{
    return {{QStringLiteral("runs"), sums.runs},
            {QStringLiteral("passed"), sums.passed},
            {QStringLiteral("failed"), sums.failed},
            {QStringLiteral("stopped"), sums.stopped},
            {QStringLiteral("error"), sums.error},
            {QStringLiteral("durationMs"), sums.durationMs},
            {QStringLiteral("cameras"), sums.cameras},
            {QStringLiteral("firstPassed"), sums.firstPassed},
            {QStringLiteral("finalPassed"), sums.finalPassed},
            {QStringLiteral("firstPassYield"), shareJson(firstPassYield(sums))},
            {QStringLiteral("finalYield"), shareJson(finalYield(sums))}};
}

QJsonArray groupsJson(const QList<RunGroup> &groups)
{
    QJsonArray array;
    for (const RunGroup &group : groups) {
        QJsonObject object = sumsJson(group.sums);
        object.insert(QStringLiteral("name"), wellFormed(group.name));
        array.append(object);
    }
    return array;
}
} // namespace

QString listText(const QList<RunSummary> &runs)
{
    QVector<QStringList> rows;
    for (const RunSummary &run : runs) {
        rows.append({shortId(run.id), clockText(run.begin), nameOf(run.outcome), run.mac, run.serial, run.station,
                     run.batch, run.firmware, durationText(run.duration), findingText(run)});
    }
    return textTable({{QStringLiteral("RUN"), false},
                      {QStringLiteral("BEGIN"), false},
                      {QStringLiteral("OUTCOME"), false},
                      {QStringLiteral("MAC"), false},
                      {QStringLiteral("SERIAL"), false},
                      {QStringLiteral("STATION"), false},
                      {QStringLiteral("BATCH"), false},
                      {QStringLiteral("FIRMWARE"), false},
                      {QStringLiteral("DURATION"), true},
                      {QStringLiteral("FAILURE"), false}},
                     rows);
}

QByteArray listCsv(const QList<RunSummary> &runs)
{
    QByteArray csv =
        csvBegin() + csvLine({QStringLiteral("run"), QStringLiteral("begin"), QStringLiteral("duration ms"),
                              QStringLiteral("outcome"), QStringLiteral("mac"), QStringLiteral("serial"),
                              QStringLiteral("station"), QStringLiteral("location"), QStringLiteral("batch"),
                              QStringLiteral("firmware"), QStringLiteral("operator"), QStringLiteral("failed items"),
                              QStringLiteral("first failure"), QStringLiteral("reason")});
    for (const RunSummary &run : runs) {
        csv += csvLine({idText(run.id), timeText(run.begin),
                        valueText(static_cast<double>(run.duration.count()) / microsecondsPerMs), nameOf(run.outcome),
                        run.mac, run.serial, run.station, run.location, run.batch, run.firmware, run.operatorName,
                        QString::number(run.failedItems), run.firstFinding, run.reason});
    }
    return csv;
}

QJsonObject runJson(const RunSummary &run)
{
    return {{QStringLiteral("id"), idText(run.id)},
            {QStringLiteral("begin"), timeText(run.begin)},
            {QStringLiteral("durationMs"), static_cast<double>(run.duration.count()) / microsecondsPerMs},
            {QStringLiteral("outcome"), nameOf(run.outcome)},
            {QStringLiteral("mac"), wellFormed(run.mac)},
            {QStringLiteral("serial"), wellFormed(run.serial)},
            {QStringLiteral("station"), wellFormed(run.station)},
            {QStringLiteral("location"), wellFormed(run.location)},
            {QStringLiteral("batch"), wellFormed(run.batch)},
            {QStringLiteral("firmware"), wellFormed(run.firmware)},
            {QStringLiteral("operator"), wellFormed(run.operatorName)},
            {QStringLiteral("failedItems"), run.failedItems},
            {QStringLiteral("firstFailure"), wellFormed(run.firstFinding)},
            {QStringLiteral("reason"), wellFormed(run.reason)}};
}

QByteArray listJson(const QList<RunSummary> &runs)
{
    QJsonArray array;
    for (const RunSummary &run : runs) {
        array.append(runJson(run));
    }
    return QJsonDocument(array).toJson();
}

QByteArray jsonText(const QJsonObject &object)
{
    return QJsonDocument(object).toJson();
}

QString runText(const RunRecord &run)
{
    QString text = named("Run", idText(run.id)) + named("Outcome", nameOf(run.outcome)) + named("Reason", run.reason) +
                   named("Begin", timeText(run.begin)) + named("Duration", durationText(run.duration)) +
                   named("MAC", run.camera.mac) + named("Serial", run.serial) +
                   named("WiFi name", run.camera.wifiName) + named("Link", run.camera.link) +
                   named("Firmware", run.camera.firmware) + named("Station", run.station.name) +
                   named("Location", run.station.location) + named("Operator", run.operatorName) +
                   named("Batch", run.batch) + named("Program", run.programVersion);
    QList<ItemRecord> items;
    for (const ComponentRecord &component : run.components) {
        items += component.items;
    }
    std::stable_sort(items.begin(), items.end(), [](const ItemRecord &left, const ItemRecord &right) {
        return urgency(left.verdict) < urgency(right.verdict);
    });
    for (const ItemRecord &item : qAsConst(items)) {
        text += itemText(item);
    }
    return text;
}

QString differencesText(const QList<Difference> &differences)
{
    QVector<QStringList> rows;
    for (const Difference &difference : differences) {
        rows.append({difference.what, difference.before, difference.after});
    }
    return textTable({{QStringLiteral("WHAT"), false},
                      {QStringLiteral("LAST PASS"), false},
                      {QStringLiteral("FIRST FAILURE"), false}},
                     rows);
}

QString statisticsText(const Statistics &statistics)
{
    const TallySums &total = statistics.total;
    QString text =
        named("Period", QStringLiteral("%1 to %2")
                            .arg(statistics.first.toString(Qt::ISODate), statistics.last.toString(Qt::ISODate))) +
        named("Runs", QStringLiteral("%1: %2 passed, %3 failed, %4 stopped, %5 without answer")
                          .arg(total.runs)
                          .arg(total.passed)
                          .arg(total.failed)
                          .arg(total.stopped)
                          .arg(total.error)) +
        named("Cameras", QString::number(total.cameras)) + named("First-pass", percentText(firstPassYield(total))) +
        named("Final", percentText(finalYield(total)));
    qint64 failures = 0;
    for (const ItemGroup &item : statistics.items) {
        failures += item.sums.failed;
    }
    QVector<QStringList> rows;
    qint64 soFar = 0;
    for (const ItemGroup &item : statistics.items) {
        soFar += item.sums.failed;
        rows.append({item.item, QString::number(item.sums.failed),
                     percentText(failures > 0
                                     ? std::optional<double>(static_cast<double>(soFar) / static_cast<double>(failures))
                                     : std::nullopt),
                     QString::number(item.sums.warned), QString::number(item.sums.ran)});
    }
    text += QLatin1Char('\n') + textTable({{QStringLiteral("ITEM"), false},
                                           {QStringLiteral("FAILED"), true},
                                           {QStringLiteral("SO FAR"), true},
                                           {QStringLiteral("WARNED"), true},
                                           {QStringLiteral("TESTED"), true}},
                                          rows);
    return text + groupsText("STATION", statistics.byStation) + groupsText("BATCH", statistics.byBatch) +
           groupsText("FIRMWARE", statistics.byFirmware) + groupsText("DAY", statistics.byDay);
}

QByteArray statisticsJson(const Statistics &statistics)
{
    QJsonObject object = sumsJson(statistics.total);
    object.insert(QStringLiteral("first"), statistics.first.toString(Qt::ISODate));
    object.insert(QStringLiteral("last"), statistics.last.toString(Qt::ISODate));
    QJsonArray items;
    for (const ItemGroup &item : statistics.items) {
        items.append(QJsonObject{{QStringLiteral("item"), wellFormed(item.item)},
                                 {QStringLiteral("tested"), item.sums.ran},
                                 {QStringLiteral("failed"), item.sums.failed},
                                 {QStringLiteral("warned"), item.sums.warned}});
    }
    object.insert(QStringLiteral("items"), items);
    object.insert(QStringLiteral("byDay"), groupsJson(statistics.byDay));
    object.insert(QStringLiteral("byStation"), groupsJson(statistics.byStation));
    object.insert(QStringLiteral("byBatch"), groupsJson(statistics.byBatch));
    object.insert(QStringLiteral("byFirmware"), groupsJson(statistics.byFirmware));
    return jsonText(object);
}
