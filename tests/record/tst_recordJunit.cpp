#include "exampleRecord.h"
#include "hostileTexts.h"
#include "outsideProgram.h"
#include "record/recordJunit.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
const QStringList schemas = {QStringLiteral(KEST_PROJECT "/tests/record/schemas/JUnit.xsd"),
                             QStringLiteral(KEST_PROJECT "/tests/record/schemas/jenkins-junit.xsd")};

QString between(const QString &text, const QString &begin, const QString &end)
{
    const int from = text.indexOf(begin);
    return from < 0 ? QString() : text.mid(from, text.indexOf(end, from) + end.size() - from);
}
} // namespace

/// A run's record as a JUnit report, held against the schemas in common use.
class tst_recordJunit : public QObject
{
    Q_OBJECT

private slots:
    void rendersARun();
    void countsFaults_data();
    void countsFaults();
    void keepsHostileTexts_data();
    void keepsHostileTexts();
    void isAcceptedByTheSchemas_data();
    void isAcceptedByTheSchemas();
    void schemasRefuseOtherThings();

private:
    QString written(const QByteArray &xml);
    static ProgramEnd validated(const QString &schema, const QString &file);

    QTemporaryDir m_folder;
};

QString tst_recordJunit::written(const QByteArray &xml)
{
    const QString path = m_folder.filePath(QStringLiteral("record.xml"));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(xml) == xml.size() ? path : QString();
}

ProgramEnd tst_recordJunit::validated(const QString &schema, const QString &file)
{
    return runOutside(QStringLiteral("xmllint"),
                      {QStringLiteral("--nonet"), QStringLiteral("--noout"), QStringLiteral("--schema"), schema, file});
}

void tst_recordJunit::rendersARun()
{
    QFile file(QStringLiteral(KEST_PROJECT "/tests/record/example.junit.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString expected = QString::fromUtf8(file.readAll());
    const QString xml = QString::fromUtf8(toJunit(exampleRecord()));
    const QStringList lines = xml.split(QLatin1Char('\n'));
    const QStringList expectedLines = expected.split(QLatin1Char('\n'));
    for (int i = 0; i < qMin(lines.size(), expectedLines.size()); ++i) {
        QCOMPARE(lines.at(i), expectedLines.at(i));
    }
    QCOMPARE(xml, expected);
}

void tst_recordJunit::countsFaults_data()
{
    QTest::addColumn<RunRecord>("run");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<QString>("info");
    QTest::addColumn<QString>("counts");
    const QString passed = QStringLiteral("<testcase name=\"battery.info\" classname=\"battery\" time=\"0.001204\"/>");
    const auto row = [](const char *title, const RunRecord &run, const QString &outcome, const QString &info,
                        const QString &counts) { QTest::newRow(title) << run << outcome << info << counts; };
    const auto verdicts = [](Verdict item, Verdict component, Outcome outcome, const QString &reason) {
        RunRecord run = exampleRecord();
        run.components[1].verdict = component;
        run.components[1].items[1].verdict = item;
        run.outcome = outcome;
        run.reason = reason;
        return run;
    };
    row("all passed", verdicts(Verdict::Passed, Verdict::Passed, Outcome::Passed, {}), {}, passed,
        QStringLiteral("tests=\"2\" failures=\"0\" errors=\"0\""));
    row("a warning that its component passes over", verdicts(Verdict::Warning, Verdict::Warning, Outcome::Passed, {}),
        {}, passed, QStringLiteral("tests=\"2\" failures=\"0\" errors=\"0\""));
    row("a warning that fails its component",
        verdicts(Verdict::Warning, Verdict::Failed, Outcome::Failed, QStringLiteral("battery.info")),
        QStringLiteral("<failure type=\"failed\" message=\"battery.info\">"),
        QStringLiteral("<failure type=\"warning\" message=\"获取电池信息成功\">"),
        QStringLiteral("tests=\"2\" failures=\"1\" errors=\"0\""));
    row("an item that was not tested is no case", verdicts(Verdict::NotTested, Verdict::Passed, Outcome::Passed, {}),
        {}, QStringLiteral("[battery.info] notTested\n"), QStringLiteral("tests=\"1\" failures=\"0\" errors=\"0\""));
    row("stopped", verdicts(Verdict::Passed, Verdict::NotTested, Outcome::Stopped, QStringLiteral("by the operator")),
        QStringLiteral("<error type=\"stopped\" message=\"by the operator\">by the operator</error>"), passed,
        QStringLiteral("tests=\"2\" failures=\"0\" errors=\"0\""));
    row("the camera was lost", verdicts(Verdict::Passed, Verdict::Passed, Outcome::Error, QStringLiteral("link lost")),
        QStringLiteral("<error type=\"error\" message=\"link lost\">link lost</error>"), passed,
        QStringLiteral("tests=\"2\" failures=\"0\" errors=\"0\""));
}

void tst_recordJunit::countsFaults()
{
    QFETCH(RunRecord, run);
    QFETCH(QString, outcome);
    QFETCH(QString, info);
    QFETCH(QString, counts);
    const QByteArray xml = toJunit(run);
    const QString text = QString::fromUtf8(xml);
    const QString end = QStringLiteral("</testsuite>");
    const QString runSuite = between(text, QStringLiteral("<testsuite name=\"run\""), end);
    QVERIFY2(outcome.isEmpty() ? runSuite.contains(QStringLiteral("failures=\"0\" errors=\"0\""))
                               : runSuite.contains(outcome),
             qPrintable(runSuite));
    const QString battery = between(text, QStringLiteral("<testsuite name=\"battery\""), end);
    QVERIFY2(battery.contains(info), qPrintable(battery));
    QVERIFY2(battery.contains(counts), qPrintable(battery));
    for (const QString &schema : schemas) {
        const ProgramEnd valid = validated(schema, written(xml));
        QVERIFY2(valid.exitCode == 0, qPrintable(valid.output));
    }
}

void tst_recordJunit::keepsHostileTexts_data()
{
    addHostileTexts();
}

void tst_recordJunit::keepsHostileTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, xml);
    const QString file = written(toJunit(recordWithText(text)));
    const ProgramEnd python = runOutside(QStringLiteral("/usr/bin/python3"),
                                         {QStringLiteral(KEST_PROJECT "/tests/record/readTexts.py"), file});
    const auto hex = [](const QString &characters) {
        return QString::fromLatin1(characters.toUtf8().toHex()) + QLatin1Char('\n');
    };
    QCOMPARE(python.output, hex(xml) + hex(xml + QLatin1Char('\n') + xml));
    for (const QString &schema : schemas) {
        const ProgramEnd valid = validated(schema, file);
        QVERIFY2(valid.exitCode == 0, qPrintable(valid.output));
    }
}

void tst_recordJunit::isAcceptedByTheSchemas_data()
{
    QTest::addColumn<RunRecord>("run");
    QTest::newRow("the example") << exampleRecord();
    RunRecord run = exampleRecord();
    run.components.clear();
    run.outcome = Outcome::Stopped;
    run.station = {};
    run.camera = {};
    QTest::newRow("stopped before anything ran, on a station without a name") << run;
    run = exampleRecord();
    run.station.name = QStringLiteral(" \t ");
    run.components[1].items.clear();
    QTest::newRow("a blank name, and a component without items") << run;
    run = exampleRecord();
    run.station.name = QStringLiteral(" hall  3 ");
    run.duration = std::chrono::microseconds(1);
    QTest::newRow("blanks around and in the name, next to no time") << run;
}

void tst_recordJunit::isAcceptedByTheSchemas()
{
    QFETCH(RunRecord, run);
    for (const QString &schema : schemas) {
        const ProgramEnd valid = validated(schema, written(toJunit(run)));
        QVERIFY2(valid.exitCode == 0, qPrintable(valid.output));
    }
}

void tst_recordJunit::schemasRefuseOtherThings()
{
    QByteArray xml = toJunit(exampleRecord());
    xml.replace("<testcase name=\"camera.video\"", "<case name=\"camera.video\"");
    for (const QString &schema : schemas) {
        QVERIFY(validated(schema, written(xml)).exitCode > 0);
    }
}

QTEST_GUILESS_MAIN(tst_recordJunit)
#include "tst_recordJunit.moc"
