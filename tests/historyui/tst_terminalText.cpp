#include "historyui/commands/Progress.h"
#include "historyui/commands/terminalText.h"

#include <QTest>

/// Texts of runs on a terminal: they steer nothing, and tables stay straight.
class tst_terminalText : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void widths_data();
    void widths();
    void tables();
    void bars_data();
    void bars();
};

void tst_terminalText::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *title, const QString &text, const QString &shown) {
        QTest::newRow(title) << text << shown;
    };
    row("plain", QStringLiteral("Hall 3"), QStringLiteral("Hall 3"));
    row("Chinese", QStringLiteral("王芳"), QStringLiteral("王芳"));
    row("line breaks and tabs", QStringLiteral("a\nb\tc\n"), QStringLiteral("a b c"));
    row("a sequence that colours", QStringLiteral(u"\u001B[31mred\u0007"), QStringLiteral(u"\uFFFD[31mred\uFFFD"));
    row("a sequence of eight bits", QStringLiteral(u"a\u009B2Jb"), QStringLiteral(u"a\uFFFD2Jb"));
    row("back to the line's begin", QStringLiteral("passed\rfailed"), QStringLiteral(u"passed\uFFFDfailed"));
    row("a turn of direction", QStringLiteral(u"a\u202Eb\u2066c"), QStringLiteral(u"a\uFFFDb\uFFFDc"));
    row("half a pair of surrogates", QStringLiteral("a") + QChar(0xD83C), QStringLiteral(u"a\uFFFD"));
}

void tst_terminalText::texts()
{
    QFETCH(QString, text);
    QTEST(terminalText(text), "shown");
}

void tst_terminalText::widths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("Latin") << QStringLiteral("abc") << 3;
    QTest::newRow("Chinese") << QStringLiteral("相机OK") << 6;
    QTest::newRow("full width") << QStringLiteral(u"\uFF21") << 2;
    QTest::newRow("a letter with its accent behind it") << QStringLiteral(u"e\u0301") << 1;
    QTest::newRow("a picture of two surrogates") << QStringLiteral(u"\U0001F3A5") << 2;
    QTest::newRow("degree sign") << QStringLiteral("°C") << 2;
}

void tst_terminalText::widths()
{
    QFETCH(QString, text);
    QTEST(terminalWidth(text), "width");
}

void tst_terminalText::tables()
{
    QCOMPARE(textTable({{QStringLiteral("NAME"), false}, {QStringLiteral("EMPTY"), false}, {QStringLiteral("N"), true}},
                       {{QStringLiteral("王芳"), {}, QStringLiteral("7")},
                        {QStringLiteral("a"), {}, QStringLiteral("120")},
                        {QStringLiteral("longer\n"), {}, {}}}),
             QStringLiteral("NAME      N\n"
                            "王芳      7\n"
                            "a       120\n"
                            "longer\n"));
}

void tst_terminalText::bars_data()
{
    QTest::addColumn<qint64>("done");
    QTest::addColumn<qint64>("all");
    QTest::addColumn<QString>("bar");
    const auto row = [](const char *title, qint64 done, qint64 all, const char *bar) {
        QTest::newRow(title) << done << all << QString::fromLatin1(bar);
    };
    row("nothing", 0, 10, "import  [                                        ]   0 %");
    row("half", 5, 10, "import  [####################                    ]  50 %");
    row("everything", 10, 10, "import  [########################################] 100 %");
    row("more than everything", 11, 10, "import  [########################################] 100 %");
    row("nobody knows how much", 11, 0, "import  11");
}

void tst_terminalText::bars()
{
    QFETCH(qint64, done);
    QFETCH(qint64, all);
    QTEST(progressBar(QStringLiteral("import"), done, all), "bar");
}

QTEST_APPLESS_MAIN(tst_terminalText)
#include "tst_terminalText.moc"
