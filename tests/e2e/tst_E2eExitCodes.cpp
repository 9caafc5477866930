#include "queries.h"
#include "StoryTest.h"
#include "waiting.h"

#include <csignal>
#include <memory>
#include <QtTest>

/// What an unattended run leaves as its exit code, and says about it: with the settings as they are shipped, and with
/// those of a station without safeguards.
class tst_E2eExitCodes : public StoryTest
{
    Q_OBJECT

protected:
    std::vector<Story> stories() const override;
};

namespace {
enum ExitCode {
    Passed = 0,
    Failed = 1,
    NotSound = 2,
    NoCamera = 3,
    Stopped = 4,
    NotSaved = 5,
};

Story ending(const char *name, ExitCode code, const char *components, const char *verdicts = "")
{
    Story story(name, QString::fromLatin1(components));
    story.exitCode = code;
    story.verdicts = QString::fromLatin1(verdicts);
    return story;
}

/// In a run that waits for an answer again and again: does something at its first query.
template <class Deed>
Story duringSilentRun(const char *name, ExitCode code, const char *verdicts, Deed deed)
{
    Story story = ending(name, code, "camera,gimbal,battery", verdicts);
    story.scenario = faulty(namesOfAllQueries(), fault("drop", always));
    story.meanwhile = [deed](Scene &scene) {
        if (!scene.camera.waitForRequest("getCameraState")) {
            return QStringLiteral("the query does not come");
        }
        deed(scene);
        return QString();
    };
    return story;
}

std::vector<Story> soundStories(bool)
{
    Story failed = ending("a failed component", Failed, "camera,lens", "Camera: NG, Lens: OK, Result: NG");
    failed.shippedScenario = QStringLiteral("camera-video-ng");

    Story oneOfThree = ending("the first of two runs fails", Failed, "battery", "Battery: OK, Result: OK");
    oneOfThree.options = QStringList{QStringLiteral("--repeat"), QStringLiteral("2")};
    oneOfThree.scenario = faulty({"getBatteryInfo"}, fault("resultCode", "1", R"(, "code": 128)"));
    return {
        ending("a passed run", Passed, "camera,lens", "Camera: OK, Lens: OK, Result: OK"),
        failed,
        oneOfThree,
    };
}

std::vector<Story> unsoundStories(bool safeguards)
{
    Story usage = ending("an unknown component", NotSound, "camera,nonsense");
    usage.says = QStringList{QStringLiteral("nonsense"), QStringLiteral("Try --help.")};

    // Without safeguards it counts as 0, the run takes place, and every camera passes.
    Story settings = ending("a malformed setting", NotSound, "camera", safeguards ? "" : "Camera: OK, Result: OK");
    settings.before = [](Scene &scene) {
        scene.station.writeOptionIni(scene.station.optionIni().replace("statusBits=8001A", "statusBits=bits"));
        return QString();
    };
    settings.says = QStringList{QStringLiteral("statusBits")};

    Story second = ending("a second station", NotSound, "camera");
    const auto first = std::make_shared<StationProcess>();
    second.before = [first](Scene &scene) {
        first->start(QStringLiteral("camera"), {QStringLiteral("--repeat"), QStringLiteral("1000000")});
        return scene.camera.waitForRequest("registerPC") ? QString() : QStringLiteral("the first one does not begin");
    };
    second.after = [first](Scene &) {
        const bool undisturbed = first->isRunning() && first->output().waitFor("Result: OK");
        first->signal(SIGTERM);
        first->finish();
        return undisturbed ? QString() : QStringLiteral("the first one was disturbed");
    };
    second.says = QStringList{QStringLiteral("Another KestDetector is running")};
    return {usage, settings, second};
}

std::vector<Story> cameraStories(bool)
{
    Story none = ending("no camera", NoCamera, "camera");
    none.hasCamera = false;
    none.options = QStringList{QStringLiteral("--connect-timeout"), QStringLiteral("2")};
    none.says = QStringList{QStringLiteral("No camera found after 2 s")};

    Story lost = duringSilentRun("the camera is lost during the run", NoCamera,
                                 "Camera: NG, Gimbal: NG, Battery: NG, Result: NG",
                                 [](Scene &scene) { scene.camera.signal(SIGUSR2); });
    lost.says = QStringList{QStringLiteral("the camera was lost during the run")};

    // Two cameras on one address, one after the other, instead of the scene's.
    struct Cameras
    {
        CameraProcess first;
        CameraProcess second;
    };
    const auto cameras = std::make_shared<Cameras>();
    const QByteArray silent = faulty(namesOfAllQueries(), fault("drop", always));
    Story changed = ending("another camera comes during the run", NoCamera, "camera,gimbal,battery",
                           "Camera: NG, Gimbal: NG, Battery: NG, Result: NG");
    changed.hasCamera = false;
    changed.before = [cameras, silent](Scene &) {
        return cameras->first.start(silent) ? QString() : QStringLiteral("the first camera does not start");
    };
    changed.meanwhile = [cameras, silent](Scene &) {
        if (!cameras->first.waitForRequest("getCameraState")) {
            return QStringLiteral("the query does not come");
        }
        cameras->first.signalAll(SIGKILL);
        return cameras->second.start(QByteArray(silent).replace(0, 1, R"({"mac": "60:60:1f:0b:5f:2b", )"))
                   ? QString()
                   : QStringLiteral("the second camera does not start");
    };
    changed.after = [cameras](Scene &) {
        return cameras->second.stop() ? QString() : QStringLiteral("the second camera does not stop");
    };
    changed.says = QStringList{QStringLiteral("another camera came during the run")};
    return {none, lost, changed};
}

/// The folder of a run of the scene's camera.
QString runFolderOf(const Scene &scene)
{
    return scene.station.savePath() + QDate::currentDate().toString(QStringLiteral("'/log/'yyyy-MM-dd'_60601F0A5F2A'"));
}

std::vector<Story> endedStories(bool safeguards)
{
    Story closed = ending("closed during the run", Stopped, "camera,gimbal");
    closed.scenario = faulty(namesOfAllQueries(), fault("drop", always));
    closed.options = QStringList{QStringLiteral("--close-after"), QStringLiteral("3000")};

    Story terminated =
        duringSilentRun("told to end during the run", Stopped, "", [](Scene &scene) { scene.station.signal(SIGTERM); });

    Story stopped =
        duringSilentRun("stopped during the run", Stopped, "", [](Scene &scene) { scene.station.signal(SIGINT); });
    stopped.options = QStringList{QStringLiteral("--repeat"), QStringLiteral("2")};
    stopped.says = QStringList{QStringLiteral("the run was stopped")};

    // What an earlier run has left is there as it was.
    Story download = ending("stopped during a download", Stopped, "log");
    download.scenario = R"({"ftp": {"fault": "stall"}})";
    download.before = [](Scene &scene) {
        const QString folder = runFolderOf(scene);
        QFile archive(folder + QStringLiteral("/log.tar.gz"));
        const bool left = QDir().mkpath(folder) && archive.open(QIODevice::WriteOnly) && archive.write("earlier") == 7;
        return left ? QString() : QStringLiteral("no earlier archive");
    };
    download.meanwhile = [safeguards](Scene &scene) {
        const QString part = runFolderOf(scene) +
                             (safeguards ? QStringLiteral("/log.tar.gz.part") : QStringLiteral("/log.tar.gz.earlier"));
        if (!waitUntil([&] { return QFile::exists(part); }, 30000)) {
            return QStringLiteral("the download does not begin");
        }
        scene.station.signal(SIGINT);
        return QString();
    };
    download.after = [](Scene &scene) {
        const QMap<QString, QByteArray> files = scene.station.allSaved();
        return files.size() == 1 && files.first() == "earlier"
                   ? QString()
                   : QStringList(files.keyBegin(), files.keyEnd()).join(QLatin1Char(' '));
    };

    Story notSaved = ending("a save path that is no folder", NotSaved, "battery", "Battery: OK, Result: OK");
    notSaved.before = [](Scene &scene) {
        QFile file(scene.station.savePath());
        return file.open(QIODevice::WriteOnly) ? QString() : QStringLiteral("no file");
    };
    notSaved.says = QStringList{QStringLiteral("not saved: "), QStringLiteral("Not a directory")};
    return {closed, terminated, stopped, download, notSaved};
}

/// The stories with and without `[Station] safeguards=true`; each is made twice, since what its acts share is its own.
std::vector<Story> bothWays(std::vector<Story> (*make)(bool safeguards))
{
    std::vector<Story> both;
    for (const bool safeguards : {false, true}) {
        std::vector<Story> stories = make(safeguards);
        for (Story &story : stories) {
            story.name += safeguards ? ", safeguards" : ", nineteen keys";
            story.safeguards = safeguards;
            both.push_back(story);
        }
    }
    return both;
}
} // namespace

std::vector<Story> tst_E2eExitCodes::stories() const
{
    return joined({bothWays(soundStories), bothWays(unsoundStories), bothWays(cameraStories), bothWays(endedStories)});
}

QTEST_GUILESS_MAIN(tst_E2eExitCodes)
#include "tst_E2eExitCodes.moc"
