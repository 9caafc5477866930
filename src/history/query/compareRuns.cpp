#include "history/query/compareRuns.h"

#include "record/limitText.h"
#include "record/recordNames.h"

#include <algorithm>
#include <array>
#include <QCoreApplication>
#include <QStringList>

namespace {
struct Surrounding
{
    const char *name;
    QString (*text)(const RunRecord &run);
};

QString planText(const RunRecord &run)
{
    QStringList components;
    for (const PlannedComponent &component : run.plan) {
        QStringList items;
        for (const int item : component.items) {
            items.append(QString::number(item));
        }
        components.append(component.key + QLatin1Char(':') + items.join(QLatin1Char(',')));
    }
    return components.join(QLatin1Char(' '));
}

constexpr std::array surroundings = {
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "station"), [](const RunRecord &run) { return run.station.name; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "location"),
                [](const RunRecord &run) { return run.station.location; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "operator"), [](const RunRecord &run) { return run.operatorName; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "batch"), [](const RunRecord &run) { return run.batch; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "serial"), [](const RunRecord &run) { return run.serial; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "program version"),
                [](const RunRecord &run) { return run.programVersion; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "firmware"),
                [](const RunRecord &run) { return run.camera.firmware; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "wifi name"),
                [](const RunRecord &run) { return run.camera.wifiName; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "link"), [](const RunRecord &run) { return run.camera.link; }},
    Surrounding{QT_TRANSLATE_NOOP("RunComparison", "plan"), planText},
};

QList<ItemRecord> itemsOf(const RunRecord &run)
{
    QList<ItemRecord> items;
    for (const ComponentRecord &component : run.components) {
        items += component.items;
    }
    return items;
}

/// The item, or the measurement, that `is` tells; null if there is none.
template <class Values, class Is>
const typename Values::value_type *find(const Values &values, Is is)
{
    const auto found = std::find_if(values.begin(), values.end(), is);
    return found == values.end() ? nullptr : &*found;
}

class Comparison
{
public:
    explicit Comparison(Wording wording) : m_wording(wording) {}

    /// `text`, which is marked for translation, as it is to be read.
    QString inWords(const char *text) const
    {
        return m_wording == Wording::ForPeople ? QCoreApplication::translate("RunComparison", text)
                                               : QString::fromLatin1(text);
    }

    void compare(const QString &what, const QString &before, const QString &after)
    {
        if (before != after) {
            differences.append({what, before, after});
        }
    }

    /// Either may be missing, but not both.
    void compareItem(const ItemRecord *before, const ItemRecord *after)
    {
        const QString &key = (after != nullptr ? after : before)->key;
        const int known = static_cast<int>(differences.size());
        compare(key, endText(before), endText(after));
        const bool endsOtherwise = differences.size() > known;
        if (before != nullptr && after != nullptr) {
            compareMeasurements(*before, *after, endsOtherwise);
        }
    }

    QList<Difference> differences;

private:
    QString endText(const ItemRecord *item) const
    {
        if (item == nullptr) {
            return inWords(QT_TRANSLATE_NOOP("RunComparison", "not run"));
        }
        const QString message = item->message.simplified();
        const QString verdict = m_wording == Wording::ForPeople ? wordOf(item->verdict) : nameOf(item->verdict);
        return message.isEmpty() ? verdict
                                 : inWords(QT_TRANSLATE_NOOP("RunComparison", "%1: %2")).arg(verdict, message);
    }

    QString measurementText(const Measurement *measurement) const
    {
        if (measurement == nullptr) {
            return inWords(QT_TRANSLATE_NOOP("RunComparison", "not measured"));
        }
        QString text = valueText(measurement->value);
        if (!measurement->unit.isEmpty()) {
            text += QLatin1Char(' ') + measurement->unit;
        }
        if (measurement->limit) {
            text += QStringLiteral(" (%1)").arg(limitText(*measurement->limit));
        }
        return text;
    }

    void compareMeasurements(const ItemRecord &before, const ItemRecord &after, bool all)
    {
        for (const Measurement &measurement : after.measurements) {
            const Measurement *earlier = find(before.measurements, [&measurement](const Measurement &entry) {
                return entry.name == measurement.name;
            });
            if (all || earlier == nullptr || earlier->limit != measurement.limit) {
                compare(after.key + QLatin1Char('/') + measurement.name, measurementText(earlier),
                        measurementText(&measurement));
            }
        }
    }

    const Wording m_wording;
};
} // namespace

QList<Difference> compareRuns(const RunRecord &before, const RunRecord &after, Wording wording)
{
    Comparison comparison(wording);
    for (const Surrounding &row : surroundings) {
        comparison.compare(comparison.inWords(row.name), row.text(before), row.text(after));
    }
    const QList<ItemRecord> earlier = itemsOf(before);
    const QList<ItemRecord> later = itemsOf(after);
    const auto keyIs = [](const QString &key) { return [&key](const ItemRecord &item) { return item.key == key; }; };
    for (const ItemRecord &item : later) {
        comparison.compareItem(find(earlier, keyIs(item.key)), &item);
    }
    for (const ItemRecord &item : earlier) {
        if (find(later, keyIs(item.key)) == nullptr) {
            comparison.compareItem(&item, nullptr);
        }
    }
    return comparison.differences;
}

std::optional<TurnForTheWorse> findTurnForTheWorse(const QList<Outcome> &outcomes)
{
    int failure = -1;
    for (int i = static_cast<int>(outcomes.size()) - 1; i >= 0; --i) {
        if (outcomes.at(i) == Outcome::Failed) {
            failure = i;
        } else if (outcomes.at(i) == Outcome::Passed && failure >= 0) {
            return TurnForTheWorse{i, failure};
        }
    }
    return {};
}
