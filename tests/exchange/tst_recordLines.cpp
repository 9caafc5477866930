#include "exampleRecord.h"
#include "exchange/recordLines.h"
#include "record/recordJson.h"

#include <QBuffer>
#include <QTest>

/// A stream of records: what is one is taken, what is none is told with its line, and the rest is read all the same.
class tst_recordLines : public QObject
{
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void refusesALineThatIsTooLong();
    void endsWhenAsked_data();
    void endsWhenAsked();
};

namespace {
struct Reading
{
    QList<RunRecord> runs;
    QStringList refusals;
    qint64 bytes = 0;
};

Reading readAll(QIODevice &device, qint64 longest = longestRecordLine)
{
    Reading reading;
    readRecordLines(device,
                    {[&reading](const RunRecord &run) {
                         reading.runs.append(run);
                         return true;
                     },
                     [&reading](qint64 line, const QString &reason) {
                         reading.refusals.append(QStringLiteral("%1: %2").arg(line).arg(reason));
                     },
                     [&reading](qint64 bytes) {
                         reading.bytes = bytes;
                         return true;
                     }},
                    longest);
    return reading;
}
} // namespace

void tst_recordLines::reads_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("runs");
    QTest::addColumn<QStringList>("refusals");
    const QByteArray line = toJson(exampleRecord(), JsonLayout::Line);
    const auto row = [](const char *title, const QByteArray &content, int runs, const QStringList &refusals = {}) {
        QTest::newRow(title) << content << runs << refusals;
    };
    row("nothing", "", 0);
    row("one", line, 1);
    row("two", line + line, 2);
    row("the last one without its line break", line + line.chopped(1), 2);
    row("empty lines between", "\n" + line + "\r\n  \n" + line, 2);
    row("empty lines at the end", line + "\n  ", 1);
    row("nothing but empty lines", "\n \r\n", 0);
    row("lines that end in CR LF", line.chopped(1) + "\r\n" + line.chopped(1) + "\r\n", 2);
    row("an indented one", toJson(exampleRecord()), 1);
    row("something else between", line + "hello\n" + line, 2, {QStringLiteral("2: not JSON: illegal value at byte 1")});
    row("cut off", line + line.left(100), 1, {QStringLiteral("2: not JSON: unterminated string at byte 101")});
    row("another schema", "{\"schema\":2}\n" + line, 1, {QStringLiteral("1: schema 2 is not known")});
    row("a key is missing", "{\"schema\":1}\n", 0, {QStringLiteral("1: id is missing")});
}

void tst_recordLines::reads()
{
    QFETCH(QByteArray, content);
    QFETCH(int, runs);
    QFETCH(QStringList, refusals);
    QBuffer device(&content);
    QVERIFY(device.open(QIODevice::ReadOnly));
    const Reading reading = readAll(device);
    QCOMPARE(reading.refusals, refusals);
    QCOMPARE(reading.runs.size(), runs);
    for (const RunRecord &run : reading.runs) {
        QVERIFY(run == exampleRecord());
    }
    QCOMPARE(reading.bytes, static_cast<qint64>(content.size()));
}

void tst_recordLines::refusesALineThatIsTooLong()
{
    constexpr qint64 longest = qint64{1024} * 1024;
    const QByteArray line = toJson(exampleRecord(), JsonLayout::Line);
    QByteArray content = QByteArray(longest + 100, 'x') + '\n' + line;
    QBuffer device(&content);
    QVERIFY(device.open(QIODevice::ReadOnly));
    const Reading reading = readAll(device, longest);
    QCOMPARE(reading.refusals, QStringList(QStringLiteral("1: longer than 1 MiB")));
    QCOMPARE(reading.runs.size(), 1);
    QCOMPARE(reading.bytes, static_cast<qint64>(content.size()));
}

void tst_recordLines::endsWhenAsked_data()
{
    QTest::addColumn<bool>("bySink");
    QTest::newRow("by who takes the records") << true;
    QTest::newRow("by who watches the progress") << false;
}

void tst_recordLines::endsWhenAsked()
{
    QFETCH(bool, bySink);
    QByteArray content = toJson(exampleRecord(), JsonLayout::Line).repeated(3);
    QBuffer device(&content);
    QVERIFY(device.open(QIODevice::ReadOnly));
    int taken = 0;
    const auto goesOn = [&taken](bool asked) { return !asked || taken < 2; };
    readRecordLines(device, {[&taken, &goesOn, bySink](const RunRecord &) {
                                 ++taken;
                                 return goesOn(bySink);
                             },
                             [](qint64, const QString &) { QFAIL("everything is a record"); },
                             [&goesOn, bySink](qint64) { return goesOn(!bySink); }});
    QCOMPARE(taken, 2);
}

QTEST_APPLESS_MAIN(tst_recordLines)
#include "tst_recordLines.moc"
