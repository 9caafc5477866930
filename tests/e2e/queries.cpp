#include "queries.h"

QByteArrayList namesOfAllQueries()
{
    QByteArrayList names;
    for (const Query &query : allQueries) {
        names.append(query.command);
    }
    return names;
}

QByteArray fault(const QByteArray &kind, const QByteArray &times, const QByteArray &value)
{
    return R"({"kind": ")" + kind + R"(", "times": )" + times + value + '}';
}

QByteArray faulty(const QByteArrayList &commands, const QByteArray &faults)
{
    QByteArrayList entries;
    for (const QByteArray &command : commands) {
        entries.append('"' + command + "\": [" + faults + ']');
    }
    return "{\"faults\": {" + entries.join(", ") + "}}";
}
