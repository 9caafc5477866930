#include "exampleRecord.h"
#include "history/query/compareRuns.h"

#include <functional>
#include <QTest>

Q_DECLARE_METATYPE(QList<Outcome>)

/// What became different between two runs of a camera.
class tst_compareRuns : public QObject
{
    Q_OBJECT

private slots:
    void differences_data();
    void differences();
    void turns_data();
    void turns();
};

namespace {
/// The example as it passed.
RunRecord passedRun()
{
    RunRecord run = exampleRecord();
    ItemRecord &info = run.components[1].items[1];
    info.verdict = Verdict::Passed;
    info.measurements[0].value = 4.2;
    return run;
}
} // namespace

void tst_compareRuns::differences_data()
{
    QTest::addColumn<RunRecord>("after");
    QTest::addColumn<QStringList>("differences");
    const auto row = [](const char *title, const std::function<void(RunRecord &)> &change,
                        const QStringList &differences) {
        RunRecord run = passedRun();
        change(run);
        QTest::newRow(title) << run << differences;
    };
    row("nothing", [](RunRecord &) {}, {});
    row("only when it was", [](RunRecord &run) { run.begin = run.begin.addDays(1); }, {});
    row("a measurement of an item that passed all the same",
        [](RunRecord &run) { run.components[1].items[1].measurements[0].value = 4.1; }, {});
    row("an item fails, by one of its measurements", [](RunRecord &run) { run = exampleRecord(); },
        {QStringLiteral("battery.info|passed: 获取电池信息成功|failed: 获取电池信息成功"),
         QStringLiteral("battery.info/battery.voltage|4.2 V (3.6..4.35)|4.36 V (3.6..4.35)")});
    row("surroundings",
        [](RunRecord &run) {
            run.station.name = QStringLiteral("line-3");
            run.camera.firmware = QStringLiteral("1.2.4");
            run.operatorName.clear();
        },
        {QStringLiteral("station|line-2-left|line-3"), QStringLiteral("operator|王芳|"),
         QStringLiteral("firmware|1.2.3|1.2.4")});
    row("a limit",
        [](RunRecord &run) {
            run.components[1].items[1].measurements[0].limit = Limit{3.7, {}, {}};
        },
        {QStringLiteral("battery.info/battery.voltage|4.2 V (3.6..4.35)|4.2 V (3.7..)")});
    row("an item that was not run, and a plan without it",
        [](RunRecord &run) {
            run.components.removeLast();
            run.plan.removeLast();
        },
        {QStringLiteral("plan|camera:0 battery:0,2 log:5|camera:0 battery:0,2"),
         QStringLiteral("log.version|passed|not run")});
    row("an item that was not run before",
        [](RunRecord &run) { run.components[0].items[0].key = QStringLiteral("x.y"); },
        {QStringLiteral("x.y|not run|passed: 相机视频流OK"),
         QStringLiteral("camera.video|passed: 相机视频流OK|not run")});
    row("a measurement more",
        [](RunRecord &run) { run.components[1].items[0].measurements = {measured(Field::BatteryCycles, 3)}; },
        {QStringLiteral("battery.link/battery.cycles|not measured|3")});
}

void tst_compareRuns::differences()
{
    QFETCH(RunRecord, after);
    QFETCH(QStringList, differences);
    QStringList found;
    const QList<Difference> differing = compareRuns(passedRun(), after);
    for (const Difference &difference : differing) {
        found.append(QStringList({difference.what, difference.before, difference.after}).join(QLatin1Char('|')));
    }
    QCOMPARE(found, differences);
}

void tst_compareRuns::turns_data()
{
    QTest::addColumn<QList<Outcome>>("outcomes");
    QTest::addColumn<int>("lastPass");
    QTest::addColumn<int>("firstFailure");
    const Outcome pass = Outcome::Passed;
    const Outcome fail = Outcome::Failed;
    const auto row = [](const char *title, const QList<Outcome> &outcomes, int lastPass, int firstFailure) {
        QTest::newRow(title) << outcomes << lastPass << firstFailure;
    };
    row("no runs", {}, -1, -1);
    row("only passes", {pass, pass}, -1, -1);
    row("only failures", {fail, fail}, -1, -1);
    row("a pass after failures", {fail, pass}, -1, -1);
    row("once", {pass, fail}, 0, 1);
    row("several of each", {pass, pass, fail, fail, fail}, 1, 2);
    row("good again", {pass, fail, fail, pass, pass}, 0, 1);
    row("the latest of several", {pass, fail, pass, fail}, 2, 3);
    row("runs that judge nothing between", {pass, Outcome::Stopped, Outcome::Error, fail, Outcome::Stopped}, 0, 3);
}

void tst_compareRuns::turns()
{
    QFETCH(QList<Outcome>, outcomes);
    QFETCH(int, lastPass);
    QFETCH(int, firstFailure);
    const TurnForTheWorse turn = findTurnForTheWorse(outcomes).value_or(TurnForTheWorse{-1, -1});
    QCOMPARE(turn.lastPass, lastPass);
    QCOMPARE(turn.firstFailure, firstFailure);
}

QTEST_APPLESS_MAIN(tst_compareRuns)
#include "tst_compareRuns.moc"
