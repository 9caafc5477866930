#include "historyui/plots/Chart.h"

#include <algorithm>
#include <QMouseEvent>
#include <QTest>
#include <QToolTip>

namespace {
constexpr QSize size(600, 400);
constexpr int belowKey = 60;    // pixels from above
constexpr int scaleHeight = 60; // pixels from below

PlotLine lineAt(double up, int colour, PlotLine::Style style = PlotLine::Style::Solid)
{
    PlotLine line;
    line.name = QStringLiteral("line %1").arg(colour);
    line.colour = colour;
    line.style = style;
    line.points = {{0, up, {}}, {10, up, {}}};
    return line;
}

PlotBars barTo(double up, int colour)
{
    PlotBars bars;
    bars.name = QStringLiteral("bar %1").arg(colour);
    bars.colour = colour;
    bars.bars = {{4, 6, up, {}, {}}};
    return bars;
}

PlotContent contentOf(const QList<PlotLine> &lines, const QList<PlotBars> &bars = {})
{
    PlotContent content;
    content.lines = lines;
    content.bars = bars;
    return content;
}

QImage pictureOf(const PlotContent &content)
{
    Chart chart;
    chart.resize(size);
    chart.show(content);
    return chart.picture(size);
}

/// Likewise, with the labels for which the window has room; empty if it does not come.
QImage windowOf(const PlotContent &content)
{
    Chart chart;
    chart.resize(size);
    chart.setVisible(true);
    if (!QTest::qWaitForWindowExposed(&chart)) {
        return {};
    }
    chart.show(content);
    return chart.picture(size);
}

/// How much of that colour a pixel has been painted with, from 0 to 1. The grid does not count.
double ink(QRgb pixel, const QColor &colour)
{
    const auto depth = [](QRgb rgb) { return 255 - std::min({qRed(rgb), qGreen(rgb), qBlue(rgb)}); };
    const double share = static_cast<double>(depth(pixel)) / depth(colour.rgb());
    constexpr double grid = 0.15;
    return share < grid ? 0 : std::min(share, 1.0);
}

/// Of all pixels of a column, which nothing else but the grid stands in above the scale.
double inkOfColumn(const QImage &image, const QColor &colour, int x)
{
    double sum = 0;
    for (int y = 0; y < image.height() - scaleHeight; ++y) {
        sum += ink(image.pixel(x, y), colour);
    }
    return sum;
}

/// The least rectangle around all pixels of that colour below `from`.
QRect around(const QImage &image, const QColor &colour, int from = 0)
{
    QRect rect;
    for (int y = from; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == colour.rgb()) {
                rect |= QRect(x, y, 1, 1);
            }
        }
    }
    return rect;
}

/// Whether a label of the scale, which is at most so wide, stands in the middle below that column.
bool isLabelled(const QImage &image, int x, int width)
{
    constexpr int height = 30;
    const QRect letters = around(image.copy(x - width / 2, image.height() - height, width, height), Qt::black);
    return letters.width() > 30 && qAbs(letters.center().x() - width / 2) < 6;
}
} // namespace

/// What a plot looks like, pixel by pixel.
class tst_Chart : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void linesAreTwoPixelsWide();
    void dashesHaveGaps();
    void pointsHaveNoLine();
    void barsReachTheirValue();
    void whatIsBehindIsPaleAndBelowLines();
    void limitsAreDashedAndOtherMarksAreNot();
    void oneThingAloneHasNoKey();
    void everyDayHasALabel();
    void momentsAreLabelledAtFullHours();
    void beginsWithTheWhole();
    void pointerTellsWhatItStandsOn();
};

void tst_Chart::initTestCase()
{
    if (!Chart::canDraw()) {
        QSKIP("built without plots");
    }
}

void tst_Chart::linesAreTwoPixelsWide()
{
    const QImage image = pictureOf(contentOf({lineAt(1, 0)}));
    const QRect line = around(image, colourOfPlot(0));
    QVERIFY2(line.width() > size.width() * 3 / 4, qPrintable(QString::number(line.width())));
    const double width = inkOfColumn(image, colourOfPlot(0), line.center().x());
    QVERIFY2(qAbs(width - 2) < 0.3, qPrintable(QString::number(width)));
}

void tst_Chart::dashesHaveGaps()
{
    const auto gaps = [](PlotLine::Style style) {
        const QImage image = pictureOf(contentOf({lineAt(1, 0, style)}));
        const QRect line = around(image, colourOfPlot(0));
        int empty = 0;
        for (int x = line.left() + 10; x <= line.right() - 10; ++x) { // without the marks at its ends
            empty += inkOfColumn(image, colourOfPlot(0), x) < 1 ? 1 : 0;
        }
        return empty;
    };
    QCOMPARE(gaps(PlotLine::Style::Solid), 0);
    const int dashed = gaps(PlotLine::Style::Dashed);
    QVERIFY2(dashed > 50 && dashed < size.width() / 2, qPrintable(QString::number(dashed)));
}

void tst_Chart::pointsHaveNoLine()
{
    const auto heightOf = [](const QImage &image) {
        return around(image.copy(0, 0, size.width() / 2, size.height()), colourOfPlot(0)).height();
    };
    const QImage image = pictureOf(contentOf({lineAt(1, 0, PlotLine::Style::Points)}));
    const QRect both = around(image, colourOfPlot(0));
    QCOMPARE(inkOfColumn(image, colourOfPlot(0), both.center().x()), 0.0);
    // They are larger than those that a line goes through.
    QVERIFY(heightOf(image) > heightOf(pictureOf(contentOf({lineAt(1, 0)}))));
}

void tst_Chart::barsReachTheirValue()
{
    const QImage image = pictureOf(contentOf({lineAt(2, 0)}, {barTo(1, 1)}));
    const QRect bar = around(image, colourOfPlot(1), belowKey);
    const QRect line = around(image, colourOfPlot(0), belowKey);
    // The scale begins at 0: the line is twice as high.
    const int bottom = bar.bottom();
    const double share = static_cast<double>(bottom - bar.top()) / (bottom - line.center().y());
    QVERIFY2(qAbs(share - 0.5) < 0.02, qPrintable(QString::number(share)));
    const double width = static_cast<double>(bar.width()) / line.width();
    QVERIFY2(qAbs(width - 0.2) < 0.03, qPrintable(QString::number(width)));
}

void tst_Chart::whatIsBehindIsPaleAndBelowLines()
{
    PlotBars behind = barTo(7, 1);
    behind.isBehind = true;
    PlotContent content = contentOf({lineAt(0.3, 0)}, {behind});
    content.behindTitle = QStringLiteral("Runs");
    const QImage image = pictureOf(content);
    QVERIFY(around(image, colourOfPlot(1)).isEmpty());
    const QRect pale = around(image, QColor(paleColour), belowKey);
    const QRect line = around(image, colourOfPlot(0), belowKey);
    QVERIFY(pale.left() > line.left() && pale.right() < line.right());
    QVERIFY(pale.top() > line.bottom());
    // The line is in front of higher ones, which fill at most two fifths of the height.
    const double height = static_cast<double>(pale.height()) / (pale.bottom() - belowKey);
    QVERIFY2(height > 0.35 && height < 0.45, qPrintable(QString::number(height)));
}

void tst_Chart::limitsAreDashedAndOtherMarksAreNot()
{
    const auto shareOfMark = [](bool isLimit, const QColor &colour) {
        PlotContent content = contentOf({lineAt(1, 0)});
        const QRect line = around(pictureOf(content), colourOfPlot(0));
        content.marks = {{5, QString(), isLimit}};
        const QImage image = pictureOf(content);
        int rows = 0;
        int painted = 0;
        for (int y = line.bottom() + 5; y < size.height() - scaleHeight; ++y) {
            double most = 0;
            for (int x = line.center().x() - 3; x <= line.center().x() + 3; ++x) {
                most = std::max(most, ink(image.pixel(x, y), colour));
            }
            ++rows;
            painted += most > 0.5 ? 1 : 0;
        }
        return static_cast<double>(painted) / rows;
    };
    QCOMPARE(shareOfMark(false, Qt::black), 1.0);
    const double dashed = shareOfMark(true, QColor(limitColour));
    QVERIFY2(dashed > 0.4 && dashed < 0.9, qPrintable(QString::number(dashed)));
}

void tst_Chart::oneThingAloneHasNoKey()
{
    const auto top = [](const PlotContent &content) { return around(pictureOf(content), colourOfPlot(0)).top(); };
    PlotContent content = contentOf({lineAt(0.5, 0)});
    content.isShare = true;
    QVERIFY(top(content) > size.height() / 3); // in the middle
    content.lines.append(lineAt(0.25, 1));
    QVERIFY(top(content) < 40); // in the key above
}

void tst_Chart::everyDayHasALabel()
{
    PlotContent content = contentOf({lineAt(1, 0)});
    content.scale = PlotContent::Scale::Days;
    constexpr double first = 2461365; // 2026-11-20
    content.lines[0].points = {{first, 1, {}}, {first + 1, 1, {}}, {first + 2, 1, {}}};
    const QImage image = windowOf(content);
    const QRect line = around(image, colourOfPlot(0));
    for (const int at : {line.left(), line.center().x(), line.right()}) {
        QVERIFY2(isLabelled(image, at, 60), qPrintable(QString::number(at)));
    }
}

void tst_Chart::momentsAreLabelledAtFullHours()
{
    PlotContent content = contentOf({lineAt(1, 0)});
    content.scale = PlotContent::Scale::Moments;
    constexpr double first = 1795251600000; // 2026-11-21 09:00
    constexpr double fourHours = 4 * 3600e3;
    content.lines[0].points = {{first, 1, {}}, {first + fourHours, 1, {}}};
    const QImage image = windowOf(content);
    const QRect line = around(image, colourOfPlot(0));
    for (int hour = 0; hour < 4; ++hour) {
        const int at = line.left() + line.width() * hour / 4;
        QVERIFY2(isLabelled(image, at, 96), qPrintable(QString::number(hour)));
    }
}

void tst_Chart::beginsWithTheWhole()
{
    // Nothing has been shown before, whatever the plot's title.
    Chart chart;
    const PlotContent content = contentOf({lineAt(1, 0)});
    chart.show(content);
    QCOMPARE(chart.range().first, -0.3);
    QCOMPARE(chart.range().second, 10.3);
    chart.zoom(2);
    chart.show(content);
    QCOMPARE(chart.range().first, 2.35);
    QCOMPARE(chart.range().second, 7.65);
}

void tst_Chart::pointerTellsWhatItStandsOn()
{
    Chart chart;
    chart.resize(size);
    PlotContent content = contentOf({}, {barTo(1, 0)});
    content.bars[0].bars = {{0, 10, 1, QStringLiteral("1 < 2"), {}}};
    chart.show(content);
    chart.setVisible(true);
    QVERIFY(QTest::qWaitForWindowExposed(&chart));
    const QPoint middle(size.width() / 2, size.height() / 2);
    QWidget *canvas = chart.childAt(middle);
    QVERIFY(canvas);
    QMouseEvent move(QEvent::MouseMove, canvas->mapFrom(&chart, middle), chart.mapToGlobal(middle), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(canvas, &move);
    QCOMPARE(QToolTip::text(), QStringLiteral("<p style='white-space:pre-wrap'>1 &lt; 2</p>"));
}

QTEST_MAIN(tst_Chart)
#include "tst_Chart.moc"
