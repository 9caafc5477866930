#include "detector/store/Safeguards.h"

#include "detector/store/componentId.h"
#include "detector/store/verdict.h"

#include <QCoreApplication>

namespace {
QString translated(const char *text)
{
    return QCoreApplication::translate("Safeguards", text);
}

bool passes(int outcome)
{
    return outcome == verdict::ok || outcome == verdict::warning;
}
} // namespace

QStringList Safeguards::missingForStart(const StartConditions &conditions) const
{
    QStringList missing;
    if (!m_on) {
        return missing;
    }
    if (conditions.tickedBoxes == 0) {
        missing.append(translated(QT_TRANSLATE_NOOP("Safeguards", "no component is ticked")));
    }
    if (!conditions.connected) {
        missing.append(translated(QT_TRANSLATE_NOOP("Safeguards", "no camera is connected")));
    } else if (conditions.macAddress.isEmpty()) {
        missing.append(translated(QT_TRANSLATE_NOOP("Safeguards", "the camera's MAC address is unknown")));
    }
    for (const SettingProblem &problem : conditions.settingProblems) {
        missing.append(QStringLiteral("option.ini: ") + problem.text());
    }
    return missing;
}

bool Safeguards::countsAsTested(int component)
{
    return component != componentId::fan && component != componentId::keyBoard && component != componentId::voice;
}

int Safeguards::componentVerdict(int component, int outcome, int unanswered) const
{
    if (!m_on) {
        return outcome;
    }
    if (!countsAsTested(component)) {
        return verdict::notTested;
    }
    return unanswered > 0 && passes(outcome) ? verdict::failed : outcome;
}

bool Safeguards::failsRun(int component, int shownVerdict) const
{
    const bool onlyNamed = m_on && !countsAsTested(component) && shownVerdict == verdict::notTested;
    return !onlyNamed && !passes(shownVerdict);
}

bool Safeguards::runPassed(bool passed, bool tested, RunEnd::Camera camera) const
{
    return passed && (!m_on || (tested && camera == RunEnd::Camera::Kept));
}
