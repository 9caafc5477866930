#include "record/plainText.h"
#include "record/recordJson.h"
#include "record/recordKeys.h"
#include "record/recordNames.h"

#include <cmath>
#include <limits>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>
#include <simdjson.h>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

// Records are read by the thousand when they are imported, and Qt's JSON takes longer for that than everything else. So
// simdjson reads them. What it refuses, Qt reads: it says what is wrong and where, and also takes texts with half a
// surrogate pair, and numbers that no double holds. Both trees have the same face for the one `Reader`.

namespace {
/// As simdjson has it.
struct QuickTree
{
    using Value = simdjson::dom::element;
    using Object = simdjson::dom::object;

    /// Of equal keys the last one counts, as with Qt.
    static std::optional<Value> find(const Object &object, std::string_view name)
    {
        std::optional<Value> found;
        for (auto field = object.begin(); field != object.end(); ++field) {
            if (field.key_equals(name)) {
                found = field.value();
            }
        }
        return found;
    }

    static std::optional<Object> object(const Value &value) { return as<Object>(value); }
    static std::optional<simdjson::dom::array> array(const Value &value) { return as<simdjson::dom::array>(value); }
    static std::optional<double> number(const Value &value) { return as<double>(value); }
    static bool isNull(const Value &value) { return value.is_null(); }

    static std::optional<QString> text(const Value &value)
    {
        const std::optional<std::string_view> utf8 = as<std::string_view>(value);
        if (!utf8) {
            return {};
        }
        // Qt would take a byte order mark at the beginning for one, and leave it out.
        constexpr std::string_view mark = "\xEF\xBB\xBF";
        const bool isMarked = utf8->substr(0, mark.size()) == mark;
        const std::string_view rest = isMarked ? utf8->substr(mark.size()) : *utf8;
        const QString text = QString::fromUtf8(rest.data(), static_cast<int>(rest.size()));
        return isMarked ? QChar(QChar::ByteOrderMark) + text : text;
    }

private:
    template <class Kind>
    static std::optional<Kind> as(const Value &value)
    {
        Kind kind{};
        return value.get<Kind>().get(kind) == simdjson::SUCCESS ? std::optional<Kind>(kind) : std::nullopt;
    }
};

/// As Qt has it.
struct QtTree
{
    using Value = QJsonValue;
    using Object = QJsonObject;

    static std::optional<Value> find(const Object &object, const char *name)
    {
        const auto found = object.constFind(QLatin1String(name));
        return found == object.constEnd() ? std::nullopt : std::optional<Value>(*found);
    }

    static std::optional<Object> object(const Value &value) { return made(value.isObject(), value.toObject()); }
    static std::optional<QJsonArray> array(const Value &value) { return made(value.isArray(), value.toArray()); }
    static std::optional<double> number(const Value &value) { return made(value.isDouble(), value.toDouble()); }
    /// An escape may name half a surrogate pair.
    static std::optional<QString> text(const Value &value)
    {
        return made(value.isString(), wellFormed(value.toString()));
    }
    static bool isNull(const Value &value) { return value.isNull(); }

private:
    template <class Kind>
    static std::optional<Kind> made(bool is, const Kind &kind)
    {
        return is ? std::optional<Kind>(kind) : std::nullopt;
    }
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

/// One value of the record out of a tree's value; the first thing that is wrong ends the reading.
template <class Tree>
class Reader
{
public:
    using Json = typename Tree::Value;
    using Object = typename Tree::Object;

    /// `place`: of the object; null for the record itself.
    Reader(Object object, const Place *place, QString *error)
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
        const std::optional<Json> entry = Tree::find(m_object, name);
        if (!entry) {
            *m_error = QCoreApplication::translate("Record", "%1 is missing").arg(place.text());
            return;
        }
        if (!read(*entry, place, &value)) {
            refuse(place);
        }
    }

private:
    /// Unless something in it was refused already.
    void refuse(const Place &place)
    {
        if (m_error->isEmpty()) {
            *m_error = QCoreApplication::translate("Record", "%1 cannot be read").arg(place.text());
        }
    }

    template <class Found, class Value>
    static bool assign(std::optional<Found> &&found, Value *value)
    {
        if (!found) {
            return false;
        }
        *value = *std::move(found);
        return true;
    }

    template <class Value>
    bool read(const Json &json, const Place &place, Value *value)
    {
        if constexpr (std::is_enum_v<Value>) {
            return assign(valueOfName<Value>(Tree::text(json).value_or(QString())), value);
        } else {
            std::optional<Object> object = Tree::object(json);
            if (!object) {
                return false;
            }
            Reader reader(*std::move(object), &place, m_error);
            RecordKeys<Value>::visit(*value, reader);
            return m_error->isEmpty();
        }
    }

    static bool read(const Json &json, const Place &, QString *text) { return assign(Tree::text(json), text); }

    static bool read(const Json &json, const Place &, double *number) { return assign(Tree::number(json), number); }

    /// A whole number between `least` and `most`.
    template <class Number>
    static bool readWhole(const Json &json, double least, double most, Number *number)
    {
        const double value = Tree::number(json).value_or(std::numeric_limits<double>::quiet_NaN());
        if (!(value >= least && value <= most) || std::trunc(value) != value) {
            return false;
        }
        *number = static_cast<Number>(value);
        return true;
    }

    static bool read(const Json &json, const Place &, int *number)
    {
        return readWhole(json, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), number);
    }

    static bool read(const Json &json, const Place &, qint64 *number)
    {
        return readWhole(json, -largestExact, largestExact, number);
    }

    static bool read(const Json &json, const Place &place, MeasuredValue *value)
    {
        return assign(Tree::text(json), value) || read(json, place, &value->emplace<double>());
    }

    static bool read(const Json &json, const Place &, std::chrono::microseconds *duration)
    {
        const double count = std::round(Tree::number(json).value_or(-1) * recordMicrosecondsPerMs);
        if (!(count >= 0 && count <= longestDuration)) {
            return false;
        }
        *duration = std::chrono::microseconds(static_cast<qint64>(count));
        return true;
    }

    static bool read(const Json &json, const Place &, QUuid *id)
    {
        *id = QUuid::fromString(Tree::text(json).value_or(QString()));
        return !id->isNull();
    }

    static bool read(const Json &json, const Place &, QDateTime *time)
    {
        *time = QDateTime::fromString(Tree::text(json).value_or(QString()), Qt::ISODateWithMs);
        return time->isValid() && time->timeSpec() != Qt::LocalTime;
    }

    bool read(const Json &json, const Place &place, QStringList *texts) { return readArray(json, place, texts); }

    template <class Value>
    bool read(const Json &json, const Place &place, QList<Value> *values)
    {
        return readArray(json, place, values);
    }

    template <class Values>
    bool readArray(const Json &json, const Place &place, Values *values)
    {
        const auto array = Tree::array(json);
        if (!array) {
            return false;
        }
        Place entry{&place};
        for (const auto &element : *array) {
            values->append(typename Values::value_type{});
            if (!read(element, entry, &values->last())) {
                refuse(entry);
                return false;
            }
            ++entry.index;
        }
        return true;
    }

    template <class Value>
    bool read(const Json &json, const Place &place, std::optional<Value> *value)
    {
        if (Tree::isNull(json)) {
            value->reset();
            return true;
        }
        return read(json, place, &value->emplace());
    }

    static constexpr double largestExact = 9007199254740992; ///< 2 to the 53rd: a number keeps every whole one up to it
    static constexpr double longestDuration = 1e15;          ///< microseconds, some thirty years

    Object m_object;
    const Place *m_place;
    QString *m_error;
};

/// `object`: nothing if the document is none.
template <class Tree>
std::optional<RunRecord> readRecord(std::optional<typename Tree::Object> object, QString *error)
{
    if (!object) {
        *error = QCoreApplication::translate("Record", "not a JSON object");
        return {};
    }
    Reader<Tree> reader(*std::move(object), nullptr, error);
    int schema = 0;
    reader(recordSchemaKey, schema);
    if (error->isEmpty() && schema != RunRecord::schemaVersion) {
        *error = QCoreApplication::translate("Record", "schema %1 is not known").arg(schema);
    }
    RunRecord run;
    RecordKeys<RunRecord>::visit(run, reader);
    return error->isEmpty() ? std::optional<RunRecord>(std::move(run)) : std::nullopt;
}
} // namespace

std::optional<RunRecord> fromJson(const QByteArray &json, QString *error)
{
    error->clear();
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    if (parser.parse(json.constData(), static_cast<std::size_t>(json.size())).get(root) == simdjson::SUCCESS) {
        return readRecord<QuickTree>(QuickTree::object(root), error);
    }
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = QCoreApplication::translate("Record", "not JSON: %1 at byte %2")
                     .arg(parseError.errorString())
                     .arg(parseError.offset);
        return {};
    }
    return readRecord<QtTree>(document.isObject() ? std::optional(document.object()) : std::nullopt, error);
}
