#include "exampleStatistics.h"
#include "plots/plotContents.h"
#include "report/drawPlot.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamWriter>

Q_DECLARE_METATYPE(PlotContent)

namespace {
PlotContent moments()
{
    PlotContent plot;
    plot.title = QStringLiteral("Runs of a camera");
    plot.upTitle = QStringLiteral("Items");
    plot.scale = PlotContent::Scale::Moments;
    plot.isCount = true;
    PlotLine line;
    line.name = QStringLiteral("failed");
    line.style = PlotLine::Style::Points;
    line.colour = plotColour::failed;
    constexpr double begin = 1795249800000; // 2026-11-21 08:30 UTC
    constexpr double hour = 3600e3;
    line.points = {{begin, 1, QStringLiteral("one")}, {begin + hour, 0, {}}, {begin + 30 * hour, 3, {}}};
    plot.lines.append(line);
    return plot;
}

PlotContent markup()
{
    PlotContent plot;
    plot.title = QStringLiteral("<b>&\"'");
    plot.acrossTitle = QStringLiteral("</svg>");
    plot.bars = {{QStringLiteral("<i>"), 0, false, {{1, 2, 3, QStringLiteral("]]>"), QStringLiteral("&amp;")}}},
                 {QStringLiteral("b"), 1, false, {{2, 3, 1, {}, {}}}}};
    return plot;
}
} // namespace

/// Plots as they stand in a report: tests/report/drawings holds each as it was looked at. Where one is meant to change,
/// the new one lies in the folder that the failure names; look at it before it takes the old one's place.
class tst_drawPlot : public QObject
{
    Q_OBJECT

private slots:
    void looksAsItDid_data();
    void looksAsItDid();
};

void tst_drawPlot::looksAsItDid_data()
{
    QTest::addColumn<PlotContent>("content");
    const QString station = QStringLiteral("Station");
    Statistics right;
    right.byDay = {{QStringLiteral("2026-11-19"), sums(5, 5, 5, 5, 9000)}};
    right.items = {{QStringLiteral("lens.link"), {20, 3, 0}}};
    const QList<StatisticsPart> all = {{QString(), twoDays()}};
    const QList<StatisticsPart> parts = {{QStringLiteral("左线"), twoDays()}, {QStringLiteral("右线"), right}};
    QTest::newRow("yield") << yieldPlot(all, station);
    Statistics uneven;
    for (const char *day : {"2026-11-01", "2026-11-02", "2026-11-03", "2026-11-19", "2026-11-20", "2026-11-30"}) {
        uneven.byDay.append({QString::fromLatin1(day), sums(5, 5, 4, 5)});
    }
    QTest::newRow("yield-of-uneven-days") << yieldPlot({{QString(), uneven}}, station);
    QTest::newRow("yield-of-parts") << yieldPlot(parts, station);
    QTest::newRow("failures") << failuresPlot(all, station);
    QTest::newRow("duration") << durationPlot(all, station);
    QTest::newRow("distribution") << distributionPlot({{QString(), voltages()}}, station);
    QTest::newRow("moments") << moments();
    QTest::newRow("markup") << markup();
    QTest::newRow("nothing") << yieldPlot({}, {});
}

void tst_drawPlot::looksAsItDid()
{
    QFETCH(const PlotContent, content);
    const QString name = QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".svg");
    QByteArray svg;
    QXmlStreamWriter xml(&svg);
    xml.setAutoFormatting(true);
    writeSvg(drawPlot(content), &xml);
    xml.writeEndDocument();
    QFile expected(QStringLiteral(KEST_DRAWINGS "/") + name);
    const QByteArray before = expected.open(QIODevice::ReadOnly) ? expected.readAll() : QByteArray();
    if (svg != before) {
        QTemporaryDir folder;
        folder.setAutoRemove(false);
        QFile actual(folder.filePath(name));
        QVERIFY(actual.open(QIODevice::WriteOnly) && actual.write(svg) == svg.size());
        QFAIL(qPrintable(actual.fileName()));
    }
}

QTEST_GUILESS_MAIN(tst_drawPlot)
#include "tst_drawPlot.moc"
