#pragma once

#include "record/Measurement.h"
#include "record/RequestEnd.h"

#include <chrono>
#include <optional>
#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QUuid>

// The one value that a run leaves, and that everything told about the run is a rendering of: see docs/record.md. Plain
// values, for any thread. A text that is not known, or that nobody gave, is empty.

/// How an item or a component ended.
enum class Verdict {
    Passed,
    Failed,
    Warning,
    NotTested,
};

/// How a run ended. Only Passed and Failed are a judgement of the camera.
enum class Outcome {
    Passed,
    Failed,
    Stopped, ///< by the operator, or because the program was closed
    Error,   ///< no answer: the link was lost or another camera came during the run
};

/// A file that an item has brought from the camera.
struct CollectedFile
{
    QString name; ///< without its folder
    qint64 size = 0;
    QString sha256; ///< in lower-case hexadecimal
};

struct ItemRecord
{
    QString key; ///< such as "gimbal.roll.link", see itemKeys.h
    int number = 0;
    QString name; ///< for people
    Verdict verdict = Verdict::NotTested;
    QString message; ///< short verdict text
    QString detail;  ///< long report
    std::chrono::microseconds duration{0};
    std::optional<RequestEnd> request; ///< none: the item asked the camera for nothing
    QList<Measurement> measurements;
    QList<CollectedFile> files;
};

struct ComponentRecord
{
    int id = 0;
    QString key; ///< such as "tfcard"
    QString name;
    Verdict verdict = Verdict::NotTested;
    std::chrono::microseconds duration{0};
    QList<ItemRecord> items; ///< those that were run, in the order of running
};

/// What was to be run of one component, in this order.
struct PlannedComponent
{
    int id = 0;
    QString key;
    QList<int> items;
};

struct StationRecord
{
    QString name;
    QString location;
};

struct CameraRecord
{
    QString mac;
    QString wifiName;
    QString link;     ///< "wifi" or "usb"
    QString firmware; ///< where the run read it
};

struct RunRecord
{
    /// Raised when a key changes its meaning or goes; a new key does not raise it.
    static constexpr int schemaVersion = 1;

    QUuid id;
    QString programVersion;
    StationRecord station;
    QString operatorName;
    QString batch;
    QString serial;
    CameraRecord camera;
    QDateTime begin;                       ///< wall clock, in milliseconds
    QDateTime end;                         ///< likewise
    std::chrono::microseconds duration{0}; ///< on the monotonic clock: the wall clock may be set meanwhile
    QList<PlannedComponent> plan;
    Outcome outcome = Outcome::Error;
    QString reason;                    ///< of an outcome other than passed, for people
    QList<ComponentRecord> components; ///< those that were run, in the order of running
};
Q_DECLARE_METATYPE(RunRecord)

/// `verdict` as the checks say it: 0 passed, 1 failed, 2 warning, anything else not tested.
Verdict verdictOfCode(int code);

/// A moment as every rendering writes it: ISO 8601 with milliseconds and offset, "2026-11-21T09:30:00.250+01:00".
QString timeText(const QDateTime &time);

/// Name, size and checksum of a file as it lies on the disk; nothing if it cannot be read.
std::optional<CollectedFile> describeFile(const QString &path);

bool operator==(const RequestEnd &left, const RequestEnd &right);
bool operator==(const CollectedFile &left, const CollectedFile &right);
bool operator==(const ItemRecord &left, const ItemRecord &right);
bool operator==(const ComponentRecord &left, const ComponentRecord &right);
bool operator==(const PlannedComponent &left, const PlannedComponent &right);
bool operator==(const StationRecord &left, const StationRecord &right);
bool operator==(const CameraRecord &left, const CameraRecord &right);
/// Times are equal when they are the same moment with the same offset.
bool operator==(const RunRecord &left, const RunRecord &right);
