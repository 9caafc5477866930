#include "app/station/CommandLine.h"

#include <array>
#include <limits>
#include <QCommandLineParser>

namespace {
struct ComponentName
{
    const char *name;
    const char *box;
};

constexpr std::array componentNames = {
    ComponentName{"camera", "cbCamera"},   ComponentName{"gimbal", "cbGimbal"}, ComponentName{"battery", "cbBattery"},
    ComponentName{"tfcard", "cbTFCard"},   ComponentName{"lens", "cbLens"},     ComponentName{"fan", "cbFan"},
    ComponentName{"button", "cbKeyBoard"}, ComponentName{"audio", "cbVoice"},   ComponentName{"pcba", "cbPCBA"},
    ComponentName{"log", "cbLoadLog"},
};

QString knownNames()
{
    QStringList names;
    for (const ComponentName &component : componentNames) {
        names.append(QLatin1String(component.name));
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
        for (const ComponentName &component : componentNames) {
            if (name == all || name == QLatin1String(component.name)) {
                known = true;
                boxes->append(QLatin1String(component.box));
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
                       "would; the exit code is then 0."),
        QStringLiteral("milliseconds"));
    const QCommandLineOption helpOption({QStringLiteral("help"), QStringLiteral("h")},
                                        QStringLiteral("Show this text."));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Self-test station for WiFi gimbal cameras. Without options it opens its window.\n"
                       "Exit codes of an unattended run: 0 passed, 1 failed, 2 wrong usage, 3 no camera in time."));
    parser.addOptions(
        {runOption, savePathOption, timeoutOption, screenshotOption, repeatOption, closeAfterOption, helpOption});

    CommandLine line;
    const auto wrong = [&line](const QString &message) {
        line.mode = Mode::Wrong;
        line.message = message;
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
