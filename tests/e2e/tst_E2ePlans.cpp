#include "expectedLogs.h"
#include "StoryTest.h"
#include "support/fileContent.h"

#include <algorithm>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

/// What the line's engineer decides: which items run in which order, and within which limits.
class tst_E2ePlans : public StoryTest
{
    Q_OBJECT

protected:
    std::vector<Story> stories() const override;
};

namespace {
const QString detectorLog = QStringLiteral("60601F0A5F2A/DetectorLog.txt");

/// The shipped settings with these sections behind them.
Story::Act sections(const QByteArray &content)
{
    return [content](Scene &scene) {
        scene.station.writeOptionIni(scene.station.optionIni() + '\n' + content);
        return QString();
    };
}

Story planned(const char *name, const char *components, const QByteArray &settings, const char *verdicts, int exitCode,
              const QByteArray &log)
{
    Story story(name, QString::fromLatin1(components));
    story.before = sections(settings);
    story.verdicts = QString::fromLatin1(verdicts);
    story.exitCode = exitCode;
    story.files.insert(detectorLog, log);
    return story;
}

/// A station that does not start with such settings, or with such options.
Story refused(const char *name, const QByteArray &settings, const char *says, const char *components = "camera",
              const QStringList &options = {})
{
    Story story(name, QString::fromLatin1(components));
    story.hasCamera = false;
    story.options = options;
    story.before = sections(settings);
    story.exitCode = 2;
    story.says = QStringList{QString::fromUtf8(says)};
    return story;
}

/// What was to be run and what was, in the words of the record of a story's only run: "gimbal 4 0: gimbal.motion ...".
QStringList recordedRun(const StationProcess &station)
{
    const QJsonObject record = QJsonDocument::fromJson(fileContent(station.recordsPath())).object();
    const QJsonArray plan = record.value(QLatin1String("plan")).toArray();
    const QJsonArray components = record.value(QLatin1String("components")).toArray();
    QStringList lines;
    for (int i = 0; i < std::max(plan.size(), components.size()); ++i) {
        QString line = plan.at(i).toObject().value(QLatin1String("key")).toString();
        const QJsonArray numbers = plan.at(i).toObject().value(QLatin1String("items")).toArray();
        for (const QJsonValue &number : numbers) {
            line += QStringLiteral(" %1").arg(number.toInt());
        }
        line += QLatin1Char(':');
        const QJsonArray items = components.at(i).toObject().value(QLatin1String("items")).toArray();
        for (const QJsonValue &item : items) {
            line += QLatin1Char(' ') + item.toObject().value(QLatin1String("key")).toString();
        }
        lines.append(line);
    }
    return lines;
}

/// Items that the command line names in an order of its own, whatever the settings say.
Story oddOrders()
{
    // The calibration of a camera like the emulated one does not pass.
    Story story =
        planned("items that the command line names", "lens,gimbal:4+2-3+0,camera:1+0,tfcard:1",
                "[RunPlan]\ngimbal=1\nlens=0\n", "Camera: NG, Gimbal: OK, TF Card: OK, Lens: OK, Result: NG", 1,
                "[Camera]:\n相机MTF测试Crc校验值有误\n相机视频流OK\n\n"
                "[Gimbal]:\nRoll轴运动检测OK\nPitch轴运动检测OK\nYaw轴运动检测OK\n"
                "Pitch轴通信OK\nYaw轴通信OK\n云台主控通信OK\n\n"
                "[TF Card]:\nSD Card OK\n\n"
                "[Lens]:\n相机通信正常\n\n");
    story.after = [](Scene &scene) {
        const QStringList expected{
            "camera 1 0: camera.factory camera.video",
            "gimbal 4 2 3 0: gimbal.motion gimbal.pitch.link gimbal.yaw.link gimbal.main.link",
            "tfcard 1: tfcard.speed",
            "lens 0: lens.link",
        };
        const QStringList recorded = recordedRun(scene.station);
        return recorded == expected ? QString() : recorded.join(QStringLiteral(", "));
    };
    return story;
}

/// The battery's information with a line behind its report.
QByteArray infoWith(const QByteArray &line)
{
    return QByteArray(expectedLogs::batteryInfo) + line;
}
} // namespace

std::vector<Story> tst_E2ePlans::stories() const
{
    using namespace expectedLogs;
    const QByteArray voltageTooLow = "battery.voltage: 3.85 V (3.851..)\n";
    return {
        planned("items in another order", "battery", "[RunPlan]\nbattery=2,0\ncamera=1\n", "Battery: OK, Result: OK", 0,
                "[Battery]:\n" + QByteArray(batteryInfo) + "相机电池通信OK\n\n"),
        planned("a component that the plan does not name", "camera", "[RunPlan]\nbattery=2,0\n",
                "Camera: OK, Result: OK", 0, camera),
        planned("within the limits, on their bounds", "battery",
                "[RunPlan]\nbattery=2\n[Limits]\nbattery.voltage=3.85..3.85\nbattery.current=-250..\n"
                "battery.softwareVersion=1.2.3.4|1.2.3.5\n",
                "Battery: OK, Result: OK", 0, "[Battery]:\n" + QByteArray(batteryInfo) + "\n"),
        planned("a millivolt below the limit", "battery", "[RunPlan]\nbattery=2,0\n[Limits]\nbattery.voltage=3.851..\n",
                "Battery: NG, Result: NG", 1, "[Battery]:\n" + infoWith(voltageTooLow) + "相机电池通信OK\n\n"),
        planned("a millivolt above the limit", "battery",
                "[RunPlan]\nbattery=2\n[Limits]\nbattery.voltage=3.6..3.849\n", "Battery: NG, Result: NG", 1,
                "[Battery]:\n" + infoWith("battery.voltage: 3.85 V (3.6..3.849)\n") + "\n"),
        planned("the firmware that is meant, and nothing else that counts", "log",
                "[RunPlan]\nlog=5,2\n[Limits]\nfirmware=01.00.0311|01.00.0312\nfile.size=1..\n", "Result: OK", 0, ""),
        planned("another firmware", "log", "[RunPlan]\nlog=2,5\n[Limits]\nfirmware=01.00.0313\n", "Result: NG", 1, ""),
        planned("a firmware that cannot be read", "log",
                "[RunPlan]\nlog=5\n[Limits]\nfirmware=01.00.0312\n[DownloadLogSrcPath]\nVersionPath=/nowhere\n",
                "Result: NG", 1, ""),
        oddOrders(),
        refused("an item that there is not", "[RunPlan]\ngimbal=0,7\n",
                R"(option.ini: RunPlan/gimbal="0,7": there is no item 7; the items are 0, 1, 2, 3, 4)"),
        refused("a limit of something that is not measured", "[Limits]\nbattery.volts=3.6..4.35\n",
                R"(option.ini: Limits/battery.volts="3.6..4.35": there is no such measurement)"),
        refused("a range that runs backwards", "", R"(--run: "gimbal:4-0": the range "4-0" runs backwards)",
                "camera,gimbal:4-0"),
        refused(
            "a question that cannot be asked", "[Station]\nask=serial,name\n",
            R"(option.ini: Station/ask="serial,name": "name" cannot be asked for; known are serial, operator, batch)"),
        refused("a serial number of another make", "[Station]\nserialPattern=KC\\\\d{7}\n",
                R"(--serial: "KD0012345" does not match Station/serialPattern="KC\d{7}")", "camera",
                {QStringLiteral("--serial"), QStringLiteral("KD0012345")}),
    };
}

QTEST_GUILESS_MAIN(tst_E2ePlans)
#include "tst_E2ePlans.moc"
