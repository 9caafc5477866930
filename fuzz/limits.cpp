// The lines of [Limits]: a limit that could be read says what it is in words that are read as the same limit.

#include "plan/Limits.h"
#include "record/limitText.h"
#include "require.h"
#include "settingsLines.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString file = QStringLiteral("option.ini");
    const Limits limits = readLimits(settingsLines(data, size), file);
    require(limits.byName.isEmpty() != limits.errors.isEmpty(),
            "limits are read as a whole, or it is told what is wrong");
    for (auto limit = limits.byName.begin(); limit != limits.byName.end(); ++limit) {
        const Limits again = readLimits({{limit.key(), limitText(*limit)}}, file);
        require(again.byName.value(limit.key()) == *limit, "a limit's text is read as the same limit");
        const bool isRange = limit->oneOf.isEmpty();
        require(!isRange || limit->admits(limit->least ? *limit->least : *limit->most), "bounds are included");
        QList<Measurement> measurements = {measured(Field::BatteryVoltage, 4),
                                           measured(Field::Firmware, QStringLiteral("1.2.3"))};
        applyLimits(limits.byName, &measurements);
        require(measurements.size() == 2, "judging loses no measurement");
    }
    return 0;
}
