#include "detector/checks/judgeMeasurements.h"

#include "detector/store/KestDetectorFace.h"
#include "plan/Limits.h"
#include "record/limitText.h"

#include <algorithm>
#include <QObject>

namespace {
void breakLimit(CheckItemLog &item, const QString &line)
{
    item.result = verdict::failed;
    item.breaksLimit = true;
    item.detail += line + QLatin1Char('\n');
}
} // namespace

void judgeMeasurements(CheckItemLog &item)
{
    const QStringList outside = applyLimits(KestDetectorFace::Get()->settings().limits, &item.measurements);
    for (const QString &line : outside) {
        breakLimit(item, line);
    }
}

void judgeMissing(CheckItemLog &item, const QList<Field> &expected)
{
    const QMap<QString, Limit> &limits = KestDetectorFace::Get()->settings().limits;
    for (const Field field : expected) {
        const QString name = QString::fromLatin1(fieldInfo(field).name);
        const bool isThere = std::any_of(item.measurements.begin(), item.measurements.end(),
                                         [&name](const Measurement &entry) { return entry.name == name; });
        const auto limit = limits.find(name);
        if (!isThere && limit != limits.end()) {
            breakLimit(item, QObject::tr("%1: not read (%2)").arg(name, limitText(*limit)));
        }
    }
}
