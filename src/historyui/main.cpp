#include "historyui/commands/commands.h"
#include "historyui/commands/HistoryCommandLine.h"
#include "historyui/commands/HistoryTexts.h"
#include "historyui/window/HistoryWindow.h"
#include "language/Language.h"
#include "places/Places.h"
#include "platform/plainLocale.h"
#include "platform/platformChoice.h"
#include "platform/TerminationSignals.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <QApplication>
#include <QMessageBox>
#include <qt/versions.h>

namespace {
/// In the plain C locale neither an argument nor a file's name could hold Chinese.
void useUtf8InPlainLocale()
{
    if (localeIsPlain()) {
        takeLocaleForUtf8();
    }
}

/// Whether only options of the window, and of Qt, are given.
bool isForWindow(int argc, char *argv[])
{
    constexpr std::array options = {"--store", "--language", "--mac", "--results", "-platform"};
    bool isValue = false;
    return std::all_of(argv + 1, argv + argc, [&](const char *argument) {
        const QByteArray text(argument);
        const bool isOption = std::any_of(options.begin(), options.end(), [&text](const char *option) {
            return text == option || text.startsWith(QByteArray(option) + '=');
        });
        const bool fits = isValue || isOption;
        isValue = isOption && !isValue && !text.contains('=');
        return fits;
    });
}

bool canShowWindow(int argc, char *argv[])
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
           std::any_of(argv, argv + argc, [](const char *argument) { return qstrcmp(argument, "-platform") == 0; });
}

/// Fonts are needed for paper alone, and take longer to find than most questions to answer.
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char *argv[])
{
    if (isForWindow(argc, argv) && canShowWindow(argc, argv)) {
        choosePlatform(argc, argv);
        return std::make_unique<QApplication>(argc, argv);
    }
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

int refuse(const QString &reason)
{
    std::fprintf(stderr, "KestHistory: %s\n%s\n", qUtf8Printable(reason),
                 qUtf8Printable(HistoryTexts::tr("Try --help.")));
    return historyExit::wrongUsage;
}

int openWindow(const HistoryCommandLine &line, const Places &places)
{
    QString error;
    const std::optional<StoreAddress> store = chooseStore(line, places, &error);
    if (!store) {
        std::fprintf(stderr, "KestHistory: %s\n", qUtf8Printable(error));
        QMessageBox box(QMessageBox::Warning, QStringLiteral("KestHistory"), error);
        box.setTextFormat(Qt::PlainText);
        const TerminationSignals terminationSignals;
        QObject::connect(&terminationSignals, &TerminationSignals::interrupted, &box, &QDialog::reject);
        QObject::connect(&terminationSignals, &TerminationSignals::terminated, &box, &QDialog::reject);
        box.exec();
        return historyExit::trouble;
    }
    HistoryWindow::Options options;
    options.mac = line.filter.mac;
    options.results = line.results.isEmpty() ? places.results() : line.results;
    HistoryWindow window(*store, options);
    const TerminationSignals terminationSignals;
    QObject::connect(&terminationSignals, &TerminationSignals::interrupted, &window, &QWidget::close);
    QObject::connect(&terminationSignals, &TerminationSignals::terminated, &window, &QWidget::close);
    window.show();
    return QApplication::exec();
}
} // namespace

int main(int argc, char *argv[])
{
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    useUtf8InPlainLocale();
    // The station's, which is in the same folder.
    const Places places(QCoreApplication::applicationDirPath());
    installLanguage(*application, chosenLanguage(QCoreApplication::arguments(), places.settings()));
    const HistoryCommandLine line = HistoryCommandLine::parse(QCoreApplication::arguments(), QDate::currentDate());
    switch (line.command) {
    case HistoryCommandLine::Command::Help:
        std::puts(qUtf8Printable(line.message));
        return historyExit::done;
    case HistoryCommandLine::Command::Wrong:
        return refuse(line.message);
    case HistoryCommandLine::Command::None:
        if (qobject_cast<QApplication *>(application.get()) != nullptr) {
            return openWindow(line, places);
        }
        return refuse(HistoryTexts::tr("there is no display for the window, and a command is missing"));
    default:
        return runCommand(line, places);
    }
}
