#pragma once

#include "CameraProcess.h"
#include "StationProcess.h"

#include <functional>
#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// The two processes of one story.
struct Scene
{
    CameraProcess camera;
    StationProcess station;
};

/// One run of the station against a camera, what happens meanwhile, and how it has to come out. Its records are saved
/// and held against the schema and against the exit code, too.
struct Story
{
    /// Does something to the scene; returns what went wrong, or an empty text.
    using Act = std::function<QString(Scene &scene)>;

    Story(QByteArray title, QString tested) : name(std::move(title)), components(std::move(tested)) {}

    QByteArray name;
    QString components;        ///< as for `--run`
    QStringList options;       ///< of the station
    QByteArray scenario{"{}"}; ///< JSON
    QString shippedScenario;   ///< instead of `scenario`, by name
    bool hasCamera = true;
    bool safeguards = false; ///< adds `[Station] safeguards=true` to the settings of nineteen keys
    bool calm = false;       ///< beside few other stories: its outcome depends on tenths of a second
    Act before;              ///< after the camera's start, before the station's
    Act meanwhile;           ///< after the station's start; the story then waits for the station's end
    Act after;               ///< after the station's end

    // What is expected.
    int exitCode = 0;
    QString verdicts;                ///< of the last run, as `StationProcess::verdicts`, joined by ", "
    QMap<QString, QByteArray> files; ///< those named must have been saved so, as in `StationProcess::allSaved`
    QStringList folders;             ///< exactly these were made below "log", without their date; empty: any
    QStringList says;                ///< texts that stand in the debug output
};

/// What became of a story.
struct StoryOutcome
{
    QString problem; ///< empty: the story could be played
    QString skipped; ///< not empty: why it could not be played here
    int exitCode = -1;
    QString verdicts;
    QMap<QString, QByteArray> files;
    QString debugOutput;
    QString shellLog; ///< what the station wrote down of its shell session
    QStringList leftovers;
    QList<QByteArray> records; ///< of its runs: the first ones and the last one
    QString recordProblem;     ///< what is wrong with them or beside them; empty: nothing
};

/// For an `Act` that needs what the system may forbid: its result starts with this text.
inline const QString cannotBePlayed = QStringLiteral("cannot be played here: ");

StoryOutcome play(const Story &story);

/// Compares with what the story expects; to be the last statement of a test function.
void compare(const Story &story, const StoryOutcome &outcome);
