#include "plan/SerialPattern.h"

#include <QElapsedTimer>
#include <QTest>

/// What a serial number has to look like.
class tst_SerialPattern : public QObject
{
    Q_OBJECT

private slots:
    void matches_data();
    void matches();
    void tellsAWrongPattern_data();
    void tellsAWrongPattern();
    void givesUpAnEndlessMatch();
};

void tst_SerialPattern::matches_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("serial");
    QTest::addColumn<bool>("matches");
    const QString number = QStringLiteral("KC\\d{7}");
    QTest::newRow("as it has to be") << number << "KC0012345" << true;
    QTest::newRow("a digit less") << number << "KC001234" << false;
    QTest::newRow("a digit more") << number << "KC00123456" << false;
    QTest::newRow("something before it") << number << "xKC0012345" << false;
    QTest::newRow("a line break behind it") << number << "KC0012345\n" << false;
    QTest::newRow("in lower case") << number << "kc0012345" << false;
    QTest::newRow("an alternative is anchored too") << "A\\d|B\\d"
                                                    << "B1x" << false;
    QTest::newRow("the longer alternative") << "A|AB"
                                            << "AB" << true;
    QTest::newRow("beyond ASCII") << "序列\\d+"
                                  << "序列12" << true;
    QTest::newRow("empty, though the pattern allows it") << ".*"
                                                         << "" << false;
    QTest::newRow("no pattern") << ""
                                << "anything at all" << true;
    QTest::newRow("no pattern, and empty") << ""
                                           << "" << false;
    QTest::newRow("half of a surrogate pair") << ".*" << QString(QChar(0xD83C)) << false;
}

void tst_SerialPattern::matches()
{
    QFETCH(QString, pattern);
    QFETCH(QString, serial);
    const SerialPattern serialPattern(pattern);
    QCOMPARE(serialPattern.error(), QString());
    QTEST(serialPattern.matches(serial), "matches");
}

void tst_SerialPattern::tellsAWrongPattern_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::newRow("an open bracket") << "KC[0-9";
    QTest::newRow("an open group") << "(KC";
    QTest::newRow("nothing to repeat") << "*";
    QTest::newRow("groups that only the anchors close") << "a)|(b";
    QTest::newRow("a range that runs backwards") << "[9-0]";
}

void tst_SerialPattern::tellsAWrongPattern()
{
    QFETCH(QString, pattern);
    const SerialPattern serialPattern(pattern);
    QVERIFY(!serialPattern.error().isEmpty());
    QVERIFY(!serialPattern.matches(QStringLiteral("a")));
    QVERIFY(!serialPattern.matches(QStringLiteral("b")));
}

void tst_SerialPattern::givesUpAnEndlessMatch()
{
    const SerialPattern serialPattern(QStringLiteral("(a+)+b"));
    QCOMPARE(serialPattern.error(), QString());
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!serialPattern.matches(QString(5000, QLatin1Char('a'))));
    QVERIFY(clock.elapsed() < 2000);
    QVERIFY(serialPattern.matches(QStringLiteral("aaab")));
}

QTEST_GUILESS_MAIN(tst_SerialPattern)
#include "tst_SerialPattern.moc"
