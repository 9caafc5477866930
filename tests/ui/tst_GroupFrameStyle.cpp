#include "ui/widgets/GroupFrameStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QStyleFactory>
#include <QTest>
#include <QVBoxLayout>

namespace {
struct GroupWindow
{
    GroupWindow()
    {
        auto *within = new QVBoxLayout(box);
        within->addWidget(new QCheckBox(QStringLiteral("Battery")));
        (new QVBoxLayout(&window))->addWidget(box);
        window.resize(300, 200);
    }

    QImage paint() { return window.grab().toImage(); }

    QWidget window;
    QGroupBox *box = new QGroupBox(QStringLiteral("Event log"), &window);
};

/// The largest difference of a colour of a pixel.
int difference(const QImage &one, const QImage &other)
{
    int largest = one.size() == other.size() ? 0 : 255;
    for (int y = 0; largest < 255 && y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            largest =
                std::max({largest, qAbs(a.red() - b.red()), qAbs(a.green() - b.green()), qAbs(a.blue() - b.blue())});
        }
    }
    return largest;
}

bool hasImagePlugins()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("/imageformats/");
}
} // namespace

class tst_GroupFrameStyle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void drawsWithoutAPicture();
    void looksLikeFusion();
    void looksLikeFusion_data();
    void leavesOtherStylesAlone();
};

void tst_GroupFrameStyle::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
}

void tst_GroupFrameStyle::drawsWithoutAPicture()
{
    if (!QFile::exists(QStringLiteral("/proc/self/maps"))) {
        QSKIP("nothing tells here what is loaded");
    }
    GroupWindow ours;
    GroupFrameStyle::apply(&ours.window);
    ours.paint();
    QVERIFY(!hasImagePlugins());

    GroupWindow fusions;
    fusions.paint();
    QVERIFY2(hasImagePlugins(), "Fusion does without pictures, too: the style has no use any more");
}

void tst_GroupFrameStyle::looksLikeFusion_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<int>("pointSize");

    QTest::newRow("plain") << QString() << 9;
    QTest::newRow("large title") << QString() << 24;
    QTest::newRow("small title") << QString() << 4;
    QTest::newRow("style sheet") << QStringLiteral("QCheckBox:disabled { color: rgb(160, 160, 160); }") << 9;
}

void tst_GroupFrameStyle::looksLikeFusion()
{
    QFETCH(const QString, styleSheet);
    QFETCH(const int, pointSize);
    GroupWindow fusions;
    GroupWindow ours;
    for (GroupWindow *one : {&fusions, &ours}) {
        one->box->setStyleSheet(styleSheet);
        QFont font = one->box->font();
        font.setPointSize(pointSize);
        one->box->setFont(font);
    }
    GroupFrameStyle::apply(&ours.window);
    const QImage wanted = fusions.paint();
    const QImage painted = ours.paint();
    QVERIFY2(difference(wanted, painted) <= 3, qPrintable(QString::number(difference(wanted, painted))));

    GroupWindow without;
    without.box->setStyleSheet(QStringLiteral("QGroupBox { border: none; }"));
    QVERIFY(difference(without.paint(), painted) > 20); // so there is a frame to compare
}

void tst_GroupFrameStyle::leavesOtherStylesAlone()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("windows")));
    GroupWindow ours;
    GroupFrameStyle::apply(&ours.window);
    QCOMPARE(ours.box->style(), QApplication::style());
}

QTEST_MAIN(tst_GroupFrameStyle)
#include "tst_GroupFrameStyle.moc"
