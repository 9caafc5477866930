#include "plan/RunPlan.h"

#include <QTest>

Q_DECLARE_METATYPE(PlannedItems)
using IntList = QList<int>;
Q_DECLARE_METATYPE(IntList)

/// Which items a run takes, from the settings and from the command line.
class tst_RunPlan : public QObject
{
    Q_OBJECT

private slots:
    void readsALine_data();
    void readsALine();
    void refusesALine_data();
    void refusesALine();
    void readsAllLines();
    void readsNothingInPart();
    void readsARequestedRun_data();
    void readsARequestedRun();
    void refusesARequestedRun_data();
    void refusesARequestedRun();
};

namespace {
const QStringList known = {QStringLiteral("camera"), QStringLiteral("gimbal"), QStringLiteral("battery"),
                           QStringLiteral("tfcard"), QStringLiteral("log")};
}

void tst_RunPlan::readsALine_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<PlannedItems>("items");
    QTest::newRow("one item") << "camera"
                              << "0" << PlannedItems{{0, {0}}};
    QTest::newRow("the factory check as well") << "camera"
                                               << "0,1" << PlannedItems{{0, {0, 1}}};
    QTest::newRow("the motion test as well") << "gimbal"
                                             << "0,1,2,3,4" << PlannedItems{{1, {0, 1, 2, 3, 4}}};
    QTest::newRow("in another order") << "battery"
                                      << "2,0,1" << PlannedItems{{2, {2, 0, 1}}};
    QTest::newRow("a range") << "pcba"
                             << "0-6" << PlannedItems{{8, {0, 1, 2, 3, 4, 5, 6}}};
    QTest::newRow("ranges and numbers") << "log"
                                        << "9,2-4,0" << PlannedItems{{9, {9, 2, 3, 4, 0}}};
    QTest::newRow("a range of one") << "lens"
                                    << "1-1" << PlannedItems{{5, {1}}};
    QTest::newRow("blanks") << "tfcard"
                            << " 1 ,  0 " << PlannedItems{{6, {1, 0}}};
    QTest::newRow("by the names of the command line") << "button"
                                                      << "0" << PlannedItems{{4, {0}}};
}

void tst_RunPlan::readsALine()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    const RunPlan plan = readRunPlan({{key, value}}, QStringLiteral("option.ini"));
    QCOMPARE(plan.errors, QStringList());
    QTEST(plan.items, "items");
}

void tst_RunPlan::refusesALine_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *title, const char *key, const char *value, const char *error) {
        QTest::newRow(title) << key << value << error;
    };
    row("no such item", "camera", "0,2", R"(option.ini: RunPlan/camera="0,2": there is no item 2; the items are 0, 1)");
    row("no such item at the end of a range", "gimbal", "3-5",
        R"(option.ini: RunPlan/gimbal="3-5": there is no item 5; the items are 0, 1, 2, 3, 4)");
    row("a range without end", "log", "0-999",
        R"(option.ini: RunPlan/log="0-999": there is no item 10; the items are 0, 1, 2, 3, 4, 5, 6, 7, 8, 9)");
    row("the same item twice", "gimbal", "0,1,0", R"(option.ini: RunPlan/gimbal="0,1,0": item 0 stands there twice)");
    row("the same item in a range", "gimbal", "2,1-3",
        R"(option.ini: RunPlan/gimbal="2,1-3": item 2 stands there twice)");
    row("a range that runs backwards", "gimbal", "4-0",
        R"(option.ini: RunPlan/gimbal="4-0": the range "4-0" runs backwards)");
    row("no such component", "kamera", "0",
        R"(option.ini: RunPlan/kamera="0": there is no such component; known are camera, gimbal, battery, fan, button, )"
        R"(lens, tfcard, audio, pcba, log)");
    row("a component by its name on the screen", "Camera", "0",
        R"(option.ini: RunPlan/Camera="0": there is no such component; known are camera, gimbal, battery, fan, button, )"
        R"(lens, tfcard, audio, pcba, log)");
    row("nothing", "camera", "", R"(option.ini: RunPlan/camera="": no item is named)");
    row("only blanks", "camera", "  ", R"(option.ini: RunPlan/camera="  ": no item is named)");
    row("a comma too many", "camera", "0,", R"(option.ini: RunPlan/camera="0,": "" is not an item's number)");
    row("a name", "camera", "video", R"(option.ini: RunPlan/camera="video": "video" is not an item's number)");
    row("a negative number", "camera", "-1", R"(option.ini: RunPlan/camera="-1": "-1" is not an item's number)");
    row("a number beyond all integers", "camera", "99999999999999999999",
        R"(option.ini: RunPlan/camera="99999999999999999999": "99999999999999999999" is not an item's number)");
    row("digits of another script", "camera", "١", R"(option.ini: RunPlan/camera="١": "١" is not an item's number)");
    row("the separator of the command line", "camera", "0+1",
        R"(option.ini: RunPlan/camera="0+1": "0+1" is not an item's number)");
    row("a pattern of the error text", "camera", "%1",
        R"(option.ini: RunPlan/camera="%1": "%1" is not an item's number)");
}

void tst_RunPlan::refusesALine()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    const RunPlan plan = readRunPlan({{key, value}}, QStringLiteral("option.ini"));
    QTEST(plan.errors.join(QLatin1Char('\n')), "error");
    QVERIFY(plan.items.isEmpty());
}

void tst_RunPlan::readsAllLines()
{
    const RunPlan plan =
        readRunPlan({{QStringLiteral("camera"), QStringLiteral("1")}, {QStringLiteral("gimbal"), QStringLiteral("4")}},
                    QStringLiteral("option.ini"));
    QCOMPARE(plan.items, (PlannedItems{{0, {1}}, {1, {4}}}));
    QVERIFY(readRunPlan({}, QStringLiteral("option.ini")).items.isEmpty());
    QVERIFY(readRunPlan({}, QStringLiteral("option.ini")).errors.isEmpty());
}

void tst_RunPlan::readsNothingInPart()
{
    const RunPlan plan = readRunPlan({{QStringLiteral("camera"), QStringLiteral("7")},
                                      {QStringLiteral("gimbal"), QStringLiteral("4")},
                                      {QStringLiteral("lens"), QStringLiteral("x")}},
                                     QStringLiteral("option.ini"));
    QVERIFY(plan.items.isEmpty());
    QCOMPARE(plan.errors,
             QStringList({QStringLiteral(R"(option.ini: RunPlan/camera="7": there is no item 7; the items are 0, 1)"),
                          QStringLiteral(R"(option.ini: RunPlan/lens="x": "x" is not an item's number)")}));
}

void tst_RunPlan::readsARequestedRun_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<IntList>("components");
    QTest::addColumn<PlannedItems>("items");
    const auto row = [](const char *title, const char *text, const IntList &components, const PlannedItems &items) {
        QTest::newRow(title) << text << components << items;
    };
    row("one component", "camera", {0}, {});
    row("some", "log,camera,tfcard", {9, 0, 6}, {});
    row("all", "all", {0, 1, 2, 6, 9}, {});
    row("one of them twice", "camera,log,camera", {0, 9}, {});
    row("items of some", "camera:0+1,gimbal:0-4,log", {0, 1, 9}, {{0, {0, 1}}, {1, {0, 1, 2, 3, 4}}});
    row("items in another order", "battery:2+0-1", {2}, {{2, {2, 0, 1}}});
    row("all, and the items of one", "all,camera:1", {0, 1, 2, 6, 9}, {{0, {1}}});
    row("a component with items and by itself", "camera:1,camera", {0}, {{0, {1}}});
}

void tst_RunPlan::readsARequestedRun()
{
    QFETCH(QString, text);
    const RequestedRun run = readRequestedRun(text, known);
    QCOMPARE(run.error, QString());
    QTEST(run.components, "components");
    QTEST(run.items, "items");
}

void tst_RunPlan::refusesARequestedRun_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *title, const char *text, const char *error) {
        QTest::newRow(title) << text << error;
    };
    row("unknown component", "camera,kamera",
        R"(unknown component "kamera"; known are all, or any of: camera, gimbal, battery, tfcard, log)");
    row("nothing", "", R"(unknown component ""; known are all, or any of: camera, gimbal, battery, tfcard, log)");
    row("a component that is not offered", "fan",
        R"(unknown component "fan"; known are all, or any of: camera, gimbal, battery, tfcard, log)");
    row("items of all", "all:0",
        R"(unknown component "all"; known are all, or any of: camera, gimbal, battery, tfcard, log)");
    row("no such item", "camera:0+2", R"("camera:0+2": there is no item 2; the items are 0, 1)");
    row("the same item twice", "gimbal:0-4+2", R"("gimbal:0-4+2": item 2 stands there twice)");
    row("no items after the colon", "camera:", R"("camera:": no item is named)");
    row("a plus too many", "camera:0+", R"("camera:0+": "" is not an item's number)");
    row("two colons", "camera:0:1", R"("camera:0:1": "0:1" is not an item's number)");
    row("items of a component twice", "camera:0,camera:1", R"("camera:1": the component's items are named twice)");
}

void tst_RunPlan::refusesARequestedRun()
{
    QFETCH(QString, text);
    const RequestedRun run = readRequestedRun(text, known);
    QTEST(run.error, "error");
    QVERIFY(run.components.isEmpty());
    QVERIFY(run.items.isEmpty());
}

QTEST_GUILESS_MAIN(tst_RunPlan)
#include "tst_RunPlan.moc"
