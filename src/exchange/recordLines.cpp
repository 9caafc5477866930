#include "exchange/recordLines.h"

#include "record/recordJson.h"

#include <optional>

namespace {
struct Line
{
    QByteArray text; ///< with its line break; no more than the begin of one that is too long
    qint64 bytes = 0;
    bool isTooLong = false;
};

/// In pieces: Qt makes room for the longest line at once.
Line readLine(QIODevice &device, qint64 longest)
{
    constexpr qint64 piece = 65536;
    Line line;
    bool isComplete = false;
    while (!isComplete) {
        const QByteArray read = device.readLine(piece);
        line.bytes += read.size();
        line.isTooLong = line.bytes > longest;
        if (!line.isTooLong) {
            line.text += read;
        }
        isComplete = read.isEmpty() || read.endsWith('\n');
    }
    return line;
}
} // namespace

void forEachRecordLine(QIODevice &device, const std::function<bool(const RecordLine &line, qint64 bytes)> &take,
                       qint64 longest)
{
    qint64 number = 0;
    qint64 bytes = 0;
    bool goesOn = true;
    while (goesOn) {
        Line line = readLine(device, longest);
        if (line.bytes == 0) {
            return;
        }
        ++number;
        bytes += line.bytes;
        if (number == 1 && line.text.trimmed() == "{") {
            const QByteArray rest = device.read(longest);
            line.text += rest;
            bytes += rest.size();
        }
        if (line.isTooLong) {
            const QString reason = QStringLiteral("longer than %1 MiB").arg(longest / 1024 / 1024);
            goesOn = take({number, {}, reason}, bytes);
        } else if (!line.text.trimmed().isEmpty()) {
            goesOn = take({number, line.text, {}}, bytes);
        }
    }
}

void readRecordLines(QIODevice &device, const RecordSink &sink, qint64 longest)
{
    forEachRecordLine(
        device,
        [&sink](const RecordLine &line, qint64 bytes) {
            QString error = line.error;
            const std::optional<RunRecord> run = error.isEmpty() ? fromJson(line.json, &error) : std::nullopt;
            if (run && !sink.take(*run)) {
                return false;
            }
            if (!run) {
                sink.refuse(line.number, error);
            }
            return sink.progress(bytes);
        },
        longest);
}
