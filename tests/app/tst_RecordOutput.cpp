#include "app/station/RecordOutput.h"
#include "exampleRecord.h"
#include "record/recordJson.h"
#include "record/recordJunit.h"
#include "support/fileContent.h"

#include <fcntl.h>
#include <QtTest>
#include <unistd.h>

namespace {
RunRecord anotherRecord()
{
    RunRecord record = exampleRecord();
    record.id = QUuid(QStringLiteral("9d3f3f8a-1c2b-4d5e-8f90-0a1b2c3d4e5f"));
    record.outcome = Outcome::Passed;
    record.reason.clear();
    return record;
}

QStringList paths(const QList<UnsavedFile> &unsaved)
{
    QStringList lines;
    for (const UnsavedFile &file : unsaved) {
        lines.append(file.path + QStringLiteral(": ") + file.reason);
    }
    return lines;
}

/// Standard output leads to `path` for as long as it lives.
class StandardOutput
{
public:
    explicit StandardOutput(const QString &path) : m_before(dup(STDOUT_FILENO))
    {
        std::fflush(stdout);
        const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        dup2(file, STDOUT_FILENO);
        ::close(file);
    }
    ~StandardOutput()
    {
        dup2(m_before, STDOUT_FILENO);
        ::close(m_before);
    }
    Q_DISABLE_COPY(StandardOutput)

private:
    int m_before;
};
} // namespace

/// The records of an unattended run's runs as files and on standard output.
class tst_RecordOutput : public QObject
{
    Q_OBJECT

private slots:
    void isWanted_data();
    void isWanted();
    void oneRun();
    void severalRuns();
    void standardOutputGetsALineForEachRun();
    void standardOutputThatTakesNothing();
    void whatCannotBeSaved();

private:
    QString file(const QString &name) const { return m_folder->filePath(name); }
    QStringList filesThere() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> m_folder = std::make_unique<QTemporaryDir>();
};

void tst_RecordOutput::isWanted_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("junit");
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<bool>("takesStandardOutput");
    QTest::newRow("nothing") << QString() << QString() << false << false;
    QTest::newRow("JSON") << QStringLiteral("a.json") << QString() << true << false;
    QTest::newRow("JUnit") << QString() << QStringLiteral("a.xml") << true << false;
    QTest::newRow("JSON on standard output") << QStringLiteral("-") << QString() << true << true;
}

void tst_RecordOutput::isWanted()
{
    QFETCH(const QString, json);
    QFETCH(const QString, junit);
    const RecordOutput output(json, junit, false);
    QTEST(output.isWanted(), "wanted");
    QTEST(output.takesStandardOutput(), "takesStandardOutput");
}

void tst_RecordOutput::oneRun()
{
    m_folder = std::make_unique<QTemporaryDir>();
    RecordOutput output(file(QStringLiteral("run.json")), file(QStringLiteral("run.xml")), false);
    QVERIFY(output.add(exampleRecord()).isEmpty());
    QCOMPARE(fileContent(file(QStringLiteral("run.json"))), toJson(exampleRecord()));
    QCOMPARE(fileContent(file(QStringLiteral("run.xml"))), toJunit(exampleRecord()));
    QCOMPARE(filesThere(), QStringList({QStringLiteral("run.json"), QStringLiteral("run.xml")}));
}

void tst_RecordOutput::severalRuns()
{
    m_folder = std::make_unique<QTemporaryDir>();
    RecordOutput output(file(QStringLiteral("runs.json")), file(QStringLiteral("runs.xml")), true);
    QVERIFY(output.add(exampleRecord()).isEmpty());
    const QByteArray first = toJson(exampleRecord(), JsonLayout::Line);
    QCOMPARE(fileContent(file(QStringLiteral("runs.json"))), first);
    QCOMPARE(first.count('\n'), 1);
    QVERIFY(output.add(anotherRecord()).isEmpty());
    QCOMPARE(fileContent(file(QStringLiteral("runs.json"))), first + toJson(anotherRecord(), JsonLayout::Line));
    const QByteArray report = fileContent(file(QStringLiteral("runs.xml")));
    QCOMPARE(report.count("<testsuite name=\"run\""), 2);
    QVERIFY(report.contains("0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10"));
    QVERIFY(report.contains("9d3f3f8a-1c2b-4d5e-8f90-0a1b2c3d4e5f"));
}

void tst_RecordOutput::standardOutputGetsALineForEachRun()
{
    m_folder = std::make_unique<QTemporaryDir>();
    RecordOutput output(QStringLiteral("-"), {}, false);
    QStringList unsaved;
    {
        const StandardOutput captured(file(QStringLiteral("captured")));
        unsaved += paths(output.add(exampleRecord()));
        unsaved += paths(output.add(anotherRecord()));
    }
    QCOMPARE(unsaved, QStringList());
    QCOMPARE(fileContent(file(QStringLiteral("captured"))),
             toJson(exampleRecord(), JsonLayout::Line) + toJson(anotherRecord(), JsonLayout::Line));
}

void tst_RecordOutput::standardOutputThatTakesNothing()
{
    RecordOutput output(QStringLiteral("-"), {}, false);
    QStringList unsaved;
    {
        const StandardOutput full(QStringLiteral("/dev/full"));
        unsaved = paths(output.add(exampleRecord()));
    }
    QCOMPARE(unsaved, QStringList{QStringLiteral("standard output: No space left on device")});
}

void tst_RecordOutput::whatCannotBeSaved()
{
    m_folder = std::make_unique<QTemporaryDir>();
    RecordOutput output(file(QStringLiteral("none/run.json")), file(QStringLiteral("run.xml")), true);
    QCOMPARE(paths(output.add(exampleRecord())),
             QStringList{file(QStringLiteral("none/run.json")) + QStringLiteral(": No such file or directory")});
    QCOMPARE(filesThere(), QStringList{QStringLiteral("run.xml")});
    // The folder has come: nothing of the first run is lost.
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("none")));
    QVERIFY(output.add(anotherRecord()).isEmpty());
    QCOMPARE(fileContent(file(QStringLiteral("none/run.json"))).count('\n'), 2);
}

QTEST_GUILESS_MAIN(tst_RecordOutput)
#include "tst_RecordOutput.moc"
