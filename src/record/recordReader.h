#pragma once

#include "record/recordKeys.h"
#include "record/recordNames.h"

#include <cmath>
#include <limits>
#include <QCoreApplication>
#include <QStringList>
#include <type_traits>
#include <utility>
#include <variant>

// How a record is read out of a JSON document, whichever library has read that. A `Tree` names the library's types and
// tells what a value is; see `fromJson`.

/// Where a value stands in the record, as a chain up to the record itself: most are never told.
struct RecordPlace
{
    const RecordPlace *above = nullptr; ///< null: the record is above
    const char *name = nullptr;         ///< null: an entry of a list
    int index = 0;

    /// "components[1].items[0].verdict"
    QString text() const
    {
        QString path;
        for (const RecordPlace *place = this; place != nullptr; place = place->above) {
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
class RecordReader
{
public:
    using Json = typename Tree::Value;
    using Object = typename Tree::Object;

    /// `place`: of the object; null for the record itself.
    RecordReader(Object object, const RecordPlace *place, QString *error)
        : m_object(std::move(object)), m_place(place), m_error(error)
    {
    }

    template <class Value>
    void operator()(const char *name, Value &value)
    {
        if (!m_error->isEmpty()) {
            return;
        }
        const RecordPlace place{m_place, name};
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
    void refuse(const RecordPlace &place)
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
    bool read(const Json &json, const RecordPlace &place, Value *value)
    {
        if constexpr (std::is_enum_v<Value>) {
            return assign(valueOfName<Value>(Tree::text(json).value_or(QString())), value);
        } else {
            std::optional<Object> object = Tree::object(json);
            if (!object) {
                return false;
            }
            RecordReader reader(*std::move(object), &place, m_error);
            RecordKeys<Value>::visit(*value, reader);
            return m_error->isEmpty();
        }
    }

    static bool read(const Json &json, const RecordPlace &, QString *text) { return assign(Tree::text(json), text); }

    static bool read(const Json &json, const RecordPlace &, double *number)
    {
        return assign(Tree::number(json), number);
    }

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

    static bool read(const Json &json, const RecordPlace &, int *number)
    {
        return readWhole(json, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), number);
    }

    static bool read(const Json &json, const RecordPlace &, qint64 *number)
    {
        return readWhole(json, -largestExact, largestExact, number);
    }

    static bool read(const Json &json, const RecordPlace &place, MeasuredValue *value)
    {
        return assign(Tree::text(json), value) || read(json, place, &value->emplace<double>());
    }

    static bool read(const Json &json, const RecordPlace &, std::chrono::microseconds *duration)
    {
        const double count = std::round(Tree::number(json).value_or(-1) * recordMicrosecondsPerMs);
        if (!(count >= 0 && count <= longestDuration)) {
            return false;
        }
        *duration = std::chrono::microseconds(static_cast<qint64>(count));
        return true;
    }

    static bool read(const Json &json, const RecordPlace &, QUuid *id)
    {
        *id = QUuid::fromString(Tree::text(json).value_or(QString()));
        return !id->isNull();
    }

    static bool read(const Json &json, const RecordPlace &, QDateTime *time)
    {
        *time = QDateTime::fromString(Tree::text(json).value_or(QString()), Qt::ISODateWithMs);
        return time->isValid() && time->timeSpec() != Qt::LocalTime;
    }

    bool read(const Json &json, const RecordPlace &place, QStringList *texts) { return readArray(json, place, texts); }

    template <class Value>
    bool read(const Json &json, const RecordPlace &place, QList<Value> *values)
    {
        return readArray(json, place, values);
    }

    template <class Values>
    bool readArray(const Json &json, const RecordPlace &place, Values *values)
    {
        const auto array = Tree::array(json);
        if (!array) {
            return false;
        }
        RecordPlace entry{&place};
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
    bool read(const Json &json, const RecordPlace &place, std::optional<Value> *value)
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
    const RecordPlace *m_place;
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
    RecordReader<Tree> reader(*std::move(object), nullptr, error);
    int schema = 0;
    reader(recordSchemaKey, schema);
    if (error->isEmpty() && schema != RunRecord::schemaVersion) {
        *error = QCoreApplication::translate("Record", "schema %1 is not known").arg(schema);
    }
    RunRecord run;
    RecordKeys<RunRecord>::visit(run, reader);
    return error->isEmpty() ? std::optional<RunRecord>(std::move(run)) : std::nullopt;
}
