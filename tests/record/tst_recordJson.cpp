#include "exampleRecord.h"
#include "hostileTexts.h"
#include "noJson.h"
#include "outsideProgram.h"
#include "record/recordJson.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {
const QString python = QStringLiteral("/usr/bin/python3");
const QString schema = QStringLiteral(KEST_PROJECT "/docs/record.schema.json");
const QString validator = QStringLiteral(KEST_PROJECT "/tests/record/validate.py");

/// `json` with the value at a path such as "components[0].name" replaced, or taken away if `value` is undefined.
QJsonValue replaced(const QJsonValue &json, const QString &path, const QJsonValue &value)
{
    static const QRegularExpression step(QStringLiteral("^(?:\\.?([a-zA-Z0-9]+)|\\[(\\d+)\\])(.*)$"));
    const QRegularExpressionMatch match = step.match(path);
    if (!match.hasMatch()) {
        return value;
    }
    if (match.capturedLength(2) > 0) {
        QJsonArray array = json.toArray();
        const int index = match.captured(2).toInt();
        array[index] = replaced(array.at(index), match.captured(3), value);
        return array;
    }
    QJsonObject object = json.toObject();
    const QString key = match.captured(1);
    const QJsonValue inner = replaced(object.value(key), match.captured(3), value);
    if (inner.isUndefined()) {
        object.remove(key);
    } else {
        object.insert(key, inner);
    }
    return object;
}
} // namespace

/// A run's record as JSON, read back here, by Python, and held against the published schema.
class tst_recordJson : public QObject
{
    Q_OBJECT

private slots:
    void isOneLineInAStream();
    void readsBackWhatItWrote_data();
    void readsBackWhatItWrote();
    void keepsHostileTexts_data();
    void keepsHostileTexts();
    void readsHalfACharacterAsReplacement_data();
    void readsHalfACharacterAsReplacement();
    void writesWhatIsNotFiniteAsText();
    void refusesWhatIsNoRecord_data();
    void refusesWhatIsNoRecord();
    void refusesWhatIsNoJson_data();
    void refusesWhatIsNoJson();
    void passesOverKeysOfALaterVersion();
    void schemaAcceptsRecords_data();
    void schemaAcceptsRecords();
    void schemaRefuses_data();
    void schemaRefuses();

private:
    QString written(const QByteArray &json);

    QTemporaryDir m_folder;
};

QString tst_recordJson::written(const QByteArray &json)
{
    const QString path = m_folder.filePath(QStringLiteral("record.json"));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(json) == json.size() ? path : QString();
}

void tst_recordJson::isOneLineInAStream()
{
    const QByteArray line = toJson(recordWithText(QStringLiteral("a\nb\r\nc")), JsonLayout::Line);
    QVERIFY(line.endsWith('\n'));
    QCOMPARE(line.count('\n'), 1);
    QCOMPARE(line.count('\r'), 0);
    QCOMPARE(QJsonDocument::fromJson(line),
             QJsonDocument::fromJson(toJson(recordWithText(QStringLiteral("a\nb\r\nc")))));
}

void tst_recordJson::readsBackWhatItWrote_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("the example") << 0;
    QTest::newRow("stopped before anything ran") << 1;
    QTest::newRow("every way in which a request ends") << 2;
    QTest::newRow("every verdict and outcome") << 3;
    QTest::newRow("times in UTC, west of it, and long ones") << 4;
    QTest::newRow("numbers that need all their digits") << 5;
    QTest::newRow("limits of every kind") << 6;
}

void tst_recordJson::readsBackWhatItWrote()
{
    QFETCH(int, row);
    RunRecord run = exampleRecord();
    ItemRecord &info = run.components[1].items[1];
    QList<RunRecord> runs;
    switch (row) {
    case 1:
        run.components.clear();
        run.plan.clear();
        run.outcome = Outcome::Stopped;
        break;
    case 2:
        for (const auto kind : {RequestEnd::Kind::Answered, RequestEnd::Kind::NoReply, RequestEnd::Kind::Refused,
                                RequestEnd::Kind::WrongSize}) {
            info.request = RequestEnd{kind, 7, 4};
            runs.append(run);
        }
        info.request.reset();
        break;
    case 3:
        for (const auto verdict : {Verdict::Passed, Verdict::Failed, Verdict::Warning, Verdict::NotTested}) {
            info.verdict = verdict;
            runs.append(run);
        }
        for (const auto outcome : {Outcome::Passed, Outcome::Failed, Outcome::Stopped, Outcome::Error}) {
            run.outcome = outcome;
            runs.append(run);
        }
        break;
    case 4:
        run.begin = QDateTime(QDate(2026, 2, 28), QTime(23, 59, 59, 999), Qt::UTC);
        run.end = QDateTime(QDate(2026, 3, 1), QTime(0, 0), Qt::OffsetFromUTC, -34200);
        run.duration = std::chrono::hours(24 * 365);
        info.duration = std::chrono::microseconds(1);
        break;
    case 5:
        info.measurements = {measured(Field::BatteryVoltage, 0.1 + 0.2),    measured(Field::CardTotal, 1e300),
                             measured(Field::BatteryCurrent, -1.0 / 3),     measured(Field::CardUsed, 30436.5),
                             measured(Field::FileSize, 9007199254740992.0), measured(Field::CardState, 0)};
        run.components[2].items[0].files[0].size = 9007199254740991;
        break;
    case 6:
        info.measurements[0].limit = Limit{-1.5, {}, {}};
        info.measurements[1].limit = Limit{{}, 0, {}};
        info.measurements[2].limit = Limit{2, 2, {}};
        info.measurements[3].limit = Limit{{}, {}, {QString(), QStringLiteral("|")}};
        break;
    default:
        break;
    }
    runs.append(run);
    for (const RunRecord &one : qAsConst(runs)) {
        for (const auto layout : {JsonLayout::Indented, JsonLayout::Line}) {
            QString error;
            const std::optional<RunRecord> read = fromJson(toJson(one, layout), &error);
            QCOMPARE(error, QString());
            QVERIFY(read.has_value());
            QVERIFY(*read == one);
            QCOMPARE(toJson(*read), toJson(one));
        }
    }
}

void tst_recordJson::keepsHostileTexts_data()
{
    addHostileTexts();
}

void tst_recordJson::keepsHostileTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, json);
    QString error;
    const std::optional<RunRecord> read = fromJson(toJson(recordWithText(text)), &error);
    QCOMPARE(error, QString());
    QVERIFY(read.has_value());
    QVERIFY(*read == recordWithText(json));

    const QString file = written(toJson(recordWithText(text)));
    const ProgramEnd python3 = runOutside(python, {QStringLiteral(KEST_PROJECT "/tests/record/readTexts.py"), file});
    const QString hex = QString::fromLatin1(json.toUtf8().toHex()) + QLatin1Char('\n');
    QCOMPARE(python3.output, hex + hex);
    const ProgramEnd valid = runOutside(python, {validator, schema, file});
    QCOMPARE(valid.output, QString());
    QCOMPARE(valid.exitCode, 0);
}

void tst_recordJson::readsHalfACharacterAsReplacement_data()
{
    QTest::addColumn<QByteArray>("escaped");
    QTest::addColumn<QString>("text");
    const QString replacement = QChar(QChar::ReplacementCharacter);
    QTest::newRow("the first half") << QByteArray(R"(\ud83d)") << replacement;
    QTest::newRow("the second half") << QByteArray(R"(\ude00)") << replacement;
    QTest::newRow("the first half before a letter") << QByteArray(R"(\ud83dx)") << replacement + QLatin1Char('x');
    QTest::newRow("the halves in the wrong order") << QByteArray(R"(\ude00\ud83d)") << replacement + replacement;
    QTest::newRow("both halves") << QByteArray(R"(\ud83d\ude00)") << QString::fromUtf8("\xF0\x9F\x98\x80");
}

void tst_recordJson::readsHalfACharacterAsReplacement()
{
    QFETCH(const QByteArray, escaped);
    QFETCH(const QString, text);
    const QByteArray json = toJson(recordWithText(QStringLiteral("@"))).replace("@", escaped);
    QString error;
    const std::optional<RunRecord> read = fromJson(json, &error);
    QVERIFY2(read.has_value(), qPrintable(error));
    QVERIFY(*read == recordWithText(text));
    const std::optional<RunRecord> again = fromJson(toJson(*read), &error);
    QVERIFY2(again.has_value(), qPrintable(error));
    QVERIFY(*again == *read);
}

void tst_recordJson::writesWhatIsNotFiniteAsText()
{
    RunRecord run = exampleRecord();
    run.components[1].items[1].measurements[0].value = std::numeric_limits<double>::quiet_NaN();
    run.components[1].items[1].measurements[1].value = -std::numeric_limits<double>::infinity();
    QString error;
    const std::optional<RunRecord> read = fromJson(toJson(run), &error);
    QVERIFY2(read.has_value(), qPrintable(error));
    const QList<Measurement> &measurements = read->components.at(1).items.at(1).measurements;
    QCOMPARE(std::get<QString>(measurements.at(0).value), QStringLiteral("nan"));
    QCOMPARE(std::get<QString>(measurements.at(1).value), QStringLiteral("-inf"));
}

void tst_recordJson::refusesWhatIsNoRecord_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QString>("error");
    const QJsonValue missing(QJsonValue::Undefined);
    const auto row = [](const char *title, const char *path, const QJsonValue &value, const char *error) {
        QTest::newRow(title) << path << value << error;
    };
    row("no schema version", "schema", missing, "schema is missing");
    row("another schema version", "schema", 2, "schema 2 is not known");
    row("a schema version that is no number", "schema", "1", "schema cannot be read");
    row("no id", "id", missing, "id is missing");
    row("no such id", "id", "0b5f6d0e", "id cannot be read");
    row("a text that is a number", "operator", 7, "operator cannot be read");
    row("a text that is nothing", "operator", QJsonValue::Null, "operator cannot be read");
    row("no camera", "camera", missing, "camera is missing");
    row("a camera that is a text", "camera", "x", "camera cannot be read");
    row("a camera without MAC address", "camera.mac", missing, "camera.mac is missing");
    row("no such outcome", "outcome", "Passed", "outcome cannot be read");
    row("no time", "begin", "yesterday", "begin cannot be read");
    row("a time without offset", "end", "2026-11-21T09:30:00.250", "end cannot be read");
    row("a negative duration", "durationMs", -1, "durationMs cannot be read");
    row("a duration beyond all measure", "durationMs", 1e300, "durationMs cannot be read");
    row("components that are none", "components", QJsonObject(), "components cannot be read");
    row("a component that is none", "components[1]", 3, "components[1] cannot be read");
    row("half a number", "components[1].id", 2.5, "components[1].id cannot be read");
    row("a number that no int holds", "components[1].id", 1e10, "components[1].id cannot be read");
    row("an item without key", "components[1].items[0].key", missing, "components[1].items[0].key is missing");
    row("no such end of a request", "components[1].items[0].request.end", "lost",
        "components[1].items[0].request.end cannot be read");
    row("a measured value that is neither", "components[1].items[1].measurements[2].value", true,
        "components[1].items[1].measurements[2].value cannot be read");
    row("a bound that is a text", "components[1].items[1].measurements[0].limit.least", "3.6",
        "components[1].items[1].measurements[0].limit.least cannot be read");
    row("a size that is none", "components[2].items[0].files[0].size", "41",
        "components[2].items[0].files[0].size cannot be read");
    row("a planned item that is none", "plan[1].items[1]", "2", "plan[1].items[1] cannot be read");
}

void tst_recordJson::refusesWhatIsNoRecord()
{
    QFETCH(QString, path);
    QFETCH(QJsonValue, value);
    const QJsonObject example = QJsonDocument::fromJson(toJson(exampleRecord())).object();
    QString error;
    QVERIFY(!fromJson(QJsonDocument(replaced(example, path, value).toObject()).toJson(), &error));
    QTEST(error, "error");
}

void tst_recordJson::refusesWhatIsNoJson_data()
{
    addTextsThatAreNoJson();
}

void tst_recordJson::refusesWhatIsNoJson()
{
    QFETCH(QByteArray, json);
    QString error;
    QVERIFY(!fromJson(json, &error));
    QTEST(error, "error");
}

void tst_recordJson::passesOverKeysOfALaterVersion()
{
    QJsonValue json = QJsonDocument::fromJson(toJson(exampleRecord())).object();
    json = replaced(json, QStringLiteral("weather"), QStringLiteral("fine"));
    json = replaced(json, QStringLiteral("components[1].items[1].request.via"), 1);
    QString error;
    const std::optional<RunRecord> read = fromJson(QJsonDocument(json.toObject()).toJson(), &error);
    QVERIFY2(read.has_value(), qPrintable(error));
    QVERIFY(*read == exampleRecord());
}

void tst_recordJson::schemaAcceptsRecords_data()
{
    QTest::addColumn<RunRecord>("run");
    QTest::newRow("the example") << exampleRecord();
    RunRecord run = exampleRecord();
    run.components.clear();
    run.plan.clear();
    run.outcome = Outcome::Stopped;
    run.reason = QStringLiteral("stopped by the operator");
    run.camera = {};
    run.begin = run.begin.toUTC();
    QTest::newRow("stopped before anything ran") << run;
    run = exampleRecord();
    run.outcome = Outcome::Passed;
    run.reason.clear();
    QTest::newRow("passed") << run;
}

void tst_recordJson::schemaAcceptsRecords()
{
    QFETCH(RunRecord, run);
    const ProgramEnd end = runOutside(python, {validator, schema, written(toJson(run))});
    QCOMPARE(end.output, QString());
    QCOMPARE(end.exitCode, 0);
}

void tst_recordJson::schemaRefuses_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonValue>("value");
    const auto row = [](const char *title, const char *path, const QJsonValue &value) {
        QTest::newRow(title) << path << value;
    };
    row("a key that it does not know", "weather", "fine");
    row("a key in an item that it does not know", "components[1].items[1].weather", "fine");
    row("a missing key", "serial", QJsonValue::Undefined);
    row("another schema version", "schema", 2);
    row("a time without offset", "begin", "2026-11-21T09:30:00.250");
    row("a time without milliseconds", "begin", "2026-11-21T09:30:00+01:00");
    row("no such outcome", "outcome", "ok");
    row("a failed run without a reason", "reason", "");
    row("a passed run with a reason", "outcome", "passed");
    row("no such component", "components[0].key", "kamera");
    row("an item without key", "components[0].items[0].key", "");
    row("no such verdict", "components[0].items[0].verdict", "OK");
    row("no such end of a request", "components[0].items[0].request.end", "lost");
    row("no attempt", "components[0].items[0].request.attempts", 0);
    row("a checksum in capitals", "components[2].items[0].files[0].sha256", QString(64, QLatin1Char('A')));
    row("a measured value that is neither", "components[1].items[1].measurements[0].value", true);
}

void tst_recordJson::schemaRefuses()
{
    QFETCH(QString, path);
    QFETCH(QJsonValue, value);
    const QJsonObject example = QJsonDocument::fromJson(toJson(exampleRecord())).object();
    const QString file = written(QJsonDocument(replaced(example, path, value).toObject()).toJson());
    const ProgramEnd end = runOutside(python, {validator, schema, file});
    QCOMPARE(end.exitCode, 1);
    QVERIFY2(end.output.startsWith(file + QLatin1Char(':')), qPrintable(end.output));
}

QTEST_GUILESS_MAIN(tst_recordJson)
#include "tst_recordJson.moc"
