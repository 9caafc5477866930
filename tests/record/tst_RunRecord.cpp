#include "exampleRecord.h"
#include "record/RunRecord.h"

#include <functional>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Change = std::function<void(RunRecord &)>;
Q_DECLARE_METATYPE(Change)

/// The record of a run as a value.
class tst_RunRecord : public QObject
{
    Q_OBJECT

private slots:
    void takesTheChecksVerdicts_data();
    void takesTheChecksVerdicts();
    void comparesAllItsParts_data();
    void comparesAllItsParts();
    void describesAFile_data();
    void describesAFile();
    void doesNotDescribeWhatCannotBeRead();
};

void tst_RunRecord::takesTheChecksVerdicts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("verdict");
    const auto row = [](const char *title, int code, Verdict verdict) {
        QTest::newRow(title) << code << static_cast<int>(verdict);
    };
    row("OK", 0, Verdict::Passed);
    row("NG", 1, Verdict::Failed);
    row("warning", 2, Verdict::Warning);
    row("not yet run", 3, Verdict::NotTested);
    row("none", -1, Verdict::NotTested);
    row("beyond all codes", 100, Verdict::NotTested);
}

void tst_RunRecord::takesTheChecksVerdicts()
{
    QFETCH(int, code);
    QTEST(static_cast<int>(verdictOfCode(code)), "verdict");
}

void tst_RunRecord::comparesAllItsParts_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char *title, const Change &change) { QTest::newRow(title) << change; };
    const QString other = QStringLiteral("other");
    row("id", [](RunRecord &run) { run.id = QUuid::createUuid(); });
    row("program version", [=](RunRecord &run) { run.programVersion = other; });
    row("station", [=](RunRecord &run) { run.station.name = other; });
    row("location", [=](RunRecord &run) { run.station.location = other; });
    row("operator", [=](RunRecord &run) { run.operatorName = other; });
    row("batch", [=](RunRecord &run) { run.batch = other; });
    row("serial", [=](RunRecord &run) { run.serial = other; });
    row("MAC address", [=](RunRecord &run) { run.camera.mac = other; });
    row("WiFi name", [=](RunRecord &run) { run.camera.wifiName = other; });
    row("link", [=](RunRecord &run) { run.camera.link = other; });
    row("firmware", [=](RunRecord &run) { run.camera.firmware = other; });
    row("begin", [](RunRecord &run) { run.begin = run.begin.addMSecs(1); });
    row("offset of the begin", [](RunRecord &run) { run.begin = run.begin.toOffsetFromUtc(7200); });
    row("end", [](RunRecord &run) { run.end = run.end.addMSecs(1); });
    row("offset of the end", [](RunRecord &run) { run.end = run.end.toUTC(); });
    row("duration", [](RunRecord &run) { run.duration += std::chrono::microseconds(1); });
    row("plan", [](RunRecord &run) { run.plan.removeLast(); });
    row("planned component", [](RunRecord &run) { run.plan[0].id = 1; });
    row("planned component's key", [=](RunRecord &run) { run.plan[0].key = other; });
    row("planned item", [](RunRecord &run) { run.plan[0].items = {1}; });
    row("outcome", [](RunRecord &run) { run.outcome = Outcome::Error; });
    row("reason", [=](RunRecord &run) { run.reason = other; });
    row("components", [](RunRecord &run) { run.components.removeLast(); });
    row("component's id", [](RunRecord &run) { run.components[1].id = 1; });
    row("component's key", [=](RunRecord &run) { run.components[1].key = other; });
    row("component's name", [=](RunRecord &run) { run.components[1].name = other; });
    row("component's verdict", [](RunRecord &run) { run.components[1].verdict = Verdict::Warning; });
    row("component's duration", [](RunRecord &run) { run.components[1].duration *= 2; });
    row("items", [](RunRecord &run) { run.components[1].items.removeFirst(); });
    row("item's key", [=](RunRecord &run) { run.components[1].items[1].key = other; });
    row("item's number", [](RunRecord &run) { run.components[1].items[1].number = 1; });
    row("item's name", [=](RunRecord &run) { run.components[1].items[1].name = other; });
    row("item's verdict", [](RunRecord &run) { run.components[1].items[1].verdict = Verdict::Passed; });
    row("message", [=](RunRecord &run) { run.components[1].items[1].message = other; });
    row("detail", [=](RunRecord &run) { run.components[1].items[1].detail = other; });
    row("item's duration", [](RunRecord &run) { run.components[1].items[1].duration *= 2; });
    row("no request", [](RunRecord &run) { run.components[1].items[1].request.reset(); });
    row("request's end", [](RunRecord &run) { run.components[1].items[1].request->kind = RequestEnd::Kind::NoReply; });
    row("request's code", [](RunRecord &run) { run.components[1].items[1].request->code = 7; });
    row("attempts", [](RunRecord &run) { run.components[1].items[1].request->attempts = 2; });
    row("measurement", [](RunRecord &run) { run.components[1].items[1].measurements[0].value = 4.35; });
    row("files", [](RunRecord &run) { run.components[2].items[0].files.clear(); });
    row("file's name", [=](RunRecord &run) { run.components[2].items[0].files[0].name = other; });
    row("file's size", [](RunRecord &run) { run.components[2].items[0].files[0].size = 0; });
    row("file's checksum", [=](RunRecord &run) { run.components[2].items[0].files[0].sha256 = other; });
}

void tst_RunRecord::comparesAllItsParts()
{
    QFETCH(Change, change);
    RunRecord run = exampleRecord();
    QVERIFY(run == exampleRecord());
    change(run);
    QVERIFY(!(run == exampleRecord()));
}

void tst_RunRecord::describesAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("sha256");
    QTest::newRow("empty") << QByteArray() << "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
    QTest::newRow("three letters") << QByteArray("abc")
                                   << "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
    QTest::newRow("a million letters") << QByteArray(1000000, 'a')
                                       << "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";
}

void tst_RunRecord::describesAFile()
{
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("log.tar.gz")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
    file.close();
    const std::optional<CollectedFile> described = describeFile(file.fileName());
    QVERIFY(described.has_value());
    QCOMPARE(described->name, QStringLiteral("log.tar.gz"));
    QCOMPARE(described->size, content.size());
    QTEST(described->sha256, "sha256");
}

void tst_RunRecord::doesNotDescribeWhatCannotBeRead()
{
    const QTemporaryDir folder;
    QVERIFY(!describeFile(folder.filePath(QStringLiteral("none"))));
    QVERIFY(!describeFile(folder.path()));
}

QTEST_GUILESS_MAIN(tst_RunRecord)
#include "tst_RunRecord.moc"
