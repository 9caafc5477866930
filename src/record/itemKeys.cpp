#include "record/itemKeys.h"

QString componentKey(int id)
{
    for (const ComponentKey &component : componentKeys) {
        if (component.id == id) {
            return QString::fromLatin1(component.key);
        }
    }
    return {};
}

std::optional<int> componentOfKey(const QString &key)
{
    for (const ComponentKey &component : componentKeys) {
        if (key == QLatin1String(component.key)) {
            return component.id;
        }
    }
    return {};
}

QString itemKey(int component, int number)
{
    for (const ItemKey &item : itemKeys) {
        if (item.component == component && item.number == number) {
            return QString::fromLatin1(item.key);
        }
    }
    return {};
}

QList<int> itemNumbers(int component)
{
    QList<int> numbers;
    for (const ItemKey &item : itemKeys) {
        if (item.component == component) {
            numbers.append(item.number);
        }
    }
    return numbers;
}
