#include "expectedLogs.h"
#include "StoryTest.h"

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

/// A station that does not start with such settings.
Story refused(const char *name, const QByteArray &settings, const QStringList &says)
{
    Story story(name, QStringLiteral("camera"));
    story.hasCamera = false;
    story.before = sections(settings);
    story.exitCode = 2;
    story.says = says;
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
        refused(
            "an item that there is not", "[RunPlan]\ngimbal=0,7\n",
            {QStringLiteral("option.ini: RunPlan/gimbal=\"0,7\": there is no item 7; the items are 0, 1, 2, 3, 4")}),
        refused("a limit of something that is not measured", "[Limits]\nbattery.volts=3.6..4.35\n",
                {QStringLiteral("option.ini: Limits/battery.volts=\"3.6..4.35\": there is no such measurement")}),
    };
}

QTEST_GUILESS_MAIN(tst_E2ePlans)
#include "tst_E2ePlans.moc"
