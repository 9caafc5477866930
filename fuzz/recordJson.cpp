// A record's JSON as it may come from a file: what is read as a record is written and read again as the same one.

#include "record/recordJson.h"
#include "exchange/quickRecord.h"
#include "record/recordJunit.h"
#include "require.h"

#include <QXmlStreamReader>

/// Qt's reader loses the first of two lists or objects that stand under one key.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QString error;
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const std::optional<RunRecord> run = fromJson(json, &error);
    require(run.has_value() == error.isEmpty(), "it is told why there is no record");
    // Qt leaves a byte order mark out that begins a text.
    QString quickError;
    require(json.contains("\xEF\xBB\xBF") || quickRecord(json, &quickError) == run, "both readers read the same");
    if (!run) {
        return 0;
    }
    const std::optional<RunRecord> again = fromJson(toJson(*run), &error);
    require(again && *again == *run, "a record survives being written and read");
    QXmlStreamReader xml(toJunit(*run));
    while (!xml.atEnd()) {
        xml.readNext();
    }
    require(!xml.hasError(), "the JUnit report is XML");
    return 0;
}
