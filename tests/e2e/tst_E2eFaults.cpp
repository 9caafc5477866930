#include "expectedLogs.h"
#include "queries.h"
#include "StoryTest.h"

#include <csignal>
#include <QtTest>

/// What the camera may do to its replies, one fault at a time, on every command.
class tst_E2eFaults : public StoryTest
{
    Q_OBJECT

protected:
    std::vector<Story> stories() const override;
};

namespace {
constexpr int noCamera = 3;

Story asking(const char *name, const QByteArray &scenario, const char *verdicts, const QByteArray &log)
{
    Story story(name, QStringLiteral("camera,gimbal,battery,tfcard,lens,pcba"));
    story.scenario = scenario;
    story.verdicts = QString::fromLatin1(verdicts);
    story.exitCode = story.verdicts.endsWith(QLatin1String("NG")) ? 1 : 0;
    story.files.insert(QStringLiteral("60601F0A5F2A/DetectorLog.txt"), log);
    return story;
}

const char *const allOk = "Camera: OK, Gimbal: OK, Battery: OK, TF Card: OK, Lens: OK, PCBA: OK, Result: OK";
const char *const allNg = "Camera: NG, Gimbal: NG, Battery: NG, TF Card: NG, Lens: NG, PCBA: warning, Result: NG";
const char *const lensOk = "Camera: NG, Gimbal: NG, Battery: NG, TF Card: NG, Lens: OK, PCBA: warning, Result: NG";

QByteArray wellLog()
{
    return QByteArray(expectedLogs::camera) + expectedLogs::gimbal + expectedLogs::batteryLink +
           expectedLogs::batteryInfo + expectedLogs::batteryStatus + expectedLogs::cardUse + expectedLogs::cardSpeed +
           expectedLogs::lens + expectedLogs::pcba;
}

// No query is answered.
QByteArray unansweredUpToPower()
{
    return "[Camera]:\n"
           "获取相机视频流状态失败\n"
           "\n"
           "[Gimbal]:\n"
           "获取云台主控通信状态失败\n"
           "获取Roll轴通信状态失败\n"
           "获取Pitch轴通信状态失败\n"
           "获取Yaw轴通信状态失败\n"
           "\n"
           "[Battery]:\n"
           "获取电池通信状态失败\n"
           "获取电池信息失败\n"
           "获取电池状态失败\n"
           "\n"
           "[TF Card]:\n"
           "获取TF卡状态失败\n"
           "SD Card OK\n"
           "\n"
           "[Lens]:\n"
           "获取相机镜头状态失败\n"
           "\n"
           "[PCBA]:\n"
           "获取工厂sensor检测标志位失败\n"
           "获取云台主控板工厂检测标志位失败\n"
           "获取Roll轴电调板工厂检测标志位失败\n"
           "获取Pitch轴电调板工厂检测标志位失败\n"
           "获取Yaw轴电调板工厂检测标志位失败\n";
}

QByteArray unanswered()
{
    return unansweredUpToPower() + "获取电池工厂检测标志位失败\n\n";
}

// The battery's factory check has its result byte alone; how long the reply is does not matter.
QByteArray wrongLength()
{
    return unansweredUpToPower() + "电池工厂检测OK\n\n";
}

// The first query of each command is not answered.
QByteArray firstUpToBoards()
{
    return "[Camera]:\n"
           "获取相机视频流状态失败\n"
           "\n"
           "[Gimbal]:\n"
           "云台主控通信OK\n"
           "获取Roll轴通信状态失败\n"
           "Pitch轴通信OK\n"
           "Yaw轴通信OK\n"
           "\n"
           "[Battery]:\n"
           "相机电池通信OK\n"
           "获取电池信息失败\n"
           "获取电池状态失败\n"
           "\n"
           "[TF Card]:\n"
           "获取TF卡状态失败\n"
           "SD Card OK\n"
           "\n"
           "[Lens]:\n"
           "相机通信正常\n"
           "\n"
           "[PCBA]:\n";
}

QByteArray firstBoards()
{
    return "云台主控板工厂检测标志位失败\n"
           "Roll轴电调板工厂检测OK\n"
           "Pitch轴电调板工厂检测OK\n"
           "Yaw轴电调板工厂检测OK\n";
}

QByteArray first()
{
    return firstUpToBoards() + "获取工厂sensor检测标志位失败\n获取" + firstBoards() + "获取电池工厂检测标志位失败\n\n";
}
QByteArray firstWrongLength()
{
    return firstUpToBoards() + "获取工厂sensor检测标志位失败\n获取" + firstBoards() + "电池工厂检测OK\n\n";
}
// Late by 2.1 s: the EEPROM and the battery's factory check are given 3 s.
QByteArray firstLate()
{
    return firstUpToBoards() + "工厂sensor检测OK\n获取" + firstBoards() + "电池工厂检测OK\n\n";
}

// The first two queries of each command are not answered.
QByteArray firstTwo()
{
    return "[Camera]:\n"
           "获取相机视频流状态失败\n"
           "\n"
           "[Gimbal]:\n"
           "获取云台主控通信状态失败\n"
           "获取Roll轴通信状态失败\n"
           "获取Pitch轴通信状态失败\n"
           "Yaw轴通信OK\n"
           "\n"
           "[Battery]:\n"
           "相机电池通信OK\n"
           "获取电池信息失败\n"
           "获取电池状态失败\n"
           "\n"
           "[TF Card]:\n"
           "获取TF卡状态失败\n"
           "SD Card OK\n"
           "\n"
           "[Lens]:\n"
           "相机通信正常\n"
           "\n"
           "[PCBA]:\n"
           "获取工厂sensor检测标志位失败\n"
           "获取云台主控板工厂检测标志位失败\n"
           "获取Roll轴电调板工厂检测标志位失败\n"
           "Pitch轴电调板工厂检测OK\n"
           "Yaw轴电调板工厂检测OK\n"
           "获取电池工厂检测标志位失败\n"
           "\n";
}

// Reports and board flags that come 2.1 s late, every time.
QByteArray lateReports()
{
    return QByteArray(expectedLogs::camera) + expectedLogs::gimbal +
           "[Battery]:\n"
           "相机电池通信OK\n"
           "获取电池信息失败\n"
           "获取电池状态失败\n"
           "\n"
           "[TF Card]:\n"
           "获取TF卡状态失败\n"
           "SD Card OK\n"
           "\n" +
           expectedLogs::lens + expectedLogs::pcba;
}

// The first reply of a command comes after its query has been given up, and the second one not at all.
QByteArray servedByLate()
{
    return QByteArray(expectedLogs::camera) +
           "[Gimbal]:\n"
           "云台主控通信OK\n"
           "获取Roll轴通信状态失败\n"
           "Pitch轴通信OK\n"
           "Yaw轴通信OK\n"
           "\n" +
           expectedLogs::batteryLink + expectedLogs::batteryInfo + expectedLogs::batteryStatus + expectedLogs::cardUse +
           expectedLogs::cardSpeed + expectedLogs::lens +
           "[PCBA]:\n"
           "工厂sensor检测OK\n"
           "获取云台主控板工厂检测标志位失败\n"
           "Roll轴电调板工厂检测OK\n"
           "Pitch轴电调板工厂检测OK\n"
           "Yaw轴电调板工厂检测OK\n"
           "电池工厂检测OK\n"
           "\n";
}

const char *const servedByLateVerdicts =
    "Camera: OK, Gimbal: NG, Battery: OK, TF Card: OK, Lens: OK, PCBA: warning, Result: NG";

std::vector<Story> queryStories()
{
    const QByteArray late21 = R"(, "ms": 2100)";
    std::vector<Story> stories;
    // These three look the same from the station: nothing that it may take for the reply.
    for (const char *kind : {"drop", "corruptChecksum", "otherPort", "asRequest"}) {
        const QByteArray name = kind;
        stories.push_back(
            asking(name + ", always", faulty(namesOfAllQueries(), fault(kind, always)), allNg, unanswered()));
        stories.push_back(asking(name + ", once", faulty(namesOfAllQueries(), fault(kind, "1")), lensOk, first()));
        stories.push_back(asking(name + ", twice", faulty(namesOfAllQueries(), fault(kind, "2")), lensOk, firstTwo()));
    }
    const QByteArray refused = R"(, "code": 128)";
    stories.push_back(asking("resultCode, always", faulty(namesOfAllQueries(), fault("resultCode", always, refused)),
                             allNg, unanswered()));
    stories.push_back(
        asking("resultCode, once", faulty(namesOfAllQueries(), fault("resultCode", "1", refused)), lensOk, first()));
    stories.push_back(asking("resultCode, twice", faulty(namesOfAllQueries(), fault("resultCode", "2", refused)),
                             lensOk, firstTwo()));
    for (const char *bytes : {"1", "-1"}) {
        const QByteArray change = R"(, "bytes": )" + QByteArray(bytes);
        const QByteArray name = "wrongLength by " + QByteArray(bytes);
        stories.push_back(asking(name + ", always", faulty(namesOfAllQueries(), fault("wrongLength", always, change)),
                                 allNg, wrongLength()));
        stories.push_back(asking(name + ", once", faulty(namesOfAllQueries(), fault("wrongLength", "1", change)),
                                 lensOk, firstWrongLength()));
    }
    stories.push_back(
        asking("duplicate, always", faulty(namesOfAllQueries(), fault("duplicate", always)), allOk, wellLog()));
    stories.push_back(
        asking("duplicate, three times", faulty(namesOfAllQueries(), fault("duplicate", "3")), allOk, wellLog()));

    std::vector<Story> late{
        asking("delay by 1.9 s, always", faulty(namesOfAllQueries(), fault("delay", always, R"(, "ms": 1900)")), allOk,
               wellLog()),
        asking("delay by 2.1 s, once", faulty(namesOfAllQueries(), fault("delay", "1", late21)), lensOk, firstLate()),
        asking(
            "delay by 2.1 s, always, of what is asked once",
            faulty({"getBatteryInfo", "getBatteryStatus", "getTFCardStatus", "ReadEEPROM", "getBatteryEscFactoryCheck"},
                   fault("delay", always, late21)),
            "Camera: OK, Gimbal: OK, Battery: NG, TF Card: NG, Lens: OK, PCBA: OK, Result: NG", lateReports()),
        asking("delay by 2.1 s, which serves the next query",
               faulty({"getGimbalDeviceInfo", "getGimbalESCDevicesCheck"},
                      fault("delay", "1", late21) + ", " + fault("drop", "1")),
               servedByLateVerdicts, servedByLate()),
        asking("delay by 2.3 s and 0.2 s, so that the replies change places",
               faulty({"getGimbalDeviceInfo", "getGimbalESCDevicesCheck"},
                      fault("delay", "1", R"(, "ms": 2300)") + ", " + fault("delay", "1", R"(, "ms": 200)")),
               servedByLateVerdicts, servedByLate()),
    };
    for (Story &story : late) {
        story.calm = true;
        stories.push_back(story);
    }
    return stories;
}

Story registration(const char *name, const QByteArray &faults, int exitCode)
{
    Story story(QByteArray("registration: ") + name, QStringLiteral("camera"));
    story.scenario = faulty({"registerPC"}, faults);
    story.exitCode = exitCode;
    if (exitCode == noCamera) {
        story.options = QStringList{QStringLiteral("--connect-timeout"), QStringLiteral("7")};
        story.says = QStringList{QStringLiteral("No camera found after 7 s")};
    } else {
        story.verdicts = QStringLiteral("Camera: OK, Result: OK");
        story.files.insert(QStringLiteral("60601F0A5F2A/DetectorLog.txt"), expectedLogs::camera);
    }
    return story;
}

std::vector<Story> registrationStories()
{
    std::vector<Story> stories{
        registration("drop, always", fault("drop", always), noCamera),
        registration("drop, twice", fault("drop", "2"), 0),
        registration("corruptChecksum, always", fault("corruptChecksum", always), noCamera),
        registration("corruptChecksum, once", fault("corruptChecksum", "1"), 0),
        registration("otherPort, always", fault("otherPort", always), noCamera),
        registration("otherPort, once", fault("otherPort", "1"), 0),
        registration("asRequest, always", fault("asRequest", always), noCamera),
        registration("asRequest, once", fault("asRequest", "1"), 0),
        registration("resultCode, always", fault("resultCode", always, R"(, "code": 252)"), noCamera),
        registration("resultCode, twice", fault("resultCode", "2", R"(, "code": 252)"), 0),
        // Only the result byte of this reply counts.
        registration("wrongLength by 1, always", fault("wrongLength", always, R"(, "bytes": 1)"), 0),
        registration("wrongLength by -1, always", fault("wrongLength", always, R"(, "bytes": -1)"), 0),
        registration("duplicate, always", fault("duplicate", always), 0),
        // Given 1 s, asked again after another: at 1.9 s nobody waits, at 2.1 s the next registration does.
        registration("delay by 0.9 s, always", fault("delay", always, R"(, "ms": 900)"), 0),
        registration("delay by 1.9 s, always", fault("delay", always, R"(, "ms": 1900)"), noCamera),
        registration("delay by 2.1 s, always", fault("delay", always, R"(, "ms": 2100)"), 0),
    };
    for (Story &story : stories) {
        story.calm = story.name.contains("delay");
    }
    return stories;
}

/// Runs until `pings` pings have been asked, or, for a link that drops, until it is back.
Story ping(const char *name, const QByteArray &faults, bool drops, int pings = 6)
{
    Story story(QByteArray("ping: ") + name, QStringLiteral("fan"));
    story.scenario = faulty({"Ping"}, faults);
    story.options = QStringList{QStringLiteral("--repeat"), QStringLiteral("1000000")};
    story.meanwhile = [drops, pings](Scene &scene) {
        const bool came =
            drops ? scene.station.debugOutput().waitFor("sConnectIp", 2) : scene.camera.waitForRequest("Ping", pings);
        scene.station.signal(SIGTERM);
        return came ? QString() : QStringLiteral("it does not come to that");
    };
    story.after = [drops](Scene &scene) {
        const int registrations = scene.camera.requests("registerPC");
        return (registrations > 1) == drops ? QString() : QStringLiteral("%1 registrations").arg(registrations);
    };
    story.exitCode = 4; // ended by SIGTERM
    story.verdicts = QStringLiteral("Fan: OK, Result: OK");
    // Without the link the MAC address is unknown, and so is the name of the folder.
    story.folders =
        drops ? QStringList{QStringLiteral("60601F0A5F2A"), QString()} : QStringList{QStringLiteral("60601F0A5F2A")};
    return story;
}

std::vector<Story> pingStories()
{
    const QByteArray refused = R"(, "code": 252)";
    std::vector<Story> stories{
        ping("drop, twice in a row", fault("drop", "2"), false),
        ping("drop, three times in a row", fault("drop", "3"), true),
        ping("drop, twice, once more after one that came",
             fault("drop", "2") + R"(, {"kind": "drop", "after": 1, "times": 2})", false),
        ping("corruptChecksum, twice", fault("corruptChecksum", "2"), false),
        ping("corruptChecksum, three times", fault("corruptChecksum", "3"), true),
        ping("otherPort, twice", fault("otherPort", "2"), false),
        ping("otherPort, three times", fault("otherPort", "3"), true),
        ping("asRequest, twice", fault("asRequest", "2"), false),
        ping("asRequest, three times", fault("asRequest", "3"), true),
        ping("resultCode, twice", fault("resultCode", "2", refused), false),
        ping("resultCode, three times", fault("resultCode", "3", refused), true),
        ping("wrongLength by 1, twice", fault("wrongLength", "2", R"(, "bytes": 1)"), false),
        ping("wrongLength by 1, three times", fault("wrongLength", "3", R"(, "bytes": 1)"), true),
        // The reply has no data that it could lose.
        ping("wrongLength by -1, always", fault("wrongLength", always, R"(, "bytes": -1)"), false),
        ping("duplicate, always", fault("duplicate", always), false),
        ping("delay by 1.9 s, always", fault("delay", always, R"(, "ms": 1900)"), false, 5),
        // Given 2 s, asked again after another: at 2.1 s nobody waits.
        ping("delay by 2.1 s, always", fault("delay", always, R"(, "ms": 2100)"), true),
    };
    for (Story &story : stories) {
        story.calm = story.name.contains("delay");
    }
    return stories;
}
} // namespace

std::vector<Story> tst_E2eFaults::stories() const
{
    return joined({queryStories(), pingStories(), registrationStories()});
}

QTEST_GUILESS_MAIN(tst_E2eFaults)
#include "tst_E2eFaults.moc"
