#include "historyui/commands/runTexts.h"

#include "exchange/csv.h"
#include "historyui/commands/HistoryTexts.h"
#include "historyui/commands/terminalText.h"
#include "plots/plotNumbers.h"
#include "record/limitText.h"
#include "record/plainText.h"
#include "record/recordNames.h"
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
    return run.failedItems > 1 ? HistoryTexts::tr("%1 and %2 more").arg(run.firstFinding).arg(run.failedItems - 1)
                               : run.firstFinding;
}

QString measurementText(const Measurement &measurement)
{
    QString text = valueText(measurement.value);
    if (!measurement.unit.isEmpty()) {
        text += QLatin1Char(' ') + measurement.unit;
    }
    if (measurement.limit) {
        text += QStringLiteral(" (%1)").arg(limitText(*measurement.limit));
        if (!measurement.limit->admits(measurement.value)) {
            text += QLatin1String("  ") + HistoryTexts::tr("OUTSIDE");
        }
    }
    return text;
}

/// What its request came to, where that is worth telling.
QString requestText(const ItemRecord &item)
{
    if (!item.request || (item.request->kind == RequestEnd::Kind::Answered && item.request->attempts == 1)) {
        return {};
    }
    QString text = HistoryTexts::tr("request %1").arg(wordOf(item.request->kind));
    if (item.request->code != 0) {
        text = HistoryTexts::tr("%1 (code %2)").arg(text).arg(item.request->code);
    }
    return item.request->attempts > 1 ? HistoryTexts::tr("%1, %n attempts", nullptr, item.request->attempts).arg(text)
                                      : text;
}

QString itemText(const ItemRecord &item)
{
    const QString duration = durationText(item.duration);
    const QString request = requestText(item);
    const QString details = request.isEmpty() ? duration : HistoryTexts::tr("%1, %2").arg(duration, request);
    QString text = QLatin1Char('\n') +
                   HistoryTexts::tr("%1: %2 (%3)").arg(terminalText(item.key), wordOf(item.verdict), details) +
                   QLatin1Char('\n');
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

QString groupsText(const QString &name, const QList<RunGroup> &groups)
{
    QVector<QStringList> rows;
    for (const RunGroup &group : groups) {
        const TallySums &sums = group.sums;
        rows.append({group.name.isEmpty() ? HistoryTexts::tr("(none)") : group.name, QString::number(sums.runs),
                     QString::number(sums.passed), QString::number(sums.failed),
                     QString::number(sums.stopped + sums.error), QString::number(sums.cameras),
                     percentText(firstPassYield(sums)), percentText(finalYield(sums))});
    }
    return QLatin1Char('\n') + textTable({{name, false},
                                          {HistoryTexts::tr("RUNS"), true},
                                          {HistoryTexts::tr("PASSED"), true},
                                          {HistoryTexts::tr("FAILED"), true},
                                          {HistoryTexts::tr("OTHER"), true},
                                          {HistoryTexts::tr("CAMERAS"), true},
                                          {HistoryTexts::tr("FIRST-PASS"), true},
                                          {HistoryTexts::tr("FINAL"), true}},
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

QString namedLine(const QString &name, const QString &text)
{
    constexpr int width = 11;
    const QString shown = terminalText(text);
    return shown.isEmpty() ? QString() : QStringLiteral("%1 %2\n").arg(terminalColumn(name, width), shown);
}

QString listText(const QList<RunSummary> &runs)
{
    QVector<QStringList> rows;
    for (const RunSummary &run : runs) {
        rows.append({shortId(run.id), clockText(run.begin), wordOf(run.outcome), run.mac, run.serial, run.station,
                     run.batch, run.firmware, durationText(run.duration), findingText(run)});
    }
    return textTable({{HistoryTexts::tr("RUN"), false},
                      {HistoryTexts::tr("BEGIN"), false},
                      {HistoryTexts::tr("OUTCOME"), false},
                      {HistoryTexts::tr("MAC"), false},
                      {HistoryTexts::tr("SERIAL"), false},
                      {HistoryTexts::tr("STATION"), false},
                      {HistoryTexts::tr("BATCH"), false},
                      {HistoryTexts::tr("FIRMWARE"), false},
                      {HistoryTexts::tr("DURATION"), true},
                      {HistoryTexts::tr("FAILURE"), false}},
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
    QString text =
        namedLine(HistoryTexts::tr("Run"), idText(run.id)) +
        namedLine(HistoryTexts::tr("Outcome"), wordOf(run.outcome)) +
        namedLine(HistoryTexts::tr("Reason"), run.reason) + namedLine(HistoryTexts::tr("Begin"), timeText(run.begin)) +
        namedLine(HistoryTexts::tr("Duration"), durationText(run.duration)) +
        namedLine(HistoryTexts::tr("MAC"), run.camera.mac) + namedLine(HistoryTexts::tr("Serial"), run.serial) +
        namedLine(HistoryTexts::tr("WiFi name"), run.camera.wifiName) +
        namedLine(HistoryTexts::tr("Link"), run.camera.link) +
        namedLine(HistoryTexts::tr("Firmware"), run.camera.firmware) +
        namedLine(HistoryTexts::tr("Station"), run.station.name) +
        namedLine(HistoryTexts::tr("Location"), run.station.location) +
        namedLine(HistoryTexts::tr("Operator"), run.operatorName) + namedLine(HistoryTexts::tr("Batch"), run.batch) +
        namedLine(HistoryTexts::tr("Program"), run.programVersion);
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
    return textTable({{HistoryTexts::tr("WHAT"), false},
                      {HistoryTexts::tr("LAST PASS"), false},
                      {HistoryTexts::tr("FIRST FAILURE"), false}},
                     rows);
}

QString statisticsText(const Statistics &statistics)
{
    const TallySums &total = statistics.total;
    QString text =
        namedLine(HistoryTexts::tr("Period"),
                  HistoryTexts::tr("%1 to %2")
                      .arg(statistics.first.toString(Qt::ISODate), statistics.last.toString(Qt::ISODate))) +
        namedLine(HistoryTexts::tr("Runs"), HistoryTexts::tr("%1: %2 passed, %3 failed, %4 stopped, %5 without answer")
                                                .arg(total.runs)
                                                .arg(total.passed)
                                                .arg(total.failed)
                                                .arg(total.stopped)
                                                .arg(total.error)) +
        namedLine(HistoryTexts::tr("Cameras"), QString::number(total.cameras)) +
        namedLine(HistoryTexts::tr("First-pass"), percentText(firstPassYield(total))) +
        namedLine(HistoryTexts::tr("Final"), percentText(finalYield(total)));
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
    text += QLatin1Char('\n') + textTable({{HistoryTexts::tr("ITEM"), false},
                                           {HistoryTexts::tr("FAILED"), true},
                                           {HistoryTexts::tr("SO FAR"), true},
                                           {HistoryTexts::tr("WARNED"), true},
                                           {HistoryTexts::tr("TESTED"), true}},
                                          rows);
    return text + groupsText(HistoryTexts::tr("STATION"), statistics.byStation) +
           groupsText(HistoryTexts::tr("BATCH"), statistics.byBatch) +
           groupsText(HistoryTexts::tr("FIRMWARE"), statistics.byFirmware) +
           groupsText(HistoryTexts::tr("DAY"), statistics.byDay);
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
