#include "record/recordJson.h"

#include "record/plainText.h"
#include "record/recordKeys.h"
#include "record/recordNames.h"

#include <cmath>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>
#include <type_traits>
#include <variant>

namespace {
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
            RecordKeys<Value>::visit(value, writer);
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
        return static_cast<double>(duration.count()) / recordMicrosecondsPerMs;
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
} // namespace

QByteArray toJson(const RunRecord &run, JsonLayout layout)
{
    Writer writer;
    writer(recordSchemaKey, RunRecord::schemaVersion);
    RecordKeys<RunRecord>::visit(run, writer);
    const QJsonDocument document(writer.object());
    QByteArray json = layout == JsonLayout::Line ? document.toJson(QJsonDocument::Compact) + '\n' : document.toJson();
    // Qt would take a byte order mark at the beginning of a text for one, and leave it out when it reads the text.
    return json.replace(QByteArrayLiteral("\xEF\xBB\xBF"), QByteArrayLiteral("\\ufeff"));
}
