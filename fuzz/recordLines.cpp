// A stream of records as it may come from a file: what is taken is written and read again as the same records.

#include "exchange/recordLines.h"
#include "record/recordJson.h"
#include "require.h"

#include <QBuffer>

/// Qt's reader loses the first of two lists or objects that stand under one key.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

namespace {
struct Reading
{
    QList<RunRecord> runs;
    int refused = 0;
    qint64 bytes = 0;
};

Reading readAll(QByteArray content)
{
    Reading reading;
    QBuffer device(&content);
    require(device.open(QIODevice::ReadOnly), "memory can be read");
    readRecordLines(device, {[&reading](const RunRecord &run) {
                                 reading.runs.append(run);
                                 return true;
                             },
                             [&reading](qint64 line, const QString &reason) {
                                 require(line > 0 && !reason.isEmpty(), "it is told which line is none, and why");
                                 ++reading.refused;
                             },
                             [&reading](qint64 bytes) {
                                 require(bytes > reading.bytes, "reading goes on");
                                 reading.bytes = bytes;
                                 return true;
                             }});
    return reading;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Reading reading = readAll(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    require(reading.bytes == static_cast<qint64>(size), "everything is read");
    QByteArray written;
    for (const RunRecord &run : reading.runs) {
        written += toJson(run, JsonLayout::Line);
    }
    const Reading again = readAll(written);
    require(again.refused == 0 && again.runs == reading.runs, "records survive being written and read");
    return 0;
}
