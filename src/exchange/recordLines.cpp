#include "exchange/recordLines.h"

#include "exchange/quickRecord.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <QCoreApplication>

namespace {
struct Line
{
    QByteArray text; ///< with its line break; no more than the begin of one that is too long
    qint64 bytes = 0;
    bool isTooLong = false;
};

/// The lines of a device. It is read in blocks: QIODevice::readLine makes room for the longest line at once, and looks
/// at what goes beyond its buffer byte by byte.
class LineReader
{
public:
    explicit LineReader(QIODevice *device) : m_device(device) {}

    /// The next line; of no bytes at the end.
    Line next(qint64 longest)
    {
        Line line;
        bool isComplete = false;
        while (!isComplete && (m_at < m_block.size() || readBlock())) {
            const char *const begin = m_block.constData() + m_at;
            const int left = static_cast<int>(m_block.size()) - m_at;
            const auto *const end = static_cast<const char *>(std::memchr(begin, '\n', static_cast<std::size_t>(left)));
            isComplete = end != nullptr;
            const int size = isComplete ? static_cast<int>(end + 1 - begin) : left;
            line.bytes += size;
            line.isTooLong = line.bytes > longest;
            if (!line.isTooLong) {
                line.text.append(begin, size);
            }
            m_at += size;
        }
        return line;
    }

    /// What is behind the last line, up to so many bytes.
    QByteArray rest(qint64 most)
    {
        QByteArray rest = m_block.mid(m_at, static_cast<int>(std::min<qint64>(most, m_block.size())));
        rest += m_device->read(most - rest.size());
        m_block.clear();
        m_at = 0;
        return rest;
    }

private:
    bool readBlock()
    {
        constexpr qint64 blockSize = 65536;
        m_block = m_device->read(blockSize);
        m_at = 0;
        return !m_block.isEmpty();
    }

    QIODevice *m_device;
    QByteArray m_block;
    int m_at = 0; ///< so much of the block is read
};
} // namespace

qint64 forEachRecordLine(QIODevice &device, const std::function<bool(const RecordLine &line, qint64 bytes)> &take,
                         qint64 longest)
{
    LineReader lines(&device);
    qint64 number = 0;
    qint64 bytes = 0;
    bool goesOn = true;
    while (goesOn) {
        Line line = lines.next(longest);
        if (line.bytes == 0) {
            break;
        }
        ++number;
        bytes += line.bytes;
        if (number == 1 && line.text.trimmed() == "{") {
            const QByteArray rest = lines.rest(longest);
            line.text += rest;
            bytes += rest.size();
        }
        if (line.isTooLong) {
            const QString reason =
                QCoreApplication::translate("Record", "longer than %1 MiB").arg(longest / 1024 / 1024);
            goesOn = take({number, {}, reason}, bytes);
        } else if (!line.text.trimmed().isEmpty()) {
            goesOn = take({number, line.text, {}}, bytes);
        }
    }
    return bytes;
}

void readRecordLines(QIODevice &device, const RecordSink &sink, qint64 longest)
{
    qint64 told = 0;
    bool goesOn = true;
    const qint64 all = forEachRecordLine(
        device,
        [&](const RecordLine &line, qint64 bytes) {
            QString error = line.error;
            const std::optional<RunRecord> run = error.isEmpty() ? quickRecord(line.json, &error) : std::nullopt;
            if (!run) {
                sink.refuse(line.number, error);
            }
            told = bytes;
            goesOn = (!run || sink.take(*run)) && sink.progress(bytes);
            return goesOn;
        },
        longest);
    if (goesOn && all > told) {
        sink.progress(all);
    }
}
