#include "record/recordJson.h"

#include "record/plainText.h"
#include "record/recordNames.h"

#include <cmath>
#include <limits>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>
#include <type_traits>
#include <utility>
#include <variant>

namespace {
const QLatin1String schemaKey("schema");

/// The keys of a kind of value, for writing and reading alike: `visit` calls `key(name, field)` for each.
template <class Value>
struct Keys;

template <>
struct Keys<CollectedFile>
{
    template <class File, class Key>
    static void visit(File &file, Key &key)
    {
        key("name", file.name);
        key("size", file.size);
        key("sha256", file.sha256);
    }
};

template <>
struct Keys<Limit>
{
    template <class LimitValue, class Key>
    static void visit(LimitValue &limit, Key &key)
    {
        key("least", limit.least);
        key("most", limit.most);
        key("oneOf", limit.oneOf);
    }
};

template <>
struct Keys<Measurement>
{
    template <class MeasurementValue, class Key>
    static void visit(MeasurementValue &measurement, Key &key)
    {
        key("name", measurement.name);
        key("value", measurement.value);
        key("unit", measurement.unit);
        key("limit", measurement.limit);
    }
};

template <>
struct Keys<RequestEnd>
{
    template <class Request, class Key>
    static void visit(Request &request, Key &key)
    {
        key("end", request.kind);
        key("code", request.code);
        key("attempts", request.attempts);
    }
};

template <>
struct Keys<ItemRecord>
{
    template <class Item, class Key>
    static void visit(Item &item, Key &key)
    {
        key("key", item.key);
        key("number", item.number);
        key("name", item.name);
        key("verdict", item.verdict);
        key("message", item.message);
        key("detail", item.detail);
        key("durationMs", item.duration);
        key("request", item.request);
        key("measurements", item.measurements);
        key("files", item.files);
    }
};

template <>
struct Keys<ComponentRecord>
{
    template <class Component, class Key>
    static void visit(Component &component, Key &key)
    {
        key("id", component.id);
        key("key", component.key);
        key("name", component.name);
        key("verdict", component.verdict);
        key("durationMs", component.duration);
        key("items", component.items);
    }
};

template <>
struct Keys<PlannedComponent>
{
    template <class Component, class Key>
    static void visit(Component &component, Key &key)
    {
        key("id", component.id);
        key("key", component.key);
        key("items", component.items);
    }
};

template <>
struct Keys<StationRecord>
{
    template <class Station, class Key>
    static void visit(Station &station, Key &key)
    {
        key("name", station.name);
        key("location", station.location);
    }
};

template <>
struct Keys<CameraRecord>
{
    template <class Camera, class Key>
    static void visit(Camera &camera, Key &key)
    {
        key("mac", camera.mac);
        key("wifiName", camera.wifiName);
        key("link", camera.link);
        key("firmware", camera.firmware);
    }
};

template <>
struct Keys<RunRecord>
{
    template <class Run, class Key>
    static void visit(Run &run, Key &key)
    {
        key("id", run.id);
        key("programVersion", run.programVersion);
        key("station", run.station);
        key("operator", run.operatorName);
        key("batch", run.batch);
        key("serial", run.serial);
        key("camera", run.camera);
        key("begin", run.begin);
        key("end", run.end);
        key("durationMs", run.duration);
        key("plan", run.plan);
        key("outcome", run.outcome);
        key("reason", run.reason);
        key("components", run.components);
    }
};

/// One JSON value out of a value of the record.
class Writer
{
public:
    template <class Value>
    void operator()(const char *name, const Value &value)
    {
        m_object.insert(QLatin1String(name), written(value));
    }

    const QJsonObject &object() const { return m_object; }

    template <class Value>
    static QJsonValue written(const Value &value)
    {
        if constexpr (std::is_enum_v<Value>) {
            return nameOf(value);
        } else {
            Writer writer;
            Keys<Value>::visit(value, writer);
            return writer.object();
        }
    }

    static QJsonValue written(const QString &text) { return wellFormed(text); }
    static QJsonValue written(int number) { return number; }
    static QJsonValue written(qint64 number) { return number; }
    /// JSON has no word for what is not finite.
    static QJsonValue written(double number)
    {
        return std::isfinite(number) ? QJsonValue(number) : QJsonValue(QString::number(number));
    }
    static QJsonValue written(const MeasuredValue &value)
    {
        return std::visit([](const auto &any) { return written(any); }, value);
    }
    static QJsonValue written(std::chrono::microseconds duration)
    {
        return static_cast<double>(duration.count()) / microsecondsPerMs;
    }
    static QJsonValue written(const QUuid &id) { return id.toString(QUuid::WithoutBraces); }
    static QJsonValue written(const QDateTime &time) { return timeText(time); }
    static QJsonValue written(const QStringList &texts) { return array(texts); }
    template <class Value>
    static QJsonValue written(const QList<Value> &values)
    {
        return array(values);
    }
    template <class Value>
    static QJsonValue written(const std::optional<Value> &value)
    {
        return value ? written(*value) : QJsonValue(QJsonValue::Null);
    }

    static constexpr double microsecondsPerMs = 1000;

private:
    template <class Values>
    static QJsonArray array(const Values &values)
    {
        QJsonArray array;
        for (const auto &value : values) {
            array.append(written(value));
        }
        return array;
    }

    QJsonObject m_object;
};

/// Where a value stands in the record, as a chain up to the record itself: most are never told.
struct Place
{
    const Place *above = nullptr; ///< null: the record is above
    const char *name = nullptr;   ///< null: an entry of a list
    int index = 0;

    /// "components[1].items[0].verdict"
    QString text() const
    {
        QString path;
        for (const Place *place = this; place != nullptr; place = place->above) {
            if (!path.isEmpty() && !path.startsWith(QLatin1Char('['))) {
                path.prepend(QLatin1Char('.'));
            }
            path.prepend(place->name == nullptr ? QStringLiteral("[%1]").arg(place->index)
                                                : QString::fromLatin1(place->name));
        }
        return path;
    }
};

/// One value of the record out of a JSON value; the first thing that is wrong ends the reading.
class Reader
{
public:
    /// `place`: of the object; null for the record itself.
    Reader(QJsonObject object, const Place *place, QString *error)
        : m_object(std::move(object)), m_place(place), m_error(error)
    {
    }

    template <class Value>
    void operator()(const char *name, Value &value)
    {
        if (!m_error->isEmpty()) {
            return;
        }
        const Place place{m_place, name};
        const auto entry = m_object.constFind(QLatin1String(name));
        if (entry == m_object.constEnd()) {
            *m_error = QCoreApplication::translate("Record", "%1 is missing").arg(place.text());
            return;
        }
        if (!read(*entry, place, &value) && m_error->isEmpty()) {
            *m_error = QCoreApplication::translate("Record", "%1 cannot be read").arg(place.text());
        }
    }

private:
    template <class Value>
    bool read(const QJsonValue &json, const Place &place, Value *value)
    {
        if constexpr (std::is_enum_v<Value>) {
            const std::optional<Value> found = valueOfName<Value>(json.toString());
            *value = found.value_or(Value{});
            return found.has_value();
        } else {
            if (!json.isObject()) {
                return false;
            }
            Reader reader(json.toObject(), &place, m_error);
            Keys<Value>::visit(*value, reader);
            return m_error->isEmpty();
        }
    }

    static bool read(const QJsonValue &json, const Place &, QString *text)
    {
        *text = wellFormed(json.toString()); // an escape may name half a pair of surrogates
        return json.isString();
    }

    static bool read(const QJsonValue &json, const Place &, double *number)
    {
        *number = json.toDouble();
        return json.isDouble();
    }

    /// A whole number between `least` and `most`.
    template <class Number>
    static bool readWhole(const QJsonValue &json, double least, double most, Number *number)
    {
        const double value = json.toDouble(std::numeric_limits<double>::quiet_NaN());
        if (!(value >= least && value <= most) || std::trunc(value) != value) {
            return false;
        }
        *number = static_cast<Number>(value);
        return true;
    }

    static bool read(const QJsonValue &json, const Place &, int *number)
    {
        return readWhole(json, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), number);
    }

    static bool read(const QJsonValue &json, const Place &, qint64 *number)
    {
        return readWhole(json, -largestExact, largestExact, number);
    }

    static bool read(const QJsonValue &json, const Place &place, MeasuredValue *value)
    {
        if (json.isString()) {
            return read(json, place, &value->emplace<QString>());
        }
        return read(json, place, &value->emplace<double>());
    }

    static bool read(const QJsonValue &json, const Place &, std::chrono::microseconds *duration)
    {
        const double count = std::round(json.toDouble(-1) * Writer::microsecondsPerMs);
        if (!(count >= 0 && count <= longestDuration)) {
            return false;
        }
        *duration = std::chrono::microseconds(static_cast<qint64>(count));
        return true;
    }

    static bool read(const QJsonValue &json, const Place &, QUuid *id)
    {
        *id = QUuid::fromString(json.toString());
        return !id->isNull();
    }

    static bool read(const QJsonValue &json, const Place &, QDateTime *time)
    {
        *time = QDateTime::fromString(json.toString(), Qt::ISODateWithMs);
        return time->isValid() && time->timeSpec() != Qt::LocalTime;
    }

    bool read(const QJsonValue &json, const Place &place, QStringList *texts) { return readArray(json, place, texts); }

    template <class Value>
    bool read(const QJsonValue &json, const Place &place, QList<Value> *values)
    {
        return readArray(json, place, values);
    }

    template <class Values>
    bool readArray(const QJsonValue &json, const Place &place, Values *values)
    {
        const QJsonArray array = json.toArray();
        for (int i = 0; i < array.size(); ++i) {
            typename Values::value_type value{};
            const Place entry{&place, nullptr, i};
            if (!read(array.at(i), entry, &value)) {
                if (m_error->isEmpty()) {
                    *m_error = QCoreApplication::translate("Record", "%1 cannot be read").arg(entry.text());
                }
                return false;
            }
            values->append(std::move(value));
        }
        return json.isArray();
    }

    template <class Value>
    bool read(const QJsonValue &json, const Place &place, std::optional<Value> *value)
    {
        if (json.isNull()) {
            value->reset();
            return true;
        }
        return read(json, place, &value->emplace());
    }

    static constexpr double largestExact = 9007199254740992; ///< 2 to the 53rd: a number keeps every whole one up to it
    static constexpr double longestDuration = 1e15;          ///< microseconds, some thirty years

    QJsonObject m_object;
    const Place *m_place;
    QString *m_error;
};
} // namespace

QByteArray toJson(const RunRecord &run, JsonLayout layout)
{
    Writer writer;
    writer(schemaKey.data(), RunRecord::schemaVersion);
    Keys<RunRecord>::visit(run, writer);
    const QJsonDocument document(writer.object());
    QByteArray json = layout == JsonLayout::Line ? document.toJson(QJsonDocument::Compact) + '\n' : document.toJson();
    // Qt would take a byte order mark at the beginning of a text for one, and leave it out when it reads the text.
    return json.replace(QByteArrayLiteral("\xEF\xBB\xBF"), QByteArrayLiteral("\\ufeff"));
}

std::optional<RunRecord> fromJson(const QByteArray &json, QString *error)
{
    error->clear();
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = QCoreApplication::translate("Record", "not JSON: %1 at byte %2")
                     .arg(parseError.errorString())
                     .arg(parseError.offset);
        return {};
    }
    if (!document.isObject()) {
        *error = QCoreApplication::translate("Record", "not a JSON object");
        return {};
    }
    const QJsonObject object = document.object();
    Reader reader(object, nullptr, error);
    int schema = 0;
    reader(schemaKey.data(), schema);
    if (error->isEmpty() && schema != RunRecord::schemaVersion) {
        *error = QCoreApplication::translate("Record", "schema %1 is not known").arg(schema);
    }
    RunRecord run;
    Keys<RunRecord>::visit(run, reader);
    return error->isEmpty() ? std::optional<RunRecord>(std::move(run)) : std::nullopt;
}
