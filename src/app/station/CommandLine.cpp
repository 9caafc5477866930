#include "app/station/CommandLine.h"

#include "detector/store/componentId.h"
#include "detector/store/programVersion.h"
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
        return QStringLiteral("--%1: \"%2\" is not a whole number of %3 or more")
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
            return QStringLiteral("--%1 does not go with --each").arg(other.names().constFirst());
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
                   ? QStringLiteral("--%1: \"%2\" is no file").arg(option.names().constFirst(), parser.value(option))
                   : QString();
    };
    const QString jsonFile = parser.value(json);
    const QString junitFile = parser.value(junit);
    if (!jsonFile.isEmpty() && jsonFile == junitFile) {
        return QStringLiteral("--json and --junit name the same file");
    }
    return problem(json, !jsonFile.isEmpty()) + problem(junit, !junitFile.isEmpty() && junitFile != QLatin1String("-"));
}
} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    const QCommandLineOption runOption(
        QStringLiteral("run"),
        QStringLiteral("Run these components unattended (comma-separated, or \"all\"), print the "
                       "result and leave: %1. Items by their numbers: camera:0+1,gimbal:0-4,log.")
            .arg(knownNames().join(QStringLiteral(", "))),
        QStringLiteral("components"));
    const QCommandLineOption savePathOption(
        QStringLiteral("save-path"), QStringLiteral("Save the logs below this folder (default: beside the program)."),
        QStringLiteral("folder"));
    const QCommandLineOption timeoutOption(QStringLiteral("connect-timeout"),
                                           QStringLiteral("Wait this long for the camera (default: 30)."),
                                           QStringLiteral("seconds"));
    const QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
                                              QStringLiteral("Save a picture of the window after the run (PNG)."),
                                              QStringLiteral("file"));
    const QCommandLineOption repeatOption(QStringLiteral("repeat"), QStringLiteral("Number of runs (default: 1)."),
                                          QStringLiteral("count"));
    const QCommandLineOption eachOption(
        QStringLiteral("each"), QStringLiteral("Run once for each camera that connects, until the program is closed."));
    const QCommandLineOption jsonOption(
        QStringLiteral("json"),
        QStringLiteral("Save the record of the run as JSON; of several runs, a line each. With \"-\" it is all that "
                       "goes to standard output, and the other texts go to standard error."),
        QStringLiteral("file"));
    const QCommandLineOption junitOption(QStringLiteral("junit"),
                                         QStringLiteral("Save the record of the runs as a JUnit report (XML)."),
                                         QStringLiteral("file"));
    const QCommandLineOption operatorOption(QStringLiteral("operator"),
                                            QStringLiteral("Who runs it, for the record (default: by option.ini)."),
                                            QStringLiteral("name"));
    const QCommandLineOption batchOption(QStringLiteral("batch"), QStringLiteral("The camera's batch, likewise."),
                                         QStringLiteral("batch"));
    const QCommandLineOption serialOption(QStringLiteral("serial"),
                                          QStringLiteral("The camera's serial number, for the record."),
                                          QStringLiteral("number"));
    const QCommandLineOption closeAfterOption(
        QStringLiteral("close-after"),
        QStringLiteral("Close the window after this time, whatever goes on, as a hand "
                       "would; the exit code is then 4."),
        QStringLiteral("milliseconds"));
    const QCommandLineOption helpOption({QStringLiteral("help"), QStringLiteral("h")},
                                        QStringLiteral("Show this text."));
    const QCommandLineOption versionOption(QStringLiteral("version"), QStringLiteral("Show the program's version."));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Self-test station for WiFi gimbal cameras. Without options it opens its window.\n"
        "Exit codes of an unattended run: 0 passed, 1 failed, 2 wrong usage, malformed settings or a second "
        "station, 3 no camera in time or lost or changed during a run, 4 stopped or closed before the end, 5 not "
        "everything was saved."));
    parser.addOptions({runOption, jsonOption, junitOption, operatorOption, batchOption, serialOption, savePathOption,
                       timeoutOption, screenshotOption, repeatOption, eachOption, closeAfterOption, helpOption,
                       versionOption});

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
    if (!parser.positionalArguments().isEmpty()) {
        return wrong(QStringLiteral("Unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst()));
    }
    if (!parser.isSet(runOption)) {
        const QStringList given = parser.optionNames();
        return given.isEmpty() ? line : wrong(QStringLiteral("--%1 goes with --run").arg(given.constFirst()));
    }
    line.mode = Mode::Unattended;
    line.labels = {parser.value(operatorOption), parser.value(batchOption), parser.value(serialOption)};
    line.each = parser.isSet(eachOption);
    line.json = parser.value(jsonOption);
    line.junit = parser.value(junitOption);
    line.savePath = parser.value(savePathOption);
    line.screenshot = parser.value(screenshotOption);
    const QStringList errors{
        readComponents(parser.value(runOption), &line),
        recordFilesProblem(parser, jsonOption, junitOption),
        eachProblem(parser, eachOption, {repeatOption, timeoutOption, screenshotOption}),
        readNumber(parser, timeoutOption, 1, &line.connectTimeoutSeconds),
        readNumber(parser, repeatOption, 1, &line.repeat),
        readNumber(parser, closeAfterOption, 0, &line.closeAfterMs),
        line.connectTimeoutSeconds > std::numeric_limits<int>::max() / 1000
            ? QStringLiteral("--connect-timeout: at most %1").arg(std::numeric_limits<int>::max() / 1000)
            : QString(),
        parser.isSet(screenshotOption) && !line.screenshot.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)
            ? QStringLiteral("--screenshot: \"%1\" does not end in .png").arg(line.screenshot)
            : QString(),
    };
    for (const QString &error : errors) {
        if (!error.isEmpty()) {
            return wrong(error);
        }
    }
    return line;
}

RunLabels CommandLine::labelsOver(const Settings &settings) const
{
    const auto given = [](const QString &text, const QString &otherwise) { return text.isEmpty() ? otherwise : text; };
    return {given(labels.operatorName, settings.stationOperator), given(labels.batch, settings.stationBatch),
            labels.serial};
}
