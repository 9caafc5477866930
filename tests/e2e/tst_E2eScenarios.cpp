#include "emulator/scenario/ScenarioReader.h"
#include "expectedLogs.h"
#include "Stage.h"
#include "support/fileContent.h"

#include <csignal>
#include <memory>
#include <QDir>
#include <QProcess>
#include <QSet>
#include <QTemporaryFile>
#include <QtTest>

/// Every scenario that is shipped with the emulated camera, seen through the station.
class tst_E2eScenarios : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void run_data();
    void run();
    void archives_data();
    void archives();
    void ofItemsThatTheWindowDoesNotRequest_data();
    void ofItemsThatTheWindowDoesNotRequest();
    void noneIsLeftOut();

private:
    std::unique_ptr<Stage> m_runs;
    std::unique_ptr<Stage> m_archiveRuns;
};

namespace {
QByteArray battery()
{
    return QByteArray(expectedLogs::batteryLink) + expectedLogs::batteryInfo + expectedLogs::batteryStatus;
}
QByteArray card()
{
    return QByteArray(expectedLogs::cardUse) + expectedLogs::cardSpeed;
}

constexpr int failed = 1;
constexpr int noCamera = 3;
constexpr int stopped = 4;
constexpr int notSaved = 5;

Story shipped(const char *scenario, const char *components, const char *verdicts, const QByteArray &log)
{
    Story story(scenario, QString::fromLatin1(components));
    story.shippedScenario = QString::fromLatin1(scenario);
    story.verdicts = QString::fromLatin1(verdicts);
    story.exitCode = story.verdicts.endsWith(QLatin1String("NG")) ? 1 : 0;
    story.files.insert(QStringLiteral("60601F0A5F2A/DetectorLog.txt"), log);
    story.folders = QStringList{QStringLiteral("60601F0A5F2A")};
    return story;
}

/// The verdict passes the camera, and yet nobody can be sure of it: a request was not answered, or nothing was tested.
Story unsure(Story story)
{
    story.exitCode = failed;
    return story;
}

/// A camera that the station does not get ready with in time.
Story unready(const char *scenario, int timeoutSeconds, const char *reason)
{
    Story story(scenario, QStringLiteral("camera"));
    story.shippedScenario = QString::fromLatin1(scenario);
    story.options = QStringList{QStringLiteral("--connect-timeout"), QString::number(timeoutSeconds)};
    story.exitCode = noCamera;
    story.says = QStringList{QString::fromLatin1(reason)};
    return story;
}

/// Runs until the camera has had its `times`-th request of a command, then is ended with SIGTERM.
Story until(const char *scenario, const char *command, int times, int registrations, const QStringList &folders)
{
    Story story(scenario, QStringLiteral("fan"));
    story.shippedScenario = QString::fromLatin1(scenario);
    story.options = QStringList{QStringLiteral("--repeat"), QStringLiteral("1000000")};
    story.meanwhile = [command, times](Scene &scene) {
        const bool came = scene.camera.waitForRequest(command, times);
        scene.station.signal(SIGTERM);
        return came ? QString() : QStringLiteral("the request does not come");
    };
    story.after = [registrations](Scene &scene) {
        const int seen = scene.camera.requests("registerPC");
        return seen == registrations ? QString() : QStringLiteral("%1 registrations").arg(seen);
    };
    story.exitCode = stopped;
    story.verdicts = QStringLiteral("Fan: OK, Result: OK");
    story.folders = folders;
    return story;
}

QByteArray cardProblem(const char *text)
{
    return QByteArray("[TF Card]:\n") + text + expectedLogs::cardSpeed;
}

QByteArray gimbalWith(const char *main, const char *roll, const char *pitch, const char *yaw)
{
    return QByteArray("[Gimbal]:\n") + main + '\n' + roll + '\n' + pitch + '\n' + yaw + "\n\n";
}

QByteArray boards(const char *sensor, const char *main, const char *roll, const char *pitch, const char *yaw,
                  const char *power)
{
    return QByteArray("[PCBA]:\n") + sensor + '\n' + main + '\n' + roll + '\n' + pitch + '\n' + yaw + '\n' + power +
           "\n\n";
}

/// `batteryInfo` with other values.
QByteArray batteryInfoWith(const QList<QPair<QByteArray, QByteArray>> &replacements)
{
    QByteArray info = expectedLogs::batteryInfo;
    for (const auto &replacement : replacements) {
        Q_ASSERT(info.contains(replacement.first));
        info.replace(replacement.first, replacement.second);
    }
    return info;
}

std::vector<Story> batteryStories()
{
    const QByteArray allWarnings = "电池警告:状态良好"
                                   "电池组电压过低电池组电压过高充电过程中电流超过阈值 1充电过程中电流超过阈值 2"
                                   "放电过程中电流超过阈值 1放电过程中电流超过阈值 2放电过载充电过程中出现短路现象"
                                   "放电过程中出现短路现象充电过程中温度过高放电过程中温度过高"
                                   "电池出现补偿型电压过低现象FET 温度过高预充电过程超时延时预充电超时充电过程超时"
                                   "延时充电超时电池过充电池过充电流型警告电池过充电压型警告电池过预充电电流型警告"
                                   "充电过程中温度过低放电过程中温度过低\n";
    const QByteArray charging = QByteArray("获取电池状态成功\n"
                                           "++++++++++\n"
                                           "electric quantity:40%\n"
                                           "voltage:4V\n"
                                           "electricity:900mA\n"
                                           "temperature:25.34℃\n"
                                           "充电至满时间:55min\n"
                                           "放电至空时间:0min\n"
                                           "----------\n"
                                           "\n"
                                           "\n");
    const char *const ok = "Battery: OK, Result: OK";
    const char *const ng = "Battery: NG, Result: NG";
    const QByteArray link = expectedLogs::batteryLink;
    const QByteArray info = expectedLogs::batteryInfo;
    const QByteArray status = expectedLogs::batteryStatus;
    return {
        shipped("battery-all-warnings", "battery", ok,
                link + batteryInfoWith({{"电池警告:状态良好\n", allWarnings}}) + status),
        shipped("battery-charging", "battery", ok,
                link +
                    batteryInfoWith({{":87%", ":40%"},
                                     {":3.85V", ":4V"},
                                     {":-250mA", ":900mA"},
                                     {"至空时间:95min\n至满时间:0min", "至空时间:0min\n至满时间:55min"},
                                     {"充电器未插入", "充电器插入"}}) +
                    charging),
        shipped("battery-info-no-answer", "battery", ng, link + "获取电池信息失败\n" + status),
        shipped("battery-link-fault", "battery", ng, "[Battery]:\n相机电池通信NG\n" + info + status),
        shipped("battery-no-answer", "battery,pcba", "Battery: NG, PCBA: warning, Result: NG",
                link + "获取电池信息失败\n获取电池状态失败\n\n" +
                    boards("工厂sensor检测OK", "云台主控板工厂检测OK", "Roll轴电调板工厂检测OK",
                           "Pitch轴电调板工厂检测OK", "Yaw轴电调板工厂检测OK", "获取电池工厂检测标志位失败")),
        shipped("battery-status-no-answer", "battery", ng, link + info + "获取电池状态失败\n\n"),
        shipped("battery-warnings", "battery", ok,
                link +
                    batteryInfoWith({{"状态良好", "状态良好电池组电压过低电池组电压过高充电过程中电流超过阈值 1"},
                                     {"充电器未插入", "充电器插入"},
                                     {"麦克风未插入", "麦克风插入"},
                                     {"未插入外设", "已插入外设"}}) +
                    status),
    };
}

std::vector<Story> stateStories()
{
    const char *const fourNg = "Camera: NG, Gimbal: NG, Battery: NG, Lens: NG, Result: NG";
    const QByteArray reports = QByteArray(expectedLogs::batteryInfo) + expectedLogs::batteryStatus;
    const QByteArray unanswered =
        "[Camera]:\n获取相机视频流状态失败\n\n" +
        gimbalWith("获取云台主控通信状态失败", "Roll轴通信OK", "Pitch轴通信OK", "Yaw轴通信OK") +
        "[Battery]:\n获取电池通信状态失败\n" + reports + "[Lens]:\n获取相机镜头状态失败\n\n";
    const QByteArray allDown = "[Camera]:\n相机视频流NG\n\n" +
                               gimbalWith("云台主控通信失败", "Roll轴通信OK", "Pitch轴通信OK", "Yaw轴通信OK") +
                               "[Battery]:\n相机电池通信NG\n" + reports + "[Lens]:\n相机镜头连接失败\n\n";
    const QByteArray spoilt = "[Camera]:\n获取相机视频流状态失败\n\n" +
                              gimbalWith("获取云台主控通信状态失败", "Roll轴通信OK", "Pitch轴通信OK", "Yaw轴通信OK") +
                              "[Battery]:\n获取电池通信状态失败\n" + reports + expectedLogs::lens;
    const char *const four = "camera,gimbal,battery,lens";
    const char *const six = "camera,gimbal,battery,tfcard,lens,pcba";
    const char *const fourOk = "Camera: OK, Gimbal: OK, Battery: OK, Lens: OK, Result: OK";
    const char *const sixOk = "Camera: OK, Gimbal: OK, Battery: OK, TF Card: OK, Lens: OK, PCBA: OK, Result: OK";
    const QByteArray allWell = expectedLogs::camera + QByteArray(expectedLogs::gimbal) + battery() + card() +
                               expectedLogs::lens + expectedLogs::pcba;
    return {
        unsure(shipped("healthy", "fan,button,audio", "Fan: OK, Button: OK, Audio: OK, Result: OK", "")),
        shipped("camera-all-links-down", four, fourNg, allDown),
        shipped("camera-no-answer", four, fourNg, unanswered),
        shipped("camera-result-code", four, fourNg, unanswered),
        shipped("camera-wrong-length", four, fourNg, unanswered),
        shipped("camera-status-zero", four, fourOk,
                expectedLogs::camera + QByteArray(expectedLogs::gimbal) + battery() + expectedLogs::lens),
        shipped("camera-video-ng", "camera", "Camera: NG, Result: NG", "[Camera]:\n相机视频流NG\n\n"),
        shipped("lens-fault", "lens", "Lens: NG, Result: NG", "[Lens]:\n相机镜头连接失败\n\n"),
        shipped("replies-slow", six, sixOk, allWell),
        shipped("replies-twice", six, sixOk, allWell),
        shipped("replies-spoilt", four, "Camera: NG, Gimbal: NG, Battery: NG, Lens: OK, Result: NG", spoilt),
        shipped("reboot-soon", "camera", "Camera: OK, Result: OK", expectedLogs::camera),
        shipped("wifi-odd-names", "camera", "Camera: OK, Result: OK", expectedLogs::camera),
    };
}

std::vector<Story> gimbalAndBoardStories()
{
    const char *const main = "云台主控通信OK";
    const char *const roll = "Roll轴通信OK";
    const char *const pitch = "Pitch轴通信OK";
    const char *const yaw = "Yaw轴通信OK";
    const char *const gimbalNg = "Gimbal: NG, Result: NG";
    const char *const warning = "PCBA: warning, Result: OK";
    const char *const sensorOk = "工厂sensor检测OK";
    const char *const mainOk = "云台主控板工厂检测OK";
    const char *const rollOk = "Roll轴电调板工厂检测OK";
    const char *const pitchOk = "Pitch轴电调板工厂检测OK";
    const char *const yawOk = "Yaw轴电调板工厂检测OK";
    const char *const powerOk = "电池工厂检测OK";
    const char *const mainNot = "云台主控板工厂未检测";
    const char *const rollNot = "Roll轴电调板工厂未检测";
    const char *const pitchNot = "Pitch轴电调板工厂未检测";
    const char *const yawNot = "Yaw轴电调板工厂未检测";
    return {
        shipped("gimbal-main-link-fault", "gimbal", gimbalNg, gimbalWith("云台主控通信失败", roll, pitch, yaw)),
        shipped("gimbal-no-answer", "gimbal", gimbalNg,
                gimbalWith(main, "获取Roll轴通信状态失败", "获取Pitch轴通信状态失败", "获取Yaw轴通信状态失败")),
        shipped("gimbal-roll-link-fault", "gimbal", gimbalNg, gimbalWith(main, "Roll轴通信异常", pitch, yaw)),
        shipped("gimbal-pitch-link-fault", "gimbal", gimbalNg, gimbalWith(main, roll, "Pitch轴通信异常", yaw)),
        shipped("gimbal-yaw-link-fault", "gimbal", gimbalNg, gimbalWith(main, roll, pitch, "Yaw轴通信异常")),
        shipped("pcba-battery-refused", "pcba", warning,
                boards(sensorOk, mainOk, rollOk, pitchOk, yawOk, "获取电池工厂检测标志位失败")),
        shipped("pcba-esc-flags-partial", "pcba", warning,
                boards(sensorOk, mainOk, rollNot, pitchNot, yawNot, powerOk)),
        unsure(shipped("pcba-gimbal-no-answer", "pcba", warning,
                       boards(sensorOk, "获取云台主控板工厂检测标志位失败", "获取Roll轴电调板工厂检测标志位失败",
                              "获取Pitch轴电调板工厂检测标志位失败", "获取Yaw轴电调板工厂检测标志位失败", powerOk))),
        shipped("pcba-main-untested", "pcba", warning, boards(sensorOk, mainNot, rollOk, pitchOk, yawOk, powerOk)),
        shipped("pcba-roll-untested", "pcba", warning, boards(sensorOk, mainOk, rollNot, pitchOk, yawOk, powerOk)),
        shipped("pcba-pitch-untested", "pcba", warning, boards(sensorOk, mainOk, rollOk, pitchNot, yawOk, powerOk)),
        shipped("pcba-yaw-untested", "pcba", warning, boards(sensorOk, mainOk, rollOk, pitchOk, yawNot, powerOk)),
        unsure(shipped("pcba-sensor-no-answer", "pcba", warning,
                       boards("获取工厂sensor检测标志位失败", mainOk, rollOk, pitchOk, yawOk, powerOk))),
        shipped("pcba-sensor-untested", "pcba", warning,
                boards("工厂sensor未检测", mainOk, rollOk, pitchOk, yawOk, powerOk)),
    };
}

std::vector<Story> cardStories()
{
    struct Problem
    {
        const char *scenario;
        const char *text;
    };
    constexpr Problem problems[] = {
        {"tf-error-bad-clusters", "SD卡错误,错误原因:SD卡簇错误\n"},
        {"tf-error-file-system-error", "SD卡错误,错误原因:SD卡文件系统错误\n"},
        {"tf-error-file-system-unsupported", "SD卡错误,错误原因:SD卡文件系统不支持\n"},
        {"tf-error-fragmented", "SD卡错误,错误原因:SD卡碎片严重\n"},
        {"tf-error-mount-failed", "SD卡错误,错误原因:SD卡挂载失败\n"},
        {"tf-error-repair-failed", "SD卡错误,错误原因:SD卡修复文件失败\n"},
        {"tf-error-slow-card", "SD卡错误,错误原因:SD卡低速卡\n"},
        {"tf-error-storage-error", "SD卡错误,错误原因:SD卡存储系统错误\n"},
        {"tf-formatting", "SD卡格式化中"},
        {"tf-full", "SD卡满"},
        {"tf-initialising", "SD卡初始化中"},
        {"tf-no-answer", "获取TF卡状态失败\n"},
        {"tf-removed-fragmented", "SD卡被拔出,错误原因:SD卡碎片严重\n"},
        {"tf-repairing", "SD卡修复中"},
        {"tf-shared", "SD卡复用中"},
        {"tf-unknown-state", ",错误原因:SD卡低速卡\n"},
        {"tf-usage-no-answer", "获取TF卡使用状态失败\n"},
        {"tf-write-protected", "SD卡写保护中"},
    };
    const char *const ng = "TF Card: NG, Result: NG";
    const QByteArray use = expectedLogs::cardUse;
    std::vector<Story> stories{
        shipped("tf-not-mounted", "tfcard", ng, use + "SD卡未挂载\n\n"),
        shipped("tf-mount-hangs", "tfcard", ng, use + "mount SD Card faild\n\n"),
        shipped("tf-mci-info-hangs", "tfcard", ng, use + "获取SD卡信息失败\n\n"),
        // A slow card is a warning of its item, and no item of this component may be less than OK.
        shipped("tf-slow-card", "tfcard", ng, use + "警告:非高SD速卡\n\n"),
    };
    for (const Problem &problem : problems) {
        stories.push_back(shipped(problem.scenario, "tfcard", ng, cardProblem(problem.text)));
    }
    return stories;
}

std::vector<Story> linkStories()
{
    const QStringList unbroken{QStringLiteral("60601F0A5F2A")};
    // While the link is down, the MAC address is unknown: what is saved then has a folder without it.
    const QStringList broken{QStringLiteral("60601F0A5F2A"), QString()};
    std::vector<Story> stories{
        shipped("link-late", "camera", "Camera: OK, Result: OK", expectedLogs::camera),
        unready("link-never", 3, "No camera found after 3 s"),
        unready("mac-missing", 3, "The camera is connected, but its MAC address is unknown after 3 s"),
        unready("mac-trailing-blank", 3, "The camera is connected, but its MAC address is unknown after 3 s"),
        until("link-late-ping", "Ping", 12, 1, unbroken),
        until("link-two-pings-lost", "Ping", 14, 1, unbroken),
        until("link-three-pings-lost", "Ping", 14, 2, broken),
        until("link-silent-after-connect", "registerPC", 3, 3, broken),
    };
    // The login takes the whole of its 5 s; without a shell nobody knows the MAC address.
    for (const char *const scenario : {"shell-banner-without-prompt", "shell-flood", "shell-refused", "shell-silent",
                                       "shell-split-prompt", "shell-wrong-password"}) {
        stories.push_back(unready(scenario, 8, "The camera is connected, but its MAC address is unknown after 8 s"));
    }
    return stories;
}

constexpr const char *archiveNames[] = {"log.tar.gz", "private.tar.gz", "netconf.tar.gz", "sharefs.tar.gz"};

enum class Archives { complete, halves, empty };

struct ArchiveScenario
{
    const char *scenario;
    Archives archives;
    bool calm; ///< a shell command takes seconds and must be through within its 5 s
};

constexpr ArchiveScenario archiveScenarios[] = {
    {"logs-empty", Archives::complete, false},      {"logs-large", Archives::complete, true},
    {"ftp-close", Archives::halves, false},         {"ftp-stall", Archives::halves, false},
    {"ftp-refused", Archives::empty, false},        {"ftp-silent", Archives::empty, false},
    {"ftp-wrong-password", Archives::empty, false},
};

std::vector<Story> archiveStories()
{
    std::vector<Story> stories;
    for (const ArchiveScenario &row : archiveScenarios) {
        Story story = shipped(row.scenario, "log", "Result: OK", "");
        story.calm = row.calm;
        story.exitCode = row.archives == Archives::complete ? 0 : notSaved;
        for (const char *name : archiveNames) {
            const QString path = QStringLiteral("60601F0A5F2A/") + QLatin1String(name);
            if (row.archives == Archives::halves) {
                story.files.insert(path, QByteArray(4096, 'h'));
            } else if (row.archives == Archives::empty) {
                story.files.insert(path, "");
            }
        }
        if (row.archives == Archives::complete) {
            story.after = [](Scene &scene) {
                for (const char *name : archiveNames) {
                    const QString path = scene.station.runFolder() + QLatin1Char('/') + QLatin1String(name);
                    if (QProcess::execute(QStringLiteral("tar"),
                                          {QStringLiteral("-xzOf"), path, QStringLiteral("--to-command=true")}) != 0) {
                        return QStringLiteral("%1 cannot be unpacked").arg(path);
                    }
                }
                return QString();
            };
        }
        stories.push_back(story);
    }
    return stories;
}

/// Of the items "Factory Check" and "Cation test", which the window never requests; the tests of the checks play them.
constexpr const char *unrequested[] = {
    "camera-eeprom-awb-crc-mismatch",
    "camera-eeprom-awb-no-crc",
    "camera-eeprom-awb-no-data",
    "camera-eeprom-awb-no-signature-answer",
    "camera-eeprom-awb-unsigned",
    "camera-eeprom-macula-crc-mismatch",
    "camera-eeprom-macula-no-crc",
    "camera-eeprom-macula-no-data",
    "camera-eeprom-macula-no-signature-answer",
    "camera-eeprom-macula-unsigned",
    "camera-eeprom-mtf-crc-mismatch",
    "camera-eeprom-mtf-no-crc",
    "camera-eeprom-mtf-no-data",
    "camera-eeprom-mtf-no-signature-answer",
    "camera-eeprom-mtf-unsigned",
    "camera-eeprom-signature-reversed",
    "gimbal-motion-instant",
    "gimbal-motion-no-answer",
    "gimbal-motion-pitch-ng",
    "gimbal-motion-pitch-timeout",
    "gimbal-motion-recovers",
    "gimbal-motion-roll-ng",
    "gimbal-motion-roll-timeout",
    "gimbal-motion-slow",
    "gimbal-motion-yaw-ng",
    "gimbal-motion-yaw-timeout",
};
} // namespace

void tst_E2eScenarios::initTestCase()
{
    std::vector<Story> stories;
    for (const auto &part : {linkStories(), cardStories(), batteryStories(), stateStories(), gimbalAndBoardStories()}) {
        stories.insert(stories.end(), part.begin(), part.end());
    }
    m_runs = std::make_unique<Stage>(stories);
    m_archiveRuns = std::make_unique<Stage>(archiveStories());
}

void tst_E2eScenarios::run_data()
{
    m_runs->addRows();
}

void tst_E2eScenarios::run()
{
    m_runs->compareRow();
}

void tst_E2eScenarios::archives_data()
{
    m_archiveRuns->addRows();
}

void tst_E2eScenarios::archives()
{
    m_archiveRuns->compareRow();
}

void tst_E2eScenarios::ofItemsThatTheWindowDoesNotRequest_data()
{
    QTest::addColumn<QString>("scenario");
    for (const char *scenario : unrequested) {
        QTest::newRow(scenario) << QString::fromLatin1(scenario);
    }
}

void tst_E2eScenarios::ofItemsThatTheWindowDoesNotRequest()
{
    QFETCH(QString, scenario);
    const emulator::ScenarioResult result = emulator::parseScenario(
        fileContent(QStringLiteral(KEST_SOURCE_DIR "/emulator/scenarios/") + scenario + QStringLiteral(".json")));
    QCOMPARE(result.error, QString());
    QVERIFY(!result.scenario.description.isEmpty());
}

void tst_E2eScenarios::noneIsLeftOut()
{
    QSet<QString> played;
    for (const Stage *stage : {m_runs.get(), m_archiveRuns.get()}) {
        for (const Story &story : stage->stories()) {
            played.insert(story.shippedScenario);
        }
    }
    for (const char *scenario : unrequested) {
        played.insert(QString::fromLatin1(scenario));
    }
    QSet<QString> all;
    const QDir folder(QStringLiteral(KEST_SOURCE_DIR "/emulator/scenarios"));
    const QFileInfoList files = folder.entryInfoList({QStringLiteral("*.json")});
    for (const QFileInfo &file : files) {
        all.insert(file.completeBaseName());
    }
    QCOMPARE(played, all);
}

QTEST_GUILESS_MAIN(tst_E2eScenarios)
#include "tst_E2eScenarios.moc"
