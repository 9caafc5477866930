// A detection log as it may lie in a folder: whatever it holds, its record is one that is written and read again as the
// same one, and no line gets lost or is made up.

#include "exchange/detectorLog.h"
#include "exchange/csv.h"
#include "exchange/runFolders.h"
#include "record/recordJson.h"
#include "require.h"

namespace {
const RunFolderName folder = {QDate(2024, 5, 6), QStringLiteral("60:60:1F:0A:5F:2A")};

int lineBreaks(const LoggedRun &run)
{
    int count = 0;
    for (const ComponentRecord &component : run.components) {
        for (const ItemRecord &item : component.items) {
            count += item.message.count(QLatin1Char('\n')) + item.detail.count(QLatin1Char('\n'));
        }
    }
    return count;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QDateTime time(folder.day, QTime(9, 0), Qt::OffsetFromUTC, 3600);
    const QUuid id = runIdOfLog(QStringLiteral("2024-05-06_60601F0A5F2A"), content, 0);
    int unknownLines = 0;
    const std::optional<RunRecord> run = recordOfLog(folder, content, time, id, &unknownLines);
    const LoggedRun log = readDetectorLog(QString::fromUtf8(content));
    require(lineBreaks(log) <= content.count('\n') + 1, "no line is made up");
    require(run.has_value() == !log.components.isEmpty(), "a log with a component is a run");
    if (!run) {
        return 0;
    }
    QString error;
    const std::optional<RunRecord> again = fromJson(toJson(*run), &error);
    require(again && *again == *run, "the record survives being written and read");
    require(csvLines(*run).endsWith("\r\n"), "the record can be written as a table");
    return 0;
}
