#include "emulator/app/EmulatedCamera.h"
#include "emulator/app/Options.h"
#include "emulator/app/RunDirectory.h"
#include "emulator/app/SignalRelay.h"
#include "emulator/cage/CagedLogin.h"
#include "emulator/scenario/ScenarioReader.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr int wrongUsage = 2;

int complain(const QString &text, int exitCode)
{
    std::fprintf(stderr, "camera-emulator: %s\n", qUtf8Printable(text));
    return exitCode;
}

emulator::ScenarioResult loadScenario(const QString &fileName)
{
    emulator::ScenarioResult result;
    if (fileName.isEmpty()) {
        return result;
    }
    QFile file(fileName);
    if (file.open(QIODevice::ReadOnly)) {
        result = emulator::parseScenario(file.readAll());
    } else {
        result.error = file.errorString();
    }
    if (!result.error.isEmpty()) {
        result.error = fileName + QStringLiteral(": ") + result.error;
    }
    return result;
}

int runCamera(const emulator::Options &options, const emulator::Scenario &scenario)
{
    emulator::SignalRelay signalRelay; // first, so that a signal never ends us with the folder in place
    const emulator::RunDirectory directory(options.runDirectory);
    if (!directory.error().isEmpty()) {
        return complain(directory.error(), EXIT_FAILURE);
    }
    emulator::EmulatedCamera camera(options, scenario, directory.path());
    QObject::connect(&signalRelay, &emulator::SignalRelay::stopRequested, QCoreApplication::instance(),
                     &QCoreApplication::quit);
    QObject::connect(&signalRelay, &emulator::SignalRelay::rebootRequested, &camera, &emulator::EmulatedCamera::reboot);
    QObject::connect(&signalRelay, &emulator::SignalRelay::radioToggled, &camera,
                     &emulator::EmulatedCamera::toggleRadio);
    QObject::connect(&camera, &emulator::EmulatedCamera::failed,
                     [](const QString &reason) { QCoreApplication::exit(complain(reason, EXIT_FAILURE)); });
    const QString error = camera.start();
    if (!error.isEmpty()) {
        return complain(error, EXIT_FAILURE);
    }
    std::printf("ready: %s\n", qUtf8Printable(camera.description()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}
} // namespace

int main(int argc, char **argv)
{
    if (QFileInfo(QFile::decodeName(argv[0])).fileName() == QLatin1String(emulator::CagedLogin::programName)) {
        // Nothing of Qt has been set up, so nothing is to be torn down, least of all from within another namespace.
        _exit(emulator::CagedLogin::run());
    }
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    // Processes that lose their parent come to us, so that none is left behind.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    umask(S_IWGRP | S_IWOTH);

    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("camera-emulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KEST_VERSION));
    const emulator::Options options = emulator::parseOptions(QCoreApplication::arguments());
    if (!options.error.isEmpty()) {
        return complain(options.error, wrongUsage);
    }
    const emulator::ScenarioResult loaded = loadScenario(options.scenarioFile);
    if (!loaded.error.isEmpty()) {
        return complain(loaded.error, wrongUsage);
    }
    return runCamera(options, loaded.scenario);
}
