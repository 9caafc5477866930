#include "micro/session.h"

#include "detector/store/KestDetectorFace.h"
#include "detector/store/Settings.h"
#include "peers/camera.h"
#include "telnet/session/TelnetInteractive.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <thread>

int runBenchmarksBesideSession(int &argc, char **argv, const std::function<void()> &prepare)
{
    benchmark::Initialize(&argc, argv);
    const QCoreApplication application(argc, argv);
    KestDetectorFace *face = KestDetectorFace::Get();
    face->setSettings(readSettings(settingsPath()));
    face->cameraAddress = QLatin1String(camera::address);
    TelnetInteractive::Get();
    TelnetInteractiveFace::Get();
    if (prepare) {
        prepare();
    }

    std::thread benchmarks([] {
        benchmark::RunSpecifiedBenchmarks();
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    const int exitCode = QCoreApplication::exec();
    benchmarks.join();
    return exitCode;
}
