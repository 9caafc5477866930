#include "exchange/quickRecord.h"

#include "record/recordJson.h"
#include "record/recordReader.h"

#include <algorithm>
#include <QVarLengthArray>
#include <simdjson.h>
#include <string_view>

namespace {
/// As simdjson has it.
struct QuickTree
{
    using Value = simdjson::dom::element;
    struct Field
    {
        std::string_view name;
        Value value;
    };
    /// Looked through many times: simdjson itself would go through the document for each name.
    using Object = QVarLengthArray<Field, 16>;

    /// Of equal keys the last one counts, as with Qt.
    static std::optional<Value> find(const Object &object, std::string_view name)
    {
        const auto found =
            std::find_if(object.rbegin(), object.rend(), [name](const Field &field) { return field.name == name; });
        return found != object.rend() ? std::optional(found->value) : std::nullopt;
    }

    static std::optional<Object> object(const Value &value)
    {
        const std::optional<simdjson::dom::object> fields = as<simdjson::dom::object>(value);
        if (!fields) {
            return {};
        }
        Object object;
        for (const auto &[name, entry] : *fields) {
            object.append({name, entry});
        }
        return object;
    }
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
} // namespace

std::optional<RunRecord> quickRecord(const QByteArray &json, QString *error)
{
    error->clear();
    thread_local simdjson::dom::parser parser; // keeps its room
    simdjson::dom::element root;
    if (parser.parse(json.constData(), static_cast<std::size_t>(json.size())).get(root) != simdjson::SUCCESS) {
        // Qt says what is wrong and where. It also takes what is not quite JSON, such as half of a surrogate pair.
        return fromJson(json, error);
    }
    return readRecord<QuickTree>(QuickTree::object(root), error);
}
