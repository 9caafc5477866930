#pragma once

#include "plan/SerialPattern.h"
#include "plan/settingsSection.h"

#include <QList>
#include <QString>
#include <QStringList>

/// What Start asks the operator for before a run.
enum class Question {
    Serial,
    Operator,
    Batch,
};

/// The questions of a station, in the order of asking. A value, for any thread.
struct Questions
{
    QList<Question> asked; ///< empty: Start asks nothing
    SerialPattern serialPattern;
    QStringList errors; ///< what is wrong with the lines, a line each; then nothing is asked
};

/// Reads `ask` ("serial,operator,batch", some of them in any order) and `serialPattern` out of the lines of the section
/// [Station] of `file`, and leaves its other lines alone.
Questions readQuestions(const QList<SettingsLine> &lines, const QString &file);
