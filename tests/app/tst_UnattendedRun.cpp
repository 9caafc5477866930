#include "../ui/recordStop.h"
#include "app/station/UnattendedRun.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "record/recordJson.h"
#include "support/fileContent.h"
#include "ui/window/KestDetectorUI.h"

#include <cstdio>
#include <QAbstractButton>
#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>
#include <unistd.h>

using Face = KestDetectorFace;
using Code = UnattendedRun::ExitCode;
using Camera = RunEnd::Camera;
Q_DECLARE_METATYPE(Code)
Q_DECLARE_METATYPE(RunOutcome)
Q_DECLARE_METATYPE(Settings)

/// The unattended run with the real window and runner, and without a camera: only the fan is run, which asks for none.
class tst_UnattendedRun : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void exitCodeOfOneRun_data();
    void exitCodeOfOneRun();
    void closedBeforeTheEnd();
    void closedByTheClock();
    void noCameraInTime();
    void settingsCount_data();
    void settingsCount();
    void startThatIsRefusedEndsTheRun_data();
    void startThatIsRefusedEndsTheRun();
    void repeatWaitsForTheButton();
    void runCutShortHasNoVerdicts();
    void interruptStopsTheRunThenCloses_data();
    void interruptStopsTheRunThenCloses();
    void secondInterruptCloses();
    void eachCameraIsTestedOnce();
    void eachWithoutACamera();
    void stoppedRunDoesNotEndEach();
    void unsavedLogIsFive();
    void unsavedPictureIsFive_data();
    void unsavedPictureIsFive();
    void recordOfARun();
    void recordOfARunThatIsClosed();
    void recordThatCannotBeSavedIsFive();
    void itemsOfTheCommandLineAreThoseOfTheRun();

private:
    static CommandLine line(int repeat = 1);
    static void cameraComes(const QString &mac = QStringLiteral("AA:BB:CC:DD:EE:FF"));

    QTemporaryDir m_folder;
};

namespace {
/// While it lives, standard output goes into a file.
class RedirectedOutput
{
    Q_DISABLE_COPY(RedirectedOutput)

public:
    explicit RedirectedOutput(const QString &path)
    {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly)) {
            exchange(file.handle());
        }
    }
    ~RedirectedOutput()
    {
        exchange(m_before);
        close(m_before);
    }

private:
    static void exchange(int descriptor)
    {
        std::fflush(stdout);
        dup2(descriptor, STDOUT_FILENO);
    }

    const int m_before = dup(STDOUT_FILENO);
};
} // namespace

CommandLine tst_UnattendedRun::line(int repeat)
{
    CommandLine line;
    line.mode = CommandLine::Mode::Unattended;
    line.boxes = QStringList{QStringLiteral("cbFan")};
    line.repeat = repeat;
    line.connectTimeoutSeconds = 60;
    return line;
}

void tst_UnattendedRun::cameraComes(const QString &mac)
{
    Face::Get()->macAddress = mac;
    emit Face::Get()->signal_setConnectStatus(true);
    emit Face::Get()->signal_setMacAddress(mac);
}

void tst_UnattendedRun::initTestCase()
{
    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
    qRegisterMetaType<checkLog>("checkLog");
    KestDetectorRt::Get();
}

void tst_UnattendedRun::init()
{
    Face::Get()->savePath = m_folder.path();
    Face::Get()->quitFlag = 0;
}

void tst_UnattendedRun::exitCodeOfOneRun_data()
{
    QTest::addColumn<RunOutcome>("outcome");
    QTest::addColumn<Code>("code");

    RunOutcome good;
    good.tested = true;
    const auto row = [&good](const char *name, Code code, auto change) {
        RunOutcome outcome = good;
        change(outcome);
        QTest::newRow(name) << outcome << code;
    };
    row("all well", Code::Passed, [](RunOutcome &) {});
    row("failed", Code::Failed, [](RunOutcome &o) { o.passed = false; });
    row("nothing tested", Code::Failed, [](RunOutcome &o) { o.tested = false; });
    row("passed, a request unanswered", Code::Failed, [](RunOutcome &o) { o.unanswered = 1; });
    row("camera lost", Code::NoCamera, [](RunOutcome &o) { o.end.camera = Camera::Lost; });
    row("camera changed", Code::NoCamera, [](RunOutcome &o) { o.end.camera = Camera::Changed; });
    row("not saved", Code::NotSaved, [](RunOutcome &o) { o.end.unsaved.append(UnsavedFile()); });
    row("failed and not saved", Code::NotSaved, [](RunOutcome &o) {
        o.passed = false;
        o.end.unsaved.append(UnsavedFile());
    });
    row("lost and not saved", Code::NoCamera, [](RunOutcome &o) {
        o.end.camera = Camera::Lost;
        o.end.unsaved.append(UnsavedFile());
    });
    row("stopped", Code::Stopped, [](RunOutcome &o) {
        o.complete = false;
        o.end.camera = Camera::Lost;
    });
}

void tst_UnattendedRun::exitCodeOfOneRun()
{
    QFETCH(const RunOutcome, outcome);
    QFETCH(const Code, code);
    QVERIFY(UnattendedRun::exitCodeOf(outcome) == code);
}

void tst_UnattendedRun::closedBeforeTheEnd()
{
    KestDetectorUI window;
    window.show();
    const UnattendedRun run(&window, line());
    QVERIFY(window.close());
    QCOMPARE(run.exitCode(), 4);
}

void tst_UnattendedRun::closedByTheClock()
{
    KestDetectorUI window;
    window.show();
    CommandLine closing = line();
    closing.closeAfterMs = 1;
    const UnattendedRun run(&window, closing);
    QTest::ignoreMessage(QtInfoMsg, "Closing the window");
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(run.exitCode(), 4);
}

void tst_UnattendedRun::noCameraInTime()
{
    KestDetectorUI window;
    window.show();
    CommandLine hasty = line();
    hasty.connectTimeoutSeconds = 1;
    const UnattendedRun run(&window, hasty);
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(run.exitCode(), 3);
}

void tst_UnattendedRun::settingsCount_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<bool>("toTheEnd");
    QTest::addColumn<int>("code");

    Settings missing;
    missing.problems = {{SettingProblem::Kind::Missing, {}, {}, {}}};
    Settings malformed;
    malformed.problems = {{SettingProblem::Kind::Missing, {}, {}, {}}, {SettingProblem::Kind::Malformed, {}, {}, {}}};
    QTest::newRow("sound") << Settings() << true << 1; // nothing is tested
    QTest::newRow("a key is missing") << missing << true << 1;
    QTest::newRow("a value is malformed") << malformed << true << 2;
    QTest::newRow("a value is malformed, closed before the end") << malformed << false << 4;
}

void tst_UnattendedRun::settingsCount()
{
    QFETCH(const Settings, settings);
    QFETCH(const bool, toTheEnd);
    KestDetectorUI window;
    window.show();
    Face::Get()->setSettings(settings);
    const UnattendedRun run(&window, line());
    if (toTheEnd) {
        cameraComes();
        QTRY_VERIFY(!window.isVisible());
    } else {
        window.close();
    }
    QTEST(run.exitCode(), "code");
}

void tst_UnattendedRun::startThatIsRefusedEndsTheRun_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<int>("code");
    Settings missing;
    missing.problems = {{SettingProblem::Kind::Missing, {}, {}, {}}};
    QTest::newRow("for want of a camera") << Settings() << 3;
    QTest::newRow("for want of a setting") << missing << 2;
}

void tst_UnattendedRun::startThatIsRefusedEndsTheRun()
{
    QFETCH(const Settings, settings);
    KestDetectorUI window;
    window.show();
    Face::Get()->setSettings(settings);
    const UnattendedRun run(&window, line());
    Face::Get()->notices.tell(Notices::notStarted({QStringLiteral("something")}));
    QVERIFY(!window.isVisible());
    QTEST(run.exitCode(), "code");
    Face::Get()->notices.withdrawRun();
}

void tst_UnattendedRun::repeatWaitsForTheButton()
{
    KestDetectorUI window;
    window.show();
    const UnattendedRun run(&window, line(2));
    auto *start = window.findChild<QAbstractButton *>(QStringLiteral("tbStart"));
    const int before = KestDetectorRt::Get()->finishedRuns();
    bool held = false;
    QObject hold;
    connect(Face::Get(), &Face::signal_setButtonEnable, &hold, [&](bool enabled) {
        if (enabled && !held) {
            held = true;
            start->setEnabled(false);
            QTimer::singleShot(300, &hold, [] { emit Face::Get()->signal_setButtonEnable(true); });
        }
    });
    cameraComes();
    QTRY_VERIFY_WITH_TIMEOUT(!window.isVisible(), 10000);
    QCOMPARE(KestDetectorRt::Get()->finishedRuns(), before + 2);
    QVERIFY(held);
}

/// What the runner says last may arrive while the program closes: it is no judgement of anything.
void tst_UnattendedRun::runCutShortHasNoVerdicts()
{
    const QString path = m_folder.filePath(QStringLiteral("output"));
    {
        const RedirectedOutput redirected(path);
        KestDetectorUI window;
        window.show();
        const UnattendedRun run(&window, line());
        connect(
            Face::Get(), &Face::signal_showCurrentComponent, &window, [] { Face::Get()->requestStop(); },
            Qt::DirectConnection);
        const int before = KestDetectorRt::Get()->finishedRuns();
        cameraComes();
        // The end of the run, and then all that follows from it.
        QTRY_COMPARE_WITH_TIMEOUT(KestDetectorRt::Get()->finishedRuns(), before + 1, 10000);
        Face::Get()->takeBackStop();
        QTRY_VERIFY(!window.isVisible());
        QCOMPARE(run.exitCode(), 4);
    }
    QCOMPARE(fileContent(path), QByteArray());
}

void tst_UnattendedRun::interruptStopsTheRunThenCloses_data()
{
    QTest::addColumn<bool>("underWay");
    QTest::newRow("before the camera is there") << false;
    QTest::newRow("during a run") << true;
}

void tst_UnattendedRun::interruptStopsTheRunThenCloses()
{
    QFETCH(const bool, underWay);
    KestDetectorUI window;
    window.show();
    UnattendedRun run(&window, line(1000000));
    stopRecord = StopRecord();
    if (underWay) {
        // The runner waits for it, or its run would be over on a slow machine.
        connect(
            Face::Get(), &Face::signal_showCurrentComponent, &run, [&run] { run.interrupt(); },
            Qt::BlockingQueuedConnection);
        cameraComes();
    } else {
        run.interrupt();
    }
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(stopRecord.runs, underWay ? 1 : 0);
    QCOMPARE(run.exitCode(), 4);
    QTRY_COMPARE(Face::Get()->runRequest(), 0);
}

void tst_UnattendedRun::secondInterruptCloses()
{
    KestDetectorUI window;
    window.show();
    UnattendedRun run(&window, line());
    connect(
        Face::Get(), &Face::signal_showCurrentComponent, &run,
        [&] {
            run.interrupt();
            QVERIFY(window.isVisible()); // the run is to end first
            run.interrupt();
            QVERIFY(!window.isVisible());
        },
        Qt::BlockingQueuedConnection);
    cameraComes();
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(run.exitCode(), 4);
    QTRY_COMPARE(Face::Get()->runRequest(), 0);
}

void tst_UnattendedRun::eachCameraIsTestedOnce()
{
    const QString path = m_folder.filePath(QStringLiteral("output"));
    {
        const RedirectedOutput redirected(path);
        KestDetectorUI window;
        window.show();
        CommandLine each = line();
        each.each = true;
        const UnattendedRun run(&window, each);
        int runs = KestDetectorRt::Get()->finishedRuns();
        int told = 0;
        for (const char *mac : {"AA:AA:AA:AA:AA:AA", "BB:BB:BB:BB:BB:BB", "AA:AA:AA:AA:AA:AA"}) {
            cameraComes(QLatin1String(mac));
            ++runs;
            QTRY_COMPARE(KestDetectorRt::Get()->finishedRuns(), runs);
            ++told;
            QTRY_COMPARE(fileContent(path).count("Result: "), told);
            cameraComes(QLatin1String(mac));
            QTest::qWait(200); // another run would begin within 50 ms
            QCOMPARE(KestDetectorRt::Get()->finishedRuns(), runs);
        }
        QVERIFY(window.isVisible());
        QVERIFY(window.close());
        QCOMPARE(run.exitCode(), 1); // nothing was tested
    }
    QCOMPARE(fileContent(path), QByteArray("Mac: AA:AA:AA:AA:AA:AA\nFan: OK\nResult: OK\n\n"
                                           "Mac: BB:BB:BB:BB:BB:BB\nFan: OK\nResult: OK\n\n"
                                           "Mac: AA:AA:AA:AA:AA:AA\nFan: OK\nResult: OK\n\n"));
}

void tst_UnattendedRun::eachWithoutACamera()
{
    KestDetectorUI window;
    window.show();
    CommandLine each = line();
    each.each = true;
    each.connectTimeoutSeconds = 1;
    UnattendedRun run(&window, each);
    QTest::qWait(1200);
    QVERIFY(window.isVisible());
    run.interrupt();
    QVERIFY(!window.isVisible());
    QCOMPARE(run.exitCode(), 4);
}

void tst_UnattendedRun::stoppedRunDoesNotEndEach()
{
    KestDetectorUI window;
    window.show();
    CommandLine each = line();
    each.each = true;
    UnattendedRun run(&window, each);
    connect(
        Face::Get(), &Face::signal_showCurrentComponent, &run, [] { Face::Get()->run.stop(); }, Qt::DirectConnection);
    const int before = KestDetectorRt::Get()->finishedRuns();
    cameraComes(QStringLiteral("AA:AA:AA:AA:AA:AA"));
    QTRY_COMPARE(KestDetectorRt::Get()->finishedRuns(), before + 1);
    QTest::qWait(200);
    QVERIFY(window.isVisible());
    QCOMPARE(KestDetectorRt::Get()->finishedRuns(), before + 1); // not once more
    cameraComes(QStringLiteral("BB:BB:BB:BB:BB:BB"));
    QTRY_COMPARE(KestDetectorRt::Get()->finishedRuns(), before + 2);
    QTest::qWait(100);
    QVERIFY(window.isVisible());
    window.close();
    QCOMPARE(run.exitCode(), 4);
}

void tst_UnattendedRun::unsavedLogIsFive()
{
    QFile blocker(m_folder.filePath(QStringLiteral("blocked")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    KestDetectorUI window;
    window.show();
    CommandLine blocked = line();
    blocked.savePath = blocker.fileName();
    const UnattendedRun run(&window, blocked);
    cameraComes();
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(run.exitCode(), 5);
    const QList<Notice> notices = Face::Get()->notices.current();
    const auto isUnsaved = [](const Notice &notice) { return notice.kind == Notice::Kind::NotSaved; };
    const auto unsaved = std::find_if(notices.begin(), notices.end(), isUnsaved);
    QVERIFY(unsaved != notices.end());
    QVERIFY2(unsaved->text.startsWith(QStringLiteral("not saved: %1/log/").arg(blocker.fileName())),
             qPrintable(unsaved->text));
    QVERIFY2(unsaved->text.endsWith(QStringLiteral("/DetectorLog.txt: Not a directory")), qPrintable(unsaved->text));
}

void tst_UnattendedRun::unsavedPictureIsFive_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("reason");

    QTest::newRow("no such folder") << m_folder.filePath(QStringLiteral("missing"))
                                    << QStringLiteral("No such file or directory");
    QTest::newRow("a file in the folder's place") << QStringLiteral("/dev/null") << QStringLiteral("Not a directory");
}

void tst_UnattendedRun::unsavedPictureIsFive()
{
    QFETCH(const QString, folder);
    QFETCH(const QString, reason);
    KestDetectorUI window;
    window.show();
    CommandLine pictured = line();
    pictured.screenshot = folder + QStringLiteral("/window.png");
    const UnattendedRun run(&window, pictured);
    QTemporaryFile said;
    QVERIFY(said.open());
    const int standardError = dup(STDERR_FILENO);
    dup2(said.handle(), STDERR_FILENO);
    cameraComes();
    const bool ended = QTest::qWaitFor([&] { return !window.isVisible(); });
    dup2(standardError, STDERR_FILENO);
    close(standardError);
    QVERIFY(ended);
    QCOMPARE(run.exitCode(), 5);
    said.seek(0);
    const QByteArray expected =
        "The screenshot could not be saved: " + QFile::encodeName(pictured.screenshot) + ": " + reason.toUtf8() + '\n';
    const QByteArray text = said.readAll();
    QVERIFY2(text.contains(expected), text.constData());
}

void tst_UnattendedRun::recordOfARun()
{
    KestDetectorUI window;
    window.show();
    CommandLine wanted = line(2);
    wanted.json = m_folder.filePath(QStringLiteral("runs.json"));
    wanted.junit = m_folder.filePath(QStringLiteral("runs.xml"));
    UnattendedRun run(&window, wanted);
    Face::Get()->runLabels = RunLabels{QString(), QString(), QStringLiteral("KC0012345")};
    cameraComes();
    QTRY_VERIFY_WITH_TIMEOUT(!window.isVisible(), 10000);
    run.finish();
    Face::Get()->runLabels = RunLabels();
    QCOMPARE(run.exitCode(), 1);
    const QList<QByteArray> lines = fileContent(wanted.json).split('\n');
    QCOMPARE(lines.size(), 3);
    const QList<QByteArray> records = lines.mid(0, 2);
    for (const QByteArray &json : records) {
        QString error;
        const auto record = fromJson(json, &error);
        QVERIFY2(record.has_value(), qPrintable(error));
        QCOMPARE(record->outcome, Outcome::Failed);
        QCOMPARE(record->reason, QStringLiteral("nothing was tested"));
        QCOMPARE(record->serial, QStringLiteral("KC0012345"));
    }
    QCOMPARE(fileContent(wanted.junit).count("<testsuite name=\"run\""), 2);
}

void tst_UnattendedRun::recordOfARunThatIsClosed()
{
    KestDetectorUI window;
    window.show();
    CommandLine wanted = line();
    wanted.boxes = QStringList{QStringLiteral("cbFan"), QStringLiteral("cbVoice")};
    wanted.json = m_folder.filePath(QStringLiteral("closed.json"));
    UnattendedRun run(&window, wanted);
    connect(
        Face::Get(), &Face::signal_showFanCheckResult, &window, [](int) { Face::Get()->requestStop(); },
        Qt::DirectConnection);
    cameraComes();
    const int before = KestDetectorRt::Get()->finishedRuns();
    // Nothing of the run's end reaches an event loop.
    while (KestDetectorRt::Get()->finishedRuns() == before) {
        QTest::qSleep(1);
    }
    window.close();
    QVERIFY(!QFile::exists(wanted.json));
    run.finish();
    Face::Get()->takeBackStop();
    QCOMPARE(run.exitCode(), 4);
    QString error;
    const auto record = fromJson(fileContent(wanted.json), &error);
    QVERIFY2(record.has_value(), qPrintable(error));
    QCOMPARE(record->outcome, Outcome::Stopped);
    QCOMPARE(record->components.size(), 1);
}

void tst_UnattendedRun::recordThatCannotBeSavedIsFive()
{
    KestDetectorUI window;
    window.show();
    CommandLine wanted = line();
    wanted.json = m_folder.filePath(QStringLiteral("none/run.json"));
    const UnattendedRun run(&window, wanted);
    cameraComes();
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(run.exitCode(), 5);
    const QList<Notice> notices = Face::Get()->notices.current();
    const Notice told = Notices::notSaved(wanted.json, QStringLiteral("No such file or directory"));
    QVERIFY(notices.contains(told));
}

void tst_UnattendedRun::itemsOfTheCommandLineAreThoseOfTheRun()
{
    KestDetectorUI window;
    window.show();
    Settings settings;
    settings.plannedItems = {{3, {}}, {7, {}}};
    Face::Get()->setSettings(settings);
    CommandLine planned = line();
    planned.boxes.append(QStringLiteral("cbVoice"));
    planned.items = {{3, {0, 0}}};
    const UnattendedRun run(&window, planned);
    cameraComes();
    QTRY_VERIFY(!window.isVisible());
    Face::Get()->setSettings(Settings());
    const QList<ComponentTask> tasks = Face::Get()->taskList();
    QCOMPARE(tasks.size(), 2);
    QCOMPARE(tasks.at(0).items, QList<int>({0, 0}));
    QCOMPARE(tasks.at(1).items, QList<int>());
}

QTEST_MAIN(tst_UnattendedRun)
#include "tst_UnattendedRun.moc"
