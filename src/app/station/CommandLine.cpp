#include "app/station/CommandLine.h"

#include "detector/store/componentId.h"
#include "detector/store/programVersion.h"
#include "language/languageOption.h"
#include "record/itemKeys.h"

#include <algorithm>
#include <array>
#include <limits>
#include <QCommandLineParser>

namespace {
struct ComponentBox
{
    int component;
    const char *box;
};

/// In the order in which a run tests them.
constexpr std::array componentBoxes = {
    ComponentBox{componentId::camera, "cbCamera"},     ComponentBox{componentId::gimbal, "cbGimbal"},
    ComponentBox{componentId::battery, "cbBattery"},   ComponentBox{componentId::tfCard, "cbTFCard"},
    ComponentBox{componentId::lens, "cbLens"},         ComponentBox{componentId::fan, "cbFan"},
    ComponentBox{componentId::keyBoard, "cbKeyBoard"}, ComponentBox{componentId::voice, "cbVoice"},
    ComponentBox{componentId::pcba, "cbPCBA"},         ComponentBox{componentId::log, "cbLoadLog"},
};
static_assert(componentBoxes.size() == componentKeys.size());

QStringList knownNames()
{
    QStringList names;
    for (const ComponentBox &entry : componentBoxes) {
        names.append(componentKey(entry.component));
    }
    return names;
}

/// Reads what to run; an error text, or an empty one.
QString readComponents(const QString &list, CommandLine *line)
{
    const RequestedRun run = readRequestedRun(list, knownNames());
    if (!run.error.isEmpty()) {
        return QStringLiteral("--run: ") + run.error;
    }
    for (const int component : run.components) {
        const auto *const entry =
            std::find_if(componentBoxes.begin(), componentBoxes.end(),
                         [component](const ComponentBox &row) { return row.component == component; });
        line->boxes.append(QLatin1String(entry->box));
    }
    line->items = run.items;
    return {};
}

/// Reads a whole number; an error text, or an empty one.
QString readNumber(const QCommandLineParser &parser, const QCommandLineOption &option, int least, int *number)
{
    if (!parser.isSet(option)) {
        return {};
    }
    bool ok = false;
    const int value = parser.value(option).toInt(&ok);
    if (!ok || value < least) {
        return CommandLine::tr("--%1: \"%2\" is not a whole number of %3 or more")
            .arg(option.names().constFirst(), parser.value(option), QString::number(least));
    }
    *number = value;
    return {};
}

/// What does not go with --each; an empty text if nothing is there that does not.
QString eachProblem(const QCommandLineParser &parser, const QCommandLineOption &each,
                    const QList<QCommandLineOption> &others)
{
    for (const QCommandLineOption &other : others) {
        if (parser.isSet(each) && parser.isSet(other)) {
            return CommandLine::tr("--%1 does not go with --each").arg(other.names().constFirst());
        }
    }
    return {};
}

/// What is wrong with the files for the records; an empty text if nothing is.
QString recordFilesProblem(const QCommandLineParser &parser, const QCommandLineOption &json,
                           const QCommandLineOption &junit)
{
    const auto problem = [&parser](const QCommandLineOption &option, bool isFile) {
        return parser.isSet(option) && !isFile
                   ? CommandLine::tr("--%1: \"%2\" is no file").arg(option.names().constFirst(), parser.value(option))
                   : QString();
    };
    const QString jsonFile = parser.value(json);
    const QString junitFile = parser.value(junit);
    if (!jsonFile.isEmpty() && jsonFile == junitFile) {
        return CommandLine::tr("--json and --junit name the same file");
    }
    return problem(json, !jsonFile.isEmpty()) + problem(junit, !junitFile.isEmpty() && junitFile != QLatin1String("-"));
}
} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    const QCommandLineOption runOption(QStringLiteral("run"),
                                       tr("Run these components unattended (comma-separated, or \"all\"), print the "
                                          "result and leave: %1. Items by their numbers: camera:0+1,gimbal:0-4,log.")
                                           .arg(knownNames().join(QStringLiteral(", "))),
                                       tr("components"));
    const QCommandLineOption savePathOption(QStringLiteral("save-path"),
                                            tr("Save the logs below this folder (default: beside the program)."),
                                            tr("folder"));
    const QCommandLineOption timeoutOption(QStringLiteral("connect-timeout"),
                                           tr("Wait this long for the camera (default: 30)."), tr("seconds"));
    const QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
                                              tr("Save a picture of the window after the run (PNG)."), tr("file"));
    const QCommandLineOption repeatOption(QStringLiteral("repeat"), tr("Number of runs (default: 1)."), tr("count"));
    const QCommandLineOption eachOption(QStringLiteral("each"),
                                        tr("Run once for each camera that connects, until the program is closed."));
    const QCommandLineOption jsonOption(
        QStringLiteral("json"),
        tr("Save the record of the run as JSON; of several runs, a line each. With \"-\" it is all that "
           "goes to standard output, and the other texts go to standard error."),
        tr("file"));
    const QCommandLineOption junitOption(QStringLiteral("junit"),
                                         tr("Save the record of the runs as a JUnit report (XML)."), tr("file"));
    const QCommandLineOption operatorOption(QStringLiteral("operator"),
                                            tr("Who runs it, for the record (default: by option.ini)."), tr("name"));
    const QCommandLineOption batchOption(QStringLiteral("batch"), tr("The camera's batch, likewise."), tr("batch"));
    const QCommandLineOption serialOption(QStringLiteral("serial"), tr("The camera's serial number, for the record."),
                                          tr("number"));
    const QCommandLineOption closeAfterOption(QStringLiteral("close-after"),
                                              tr("Close the window after this time, whatever goes on, as a hand "
                                                 "would; the exit code is then 4."),
                                              tr("milliseconds"));
    const QCommandLineOption helpOption({QStringLiteral("help"), QStringLiteral("h")}, tr("Show this text."));
    const QCommandLineOption versionOption(QStringLiteral("version"), tr("Show the program's version."));
    const QCommandLineOption language = languageOption();
    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Self-test station for WiFi gimbal cameras. Without options it opens its window.\n"
           "Exit codes of an unattended run: 0 passed, 1 failed, 2 wrong usage, malformed settings or a second "
           "station, 3 no camera in time or lost or changed during a run, 4 stopped or closed before the end, 5 not "
           "everything was saved."));
    parser.addOptions({runOption, jsonOption, junitOption, operatorOption, batchOption, serialOption, savePathOption,
                       timeoutOption, screenshotOption, repeatOption, eachOption, closeAfterOption, language,
                       helpOption, versionOption});

    CommandLine line;
    const auto wrong = [&line](const QString &reason) {
        line.mode = Mode::Wrong;
        line.message = reason;
        return line;
    };
    if (!parser.parse(arguments)) {
        return wrong(parser.errorText());
    }
    if (parser.isSet(helpOption)) {
        line.mode = Mode::Help;
        line.message = parser.helpText();
        return line;
    }
    if (parser.isSet(versionOption)) {
        line.mode = Mode::Help;
        line.message = QStringLiteral("KestDetector %1").arg(QLatin1String(programVersion()));
        return line;
    }
    const QString wrongLanguage = languageProblem(parser, language);
    if (!wrongLanguage.isEmpty()) {
        return wrong(wrongLanguage);
    }
    if (!parser.positionalArguments().isEmpty()) {
        return wrong(tr("Unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst()));
    }
    if (!parser.isSet(runOption)) {
        QStringList given = parser.optionNames();
        given.removeAll(language.names().constFirst());
        return given.isEmpty() ? line : wrong(tr("--%1 goes with --run").arg(given.constFirst()));
    }
    line.mode = Mode::Unattended;
    line.labels = {parser.value(operatorOption), parser.value(batchOption), parser.value(serialOption)};
    line.serialGiven = parser.isSet(serialOption);
    line.each = parser.isSet(eachOption);
    line.json = parser.value(jsonOption);
    line.junit = parser.value(junitOption);
    line.savePath = parser.value(savePathOption);
    line.screenshot = parser.value(screenshotOption);
    const QStringList errors{
        readComponents(parser.value(runOption), &line),
        recordFilesProblem(parser, jsonOption, junitOption),
        eachProblem(parser, eachOption, {repeatOption, timeoutOption, screenshotOption, serialOption}),
        readNumber(parser, timeoutOption, 1, &line.connectTimeoutSeconds),
        readNumber(parser, repeatOption, 1, &line.repeat),
        readNumber(parser, closeAfterOption, 0, &line.closeAfterMs),
        line.connectTimeoutSeconds > std::numeric_limits<int>::max() / 1000
            ? tr("--connect-timeout: at most %1").arg(std::numeric_limits<int>::max() / 1000)
            : QString(),
        parser.isSet(screenshotOption) && !line.screenshot.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)
            ? tr("--screenshot: \"%1\" does not end in .png").arg(line.screenshot)
            : QString(),
    };
    for (const QString &error : errors) {
        if (!error.isEmpty()) {
            return wrong(error);
        }
    }
    return line;
}

QStringList CommandLine::refusalsBy(const Settings &settings) const
{
    QStringList refusals = settings.refusals;
    const SerialPattern &pattern = settings.questions.serialPattern;
    if (serialGiven && !pattern.text().isEmpty() && pattern.error().isEmpty() && !pattern.matches(labels.serial)) {
        refusals.append(
            tr("--serial: \"%1\" does not match Station/serialPattern=\"%2\"").arg(labels.serial, pattern.text()));
    }
    return refusals;
}

RunLabels CommandLine::labelsOver(const Settings &settings) const
{
    const auto given = [](const QString &text, const QString &otherwise) { return text.isEmpty() ? otherwise : text; };
    return {given(labels.operatorName, settings.stationOperator), given(labels.batch, settings.stationBatch),
            labels.serial};
}
