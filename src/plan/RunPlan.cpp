#include "plan/RunPlan.h"

#include "record/itemKeys.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace {
const QLatin1String section("RunPlan");

struct Items
{
    QList<int> numbers;
    QString error;
};

QString knownItems(int component)
{
    QStringList numbers;
    const QList<int> known = itemNumbers(component);
    for (const int number : known) {
        numbers.append(QString::number(number));
    }
    return numbers.join(QStringLiteral(", "));
}

/// Appends the numbers of one entry, "3" or "0-4"; an error text, or an empty one.
QString readEntry(int component, const QString &entry, QList<int> *numbers)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,3})(?:-([0-9]{1,3}))?\\z"));
    const QRegularExpressionMatch match = form.match(entry);
    if (!match.hasMatch()) {
        return QCoreApplication::translate("RunPlan", "\"%1\" is not an item's number").arg(entry);
    }
    const int first = match.captured(1).toInt();
    const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
    if (last < first) {
        return QCoreApplication::translate("RunPlan", "the range \"%1\" runs backwards").arg(entry);
    }
    const QList<int> known = itemNumbers(component);
    for (int number = first; number <= last; ++number) {
        if (!known.contains(number)) {
            return QCoreApplication::translate("RunPlan", "there is no item %1; the items are %2")
                .arg(QString::number(number), knownItems(component));
        }
        if (numbers->contains(number)) {
            return QCoreApplication::translate("RunPlan", "item %1 stands there twice").arg(number);
        }
        numbers->append(number);
    }
    return {};
}

Items readItems(int component, const QString &text, QChar separator)
{
    Items items;
    if (text.trimmed().isEmpty()) {
        items.error = QCoreApplication::translate("RunPlan", "no item is named");
        return items;
    }
    const QStringList entries = text.split(separator);
    for (const QString &entry : entries) {
        items.error = readEntry(component, entry.trimmed(), &items.numbers);
        if (!items.error.isEmpty()) {
            break;
        }
    }
    return items;
}

QString componentNames()
{
    QStringList names;
    for (const ComponentKey &component : componentKeys) {
        names.append(QLatin1String(component.key));
    }
    return names.join(QStringLiteral(", "));
}

/// Adds one component of a requested run; an error text, or an empty one.
QString addRequested(const QString &entry, const QStringList &knownComponents, RequestedRun *run)
{
    const auto colon = static_cast<int>(entry.indexOf(QLatin1Char(':')));
    const QString name = entry.left(colon);
    if (entry == QLatin1String("all")) {
        for (const QString &known : knownComponents) {
            addRequested(known, knownComponents, run);
        }
        return {};
    }
    const std::optional<int> component = componentOfKey(name);
    if (!component || !knownComponents.contains(name)) {
        return QCoreApplication::translate("RunPlan", "unknown component \"%1\"; known are all, or any of: %2")
            .arg(name, knownComponents.join(QStringLiteral(", ")));
    }
    if (!run->components.contains(*component)) {
        run->components.append(*component);
    }
    if (colon < 0) {
        return {};
    }
    const Items items = readItems(*component, entry.mid(colon + 1), QLatin1Char('+'));
    if (!items.error.isEmpty()) {
        return QStringLiteral("\"%1\": %2").arg(entry, items.error);
    }
    if (run->items.contains(*component)) {
        return QCoreApplication::translate("RunPlan", "\"%1\": the component's items are named twice").arg(entry);
    }
    run->items.insert(*component, items.numbers);
    return {};
}
} // namespace

RunPlan readRunPlan(const QList<SettingsLine> &lines, const QString &file)
{
    RunPlan plan;
    for (const SettingsLine &line : lines) {
        const std::optional<int> component = componentOfKey(line.key);
        const Items items =
            component ? readItems(*component, line.value, QLatin1Char(','))
                      : Items{{},
                              QCoreApplication::translate("RunPlan", "there is no such component; known are %1")
                                  .arg(componentNames())};
        if (items.error.isEmpty()) {
            plan.items.insert(*component, items.numbers);
        } else {
            plan.errors.append(wrongLine(file, section, line, items.error));
        }
    }
    if (!plan.errors.isEmpty()) {
        plan.items.clear();
    }
    return plan;
}

RequestedRun readRequestedRun(const QString &text, const QStringList &knownComponents)
{
    RequestedRun run;
    const QStringList entries = text.split(QLatin1Char(','));
    for (const QString &entry : entries) {
        const QString error = addRequested(entry, knownComponents, &run);
        if (!error.isEmpty()) {
            return {{}, {}, error};
        }
    }
    return run;
}
