#pragma once

#include "record/RunRecord.h"

#include <memory>
#include <optional>
#include <QByteArray>
#include <QString>
#include <QUuid>
#include <QVector>

struct libdeflate_compressor;

// What a store keeps of a run, taken from its record. Plain values, for any thread: whoever brings in many runs makes
// their rows on other threads than the one that writes.

/// By what `tally` and `item_tally` are told apart.
struct TallyKey
{
    QString day; ///< "2026-11-21"
    QString station;
    QString batch;
    QString firmware;
};

bool operator==(const TallyKey &left, const TallyKey &right);
bool operator<(const TallyKey &left, const TallyKey &right);

struct FindingRow
{
    QString item;
    int place = 0;
    QString verdict;
    QString message;
    QString measurement;
    QString value;
    QString limits;
};

/// What a measurement's number means.
struct SeriesRow
{
    qint64 id = 0;
    QString item;
    QString name;
    QString unit;
};

struct MeasurementRow
{
    std::shared_ptr<const SeriesRow> series; ///< never null; of many runs the same
    int place = 0;
    std::optional<double> number;
    QString text;
    std::optional<double> least;
    std::optional<double> most;
};

/// An item of a run, as `item_tally` counts it.
struct ItemVerdict
{
    QString item;
    Verdict verdict = Verdict::NotTested;
};

/// The rows of one run; the columns are told in schema.h.
struct RunRows
{
    QUuid id;
    qint64 beginMs = 0;
    int offsetSeconds = 0;
    qint64 endMs = 0;
    qint64 durationUs = 0;
    Outcome outcome = Outcome::Error;
    TallyKey tally;
    QString mac;
    QString serial;
    QString location;
    QString operatorName;
    QString wifiName;
    QString link;
    QString programVersion;
    QString reason;
    int failedItems = 0;
    QString firstFinding;
    QByteArray body;
    QVector<ItemVerdict> items;
    QVector<FindingRow> findings;
    QVector<MeasurementRow> measurements;

    /// Without an id or a time a run can neither be found nor be told from another one.
    bool isFit() const;
};

/// Makes records to what lies in the store: JSON in one line, as docs/record.md tells it, compressed (zlib's stream,
/// behind four bytes with the size of the text, the highest first). Whoever packs many keeps one for all of them.
class RecordPacker
{
public:
    RecordPacker();
    RecordPacker(const RecordPacker &) = delete;
    RecordPacker &operator=(const RecordPacker &) = delete;
    ~RecordPacker();

    QByteArray pack(const QByteArray &json);

private:
    libdeflate_compressor *m_compressor;
    QByteArray m_room;
};

/// The JSON again; empty if `body` is damaged.
QByteArray unpackRecord(const QByteArray &body);

RunRows runRows(const RunRecord &run);
/// Likewise; `json` is the record as a line of JSON, for whoever has read it from there.
RunRows runRows(const RunRecord &run, const QByteArray &json, RecordPacker *packer);

/// A text as the columns beside the record keep it.
QString columnText(const QString &text);
/// A MAC address likewise.
QString columnMac(const QString &mac);

/// Made from the three texts alone; 48 bits, never negative.
qint64 seriesId(const QString &item, const QString &name, const QString &unit);
