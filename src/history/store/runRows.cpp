#include "history/store/runRows.h"

#include "history/store/schema.h"
#include "record/limitText.h"
#include "record/plainText.h"
#include "record/recordJson.h"
#include "record/recordNames.h"

#include <algorithm>
#include <libdeflate.h>
#include <map>
#include <QCryptographicHash>
#include <QtEndian>
#include <tuple>
#include <variant>

namespace {
/// Records repeat their keys over and over: the quickest level already leaves an eighth of them.
constexpr int compressionLevel = 1;

bool isFinding(Verdict verdict)
{
    return verdict == Verdict::Failed || verdict == Verdict::Warning;
}

FindingRow findingOf(const ItemRecord &item, const QString &key, int place)
{
    FindingRow row;
    row.item = key;
    row.place = place;
    row.verdict = nameOf(item.verdict);
    row.message = columnText(item.message.trimmed());
    const auto outside =
        std::find_if(item.measurements.begin(), item.measurements.end(), [](const Measurement &measurement) {
            return measurement.limit && !measurement.limit->admits(measurement.value);
        });
    if (outside != item.measurements.end()) {
        row.measurement = columnText(outside->name);
        row.value = columnText(valueText(outside->value));
        row.limits = columnText(limitText(*outside->limit));
    }
    return row;
}

/// A run has dozens of measurements, and a program sees the same few names all the time.
std::shared_ptr<const SeriesRow> seriesOf(const QString &item, const QString &name, const QString &unit)
{
    using Key = std::tuple<QString, QString, QString>;
    thread_local std::map<Key, std::shared_ptr<const SeriesRow>> known;
    constexpr std::size_t mostKnown = 4096;
    Key key(item, name, unit);
    const auto found = known.find(key);
    if (found != known.end()) {
        return found->second;
    }
    if (known.size() >= mostKnown) {
        known.clear();
    }
    const SeriesRow row{seriesId(item, name, unit), item, name, unit};
    return known.emplace(std::move(key), std::make_shared<SeriesRow>(row)).first->second;
}

void addMeasurement(const Measurement &measurement, const QString &item, RunRows *rows)
{
    MeasurementRow row;
    row.series = seriesOf(item, columnText(measurement.name), columnText(measurement.unit));
    row.place = static_cast<int>(rows->measurements.size());
    if (const auto *number = std::get_if<double>(&measurement.value)) {
        row.number = *number;
    } else {
        row.text = columnText(std::get<QString>(measurement.value));
    }
    if (measurement.limit) {
        row.least = measurement.limit->least;
        row.most = measurement.limit->most;
    }
    rows->measurements.append(row);
}

void addItem(const ItemRecord &item, RunRows *rows)
{
    const QString key = columnText(item.key);
    const int place = static_cast<int>(rows->items.size());
    rows->items.append({key, item.verdict});
    if (isFinding(item.verdict)) {
        rows->findings.append(findingOf(item, key, place));
    }
    for (const Measurement &measurement : item.measurements) {
        addMeasurement(measurement, key, rows);
    }
}

/// What failed says more than what warned.
QString firstFinding(const QVector<FindingRow> &findings)
{
    const QString failed = nameOf(Verdict::Failed);
    const auto first = std::find_if(findings.begin(), findings.end(),
                                    [&failed](const FindingRow &row) { return row.verdict == failed; });
    if (first != findings.end()) {
        return first->item;
    }
    return findings.isEmpty() ? QString() : findings.first().item;
}
} // namespace

bool operator==(const TallyKey &left, const TallyKey &right)
{
    return std::tie(left.day, left.station, left.batch, left.firmware) ==
           std::tie(right.day, right.station, right.batch, right.firmware);
}

bool operator<(const TallyKey &left, const TallyKey &right)
{
    return std::tie(left.day, left.station, left.batch, left.firmware) <
           std::tie(right.day, right.station, right.batch, right.firmware);
}

bool RunRows::isFit() const
{
    return !id.isNull() && !tally.day.isEmpty();
}

RunRows runRows(const RunRecord &run)
{
    RecordPacker packer;
    return runRows(run, toJson(run, JsonLayout::Line), &packer);
}

RunRows runRows(const RunRecord &run, const QByteArray &json, RecordPacker *packer)
{
    RunRows rows;
    rows.id = run.id;
    rows.beginMs = run.begin.toMSecsSinceEpoch();
    rows.offsetSeconds = run.begin.offsetFromUtc();
    rows.endMs = run.end.toMSecsSinceEpoch();
    rows.durationUs = run.duration.count();
    rows.outcome = run.outcome;
    rows.tally = {run.begin.isValid() && run.end.isValid() ? run.begin.date().toString(Qt::ISODate) : QString(),
                  columnText(run.station.name), columnText(run.batch), columnText(run.camera.firmware)};
    rows.mac = columnMac(run.camera.mac);
    rows.serial = columnText(run.serial);
    rows.location = columnText(run.station.location);
    rows.operatorName = columnText(run.operatorName);
    rows.wifiName = columnText(run.camera.wifiName);
    rows.link = columnText(run.camera.link);
    rows.programVersion = columnText(run.programVersion);
    rows.reason = columnText(run.reason);
    for (const ComponentRecord &component : run.components) {
        for (const ItemRecord &item : component.items) {
            addItem(item, &rows);
        }
    }
    rows.failedItems = static_cast<int>(rows.findings.size());
    rows.firstFinding = firstFinding(rows.findings);
    rows.body = packer->pack(json);
    return rows;
}

RecordPacker::RecordPacker() : m_compressor(libdeflate_alloc_compressor(compressionLevel))
{
    Q_CHECK_PTR(m_compressor);
}

RecordPacker::~RecordPacker()
{
    libdeflate_free_compressor(m_compressor);
}

QByteArray RecordPacker::pack(const QByteArray &json)
{
    // zlib itself takes three times as long for the same stream.
    const auto size = static_cast<std::size_t>(json.size());
    const std::size_t room = sizeof(quint32) + libdeflate_zlib_compress_bound(m_compressor, size);
    if (static_cast<std::size_t>(m_room.size()) < room) {
        m_room.resize(static_cast<int>(room));
    }
    qToBigEndian(static_cast<quint32>(size), m_room.data());
    const std::size_t packed = libdeflate_zlib_compress(m_compressor, json.constData(), size,
                                                        m_room.data() + sizeof(quint32), room - sizeof(quint32));
    return {m_room.constData(), static_cast<int>(sizeof(quint32) + packed)};
}

QByteArray unpackRecord(const QByteArray &body)
{
    // Qt reserves as much as the first bytes say before it looks at the rest.
    constexpr quint32 largestRecord = 256U * 1024 * 1024;
    const bool plausible =
        body.size() > static_cast<int>(sizeof(quint32)) && qFromBigEndian<quint32>(body.constData()) <= largestRecord;
    return plausible ? qUncompress(body) : QByteArray();
}

QString columnText(const QString &text)
{
    QString column = wellFormed(text.left(longestText));
    column.replace(QChar(0), QChar(QChar::ReplacementCharacter));
    return column;
}

QString columnMac(const QString &mac)
{
    return columnText(mac.trimmed().toUpper());
}

qint64 seriesId(const QString &item, const QString &name, const QString &unit)
{
    const QString text = item + QChar(0) + name + QChar(0) + unit;
    const QByteArray hash = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
    constexpr int unusedBits = 16;
    return static_cast<qint64>(qFromBigEndian<quint64>(hash.constData()) >> unusedBits);
}
