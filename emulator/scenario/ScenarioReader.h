#pragma once

#include "emulator/scenario/Scenario.h"

#include <QByteArray>
#include <QString>

namespace emulator {

struct ScenarioResult
{
    Scenario scenario;
    /// Empty when the text was a scenario; else "line 3, column 7: ..." or "battery.info.voltage: ...".
    QString error;
};

/// Reads a scenario (JSON, UTF-8). Every key is optional; `README.md` lists them. Touches nothing but its argument.
ScenarioResult parseScenario(const QByteArray &json);

} // namespace emulator
