#include "exampleRecord.h"
#include "exchange/quickRecord.h"
#include "hostileTexts.h"
#include "noJson.h"
#include "record/recordJson.h"

#include <QTest>

/// What is read quickly is what is read otherwise.
class tst_quickRecord : public QObject
{
    Q_OBJECT

private slots:
    void keepsHostileTexts_data();
    void keepsHostileTexts();
    void readsTheSame_data();
    void readsTheSame();
    void readsTheLastOfTwoLists();
    void readsWhatIsNotQuiteJson();
    void refusesWhatIsNoJson_data();
    void refusesWhatIsNoJson();
};

void tst_quickRecord::keepsHostileTexts_data()
{
    addHostileTexts();
}

void tst_quickRecord::keepsHostileTexts()
{
    QFETCH(const QString, text);
    QFETCH(const QString, json);
    for (const auto layout : {JsonLayout::Indented, JsonLayout::Line}) {
        QString error;
        const std::optional<RunRecord> read = quickRecord(toJson(recordWithText(text), layout), &error);
        QCOMPARE(error, QString());
        QVERIFY(read == recordWithText(json));
    }
}

void tst_quickRecord::readsTheSame_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("changed");
    QTest::addColumn<QString>("serial");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *title, const char *old, const char *changed, const QString &read,
                        const char *error = "") {
        QTest::newRow(title) << QByteArray(old) << QByteArray(changed) << read << error;
    };
    row("a key twice", R"("serial")", R"("serial":"first","serial")", QStringLiteral("@"));
    row("a key in escapes", R"("serial")", R"("s\u0065rial")", QStringLiteral("@"));
    row("every short escape", "@", R"(\"\\\/\b\f\n\r\t)", QStringLiteral("\"\\/\b\f\n\r\t"));
    row("an escape in small letters", "@", R"(\uabcd)", QString(QChar(0xABCD)));
    row("an escaped byte order mark", "@", R"(\ufeffa)", QStringLiteral(u"\uFEFFa"));
    row("a byte order mark within", "@", "a\xEF\xBB\xBF", QStringLiteral(u"a\uFEFF"));
    row("blanks everywhere", R"("serial":)", "\t \"serial\" \r\n : ", QStringLiteral("@"));
    row("a whole number as a fraction", R"("schema":1)", R"("schema":1.0)", QStringLiteral("@"));
    row("a whole number with exponent", R"("schema":1)", R"("schema":10e-1)", QStringLiteral("@"));
    row("a number beyond 64 bits", R"("schema":1)", R"("schema":18446744073709551617)", {}, "schema cannot be read");
    row("a number that is minus nought", R"("schema":1)", R"("schema":-0)", {}, "schema 0 is not known");
    row("a text that is a list", R"("@")", R"(["@"])", {}, "serial cannot be read");
    row("a list that is null", R"("plan":[)", R"("plan":null,"other":[)", {}, "plan cannot be read");
    row("no id", R"("id":)", R"("ID":)", {}, "id is missing");
    row("no such outcome", R"("outcome":"failed")", R"("outcome":"lost")", {}, "outcome cannot be read");
    row("a size that is none", R"("size":)", R"("size":"1","was":)", {},
        "components[2].items[0].files[0].size cannot be read");
    row("half a number", R"("number":0)", R"("number":0.5)", {}, "components[0].items[0].number cannot be read");
    row("a value that is neither", R"("value":"1.2.3")", R"("value":true)", {},
        "components[2].items[0].measurements[0].value cannot be read");
}

void tst_quickRecord::readsTheSame()
{
    QFETCH(const QByteArray, old);
    QFETCH(const QByteArray, changed);
    QFETCH(const QString, serial);
    RunRecord run = exampleRecord();
    run.serial = QStringLiteral("@");
    const QByteArray json = toJson(run, JsonLayout::Line).replace(old, changed);
    QVERIFY(json.contains(changed));
    run.serial = serial;
    for (const auto read : {quickRecord, fromJson}) {
        QString error;
        const std::optional<RunRecord> record = read(json, &error);
        QTEST(error, "error");
        QVERIFY(!record || *record == run);
    }
}

void tst_quickRecord::readsTheLastOfTwoLists()
{
    // Qt does so, too, but never frees the first one.
    QByteArray json = toJson(exampleRecord(), JsonLayout::Line);
    json.replace(R"("serial")", R"("components":[{"id":7}],"serial")");
    QString error;
    QVERIFY(!quickRecord(json, &error));
    QCOMPARE(error, QStringLiteral("components[0].key is missing"));
}

void tst_quickRecord::readsWhatIsNotQuiteJson()
{
    RunRecord run = exampleRecord();
    run.serial = QStringLiteral("@");
    QString error;
    const std::optional<RunRecord> read = quickRecord(toJson(run).replace("@", R"(\ud83dx)"), &error);
    QVERIFY2(read.has_value(), qPrintable(error));
    QCOMPARE(read->serial, QString(QChar(QChar::ReplacementCharacter)) + QLatin1Char('x'));
}

void tst_quickRecord::refusesWhatIsNoJson_data()
{
    addTextsThatAreNoJson();
    QTest::newRow("a number") << QByteArray("7") << "not a JSON object";
}

void tst_quickRecord::refusesWhatIsNoJson()
{
    QFETCH(const QByteArray, json);
    QString error;
    QVERIFY(!quickRecord(json, &error));
    QTEST(error, "error");
}

QTEST_GUILESS_MAIN(tst_quickRecord)
#include "tst_quickRecord.moc"
