#include "history/query/readRow.h"

#include "history/store/Connection.h"
#include "record/recordNames.h"

QString runColumns()
{
    return QStringLiteral("run.id, run.begin_ms, run.offset_s, run.duration_us, run.outcome, run.mac, run.serial, "
                          "run.station, run.location, run.batch, run.firmware, run.operator_name, run.reason, "
                          "run.failed_items, run.first_finding");
}

RunSummary readRun(const QSqlQuery &query)
{
    int column = 0;
    const auto next = [&query, &column] { return query.value(column++); };
    RunSummary run;
    run.id = Connection::idOf(next());
    const qint64 beginMs = next().toLongLong();
    run.begin = QDateTime::fromMSecsSinceEpoch(beginMs, Qt::OffsetFromUTC, next().toInt());
    run.duration = std::chrono::microseconds(next().toLongLong());
    run.outcome = valueOfName<Outcome>(next().toString()).value_or(Outcome::Error);
    for (QString *text : {&run.mac, &run.serial, &run.station, &run.location, &run.batch, &run.firmware,
                          &run.operatorName, &run.reason}) {
        *text = next().toString();
    }
    run.failedItems = next().toInt();
    run.firstFinding = next().toString();
    return run;
}
