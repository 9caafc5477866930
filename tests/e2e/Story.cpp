#include "Story.h"

#include "records.h"
#include "support/fileContent.h"

#include <cstdio>
#include <QtTest>

namespace {
QString act(const Story::Act &action, Scene &scene)
{
    return action ? action(scene) : QString();
}

/// From the camera's start to the station's end; what went wrong, or an empty text.
QString playInto(const Story &story, Scene &scene, StoryOutcome *outcome)
{
    if (story.hasCamera && !(story.shippedScenario.isEmpty() ? scene.camera.start(story.scenario)
                                                             : scene.camera.startShipped(story.shippedScenario))) {
        return QStringLiteral("the camera does not start");
    }
    if (story.safeguards) {
        scene.station.addSafeguards();
    }
    QString problem = act(story.before, scene);
    if (!problem.isEmpty()) {
        return problem;
    }
    const bool isToldWhere = story.options.contains(QStringLiteral("--json"));
    scene.station.start(story.components, isToldWhere ? story.options
                                                      : story.options + QStringList{QStringLiteral("--json"),
                                                                                    scene.station.recordsPath()});
    problem = act(story.meanwhile, scene);
    outcome->exitCode = scene.station.finish();
    if (problem.isEmpty()) {
        problem = act(story.after, scene);
    }
    return problem;
}
} // namespace

StoryOutcome play(const Story &story)
{
    StoryOutcome outcome;
    Scene scene;
    outcome.problem = playInto(story, scene, &outcome);
    if (outcome.problem.startsWith(cannotBePlayed)) {
        outcome.skipped = outcome.problem;
    }
    outcome.verdicts = scene.station.verdicts().join(QStringLiteral(", "));
    outcome.files = scene.station.allSaved();
    outcome.debugOutput = QString::fromUtf8(scene.station.debugOutput().content());
    outcome.shellLog = QString::fromUtf8(scene.station.diagnosticLog().content());
    outcome.leftovers = scene.station.leftovers();
    outcome.recordProblem = partsProblem(scene.station);
    outcome.records = recordsIn(fileContent(scene.station.recordsPath(), {}));
    if (outcome.recordProblem.isEmpty() && !story.options.contains(QStringLiteral("--json"))) {
        outcome.recordProblem = recordsProblem(story, outcome);
    }
    constexpr int enough = 4; // of a run that is repeated again and again
    while (outcome.records.size() > enough) {
        outcome.records.removeAt(enough - 1);
    }
    if (story.hasCamera && outcome.problem.isEmpty() && !scene.camera.stop()) {
        outcome.problem = QStringLiteral("the camera does not stop");
    }
    return outcome;
}

void compare(const Story &story, const StoryOutcome &outcome)
{
    if (!outcome.skipped.isEmpty()) {
        QTest::qSkip(qPrintable(outcome.skipped), __FILE__, __LINE__);
        return;
    }
    if (!outcome.problem.isEmpty() || outcome.exitCode != story.exitCode) {
        // Whole, which a message of the test would not be.
        std::fprintf(stderr, "%s\nThe shell:\n%s\n", qUtf8Printable(outcome.debugOutput),
                     qUtf8Printable(outcome.shellLog));
    }
    QVERIFY2(outcome.problem.isEmpty(), qPrintable(outcome.problem));
    QCOMPARE(outcome.exitCode, story.exitCode);
    QCOMPARE(outcome.verdicts, story.verdicts);
    for (auto file = story.files.begin(); file != story.files.end(); ++file) {
        QVERIFY2(outcome.files.contains(file.key()), qPrintable(file.key() + QStringLiteral(" is missing")));
        QCOMPARE(QString::fromUtf8(outcome.files.value(file.key())), QString::fromUtf8(file.value()));
    }
    if (!story.folders.isEmpty()) {
        QStringList folders;
        for (auto file = outcome.files.begin(); file != outcome.files.end(); ++file) {
            folders.append(file.key().section(QLatin1Char('/'), 0, 0));
        }
        folders.removeDuplicates();
        folders.sort();
        QStringList expected = story.folders;
        expected.sort();
        QCOMPARE(folders, expected);
    }
    for (const QString &text : story.says) {
        QVERIFY2(outcome.debugOutput.contains(text),
                 qPrintable(text + QStringLiteral(" is missing in:\n") + outcome.debugOutput));
    }
    QCOMPARE(outcome.leftovers, QStringList());
    QVERIFY2(outcome.recordProblem.isEmpty(), qPrintable(outcome.recordProblem));
}
