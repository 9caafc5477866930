#include "ui/widgets/RingsProgressbar.h"

#include <cmath>
#include <limits>
#include <QImage>
#include <QPainter>
#include <QTest>

namespace {
const QColor track(210, 247, 255);
const QColor fill(0, 170, 255);
const QColor hollow(240, 200, 160);

QImage paint(QWidget &widget, const QSize &size)
{
    QPalette palette;
    palette.setColor(QPalette::Window, hollow);
    widget.setPalette(palette);
    widget.resize(size);
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The colour in the middle of a 200 pixel ring's band, `clockwise` degrees from twelve o'clock.
QColor bandColor(const QImage &image, int clockwise)
{
    const double radians = clockwise * 3.14159265358979 / 180;
    return image.pixelColor(qRound(100 + 90 * std::sin(radians)), qRound(100 - 90 * std::cos(radians)));
}

/// Only the text in the middle of a 200 pixel ring. A widget, because a font in points is of another size in an image.
class TextWidget : public QWidget
{
public:
    explicit TextWidget(const QString &text) : m_text(text) {}

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QFont font(QStringLiteral("Microsoft YaHei"), 15);
        font.setWeight(QFont::Bold);
        painter.setFont(font);
        painter.setPen(QColor(QStringLiteral("#555555")));
        painter.drawText(QRectF(20, 20, 160, 160), Qt::AlignCenter, m_text);
    }

private:
    QString m_text;
};

class PaintCounter : public QObject
{
public:
    int paints = 0;

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++paints;
        }
        return false;
    }
};
} // namespace

class tst_RingsProgressbar : public QObject
{
    Q_OBJECT

private slots:
    void band_data();
    void band();
    void middle_data();
    void middle();
    void widerThanTallRingStandsAtTheLeft();
    void tallerThanWideRingStandsAtTheTop();
    void newValueRepaints();
    void sameValueDoesNotRepaint();
};

void tst_RingsProgressbar::band_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<QList<int>>("filled"); // degrees clockwise from twelve o'clock
    QTest::addColumn<QList<int>>("empty");

    const QList<int> allRound{1, 45, 90, 135, 180, 225, 270, 315, 359};
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    QTest::newRow("0: only the track") << 0 << QList<int>{} << allRound;
    QTest::newRow("45: grows clockwise from twelve o'clock")
        << 45 << QList<int>{2, 90, 160} << QList<int>{164, 180, 270, 358};
    QTest::newRow("33: the sweep is cut to whole degrees, 118") << 33 << QList<int>{2, 116} << QList<int>{121, 358};
    QTest::newRow("100: full circle") << 100 << allRound << QList<int>{};
    QTest::newRow("above 100: drawn as given, over the full circle") << 150 << allRound << QList<int>{};
    QTest::newRow("below 0: grows counter-clockwise")
        << -25 << QList<int>{358, 315, 272} << QList<int>{2, 90, 180, 268};
    QTest::newRow("largest number") << most << allRound << QList<int>{};
    QTest::newRow("smallest number") << least << allRound << QList<int>{};
}

void tst_RingsProgressbar::band()
{
    QFETCH(const int, percent);
    QFETCH(const QList<int>, filled);
    QFETCH(const QList<int>, empty);
    RingsProgressbar ring;
    ring.setPersent(percent);
    const QImage image = paint(ring, QSize(200, 200));
    for (const int degrees : filled) {
        QVERIFY2(bandColor(image, degrees) == fill, qPrintable(QString::number(degrees)));
    }
    for (const int degrees : empty) {
        QVERIFY2(bandColor(image, degrees) == track, qPrintable(QString::number(degrees)));
    }
    QCOMPARE(image.pixelColor(100, 24), hollow); // the band is 20 pixels wide
    QCOMPARE(image.pixelColor(100, 176), hollow);
    QCOMPARE(image.pixelColor(3, 3), hollow);
}

void tst_RingsProgressbar::middle_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("percent");
    QTest::addColumn<QString>("text");

    QTest::newRow("no caption, first value") << QString() << 0 << QStringLiteral("0%");
    QTest::newRow("total") << QStringLiteral("Total:") << 45 << QStringLiteral("Total:45%");
    QTest::newRow("current, complete") << QStringLiteral("Current:") << 100 << QStringLiteral("Current:100%");
    QTest::newRow("above 100") << QStringLiteral("Total:") << 250 << QStringLiteral("Total:250%");
    QTest::newRow("below 0") << QStringLiteral("Total:") << -5 << QStringLiteral("Total:-5%");
    QTest::newRow("caption with a place marker") << QStringLiteral("%2:") << 7 << QStringLiteral("%2:7%");
}

void tst_RingsProgressbar::middle()
{
    QFETCH(const QString, caption);
    QFETCH(const int, percent);
    QFETCH(const QString, text);
    RingsProgressbar ring(nullptr, caption);
    ring.setPersent(percent);
    QCOMPARE(ring.text(), text);

    TextWidget expected(text);
    const QRect insideTheHollow(25, 85, 150, 30);
    const QImage shown = paint(ring, QSize(200, 200)).copy(insideTheHollow);
    QCOMPARE(shown, paint(expected, QSize(200, 200)).copy(insideTheHollow));
    QImage blank(insideTheHollow.size(), QImage::Format_RGB32);
    blank.fill(hollow);
    QVERIFY(shown != blank);
}

void tst_RingsProgressbar::widerThanTallRingStandsAtTheLeft()
{
    RingsProgressbar ring;
    const QImage image = paint(ring, QSize(400, 200));
    QCOMPARE(image.pixelColor(10, 100), track);
    QCOMPARE(image.pixelColor(190, 100), track);
    QCOMPARE(image.pixelColor(205, 100), hollow);
    QCOMPARE(image.pixelColor(390, 100), hollow);
}

void tst_RingsProgressbar::tallerThanWideRingStandsAtTheTop()
{
    RingsProgressbar ring;
    const QImage image = paint(ring, QSize(200, 400));
    QCOMPARE(image.pixelColor(100, 10), track);
    QCOMPARE(image.pixelColor(100, 190), track);
    QCOMPARE(image.pixelColor(100, 205), hollow);
    QCOMPARE(image.pixelColor(100, 390), hollow);
}

void tst_RingsProgressbar::newValueRepaints()
{
    RingsProgressbar ring;
    PaintCounter counter;
    ring.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ring));
    QCoreApplication::processEvents();
    ring.installEventFilter(&counter);
    ring.setPersent(30);
    QTRY_COMPARE(counter.paints, 1);
}

void tst_RingsProgressbar::sameValueDoesNotRepaint()
{
    RingsProgressbar ring;
    PaintCounter counter;
    ring.setPersent(30);
    ring.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ring));
    QCoreApplication::processEvents();
    ring.installEventFilter(&counter);
    ring.setPersent(30);
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
    ring.setPersent(31); // the only one that may be painted
    QTRY_COMPARE(counter.paints, 1);
}

QTEST_MAIN(tst_RingsProgressbar)
#include "tst_RingsProgressbar.moc"
