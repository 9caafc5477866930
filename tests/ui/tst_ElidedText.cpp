#include "ui/widgets/ElidedText.h"

#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>

namespace {
const QString longText = QStringLiteral("Path:/home/operator/a folder with a long name/另一个文件夹/last");

QImage paint(QLabel &label, int width, int height = 30)
{
    label.setTextFormat(Qt::PlainText);
    label.setStyleSheet(QStringLiteral("background-color: rgb(250, 250, 250); color: rgb(0, 0, 120);"));
    label.resize(width, height);
    return label.grab().toImage();
}

void askForToolTip(QLabel &label)
{
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), label.mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(&label, &help);
}
} // namespace

class tst_ElidedText : public QObject
{
    Q_OBJECT

private slots:
    void narrowLabelShowsTheShortenedText_data();
    void narrowLabelShowsTheShortenedText();
    void linesThatDoNotFitAreCut();
    void wideLabelIsPaintedAsAlways();
    void toolTipHoldsTheFullTextToTheLetter();
    void textThatFitsHasNoToolTip();
};

void tst_ElidedText::narrowLabelShowsTheShortenedText_data()
{
    QTest::addColumn<Qt::TextElideMode>("mode");

    QTest::newRow("at the end") << Qt::ElideRight;
    QTest::newRow("in the middle") << Qt::ElideMiddle;
}

void tst_ElidedText::narrowLabelShowsTheShortenedText()
{
    QFETCH(const Qt::TextElideMode, mode);
    QLabel plain;
    paint(plain, 150); // the style sheet decides about the font
    plain.setText(plain.fontMetrics().elidedText(longText, mode, 150));
    QVERIFY(plain.text().contains(QChar(0x2026)));

    QLabel elided(longText);
    new ElidedText(&elided, mode);
    QCOMPARE(paint(elided, 150), paint(plain, 150));
    QCOMPARE(elided.text(), longText);
}

void tst_ElidedText::linesThatDoNotFitAreCut()
{
    const QString words = QString(QStringLiteral("word ")).repeated(50);
    const auto painted = [](const QString &text, bool elides) {
        QLabel label(text);
        label.setWordWrap(true);
        if (elides) {
            new ElidedText(&label, Qt::ElideRight);
        }
        return paint(label, 150, 3 * label.fontMetrics().lineSpacing() + 2);
    };
    const QImage picture = painted(words, true);
    int shown = 0;
    for (int length = 1; length < words.size(); ++length) {
        if (picture == painted(words.left(length) + QChar(0x2026), false)) {
            shown = length;
        }
    }
    QVERIFY2(shown > 20, qPrintable(QString::number(shown))); // a line takes less than that
    QCOMPARE(painted(words.left(shown - 5), true), painted(words.left(shown - 5), false));
}

void tst_ElidedText::wideLabelIsPaintedAsAlways()
{
    QLabel plain(longText);
    QLabel elided(longText);
    new ElidedText(&elided, Qt::ElideRight);
    QCOMPARE(paint(elided, 1000), paint(plain, 1000));
}

void tst_ElidedText::toolTipHoldsTheFullTextToTheLetter()
{
    const QString text = QStringLiteral("Wifi: <b>x</b> & a name that is longer than its label ");
    QLabel label(text);
    new ElidedText(&label, Qt::ElideRight);
    paint(label, 60);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    askForToolTip(label);
    QCOMPARE(QToolTip::text(), QStringLiteral("<p style='white-space:pre'>Wifi: &lt;b&gt;x&lt;/b&gt; &amp; a name that "
                                              "is longer than its label </p>"));
    QToolTip::hideText();
}

void tst_ElidedText::textThatFitsHasNoToolTip()
{
    QLabel label(QStringLiteral("short"));
    new ElidedText(&label, Qt::ElideRight);
    paint(label, 200);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    askForToolTip(label);
    QVERIFY(!QToolTip::isVisible());
}

QTEST_MAIN(tst_ElidedText)
#include "tst_ElidedText.moc"
