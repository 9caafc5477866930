#include "historyui/commands/commands.h"
#include "historyui/commands/HistoryCommandLine.h"
#include "platform/plainLocale.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <QGuiApplication>
#include <qt/versions.h>

namespace {
/// In the plain C locale neither an argument nor a file's name could hold Chinese.
void useUtf8InPlainLocale()
{
    if (localeIsPlain()) {
        takeLocaleForUtf8();
    }
}

/// Fonts are needed for paper alone, and take longer to find than most questions to answer.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char *argv[])
{
    const bool needsFonts = std::any_of(argv, argv + argc, [](const char *argument) {
        return QLatin1String(argument).endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
    });
    if (!needsFonts) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    return std::make_unique<QGuiApplication>(argc, argv);
}
} // namespace

int main(int argc, char *argv[])
{
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    useUtf8InPlainLocale();
    const HistoryCommandLine line = HistoryCommandLine::parse(QCoreApplication::arguments(), QDate::currentDate());
    switch (line.command) {
    case HistoryCommandLine::Command::Help:
        std::puts(qUtf8Printable(line.message));
        return historyExit::done;
    case HistoryCommandLine::Command::Wrong:
        std::fprintf(stderr, "KestHistory: %s\nTry --help.\n", qUtf8Printable(line.message));
        return historyExit::wrongUsage;
    case HistoryCommandLine::Command::None:
        std::fputs("KestHistory: a command is missing\nTry --help.\n", stderr);
        return historyExit::wrongUsage;
    default:
        return runCommand(line, QCoreApplication::applicationDirPath() + QStringLiteral("/option.ini"));
    }
}
