#include "app/station/CommandLine.h"

#include "detector/store/componentId.h"
#include "detector/store/programVersion.h"
#include "record/itemKeys.h"

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

QString knownNames()
{
    QStringList names;
    for (const ComponentBox &entry : componentBoxes) {
        names.append(componentKey(entry.component));
    }
    return names.join(QStringLiteral(", "));
}

/// Appends the check boxes that `list` names; an error text, or an empty one.
QString readComponents(const QString &list, QStringList *boxes)
{
    const QLatin1String all("all");
    const QStringList names = list.split(QLatin1Char(','));
    for (const QString &name : names) {
        bool known = false;
        for (const ComponentBox &entry : componentBoxes) {
            if (name == all || name == componentKey(entry.component)) {
                known = true;
                boxes->append(QLatin1String(entry.box));
            }
        }
        if (!known) {
            return QStringLiteral("--run: unknown component \"%1\"; known are all, or any of: %2")
                .arg(name, knownNames());
        }
    }
    boxes->removeDuplicates();
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
} // namespace

CommandLine CommandLine::parse(const QStringList &arguments)
{
    const QCommandLineOption runOption(
        QStringLiteral("run"),
        QStringLiteral("Run these components unattended (comma-separated, or \"all\"), print the "
                       "result and leave: %1.")
            .arg(knownNames()),
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
        "station, 3 no camera in time or lost or changed during a run, 4 closed before the end, 5 not "
        "everything was saved."));
    parser.addOptions({runOption, savePathOption, timeoutOption, screenshotOption, repeatOption, closeAfterOption,
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
    if (!parser.positionalArguments().isEmpty()) {
        return wrong(QStringLiteral("Unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst()));
    }
    if (!parser.isSet(runOption)) {
        const QStringList given = parser.optionNames();
        return given.isEmpty() ? line : wrong(QStringLiteral("--%1 goes with --run").arg(given.constFirst()));
    }
    line.mode = Mode::Unattended;
    line.savePath = parser.value(savePathOption);
    line.screenshot = parser.value(screenshotOption);
    const QStringList errors{
        readComponents(parser.value(runOption), &line.boxes),
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
