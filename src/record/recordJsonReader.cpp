#include "record/plainText.h"
#include "record/recordJson.h"
#include "record/recordReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

namespace {
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
} // namespace

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
    return readRecord<QtTree>(document.isObject() ? std::optional(document.object()) : std::nullopt, error);
}
