#include "app/station/AutoStart.h"
#include "app/station/Chime.h"
#include "app/station/CommandLine.h"
#include "app/station/StationHistory.h"
#include "app/station/UnattendedRun.h"
#include "camera/client/Camera.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/Settings.h"
#include "ftp/FtpDownLoad.h"
#include "ftp/FtpDownLoadFace.h"
#include "language/Language.h"
#include "platform/OneStation.h"
#include "platform/plainLocale.h"
#include "platform/platformChoice.h"
#include "platform/TerminationSignals.h"
#include "telnet/session/TelnetInteractive.h"
#include "telnet/session/TelnetInteractiveFace.h"
#include "ui/window/KestDetectorUI.h"

#include <cstdio>
#include <memory>
#include <QApplication>
#include <QMessageBox>
#include <QPixmapCache>
#include <qt/versions.h>

namespace {
/// In the plain C locale neither the camera's texts nor a folder's name could hold Chinese.
void useUtf8InPlainLocale()
{
    if (localeIsPlain()) {
        takeLocaleForUtf8();
    }
}

/// Says why the program does not start.
void refuse(const CommandLine &line, const QString &reason)
{
    if (line.mode == CommandLine::Mode::Unattended) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(reason));
    } else {
        QMessageBox box(QMessageBox::Warning, QStringLiteral("KestDetector"), reason);
        box.setTextFormat(Qt::PlainText);
        const TerminationSignals terminationSignals;
        for (const auto signal : {&TerminationSignals::interrupted, &TerminationSignals::terminated}) {
            QObject::connect(&terminationSignals, signal, &box, &QDialog::reject);
        }
        box.exec();
    }
}
} // namespace

int main(int argc, char *argv[])
{
    choosePlatform(argc, argv);
    QApplication application(argc, argv);
    useUtf8InPlainLocale();
    installLanguage(application, chosenLanguage(QApplication::arguments(), settingsPath()));
    const CommandLine line = CommandLine::parse(QApplication::arguments());
    if (line.mode == CommandLine::Mode::Help) {
        std::puts(qUtf8Printable(line.message));
        return UnattendedRun::Passed;
    }
    if (line.mode == CommandLine::Mode::Wrong) {
        std::fprintf(stderr, "%s\n%s\n", qUtf8Printable(line.message),
                     qUtf8Printable(QCoreApplication::translate("main", "Try --help.")));
        return UnattendedRun::NotSound;
    }
    const OneStation oneStation;
    if (!oneStation.isAlone()) {
        // Must not be disturbed.
        refuse(line,
               QCoreApplication::translate("main", "Another KestDetector is running on this PC. Two of them would "
                                                   "take each other's replies from the camera."));
        return UnattendedRun::NotSound;
    }
    const QStringList refusals = line.refusalsBy(readSettings(settingsPath()));
    if (!refusals.isEmpty()) {
        refuse(line, refusals.join(QLatin1Char('\n')));
        return UnattendedRun::NotSound;
    }

    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
    qRegisterMetaType<checkLog>("checkLog");
    // Every run sets the icons' style sheets anew, and Qt keeps each picture until the cache is full: 10 MiB by
    // default.
    constexpr int pixmapCacheKiB = 1024;
    QPixmapCache::setCacheLimit(pixmapCacheKiB);
    KestDetectorUI window(nullptr);
    window.show();
    // The operator sees the window before its services are in place.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // Before the first service, which is under way as soon as somebody asks for its signals.
    const TerminationSignals terminationSignals;
    KestDetectorFace::Get()->runLabels = line.labelsOver(KestDetectorFace::Get()->settings());
    std::unique_ptr<UnattendedRun> unattended;
    if (line.mode == CommandLine::Mode::Unattended) {
        unattended = std::make_unique<UnattendedRun>(&window, line);
    }
    std::unique_ptr<AutoStart> autoStart;
    if (!unattended && KestDetectorFace::Get()->settings().autoStart) {
        autoStart = std::make_unique<AutoStart>(&window);
    }
    std::unique_ptr<Chime> chime;
    if (KestDetectorFace::Get()->settings().sound) {
        chime = std::make_unique<Chime>();
        QObject::connect(KestDetectorFace::Get(), &KestDetectorFace::signal_showCheckResult, &window,
                         [&chime](bool passed) { chime->tell(passed); });
    }
    QObject::connect(&terminationSignals, &TerminationSignals::terminated, &window, &QWidget::close);
    if (unattended) {
        QObject::connect(&terminationSignals, &TerminationSignals::interrupted, unattended.get(),
                         &UnattendedRun::interrupt);
    } else {
        QObject::connect(&terminationSignals, &TerminationSignals::interrupted, &window, &QWidget::close);
    }

    KestDetectorFace::Get()->quitFlag = 0;
    KestDetectorRt::Get();
    // Before the downloader, which takes Qt's folders of plug-ins away for a moment.
    const std::unique_ptr<StationHistory> history = StationHistory::begin(&window);
    TelnetInteractive::Get();
    TelnetInteractiveFace::Get();
    Camera::Get();
    FtpDownLoad::Get();
    FtpDownLoadFace::Get();

    const int exitCode = QApplication::exec();
    // However the event loop came to its end: the window's close handler is what stops the threads.
    window.close();
    if (unattended) {
        unattended->finish();
        return unattended->exitCode();
    }
    return exitCode;
}
