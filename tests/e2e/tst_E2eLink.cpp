#include "expectedLogs.h"
#include "queries.h"
#include "StoryTest.h"
#include "waiting.h"

#include <csignal>
#include <memory>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

/// A camera that goes away, comes back, reboots or stands still while the station works with it.
class tst_E2eLink : public StoryTest
{
    Q_OBJECT

protected:
    std::vector<Story> stories() const override;
};

namespace {
constexpr int noCamera = 3;
constexpr int cameraLost = 3;
constexpr int notSaved = 5;
const QString mac = QStringLiteral("60601F0A5F2A");
const QString detectorLog = QStringLiteral("60601F0A5F2A/DetectorLog.txt");
const QString detectorLogWithoutMac = QStringLiteral("/DetectorLog.txt");

Story story(const char *name, const char *components, const QByteArray &scenario, const char *verdicts,
            const QByteArray &log)
{
    Story result(name, QString::fromLatin1(components));
    result.scenario = scenario;
    result.verdicts = QString::fromLatin1(verdicts);
    result.exitCode = result.verdicts.endsWith(QLatin1String("NG")) ? 1 : 0;
    result.files.insert(detectorLog, log);
    return result;
}

/// A command of the camera's shell that says that it runs and then waits for a permit.
QByteArray heldCommand(const QByteArray &path, const QByteArray &output)
{
    return "\"" + path +
           "\": \"#!/bin/sh\\ntouch /tmp/running\\nwhile [ ! -e /tmp/permit ]; do sleep 0.1; done\\ncat " + output +
           "\\n\"";
}

QString awaitHeldCommand(const Scene &scene)
{
    const QString running = scene.camera.root() + QStringLiteral("/tmp/running");
    return waitUntil([&] { return QFile::exists(running); }, 60000) ? QString()
                                                                    : QStringLiteral("the command does not come");
}

QString permitHeldCommand(const Scene &scene)
{
    QFile permit(scene.camera.root() + QStringLiteral("/tmp/permit"));
    return permit.open(QIODevice::WriteOnly) ? QString() : QStringLiteral("no permit");
}

/// Once the camera has got a request: does something to the camera.
template <class Deed>
Story::Act atRequest(const QByteArray &command, Deed deed)
{
    return [command, deed](Scene &scene) {
        if (!scene.camera.waitForRequest(command)) {
            return QStringLiteral("the request does not come");
        }
        deed(scene.camera);
        return QString();
    };
}

/// The camera reboots before it has answered `command` for the first time, and is back at once.
Story reboot(const char *components, const char *command, const char *verdicts, const QByteArray &log)
{
    Story result = story("", components,
                         "{\"rebootSeconds\": 0, \"faults\": {\"" + QByteArray(command) +
                             "\": [{\"kind\": \"delay\", \"ms\": 1500}]}}",
                         verdicts, log);
    result.name = QByteArray("reboot before the reply to ") + command;
    result.meanwhile = atRequest(command, [](const CameraProcess &camera) { camera.signal(SIGUSR1); });
    return result;
}

std::vector<Story> rebootStories()
{
    Story placeholders = story("reboot between checks that do not ask the camera", "fan,button,audio",
                               R"({"rebootSeconds": 0})", "Fan: OK, Button: OK, Audio: OK, Result: OK", "");
    placeholders.exitCode = 1; // nothing was tested
    placeholders.options = QStringList{QStringLiteral("--repeat"), QStringLiteral("8")};
    placeholders.meanwhile = atRequest("Ping", [](const CameraProcess &camera) { camera.signal(SIGUSR1); });

    Story logs = story("reboot during a shell command of the log collection", "log",
                       R"({"rebootSeconds": 0, "shell": {"files": {)" +
                           heldCommand("/sbin/dmesg", "/usr/share/camera/dmesg.txt") + "}}}",
                       "Result: OK", "");
    logs.exitCode = notSaved;
    logs.meanwhile = [](Scene &scene) {
        QString problem = awaitHeldCommand(scene);
        scene.camera.signal(SIGUSR1);
        return problem;
    };
    // The login went with the reboot. The command under way is lost, the others find the shell regained.
    logs.files.insert(mac + QStringLiteral("/dmesg.txt"), "");
    logs.after = [](Scene &scene) {
        for (const char *file :
             {"pstree_ps.txt", "ifconfig.txt", "kest_verison.txt", "iw_dev_ap0_scan.txt", "mci_info.txt"}) {
            if (!scene.station.saved(QLatin1String(file)).contains("\n~ # ")) {
                return QStringLiteral("%1 is not complete").arg(QLatin1String(file));
            }
        }
        for (const char *archive : {"netconf.tar.gz", "sharefs.tar.gz"}) {
            if (!scene.station.saved(QLatin1String(archive)).startsWith("\x1f\x8b")) { // gzip, RFC 1952
                return QStringLiteral("%1 did not arrive").arg(QLatin1String(archive));
            }
        }
        return QString();
    };

    Story transfer =
        story("reboot during an FTP transfer", "log,lens", R"({"rebootSeconds": 0, "ftp": {"fault": "stall"}})",
              "Lens: OK, Result: OK", expectedLogs::lens);
    transfer.exitCode = notSaved;
    transfer.meanwhile = [](Scene &scene) {
        const bool came =
            waitUntil([&] { return scene.station.saved(QStringLiteral("log.tar.gz")).size() == 4096; }, 60000);
        scene.camera.signal(SIGUSR1);
        return came ? QString() : QStringLiteral("the transfer does not begin");
    };
    transfer.files.insert(mac + QStringLiteral("/log.tar.gz"), QByteArray(4096, 'h'));
    transfer.files.insert(mac + QStringLiteral("/private.tar.gz"), QByteArray(4096, 'h'));

    Story unsure = reboot("pcba", "getGimbalESCDevicesCheck", "PCBA: warning, Result: OK",
                          "[PCBA]:\n工厂sensor检测OK\n获取云台主控板工厂检测标志位失败\nRoll轴电调板工厂检测OK\n"
                          "Pitch轴电调板工厂检测OK\nYaw轴电调板工厂检测OK\n电池工厂检测OK\n\n");
    unsure.exitCode = 1; // a request was not answered

    // The speed is asked for on the new login, also where the shell comes later than the answer is waited for.
    const QByteArray speedAlone =
        QByteArray("[TF Card]:\n获取TF卡状态失败\n") + expectedLogs::cardSpeed + expectedLogs::lens;
    const char *const speedVerdicts = "TF Card: NG, Lens: OK, Result: NG";
    Story late = reboot("tfcard,lens", "getTFCardStatus", speedVerdicts, speedAlone);
    late.name = "reboot of 2 s before the reply to getTFCardStatus";
    late.scenario.replace(R"("rebootSeconds": 0)", R"("rebootSeconds": 2)");

    const QByteArray battery = QByteArray(expectedLogs::batteryLink);
    return {
        logs,
        transfer,
        placeholders,
        unsure,
        reboot("camera,lens", "getCameraState", "Camera: NG, Lens: OK, Result: NG",
               QByteArray("[Camera]:\n获取相机视频流状态失败\n\n") + expectedLogs::lens),
        reboot("lens,pcba", "getCameraState", "Lens: NG, PCBA: OK, Result: NG",
               QByteArray("[Lens]:\n获取相机镜头状态失败\n\n") + expectedLogs::pcba),
        reboot("gimbal", "getGimbalDeviceInfo", "Gimbal: NG, Result: NG",
               "[Gimbal]:\n云台主控通信OK\n获取Roll轴通信状态失败\nPitch轴通信OK\nYaw轴通信OK\n\n"),
        reboot("battery", "getBatteryInfo", "Battery: NG, Result: NG",
               battery + "获取电池信息失败\n" + expectedLogs::batteryStatus),
        reboot("tfcard,lens", "getTFCardStatus", speedVerdicts, speedAlone),
        late,
    };
}

// Three pings that fail, at once or after some good ones: the link drops 3 s after the connect, one more for each good
// ping, and is back a second later.
QByteArray shortDrop(int goodPings)
{
    return R"("faults": {"Ping": [{"kind": "resultCode", "code": 1, "times": 3, "after": )" +
           QByteArray::number(goodPings) + "}]}";
}

QString wasRegisteredAgain(Scene &scene)
{
    const int registrations = scene.camera.requests("registerPC");
    return registrations == 2 ? QString() : QStringLiteral("%1 registrations").arg(registrations);
}

std::vector<Story> dropStories()
{
    Story shell = story("drop and return during a shell command", "tfcard,lens",
                        "{" + shortDrop(0) + R"(, "shell": {"files": {)" +
                            heldCommand("/bin/mount", "/usr/share/camera/mount.txt") + "}}}",
                        "TF Card: OK, Lens: OK, Result: OK",
                        QByteArray(expectedLogs::cardUse) + expectedLogs::cardSpeed + expectedLogs::lens);
    shell.exitCode = cameraLost;
    // The run may end before the MAC address is read again, and its folder then have no name.
    shell.files.clear();
    shell.calm = true; // the command is given 5 s, 4 of which pass until the link is back
    shell.meanwhile = [](Scene &scene) {
        const QString problem = awaitHeldCommand(scene);
        if (!problem.isEmpty() || !scene.camera.waitForRequest("registerPC", 2)) {
            return problem.isEmpty() ? QStringLiteral("no second registration") : problem;
        }
        return permitHeldCommand(scene);
    };
    shell.after = [](Scene &scene) {
        const QByteArray log = QByteArray(expectedLogs::cardUse) + expectedLogs::cardSpeed + expectedLogs::lens;
        return scene.station.allSaved().values() == QList<QByteArray>{log} ? wasRegisteredAgain(scene)
                                                                           : QStringLiteral("not the right log");
    };

    // The first transfer begins within the first seconds and takes 10: the drop has to fall into it, since a transfer
    // that begins between drop and return is saved in a folder without the MAC address.
    Story transfer =
        story("drop and return during an FTP transfer", "log,lens",
              "{" + shortDrop(3) + R"(, "ftp": {"fault": "stall"}})", "Lens: OK, Result: OK", expectedLogs::lens);
    transfer.exitCode = cameraLost;
    transfer.after = [](Scene &scene) {
        // Each was asked for on the new login.
        for (const char *file : {"dmesg.txt", "pstree_ps.txt", "ifconfig.txt", "kest_verison.txt",
                                 "iw_dev_ap0_scan.txt", "mci_info.txt"}) {
            if (!scene.station.saved(QLatin1String(file)).contains("\n~ # ")) {
                return QStringLiteral("%1 is not complete").arg(QLatin1String(file));
            }
        }
        return wasRegisteredAgain(scene);
    };
    for (const char *file : {"log.tar.gz", "private.tar.gz", "netconf.tar.gz", "sharefs.tar.gz"}) {
        transfer.files.insert(mac + QLatin1Char('/') + QLatin1String(file), QByteArray(4096, 'h'));
    }

    const QByteArray noAnswer = R"([{"kind": "drop", "times": "always"}])";
    const QByteArray unanswered = "[Camera]:\n获取相机视频流状态失败\n\n"
                                  "[Gimbal]:\n获取云台主控通信状态失败\n获取Roll轴通信状态失败\n"
                                  "获取Pitch轴通信状态失败\n获取Yaw轴通信状态失败\n\n"
                                  "[Battery]:\n获取电池通信状态失败\n获取电池信息失败\n获取电池状态失败\n\n";
    const char *const threeNg = "Camera: NG, Gimbal: NG, Battery: NG, Result: NG";
    Story longRun = story("drop and return during a long run", "camera,gimbal,battery",
                          R"({"faults": {"Ping": [{"kind": "drop", "times": 3}], "getCameraState": )" + noAnswer +
                              R"(, "getGimbalDeviceInfo": )" + noAnswer + R"(, "getBatteryInfo": )" + noAnswer +
                              R"(, "getBatteryStatus": )" + noAnswer + "}}",
                          threeNg, unanswered);
    longRun.exitCode = cameraLost;
    longRun.after = wasRegisteredAgain;

    Story outOfRange = story("out of radio range for the rest of a run", "camera,gimbal,battery",
                             R"({"faults": {"getCameraState": [{"kind": "drop"}]}})", threeNg, "");
    outOfRange.exitCode = cameraLost;
    outOfRange.meanwhile = atRequest("getCameraState", [](const CameraProcess &camera) { camera.signal(SIGUSR2); });
    // Without the link the MAC address is unknown, and so is the name of the folder.
    outOfRange.files = {{detectorLogWithoutMac, unanswered}};
    outOfRange.folders = QStringList{QString()};

    Story absent = story("no camera at all", "camera", "{}", "", "");
    absent.hasCamera = false;
    absent.options = QStringList{QStringLiteral("--connect-timeout"), QStringLiteral("3")};
    absent.exitCode = noCamera;
    absent.files.clear();
    absent.says = QStringList{QStringLiteral("No camera found after 3 s")};

    Story backInTime =
        story("out of radio range at first", "camera", "{}", "Camera: OK, Result: OK", expectedLogs::camera);
    backInTime.before = [](Scene &scene) {
        scene.camera.signal(SIGUSR2);
        return scene.camera.log().waitFor("out of range") ? QString() : QStringLiteral("the radio stays on");
    };
    backInTime.meanwhile = [](Scene &scene) {
        const bool tried = scene.station.debugOutput().waitFor("sConnectIp \"127.0.0.10\" \"127.0.0.1\" 118", 2);
        scene.camera.signal(SIGUSR2);
        return tried ? QString() : QStringLiteral("nothing is tried");
    };
    return {longRun, outOfRange, transfer, absent, backInTime, shell};
}

/// Stops the camera's processes for a while.
void freeze(const CameraProcess &camera, const QByteArray &program, unsigned long milliseconds)
{
    camera.signalAll(SIGSTOP, program);
    QThread::msleep(milliseconds);
    camera.signalAll(SIGCONT, program);
}

std::vector<Story> standstillStories()
{
    Story all = story("the whole camera stands still for 2.5 s", "battery,tfcard,lens",
                      R"({"faults": {"getBatteryInfo": [{"kind": "delay", "ms": 1000}]}})",
                      "Battery: NG, TF Card: OK, Lens: OK, Result: NG",
                      QByteArray(expectedLogs::batteryLink) + "获取电池信息失败\n" + expectedLogs::batteryStatus +
                          expectedLogs::cardUse + expectedLogs::cardSpeed + expectedLogs::lens);
    // The information is given up after 2 s; the status, asked then, is answered half a second later.
    all.meanwhile = atRequest("getBatteryInfo", [](const CameraProcess &camera) { freeze(camera, {}, 2500); });

    const QByteArray heldMount =
        R"({"shell": {"files": {)" + heldCommand("/bin/mount", "/usr/share/camera/mount.txt") + "}}}";
    const auto freezeShell = [](unsigned long milliseconds) {
        return [milliseconds](Scene &scene) {
            QString problem = awaitHeldCommand(scene);
            if (problem.isEmpty()) {
                scene.camera.signalAll(SIGSTOP, "busybox");
                problem = permitHeldCommand(scene);
                QThread::msleep(milliseconds);
                scene.camera.signalAll(SIGCONT, "busybox");
            }
            return problem;
        };
    };
    Story shortShell = story("the shell stands still for 3 s", "tfcard", heldMount, "TF Card: OK, Result: OK",
                             QByteArray(expectedLogs::cardUse) + expectedLogs::cardSpeed);
    shortShell.meanwhile = freezeShell(3000);
    Story longShell =
        story("the shell stands still for 6 s", "tfcard,lens", heldMount, "TF Card: NG, Lens: OK, Result: NG",
              QByteArray(expectedLogs::cardUse) + "mount SD Card faild\n\n" + expectedLogs::lens);
    longShell.meanwhile = freezeShell(6000);

    Story ftp = story("the FTP server stands still until the second archive", "log", "{}", "Result: OK", "");
    ftp.exitCode = notSaved;
    ftp.before = [](Scene &scene) {
        scene.camera.signalAll(SIGSTOP, "python3");
        return QString();
    };
    ftp.meanwhile = [](Scene &scene) {
        const bool came = waitUntil(
            [&] { return scene.station.allSaved().contains(mac + QStringLiteral("/private.tar.gz")); }, 60000);
        scene.camera.signalAll(SIGCONT, "python3");
        return came ? QString() : QStringLiteral("no second archive");
    };
    ftp.after = [](Scene &scene) {
        for (const char *archive : {"private.tar.gz", "netconf.tar.gz", "sharefs.tar.gz"}) {
            if (!scene.station.saved(QLatin1String(archive)).startsWith("\x1f\x8b")) { // gzip, RFC 1952
                return QStringLiteral("%1 did not arrive").arg(QLatin1String(archive));
            }
        }
        return QString();
    };
    ftp.files.insert(mac + QStringLiteral("/log.tar.gz"), "");
    return {ftp, longShell, shortShell, all};
}

/// One of the cameras that a station works through by itself, and what becomes of it.
struct Passer
{
    QByteArray mac;
    bool sound;
};

QByteArray scenarioOf(const Passer &camera)
{
    QByteArray scenario =
        camera.sound ? QByteArray("{}") : faulty({"getBatteryInfo"}, fault("resultCode", always, R"(, "code": 128)"));
    return scenario.replace(0, 1, R"({"mac": ")" + camera.mac + (camera.sound ? "\"" : "\", "));
}

/// The MAC address and the outcome of each record that the station has told.
QStringList recordsOf(const StationProcess &station)
{
    QStringList records;
    const QByteArrayList lines = station.output().content().split('\n');
    for (const QByteArray &line : lines) {
        const QJsonObject record = QJsonDocument::fromJson(line).object();
        if (!line.isEmpty()) {
            records.append(record.value(QStringLiteral("camera")).toObject().value(QStringLiteral("mac")).toString() +
                           QLatin1Char(' ') + record.value(QStringLiteral("outcome")).toString());
        }
    }
    return records;
}

/// Ten cameras, each swapped for the next one as soon as its result is told, and the last one once more when it has
/// been away for long.
std::vector<Story> eachStories()
{
    struct Line
    {
        std::vector<std::unique_ptr<CameraProcess>> cameras;
        QStringList expected;
    };
    const auto line = std::make_shared<Line>();
    Story each("ten cameras in a row", QStringLiteral("battery,lens"));
    each.hasCamera = false;
    each.options = QStringList{QStringLiteral("--each"), QStringLiteral("--json"), QStringLiteral("-")};
    each.exitCode = 1; // some failed
    each.meanwhile = [line](Scene &scene) {
        const auto test = [&](const Passer &camera) {
            line->cameras.push_back(std::make_unique<CameraProcess>());
            if (!line->cameras.back()->start(scenarioOf(camera))) {
                return QStringLiteral("a camera does not start");
            }
            line->expected.append(QString::fromLatin1(camera.mac).toUpper() +
                                  (camera.sound ? QStringLiteral(" passed") : QStringLiteral(" failed")));
            if (!scene.station.output().waitFor("\n", line->expected.size(), 30000)) {
                return QStringLiteral("no result of ") + line->expected.last();
            }
            line->cameras.back()->signalAll(SIGKILL);
            return QString();
        };
        for (int i = 0; i < 10; ++i) {
            QString problem = test({"60:60:1f:0b:5f:0" + QByteArray::number(i), i % 4 != 2});
            if (!problem.isEmpty()) {
                return problem;
            }
        }
        const int attempts = scene.station.debugOutput().count("sConnectIp");
        if (!scene.station.debugOutput().waitFor("sConnectIp", attempts + 1)) {
            return QStringLiteral("the loss of the last camera is not noticed");
        }
        QString problem = test({"60:60:1f:0b:5f:09", true});
        scene.station.signal(SIGINT); // no run is under way
        return problem;
    };
    each.after = [line](Scene &scene) {
        const QStringList records = recordsOf(scene.station);
        return records == line->expected ? QString() : records.join(QStringLiteral(", "));
    };
    return {each};
}
} // namespace

std::vector<Story> tst_E2eLink::stories() const
{
    return joined({rebootStories(), dropStories(), standstillStories(), eachStories()});
}

QTEST_GUILESS_MAIN(tst_E2eLink)
#include "tst_E2eLink.moc"
