#pragma once

#include "record/RunRecord.h"

#include <functional>
#include <QIODevice>
#include <QString>

/// A line of a stream that is not empty.
struct RecordLine
{
    qint64 number = 0; ///< from 1
    QByteArray json;
    QString error; ///< why it cannot be a record; then there is no `json`
};

/// Takes the records of a stream one by one. Pure of any store.
struct RecordSink
{
    /// False: no more is wanted.
    std::function<bool(const RunRecord &run)> take;
    /// What stands in that line is no record. Lines count from 1.
    std::function<void(qint64 line, const QString &reason)> refuse;
    /// After each, and at the end where empty lines are the last, with the bytes that were read: false ends the
    /// reading.
    std::function<bool(qint64 bytes)> progress;
};

/// The longest line in bytes that is read as a record; what is longer is refused, and passed over without being kept in
/// memory.
inline constexpr qint64 longestRecordLine = qint64{64} * 1024 * 1024;

/// Gives the lines that should hold a record each to `take`, with the bytes that were read so far; false from it ends
/// the reading. A device whose first line is a bare "{" holds one record over several lines, which is given as one.
/// Returns the bytes that were read.
qint64 forEachRecordLine(QIODevice &device, const std::function<bool(const RecordLine &line, qint64 bytes)> &take,
                         qint64 longest = longestRecordLine);

/// Likewise, and reads them as records.
void readRecordLines(QIODevice &device, const RecordSink &sink, qint64 longest = longestRecordLine);
