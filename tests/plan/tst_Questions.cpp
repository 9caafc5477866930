#include "plan/Questions.h"

#include <QTest>

Q_DECLARE_METATYPE(Question)

namespace {
const QString file = QStringLiteral("option.ini");

Questions read(const QString &key, const QString &value)
{
    return readQuestions({{QStringLiteral("batch"), QStringLiteral("B7")}, {key, value}}, file);
}
} // namespace

/// What Start asks for, from the settings.
class tst_Questions : public QObject
{
    Q_OBJECT

private slots:
    void asks_data();
    void asks();
    void refuses_data();
    void refuses();
    void serialPattern();
    void wrongPatternAsksNothing();
};

void tst_Questions::asks_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QList<Question>>("asked");
    QTest::newRow("all three") << "serial,operator,batch"
                               << QList<Question>{Question::Serial, Question::Operator, Question::Batch};
    QTest::newRow("in another order") << "batch,serial" << QList<Question>{Question::Batch, Question::Serial};
    QTest::newRow("one, with blanks") << " operator " << QList<Question>{Question::Operator};
    QTest::newRow("nothing") << "" << QList<Question>{};
    QTest::newRow("blanks alone") << "  " << QList<Question>{};
}

void tst_Questions::asks()
{
    QFETCH(const QString, value);
    const Questions questions = read(QStringLiteral("ask"), value);
    QTEST(questions.asked, "asked");
    QCOMPARE(questions.errors, QStringList());
}

void tst_Questions::refuses_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("reason");
    QTest::newRow("an unknown word") << "serial,colour"
                                     << "\"colour\" cannot be asked for; known are serial, operator, batch";
    QTest::newRow("other letters") << "Serial"
                                   << "\"Serial\" cannot be asked for; known are serial, operator, batch";
    QTest::newRow("a word twice") << "serial,batch,serial"
                                  << "\"serial\" stands there twice";
    QTest::newRow("a comma too many") << "serial,"
                                      << "\"\" cannot be asked for; known are serial, operator, batch";
}

void tst_Questions::refuses()
{
    QFETCH(const QString, value);
    QFETCH(const QString, reason);
    const Questions questions = read(QStringLiteral("ask"), value);
    QVERIFY(questions.asked.isEmpty());
    QCOMPARE(questions.errors, QStringList{QStringLiteral("option.ini: Station/ask=\"%1\": %2").arg(value, reason)});
}

void tst_Questions::serialPattern()
{
    const Questions questions = read(QStringLiteral("serialPattern"), QStringLiteral("KC\\d{1,3}"));
    QCOMPARE(questions.errors, QStringList());
    QVERIFY(questions.serialPattern.matches(QStringLiteral("KC12")));
    QVERIFY(!questions.serialPattern.matches(QStringLiteral("KC")));
    QVERIFY(readQuestions({}, file).serialPattern.matches(QStringLiteral("anything")));
}

void tst_Questions::wrongPatternAsksNothing()
{
    const Questions questions = readQuestions(
        {{QStringLiteral("ask"), QStringLiteral("serial")}, {QStringLiteral("serialPattern"), QStringLiteral("KC[")}},
        file);
    QVERIFY(questions.asked.isEmpty());
    QCOMPARE(questions.errors.size(), 1);
    QVERIFY2(questions.errors.constFirst().startsWith(QStringLiteral("option.ini: Station/serialPattern=\"KC[\": ")),
             qPrintable(questions.errors.constFirst()));
}

QTEST_APPLESS_MAIN(tst_Questions)
#include "tst_Questions.moc"
