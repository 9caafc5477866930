#include "detector/checks/judgeMeasurements.h"

#include "detector/store/KestDetectorFace.h"
#include "plan/Limits.h"

void judgeMeasurements(CheckItemLog &item)
{
    const QStringList outside = applyLimits(KestDetectorFace::Get()->settings().limits, &item.measurements);
    for (const QString &line : outside) {
        item.result = verdict::failed;
        item.detail += line + QLatin1Char('\n');
    }
}
