#include "exchange/detectorLog.h"

#include "exchange/logLines.h"
#include "record/itemKeys.h"

#include <algorithm>
#include <QStringList>

namespace {
/// How much an item or a component has to worry about.
int severity(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Failed:
        return 2;
    case Verdict::Warning:
        return 1;
    case Verdict::Passed:
    case Verdict::NotTested:
        break;
    }
    return 0;
}

Verdict worseOf(Verdict left, Verdict right)
{
    return severity(right) > severity(left) ? right : left;
}

/// The main board's warnings stay warnings; any other component fails by one.
Verdict componentVerdict(const ComponentRecord &component)
{
    constexpr int pcba = 8;
    Verdict verdict = component.items.isEmpty() ? Verdict::NotTested : Verdict::Passed;
    for (const ItemRecord &item : component.items) {
        verdict = worseOf(verdict, item.verdict);
    }
    return verdict == Verdict::Warning && component.id != pcba ? Verdict::Failed : verdict;
}

class LogReader
{
public:
    void read(const QString &line)
    {
        if (const std::optional<int> component = componentOfHeading(line)) {
            begin(*component);
        } else if (m_run.components.isEmpty()) {
            m_run.unknownLines += line.isEmpty() ? 0 : 1;
        } else {
            readItemLine(line);
        }
    }

    LoggedRun end()
    {
        endBlock();
        return m_run;
    }

private:
    void begin(int component)
    {
        endBlock();
        ComponentRecord record;
        record.id = component;
        record.key = componentKey(component);
        record.name = componentHeadingName(component);
        m_run.components.append(record);
    }

    void readItemLine(const QString &line)
    {
        ComponentRecord &component = m_run.components.last();
        if (const std::optional<VerdictLine> verdict = readVerdictLine(component.id, line)) {
            noteVerdict(component, *verdict);
            if (!verdict->rest.isEmpty()) {
                readItemLine(verdict->rest);
            }
            if (!verdict->isReport) {
                return;
            }
        }
        if (component.items.isEmpty()) {
            m_run.unknownLines += line.isEmpty() ? 0 : 1;
            return;
        }
        noteReport(component.id, component.items.last(), line);
    }

    static void noteVerdict(ComponentRecord &component, const VerdictLine &line)
    {
        const bool goesOn = !component.items.isEmpty() && component.items.constLast().number == line.item &&
                            hasSteps(component.id, line.item);
        if (!goesOn) {
            ItemRecord item;
            item.number = line.item;
            item.key = itemKey(component.id, line.item);
            item.name = loggedItemName(component.id, line.item);
            item.verdict = line.verdict;
            component.items.append(item);
        }
        ItemRecord &item = component.items.last();
        item.message += line.message;
        item.verdict = worseOf(item.verdict, line.verdict);
    }

    static void noteReport(int component, ItemRecord &item, const QString &line)
    {
        item.detail += line + QLatin1Char('\n');
        if (const std::optional<Measurement> outside = readLimitLine(line)) {
            item.verdict = Verdict::Failed;
            const auto shown =
                std::find_if(item.measurements.begin(), item.measurements.end(),
                             [&outside](const Measurement &entry) { return entry.name == outside->name; });
            if (shown == item.measurements.end()) {
                item.measurements.append(*outside);
            } else {
                shown->limit = outside->limit;
            }
        } else if (const std::optional<Measurement> value = readReportLine(component, item.number, line)) {
            item.measurements.append(*value);
        }
    }

    /// The line that ends a block is not the last item's.
    void endBlock()
    {
        if (m_run.components.isEmpty()) {
            return;
        }
        ComponentRecord &component = m_run.components.last();
        if (!component.items.isEmpty()) {
            QString &detail = component.items.last().detail;
            if (detail == QLatin1String("\n") || detail.endsWith(QLatin1String("\n\n"))) {
                detail.chop(1);
            }
        }
        component.verdict = componentVerdict(component);
    }

    LoggedRun m_run;
};
} // namespace

LoggedRun readDetectorLog(const QString &text)
{
    LogReader reader;
    QStringList lines = text.split(QLatin1Char('\n'));
    if (lines.constLast().isEmpty()) {
        lines.removeLast(); // what is behind the last line break is no line
    }
    for (const QString &line : qAsConst(lines)) {
        reader.read(line);
    }
    return reader.end();
}
