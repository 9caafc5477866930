#include "exchange/csv.h"

#include "record/limitText.h"
#include "record/plainText.h"
#include "record/recordNames.h"

namespace {
bool looksLikeFormula(const QString &text)
{
    static const QString begins = QStringLiteral(u"=+-@\t\r\n\uFF1D\uFF0B\uFF0D\uFF20");
    if (text.isEmpty() || !begins.contains(text.at(0))) {
        return false;
    }
    bool isNumber = false;
    text.toDouble(&isNumber);
    return !isNumber || text.trimmed() != text;
}

QString milliseconds(std::chrono::microseconds duration)
{
    constexpr double microsecondsPerMs = 1000;
    return valueText(static_cast<double>(duration.count()) / microsecondsPerMs);
}

QString bound(const std::optional<double> &number)
{
    return number ? valueText(*number) : QString();
}

QStringList runCells(const RunRecord &run)
{
    return {run.id.toString(QUuid::WithoutBraces),
            timeText(run.begin),
            timeText(run.end),
            milliseconds(run.duration),
            run.station.name,
            run.station.location,
            run.operatorName,
            run.batch,
            run.serial,
            run.camera.mac,
            run.camera.wifiName,
            run.camera.link,
            run.camera.firmware,
            run.programVersion,
            nameOf(run.outcome),
            run.reason};
}

QStringList measurementCells(const Measurement &measurement)
{
    const Limit limit = measurement.limit.value_or(Limit{});
    return {measurement.name,  valueText(measurement.value),      measurement.unit, bound(limit.least),
            bound(limit.most), limit.oneOf.join(QLatin1Char('|'))};
}

/// In the place of an item's, or of a measurement's.
QStringList emptyCells()
{
    return {{}, {}, {}, {}, {}, {}};
}
} // namespace

QByteArray csvBegin()
{
    return QByteArrayLiteral("\xEF\xBB\xBF");
}

QByteArray csvCell(const QString &text)
{
    QString cell = looksLikeFormula(text) ? QLatin1Char('\'') + text : text;
    cell = xmlText(cell);
    const bool needsQuotes = cell.contains(QLatin1Char(',')) || cell.contains(QLatin1Char('"')) ||
                             cell.contains(QLatin1Char('\n')) || cell.contains(QLatin1Char('\r')) ||
                             cell.startsWith(QLatin1Char(' ')) || cell.endsWith(QLatin1Char(' '));
    if (needsQuotes) {
        cell = QLatin1Char('"') + cell.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
    }
    return cell.toUtf8();
}

QByteArray csvLine(const QStringList &texts)
{
    QByteArray line;
    for (int i = 0; i < texts.size(); ++i) {
        line += (i == 0 ? QByteArray() : QByteArrayLiteral(",")) + csvCell(texts.at(i));
    }
    return line + QByteArrayLiteral("\r\n");
}

QByteArray csvHeading()
{
    return csvLine(
        {QStringLiteral("run"),         QStringLiteral("begin"),           QStringLiteral("end"),
         QStringLiteral("duration ms"), QStringLiteral("station"),         QStringLiteral("location"),
         QStringLiteral("operator"),    QStringLiteral("batch"),           QStringLiteral("serial"),
         QStringLiteral("mac"),         QStringLiteral("wifi name"),       QStringLiteral("link"),
         QStringLiteral("firmware"),    QStringLiteral("program version"), QStringLiteral("outcome"),
         QStringLiteral("reason"),      QStringLiteral("component"),       QStringLiteral("component verdict"),
         QStringLiteral("item"),        QStringLiteral("item verdict"),    QStringLiteral("item duration ms"),
         QStringLiteral("message"),     QStringLiteral("measurement"),     QStringLiteral("value"),
         QStringLiteral("unit"),        QStringLiteral("least"),           QStringLiteral("most"),
         QStringLiteral("one of")});
}

QByteArray csvLines(const RunRecord &run)
{
    const QStringList ofRun = runCells(run);
    QByteArray lines;
    for (const ComponentRecord &component : run.components) {
        for (const ItemRecord &item : component.items) {
            const QStringList ofItem = {component.key,        nameOf(component.verdict),   item.key,
                                        nameOf(item.verdict), milliseconds(item.duration), item.message.trimmed()};
            for (const Measurement &measurement : item.measurements) {
                lines += csvLine(ofRun + ofItem + measurementCells(measurement));
            }
            if (item.measurements.isEmpty()) {
                lines += csvLine(ofRun + ofItem + emptyCells());
            }
        }
    }
    return lines.isEmpty() ? csvLine(ofRun + emptyCells() + emptyCells()) : lines;
}
