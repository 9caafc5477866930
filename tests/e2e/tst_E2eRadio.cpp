#include "queries.h"
#include "StoryTest.h"

#include <QtTest>

/// A radio that loses datagrams: what a query that is sent again makes of it, and what becomes of one that is not.
class tst_E2eRadio : public StoryTest
{
    Q_OBJECT

protected:
    std::vector<Story> stories() const override;
};

namespace {
/// The first `lost` answers to the question for the battery's information get lost; it is asked `asked` times.
Story battery(const char *name, bool safeguards, const QByteArray &lost, int asked, const char *verdicts)
{
    Story result(name, QStringLiteral("battery"));
    result.safeguards = safeguards;
    result.scenario = faulty({"getBatteryInfo"}, fault("drop", lost));
    result.verdicts = QString::fromLatin1(verdicts);
    result.exitCode = result.verdicts.endsWith(QLatin1String("NG")) ? 1 : 0;
    result.after = [asked](Scene &scene) {
        const int requests = scene.camera.requests("getBatteryInfo");
        return requests == asked ? QString() : QStringLiteral("asked %1 times").arg(requests);
    };
    return result;
}

Story tenRuns()
{
    constexpr int runs = 10;
    Story result("ten runs on a radio that loses 3 % of the replies",
                 QStringLiteral("camera,gimbal,battery,tfcard,lens,pcba"));
    result.safeguards = true;
    result.scenario = R"({"replyLoss": {"percent": 3, "seed": 1}})";
    result.options = QStringList{QStringLiteral("--repeat"), QString::number(runs)};
    result.verdicts =
        QStringLiteral("Camera: OK, Gimbal: OK, Battery: OK, TF Card: OK, Lens: OK, PCBA: OK, Result: OK");
    result.after = [](Scene &scene) {
        const int passed = scene.station.output().content().count("Result: OK");
        return passed == runs ? QString() : QStringLiteral("%1 runs passed").arg(passed);
    };
    return result;
}
} // namespace

std::vector<Story> tst_E2eRadio::stories() const
{
    Story told = battery("three answers get lost, with safeguards", true, "3", 4, "Battery: OK, Result: OK");
    told.says = QStringList{QStringLiteral("queries that had to be sent again: 3")};
    return {
        battery("one answer gets lost, as ever", false, "1", 1, "Battery: NG, Result: NG"),
        battery("one answer gets lost, with safeguards", true, "1", 2, "Battery: OK, Result: OK"),
        told,
        battery("no answer comes, with safeguards", true, always, 4, "Battery: NG, Result: NG"),
        tenRuns(),
    };
}

QTEST_GUILESS_MAIN(tst_E2eRadio)
#include "tst_E2eRadio.moc"
