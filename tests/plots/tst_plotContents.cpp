#include "exampleStatistics.h"
#include "plots/plotContents.h"

#include <QTest>

Q_DECLARE_METATYPE(PlotContent)

class tst_plotContents : public QObject
{
    Q_OBJECT

private slots:
    void yieldOfAll();
    void weeksAreAsWideAsTheirSpace_data();
    void weeksAreAsWideAsTheirSpace();
    void yieldOfParts();
    void dayWithoutJudgedCameras();
    void failures();
    void failuresOfParts();
    void warningsOfPartsDecideBetweenEqualFailures();
    void duration();
    void distributionOfAll();
    void distributionOfParts();
    void across();
    void across_data();
    void nothing();
};

namespace {
using Rows = QList<QStringList>;

constexpr double julian20 = 2461365; // 2026-11-20
} // namespace

void tst_plotContents::yieldOfAll()
{
    const PlotContent plot = yieldPlot({{QString(), twoDays()}}, QStringLiteral("Station"));
    QCOMPARE(plot.title, QStringLiteral("Yield by day"));
    QVERIFY(plot.isShare);
    QCOMPARE(plot.upFrom, 0.5);
    QCOMPARE(plot.lines.size(), 2);
    QCOMPARE(plot.lines[0].name, QStringLiteral("first-pass yield"));
    QCOMPARE(plot.lines[0].points[0].across, julian20);
    QCOMPARE(plot.lines[0].points[0].up, 0.75);
    QCOMPARE(plot.lines[0].points[0].hint, QStringLiteral("2026-11-20: first-pass yield 75.0 %"));
    QCOMPARE(plot.lines[1].name, QStringLiteral("final yield"));
    QCOMPARE(plot.lines[1].points[1].across, julian20 + 1);
    QCOMPARE(plot.lines[1].points[1].up, 1.0);
    QCOMPARE(plot.bars.size(), 1);
    QVERIFY(plot.bars[0].isBehind);
    QCOMPARE(plot.bars[0].bars[1].up, 5.0);
    QCOMPARE(plot.bars[0].bars[1].hint, QStringLiteral("2026-11-21: 5 runs"));
    QCOMPARE(plot.table.columns,
             (QStringList{"Day", "Runs", "Passed", "Failed", "Cameras", "First-pass yield", "Final yield"}));
    QCOMPARE(plot.table.rows, (Rows{{"2026-11-20", "10", "7", "3", "8", "75.0 %", "87.5 %"},
                                    {"2026-11-21", "5", "4", "1", "4", "50.0 %", "100.0 %"}}));
}

void tst_plotContents::weeksAreAsWideAsTheirSpace_data()
{
    QTest::addColumn<QString>("second");
    QTest::newRow("the narrower space is the last one") << "2026-11-16";
    QTest::newRow("the narrower space is the first one") << "2026-11-09";
}

void tst_plotContents::weeksAreAsWideAsTheirSpace()
{
    QFETCH(const QString, second);
    Statistics statistics;
    statistics.byDay = {{QStringLiteral("2026-11-02"), sums(10, 8, 6, 7)},
                        {second, sums(5, 4, 2, 4)},
                        {QStringLiteral("2026-11-23"), sums(5, 4, 2, 4)}};
    const PlotContent plot = yieldPlot({{QString(), statistics}}, {});
    const double width = plot.bars[0].bars[0].to - plot.bars[0].bars[0].from;
    QVERIFY2(qAbs(width - 0.8 * 7) < 1e-6, qPrintable(QString::number(width)));
}

void tst_plotContents::yieldOfParts()
{
    Statistics right;
    right.byDay = {{QStringLiteral("2026-11-21"), sums(5, 5, 5, 5)}};
    const PlotContent plot =
        yieldPlot({{QStringLiteral("左线"), twoDays()}, {QStringLiteral("右线"), right}}, QStringLiteral("Station"));
    QVERIFY(plot.bars.isEmpty());
    QVERIFY(plot.behindTitle.isEmpty());
    QCOMPARE(plot.lines.size(), 4);
    QCOMPARE(plot.lines[0].name, QStringLiteral("左线, first-pass yield"));
    QCOMPARE(plot.lines[0].colour, plot.lines[1].colour);
    QCOMPARE(plot.lines[3].name, QStringLiteral("右线, final yield"));
    QVERIFY(plot.lines[3].colour != plot.lines[1].colour);
    QCOMPARE(plot.table.columns.constFirst(), QStringLiteral("Station"));
    QCOMPARE(plot.table.rows.constLast(),
             (QStringList{QStringLiteral("右线"), "2026-11-21", "5", "5", "0", "5", "100.0 %", "100.0 %"}));
}

void tst_plotContents::dayWithoutJudgedCameras()
{
    Statistics statistics;
    statistics.byDay = {{QStringLiteral("2026-11-20"), sums(3, 0, 0, 0)}};
    const PlotContent plot = yieldPlot({{QString(), statistics}}, {});
    QVERIFY(plot.lines.isEmpty()); // not a yield of 0
    QCOMPARE(plot.table.rows, (Rows{{"2026-11-20", "3", "0", "3", "0", "-", "-"}}));
}

void tst_plotContents::failures()
{
    const PlotContent plot = failuresPlot({{QString(), twoDays()}}, {});
    QCOMPARE(plot.names, (QStringList{"battery.info", "lens.link"}));
    QCOMPARE(plot.bars.size(), 1);
    QCOMPARE(plot.bars[0].bars[0].up, 4.0);
    QCOMPARE(plot.bars[0].bars[0].hint, QStringLiteral("battery.info: failed in 4 of 15 runs"));
    QCOMPARE(plot.bars[0].bars[0].label, QStringLiteral("4 (66.7 % of all so far)"));
    QCOMPARE(plot.bars[0].bars[1].label, QStringLiteral("2 (100.0 % of all so far)"));
    QCOMPARE(plot.bars[0].colour, int(plotColour::failed));
    QCOMPARE(plot.bars[0].bars[1].from, 0.6);
    QCOMPARE(plot.bars[0].bars[1].to, 1.4);
    QCOMPARE(plot.table.rows,
             (Rows{{"battery.info", "15", "4", "1", "26.7 %"}, {"lens.link", "12", "2", "0", "16.7 %"}}));
}

void tst_plotContents::failuresOfParts()
{
    Statistics right;
    right.items = {{QStringLiteral("lens.link"), {20, 3, 0}}};
    const PlotContent plot =
        failuresPlot({{QStringLiteral("A"), twoDays()}, {QStringLiteral("B"), right}}, QStringLiteral("Batch"));
    QCOMPARE(plot.names, (QStringList{"lens.link", "battery.info"})); // 5 and 4 in all
    QCOMPARE(plot.bars.size(), 2);
    QCOMPARE(plot.bars[1].name, QStringLiteral("B"));
    QCOMPARE(plot.bars[1].bars[0].from, 0.0); // beside the other part
    QCOMPARE(plot.bars[1].bars[0].up, 3.0);
    QCOMPARE(plot.bars[1].bars[1].up, 0.0);
    QCOMPARE(plot.bars[1].bars[1].label, QStringLiteral("0 (100.0 % of all so far)"));
    QVERIFY(plot.bars[0].colour != plot.bars[1].colour);
    QCOMPARE(plot.table.rows[1], (QStringList{"B", "lens.link", "20", "3", "0", "15.0 %"}));
    QCOMPARE(plot.table.rows[3], (QStringList{"B", "battery.info", "0", "0", "0", "-"}));
}

void tst_plotContents::warningsOfPartsDecideBetweenEqualFailures()
{
    Statistics left;
    left.items = {{QStringLiteral("a"), {9, 1, 2}}, {QStringLiteral("b"), {9, 1, 1}}};
    Statistics right;
    right.items = {{QStringLiteral("a"), {9, 1, 0}}, {QStringLiteral("b"), {9, 1, 2}}};
    const PlotContent plot =
        failuresPlot({{QStringLiteral("A"), left}, {QStringLiteral("B"), right}}, QStringLiteral("Batch"));
    QCOMPARE(plot.names, (QStringList{"b", "a"})); // two failures each, and 3 and 2 warnings
}

void tst_plotContents::duration()
{
    const PlotContent plot = durationPlot({{QString(), twoDays()}}, {});
    QCOMPARE(plot.lines.size(), 1);
    QCOMPARE(plot.lines[0].points[0].up, 2.5);
    QCOMPARE(plot.lines[0].points[1].hint, QStringLiteral("2026-11-21: 1 s"));
    QCOMPARE(plot.table.rows, (Rows{{"2026-11-20", "10", "2.5"}, {"2026-11-21", "5", "1"}}));
}

void tst_plotContents::distributionOfAll()
{
    const PlotContent plot = distributionPlot({{QString(), voltages()}}, {});
    QCOMPARE(plot.title, QStringLiteral("battery.voltage in battery.info"));
    QCOMPARE(plot.acrossTitle, QStringLiteral("battery.voltage, V"));
    QCOMPARE(plot.bars.size(), 1);
    double values = 0;
    for (const PlotBar &bar : plot.bars[0].bars) {
        values += bar.up;
    }
    QCOMPARE(values, 4.0);
    QCOMPARE(plot.marks.size(), 3);
    QCOMPARE(plot.marks[0].text, QStringLiteral("mean 4"));
    QVERIFY(!plot.marks[0].isLimit);
    QCOMPARE(plot.marks[1].text, QStringLiteral("least 3.6"));
    QCOMPARE(plot.marks[2].across, 4.35);
    QVERIFY(plot.marks[2].isLimit);
    QCOMPARE(plot.table.rows, (Rows{{"4", "1", "3.8", "4.4", "4", "0.282843", "3.6", "4.35", "0.41"}}));
}

void tst_plotContents::distributionOfParts()
{
    Distribution none = voltages();
    none.count = 0;
    none.bins.clear();
    const PlotContent plot =
        distributionPlot({{QStringLiteral("A"), voltages()}, {QStringLiteral("B"), none}}, QStringLiteral("Batch"));
    QVERIFY(plot.bars.isEmpty());
    QCOMPARE(plot.lines.size(), 1);
    double area = 0;
    for (const PlotPoint &point : plot.lines[0].points) {
        area += point.up * voltages().binWidth;
    }
    QVERIFY(qAbs(area - 1) < 1e-9);
    QCOMPARE(plot.marks.size(), 2);
    QCOMPARE(plot.table.rows.size(), 1);
    QCOMPARE(plot.table.rows[0].constFirst(), QStringLiteral("A"));
}

void tst_plotContents::across_data()
{
    QTest::addColumn<PlotContent>("plot");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    const auto row = [](const char *title, PlotContent::Scale scale, const PlotBars &bars, const PlotLine &line,
                        const QList<PlotMark> &marks, double from, double to) {
        PlotContent plot;
        plot.scale = scale;
        plot.bars = {bars};
        plot.lines = {line};
        plot.marks = marks;
        QTest::newRow(title) << plot << from << to;
    };
    const auto bar = [](double from, double to) {
        PlotBars bars;
        bars.bars = {{from, to, 1, {}, {}}};
        return bars;
    };
    const auto at = [](double place) {
        PlotLine line;
        line.points = {{place, 1, {}}};
        return line;
    };
    using Scale = PlotContent::Scale;
    row("nothing", Scale::Numbers, {}, {}, {}, 0, 1);
    row("bars", Scale::Numbers, bar(10, 20), {}, {}, 9.7, 20.3);
    row("bars and a line", Scale::Numbers, bar(10, 20), at(110), {}, 7, 113);
    row("a limit", Scale::Numbers, bar(10, 20), {}, {{30, {}, true}}, 9.4, 30.6);
    row("a limit far to the right", Scale::Numbers, bar(10, 20), {}, {{40, {}, true}}, 9.7, 20.3);
    row("a limit that is not too far", Scale::Numbers, bar(10, 20), {}, {{-9, {}, true}}, -9.87, 20.87);
    row("a limit far to the left", Scale::Numbers, bar(10, 20), {}, {{-10, {}, true}}, 9.7, 20.3);
    row("a day", Scale::Days, {}, at(2461365), {}, 2461364.5, 2461365.5);
    row("a hundred days", Scale::Days, bar(2461300, 2461300), at(2461400), {}, 2461297, 2461403);
    row("a moment", Scale::Moments, {}, at(1795251600000.0), {}, 1795248000000.0, 1795255200000.0);
    row("one name", Scale::Names, bar(-0.4, 0.4), {}, {}, -0.547, 4.647);
}

void tst_plotContents::across()
{
    QFETCH(const PlotContent, plot);
    QFETCH(const double, from);
    QFETCH(const double, to);
    const QPair<double, double> across = plot.across();
    QVERIFY2(qAbs(across.first - from) < 1e-6, qPrintable(QString::number(across.first, 'g', 17)));
    QVERIFY2(qAbs(across.second - to) < 1e-6, qPrintable(QString::number(across.second, 'g', 17)));
}

void tst_plotContents::nothing()
{
    const QList<StatisticsPart> none{{QString(), {}}};
    QVERIFY(yieldPlot(none, {}).isEmpty());
    QVERIFY(failuresPlot(none, {}).isEmpty());
    QVERIFY(durationPlot(none, {}).isEmpty());
    QVERIFY(distributionPlot({{QString(), {}}}, {}).isEmpty());
}

QTEST_GUILESS_MAIN(tst_plotContents)
#include "tst_plotContents.moc"
