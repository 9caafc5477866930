// The lines of [RunPlan], and what follows --run: whatever is typed there, a plan names only items that there are.

#include "plan/RunPlan.h"
#include "record/itemKeys.h"
#include "require.h"
#include "settingsLines.h"

namespace {
void requireKnown(const PlannedItems &items)
{
    for (auto planned = items.begin(); planned != items.end(); ++planned) {
        const QList<int> known = itemNumbers(planned.key());
        require(!planned->isEmpty() && planned->size() <= known.size(), "a plan names each item at most once");
        for (const int number : *planned) {
            require(known.contains(number), "a plan names items that there are");
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const RunPlan plan = readRunPlan(settingsLines(data, size), QStringLiteral("option.ini"));
    require(plan.items.isEmpty() != plan.errors.isEmpty(), "a plan is read as a whole, or it is told what is wrong");
    requireKnown(plan.items);

    QStringList names;
    for (const ComponentKey &component : componentKeys) {
        names.append(QLatin1String(component.key));
    }
    const RequestedRun run =
        readRequestedRun(QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size)), names);
    require(run.components.isEmpty() != run.error.isEmpty(), "a run is read as a whole, or it is told what is wrong");
    requireKnown(run.items);
    for (auto planned = run.items.begin(); planned != run.items.end(); ++planned) {
        require(run.components.contains(planned.key()), "items are of components that run");
    }
    return 0;
}
