#include "detector/checks/batteryChecks.h"
#include "detector/checks/cameraChecks.h"
#include "detector/checks/gimbalChecks.h"
#include "detector/checks/lensChecks.h"
#include "detector/checks/logCollection.h"
#include "detector/checks/pcbaChecks.h"
#include "detector/checks/placeholderChecks.h"
#include "detector/checks/shellCall.h"
#include "detector/checks/tfCardChecks.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/requestTally.h"
#include "record/recordNames.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <functional>
#include <memory>
#include <mutex>
#include <QDir>
#include <QDirIterator>
#include <QTranslator>
#include <QtTest>
#include <sys/stat.h>
#include <thread>

using Face = KestDetectorFace;
using namespace std::chrono_literals;

namespace {
const QString mac = QStringLiteral("AA:BB:CC:DD:EE:FF");

// What the components of a test do. Written before a run begins, read by the runner.
std::function<int(const QList<int> &items)> work;
QStringList worked; ///< written by the runner, read when the run has ended

/// A component that does `work` for its id, and leaves a record with one item as the real ones do.
template <int id>
QString component(int *verdict, const QList<int> &items)
{
    worked.append(QString::number(id));
    *verdict = work(items);
    Face::Get()->run.append({id, {{*verdict, QStringLiteral("said %1\n").arg(id), QString()}}});
    return {};
}

const std::vector<RunComponent> &testComponents()
{
    static const std::vector<RunComponent> table{
        {componentId::camera, component<0>, &Face::signal_showCameraCheckResult},
        {componentId::battery, component<2>, &Face::signal_showBatteryCheckResult},
        {componentId::fan, component<3>, &Face::signal_showFanCheckResult},
        {componentId::pcba, component<8>, &Face::signal_showPcbaCheckResult},
        {componentId::log, component<9>, nullptr},
    };
    return table;
}

/// Marks what has passed through it.
class MarkingTranslator : public QTranslator
{
    Q_OBJECT

public:
    using QTranslator::QTranslator;
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return QStringLiteral("<%1:%2>").arg(QLatin1String(context), QString::fromUtf8(source));
    }
    bool isEmpty() const override { return false; }
};
} // namespace

/// The runner with components made for the test: each step of a run, in its order, on and off guard.
class tst_RunnerSteps : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyComponentHasItsRoutineAndSignal_data();
    void everyComponentHasItsRoutineAndSignal();
    void pausesAreThoseOfTheStation();
    void tasksAreSeparatedByThePause();
    void requestIsSeenWithinThePoll();
    void endOfARunInItsOrder();
    void verdictDecides_data();
    void verdictDecides();
    void failedComponentDoesNotSkipTheNext();
    void logNeverFailsARun();
    void logThatBreaksALimitFailsARun();
    void killThreadStopsAtTheTaskBoundaryAndStillSaves();
    void stopRequestStopsAtTheTaskBoundary();
    void stoppedRunHasNoResult();
    void runStoppedBeforeItsBeginTestsNothing();
    void runAfterAStoppedOneIsWhole();
    void logOfAStoppedRun_data();
    void logOfAStoppedRun();
    void nothingIsTakenAfterAStopRequest();
    void textsAreTranslated();
    void whatIsTold_data();
    void whatIsTold();
    void noticesOfTheRunBeforeAreWithdrawn();
    void unansweredRequestsAreThoseOfComponentsWithAVerdict();
    void safeguardsDecide_data();
    void safeguardsDecide();
    void waitsForAShellThatIsBeingRegained();
    void doesNotWaitForAShellThatWasNeverThere();
    void waitsForAShellWhoseLossIsNotNoticedYet();
    void patienceWithTheShellEnds();
    void recordIsHandedOutOnceBeforeTheRunCounts();
    void recordOfAStoppedRun();
    void filesAreReadOnlyForARecord();

private:
    void post(const QList<ComponentTask> &plan);
    void finish();
    QString logPath() const;
    QByteArray savedLog() const;
    QStringList told() const;
    void note(const QString &event);

    std::unique_ptr<KestDetectorRt> m_runner;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::mutex m_mutex;   ///< guards the events, which come from the runner's thread
    QStringList m_events; ///< in the order of emission
};

void tst_RunnerSteps::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_events.clear();
    worked.clear();
    work = [](const QList<int> &) { return 0; };
    Face *face = Face::Get();
    face->setSettings(Settings());
    face->savePath = m_folder->path();
    face->macAddress = mac;
    face->shellState = ShellState::None;
    TelnetInteractiveFace::Get()->slot_connected(false);
    face->notices.withdrawRun();

    const auto connectDirectly = [this, face](auto signal, auto slot) {
        connect(face, signal, this, slot, Qt::DirectConnection);
    };
    connectDirectly(&Face::signal_setButtonEnable,
                    [this](bool enabled) { note(enabled ? QStringLiteral("enabled") : QStringLiteral("disabled")); });
    connectDirectly(&Face::signal_showCheckResult,
                    [this](bool passed) { note(passed ? QStringLiteral("passed") : QStringLiteral("failed")); });
    connectDirectly(&Face::signal_showCurrentComponent,
                    [this](const QString &name) { note(QStringLiteral("component ") + name); });
    connectDirectly(&Face::signal_showTotalPersent,
                    [this](int percent) { note(QStringLiteral("total %1").arg(percent)); });
    for (const RunComponent &entry : testComponents()) {
        if (entry.showResult != nullptr) {
            connectDirectly(entry.showResult, [this, id = entry.id](int verdict) {
                note(QStringLiteral("%1 is %2").arg(QString::number(id), QString::number(verdict)));
            });
        }
    }
    m_runner = std::make_unique<KestDetectorRt>(testComponents());
}

void tst_RunnerSteps::cleanup()
{
    m_runner.reset();
    Face *face = Face::Get();
    face->disconnect(this);
    face->takeBackStop();
    face->run.finish();
    face->setSettings(Settings());
}

void tst_RunnerSteps::note(const QString &event)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_events.append(event);
}

void tst_RunnerSteps::post(const QList<ComponentTask> &plan)
{
    QVERIFY(Face::Get()->run.post(plan));
}

void tst_RunnerSteps::finish()
{
    QTRY_COMPARE_WITH_TIMEOUT(m_runner->finishedRuns(), 1, 60000);
}

QString tst_RunnerSteps::logPath() const
{
    return m_folder->path() + QStringLiteral("/log/") + QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")) +
           QStringLiteral("_AABBCCDDEEFF/DetectorLog.txt");
}

QByteArray tst_RunnerSteps::savedLog() const
{
    QFile file(logPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

QStringList tst_RunnerSteps::told() const
{
    QStringList texts;
    const QList<Notice> notices = Face::Get()->notices.current();
    for (const Notice &notice : notices) {
        texts.append(notice.kind == Notice::Kind::Results ? QStringLiteral("results") : notice.text);
    }
    return texts;
}

void tst_RunnerSteps::everyComponentHasItsRoutineAndSignal_data()
{
    using Routine = QString (*)(int *, const QList<int> &);
    QTest::addColumn<int>("id");
    QTest::addColumn<void *>("routine");
    QTest::addColumn<QByteArray>("signal");

    const auto row = [](const char *name, int id, Routine routine, const char *signal) {
        QTest::newRow(name) << id << reinterpret_cast<void *>(routine) << QByteArray(signal);
    };
    row("camera", 0, checkCamera, "signal_showCameraCheckResult");
    row("gimbal", 1, checkGimbal, "signal_showGimbalCheckResult");
    row("battery", 2, checkBattery, "signal_showBatteryCheckResult");
    row("fan", 3, checkFan, "signal_showFanCheckResult");
    row("button", 4, checkKeyBoard, "signal_showKeyBoardCheckResult");
    row("lens", 5, checkLens, "signal_showLensCheckResult");
    row("TF card", 6, checkTFCard, "signal_showTFCardCheckResult");
    row("audio", 7, checkVoice, "signal_showVoiceCheckResult");
    row("main board", 8, checkPcba, "signal_showPcbaCheckResult");
    row("log", 9, downLoadLogs, "");
}

void tst_RunnerSteps::everyComponentHasItsRoutineAndSignal()
{
    QFETCH(const int, id);
    QFETCH(void *, routine);
    QFETCH(const QByteArray, signal);
    QCOMPARE(runComponents().size(), std::size_t{10});
    const RunComponent &entry = runComponents().at(static_cast<std::size_t>(id));
    QCOMPARE(entry.id, id);
    QCOMPARE(reinterpret_cast<void *>(entry.routine), routine);
    const QMetaMethod method = entry.showResult == nullptr ? QMetaMethod() : QMetaMethod::fromSignal(entry.showResult);
    QCOMPARE(method.name(), signal);
}

void tst_RunnerSteps::pausesAreThoseOfTheStation()
{
    QCOMPARE(KestDetectorRt::requestPoll.count(), 50);
    QCOMPARE(KestDetectorRt::taskPause.count(), 100);
    QCOMPARE(shellPatience.count(), 15000);
}

void tst_RunnerSteps::tasksAreSeparatedByThePause()
{
    constexpr int tasks = 12;
    QElapsedTimer clock;
    work = [&clock](const QList<int> &items) {
        if (items.constFirst() == 0) {
            clock.start();
        }
        return 0;
    };
    QList<ComponentTask> plan;
    for (int i = 0; i < tasks; ++i) {
        plan.append(ComponentTask{componentId::camera, {i}});
    }
    post(plan);
    finish();
    QVERIFY2(clock.elapsed() >= qint64{tasks} * 100, qPrintable(QString::number(clock.elapsed())));
    QVERIFY2(clock.elapsed() < qint64{tasks} * 250, qPrintable(QString::number(clock.elapsed())));
}

void tst_RunnerSteps::requestIsSeenWithinThePoll()
{
    // The best of several: the machine may be slow, the runner must not be.
    qint64 fastest = 1000000;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer clock;
        qint64 seen = 0;
        work = [&](const QList<int> &) {
            seen = clock.elapsed();
            return 0;
        };
        clock.start();
        post({{componentId::camera, {0}}});
        QTRY_COMPARE(m_runner->finishedRuns(), i + 1);
        fastest = std::min(fastest, seen);
    }
    QVERIFY2(fastest <= 200, qPrintable(QString::number(fastest)));
}

void tst_RunnerSteps::endOfARunInItsOrder()
{
    Face *face = Face::Get();
    const auto state = [this, face] {
        return QStringLiteral("%1, %2").arg(
            face->runRequest() == 1 ? QStringLiteral("requested") : QStringLiteral("idle"),
            QFile::exists(logPath()) ? QStringLiteral("log") : QStringLiteral("no log"));
    };
    QStringList states;
    const QObject here; // ends the connections before what they capture
    connect(
        face, &Face::signal_setButtonEnable, &here,
        [state, states = &states](bool enabled) {
            states->append((enabled ? QStringLiteral("enabled: ") : QStringLiteral("disabled: ")) + state());
        },
        Qt::DirectConnection);
    connect(
        face, &Face::signal_showCheckResult, &here,
        [state, states = &states](bool) { states->append(QStringLiteral("result: ") + state()); },
        Qt::DirectConnection);
    post({{componentId::camera, {0}}, {componentId::battery, {0}}});
    finish();
    QCOMPARE(states, QStringList({"disabled: requested, no log", "result: idle, no log", "enabled: idle, no log"}));
    QCOMPARE(m_events, QStringList({"disabled", "component Camera", "0 is 0", "total 50", "component Battery", "2 is 0",
                                    "total 100", "passed", "enabled"}));
    QCOMPARE(savedLog(), QByteArray("[Camera]:\nsaid 0\n\n[Battery]:\nsaid 2\n\n"));
}

void tst_RunnerSteps::verdictDecides_data()
{
    QTest::addColumn<int>("verdict");
    QTest::addColumn<bool>("passed");
    QTest::newRow("OK") << 0 << true;
    QTest::newRow("NG") << 1 << false;
    QTest::newRow("warning") << 2 << true;
    QTest::newRow("not tested") << 3 << false;
    QTest::newRow("no verdict") << -1 << false;
}

void tst_RunnerSteps::verdictDecides()
{
    QFETCH(const int, verdict);
    QFETCH(const bool, passed);
    work = [verdict](const QList<int> &) { return verdict; };
    post({{componentId::battery, {0}}});
    finish();
    QCOMPARE(m_events, QStringList({"disabled", "component Battery", QStringLiteral("2 is %1").arg(verdict),
                                    "total 100", passed ? "passed" : "failed", "enabled"}));
    QCOMPARE(m_runner->lastRun().passed, passed);
}

void tst_RunnerSteps::failedComponentDoesNotSkipTheNext()
{
    work = [](const QList<int> &items) { return items.constFirst(); };
    post({{componentId::camera, {1}}, {componentId::battery, {0}}, {componentId::pcba, {2}}});
    finish();
    QCOMPARE(worked, QStringList({"0", "2", "8"}));
    QCOMPARE(m_events.mid(m_events.size() - 2), QStringList({"failed", "enabled"}));
    QCOMPARE(savedLog(), QByteArray("[Camera]:\nsaid 0\n\n[Battery]:\nsaid 2\n\n[PCBA]:\nsaid 8\n\n"));
}

void tst_RunnerSteps::logNeverFailsARun()
{
    work = [](const QList<int> &) { return -1; };
    post({{componentId::log, {0}}});
    finish();
    QCOMPARE(m_events, QStringList({"disabled", "component Log", "total 100", "passed", "enabled"}));
}

void tst_RunnerSteps::logThatBreaksALimitFailsARun()
{
    work = [](const QList<int> &items) {
        CheckItemLog item;
        item.number = 5;
        item.breaksLimit = !items.isEmpty();
        emit Face::Get()->signal_showCheckLog({componentId::log, {item}});
        return 0;
    };
    post({{componentId::log, {5}}, {componentId::battery, {}}});
    finish();
    QVERIFY(m_events.contains(QStringLiteral("failed")));
    QVERIFY(!m_runner->lastRun().passed);
}

void tst_RunnerSteps::killThreadStopsAtTheTaskBoundaryAndStillSaves()
{
    std::atomic<bool> begun{false};
    std::atomic<bool> go{false};
    work = [&](const QList<int> &) {
        begun = true;
        while (!go) {
            QThread::msleep(1);
        }
        return 0;
    };
    post({{componentId::camera, {0}}, {componentId::battery, {0}}});
    QTRY_VERIFY(begun);
    std::thread window([this] { m_runner->killThread(); });
    QThread::msleep(50); // it has told the runner to stop
    go = true;
    window.join();
    QCOMPARE(worked, QStringList{"0"});
    QCOMPARE(m_events, QStringList({"disabled", "component Camera", "0 is 0", "total 50", "passed", "enabled"}));
    QCOMPARE(savedLog(), QByteArray("[Camera]:\nsaid 0\n\n"));
    QVERIFY(!m_runner->lastRun().complete);
    QCOMPARE(Face::Get()->runRequest(), 0);
}

void tst_RunnerSteps::stopRequestStopsAtTheTaskBoundary()
{
    // Closing asks for the stop first, and may be long in joining the threads before the runner.
    work = [](const QList<int> &) {
        Face::Get()->requestStop();
        return 3;
    };
    post({{componentId::camera, {0}}, {componentId::battery, {0}}, {componentId::pcba, {0}}});
    finish();
    QCOMPARE(worked, QStringList{"0"});
    QCOMPARE(savedLog(), QByteArray("[Camera]:\nsaid 0\n\n"));
    QVERIFY(!m_runner->lastRun().complete);
}

void tst_RunnerSteps::stoppedRunHasNoResult()
{
    QList<RunRecord> records;
    const QObject here; // ends the connections before what they capture
    connect(
        m_runner.get(), &KestDetectorRt::signal_runRecorded, &here,
        [records = &records](const RunRecord &record) { records->append(record); }, Qt::DirectConnection);
    work = [](const QList<int> &) {
        Face::Get()->run.stop();
        return 3;
    };
    post({{componentId::camera, {0}}, {componentId::battery, {0}}, {componentId::pcba, {0}}});
    finish();
    QCOMPARE(worked, QStringList{"0"});
    QCOMPARE(m_events, QStringList({"disabled", "component Camera", "0 is 3", "total 33", "enabled"}));
    QVERIFY(!m_runner->lastRun().complete);
    QVERIFY(m_runner->lastRun().end.stopped);
    QCOMPARE(told(), QStringList({"the run was stopped", "results"}));
    QCOMPARE(records.size(), 1);
    QCOMPARE(records.at(0).outcome, Outcome::Stopped);
    QCOMPARE(records.at(0).reason, QStringLiteral("the run was stopped"));
    QCOMPARE(records.at(0).plan.size(), 3);
    QCOMPARE(records.at(0).components.size(), 1);
}

void tst_RunnerSteps::runStoppedBeforeItsBeginTestsNothing()
{
    Face::Get()->shellState = ShellState::Regaining; // it waits for the shell
    post({{componentId::camera, {0}}});
    QTRY_COMPARE(told(), QStringList{"waiting for the camera's shell"});
    QElapsedTimer clock;
    clock.start();
    QVERIFY(Face::Get()->run.stop());
    finish();
    QVERIFY(clock.elapsed() < 1000);
    QVERIFY(worked.isEmpty());
    QCOMPARE(m_events, QStringList({"disabled", "enabled"}));
    QVERIFY(!m_runner->lastRun().complete);
    QVERIFY(!QFile::exists(m_folder->path() + QStringLiteral("/log")));
}

void tst_RunnerSteps::runAfterAStoppedOneIsWhole()
{
    work = [](const QList<int> &) {
        Face::Get()->run.stop();
        return 3;
    };
    post({{componentId::camera, {0}}});
    finish();
    m_events.clear();
    work = [](const QList<int> &) { return 0; };
    post({{componentId::camera, {0}}, {componentId::battery, {0}}});
    QTRY_COMPARE(m_runner->finishedRuns(), 2);
    QCOMPARE(m_events, QStringList({"disabled", "component Camera", "0 is 0", "total 50", "component Battery", "2 is 0",
                                    "total 100", "passed", "enabled"}));
    QVERIFY(m_runner->lastRun().complete);
    QCOMPARE(told(), QStringList{"results"});
}

void tst_RunnerSteps::logOfAStoppedRun_data()
{
    QTest::addColumn<bool>("safeguards");
    QTest::addColumn<bool>("earlier");
    QTest::addColumn<QStringList>("files"); // name and content
    const QString whole = QStringLiteral("DetectorLog.txt: [Camera]:\nsaid 0\n\n[Battery]:\nsaid 2\n\n");
    const QString begun = QStringLiteral(": [Camera]:\nsaid 0\n\n");
    QTest::newRow("nineteen keys, the first of the day") << false << false << QStringList{"DetectorLog.txt" + begun};
    QTest::newRow("nineteen keys, an earlier one")
        << false << true << QStringList{"DetectorLog.stopped.txt" + begun, whole};
    QTest::newRow("safeguards, the first of the day") << true << false << QStringList{"DetectorLog.txt" + begun};
    QTest::newRow("safeguards, an earlier one")
        << true << true << QStringList{"<time>/" + whole, "DetectorLog.txt" + begun};
}

void tst_RunnerSteps::logOfAStoppedRun()
{
    QFETCH(const bool, safeguards);
    QFETCH(const bool, earlier);
    Settings settings;
    settings.safeguards = safeguards;
    Face::Get()->setSettings(settings);
    const QList<ComponentTask> plan{{componentId::camera, {0}}, {componentId::battery, {0}}};
    if (earlier) {
        post(plan);
        QTRY_COMPARE(m_runner->finishedRuns(), 1);
    }
    work = [](const QList<int> &) {
        Face::Get()->run.stop();
        return 3;
    };
    post(plan);
    QTRY_COMPARE(m_runner->finishedRuns(), earlier ? 2 : 1);
    QStringList files;
    const QDir folder(QFileInfo(logPath()).path());
    QDirIterator found(folder.path(), QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        QFile file(found.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString name = folder.relativeFilePath(file.fileName());
        const int slash = name.indexOf(QLatin1Char('/'));
        files.append((slash < 0 ? name : QStringLiteral("<time>") + name.mid(slash)) + QStringLiteral(": ") +
                     QString::fromUtf8(file.readAll()));
    }
    files.sort();
    QTEST(files, "files");
}

void tst_RunnerSteps::nothingIsTakenAfterAStopRequest()
{
    Face::Get()->requestStop();
    post({{componentId::camera, {0}}});
    QTest::qWait(300);
    QCOMPARE(m_runner->finishedRuns(), 0);
    QVERIFY(worked.isEmpty());
    m_runner->killThread();
    QCOMPARE(savedLog(), QByteArray("(no file)"));
}

void tst_RunnerSteps::textsAreTranslated()
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    post({{componentId::pcba, {0}}});
    finish();
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(m_events.at(1), QStringLiteral("component <QObject:PCBA>"));
    QCOMPARE(savedLog(), QByteArray("[<QObject:PCBA>]:\nsaid 8\n\n"));
}

void tst_RunnerSteps::whatIsTold_data()
{
    QTest::addColumn<QList<int>>("components");
    QTest::addColumn<int>("act"); // during the first component
    QTest::addColumn<QStringList>("told");

    QTest::newRow("a complete run") << QList<int>{0} << 0 << QStringList{"results"};
    QTest::newRow("an empty plan") << QList<int>{} << 0 << QStringList{"nothing was tested", "results"};
    QTest::newRow("a placeholder alone") << QList<int>{3} << 0 << QStringList{"nothing was tested", "results"};
    QTest::newRow("a placeholder beside a test") << QList<int>{3, 2} << 0 << QStringList{"results"};
    QTest::newRow("logs alone") << QList<int>{9} << 0 << QStringList{"results"};
    QTest::newRow("the link was lost") << QList<int>{0} << 1
                                       << QStringList{"the camera was lost during the run", "results"};
    QTest::newRow("another camera") << QList<int>{0} << 2
                                    << QStringList{"another camera came during the run", "results"};
    QTest::newRow("a file that was not saved")
        << QList<int>{0} << 3 << QStringList{"not saved: /a: No space", "results"};
    QTest::newRow("queries sent again") << QList<int>{0} << 4
                                        << QStringList{"queries that had to be sent again: 2", "results"};
}

void tst_RunnerSteps::whatIsTold()
{
    QFETCH(const QList<int>, components);
    QFETCH(const int, act);
    work = [act](const QList<int> &) {
        RunExchange &run = Face::Get()->run;
        switch (act) {
        case 1:
            run.noteLinkLost();
            break;
        case 2:
            run.noteCamera(QStringLiteral("00:00:00:00:00:01"));
            break;
        case 3:
            run.noteUnsaved({QStringLiteral("/a"), QStringLiteral("No space")});
            break;
        case 4:
            noteResentRequest();
            noteResentRequest();
            break;
        default:
            break;
        }
        return 0;
    };
    QList<ComponentTask> plan;
    for (const int id : components) {
        plan.append(ComponentTask{id, {0}});
    }
    post(plan);
    finish();
    QTEST(told(), "told");
    QCOMPARE(Face::Get()->notices.current().constLast().path, QFileInfo(logPath()).path());
    QVERIFY(m_runner->lastRun().passed); // these things decide nothing without safeguards
    QVERIFY(m_runner->lastRun().complete);
}

void tst_RunnerSteps::noticesOfTheRunBeforeAreWithdrawn()
{
    Face *face = Face::Get();
    face->notices.tell(Notices::cameraLost());
    face->notices.tell(Notices::notStarted({QStringLiteral("no component is ticked")}));
    post({{componentId::camera, {0}}});
    finish();
    QCOMPARE(told(), QStringList{"results"});
}

void tst_RunnerSteps::unansweredRequestsAreThoseOfComponentsWithAVerdict()
{
    work = [](const QList<int> &) {
        noteUnansweredRequest();
        return 2;
    };
    post({{componentId::camera, {0}}, {componentId::log, {0}}, {componentId::pcba, {0}}});
    finish();
    const RunOutcome outcome = m_runner->lastRun();
    QCOMPARE(outcome.unanswered, 2);
    QVERIFY(outcome.tested);
    QVERIFY(outcome.passed);
    QCOMPARE(outcome.end.identity.macAddress, mac);
    QCOMPARE(outcome.end.logs.size(), 3);
}

void tst_RunnerSteps::safeguardsDecide_data()
{
    QTest::addColumn<bool>("on");
    QTest::addColumn<QList<int>>("components");
    QTest::addColumn<int>("act"); // 1: a request goes unanswered, 2: the link is lost
    QTest::addColumn<QStringList>("verdicts");
    QTest::addColumn<bool>("passed");

    QTest::newRow("off: fan alone passes") << false << QList<int>{3} << 0 << QStringList{"3 is 0"} << true;
    QTest::newRow("on: fan alone does not") << true << QList<int>{3} << 0 << QStringList{"3 is 3"} << false;
    QTest::newRow("on: fan beside a test") << true << QList<int>{3, 2} << 0 << QStringList{"3 is 3", "2 is 0"} << true;
    QTest::newRow("off: unanswered") << false << QList<int>{8} << 1 << QStringList{"8 is 0"} << true;
    QTest::newRow("on: unanswered") << true << QList<int>{8} << 1 << QStringList{"8 is 1"} << false;
    QTest::newRow("off: lost") << false << QList<int>{8} << 2 << QStringList{"8 is 0"} << true;
    QTest::newRow("on: lost") << true << QList<int>{8} << 2 << QStringList{"8 is 0"} << false;
}

void tst_RunnerSteps::safeguardsDecide()
{
    QFETCH(const bool, on);
    QFETCH(const QList<int>, components);
    QFETCH(const int, act);
    QFETCH(const bool, passed);
    Settings settings;
    settings.safeguards = on;
    Face::Get()->setSettings(settings);
    work = [act](const QList<int> &) {
        if (act == 1) {
            noteUnansweredRequest();
        } else if (act == 2) {
            Face::Get()->run.noteLinkLost();
        }
        return 0;
    };
    QList<ComponentTask> plan;
    for (const int id : components) {
        plan.append(ComponentTask{id, {0}});
    }
    post(plan);
    finish();
    QTEST(m_events.filter(QStringLiteral(" is ")), "verdicts");
    QCOMPARE(m_events.at(m_events.size() - 2), passed ? QStringLiteral("passed") : QStringLiteral("failed"));
}

void tst_RunnerSteps::waitsForAShellThatIsBeingRegained()
{
    Face *face = Face::Get();
    face->shellState = ShellState::Regaining;
    post({{componentId::camera, {0}}});
    QTRY_COMPARE(told(), QStringList{"waiting for the camera's shell"});
    QTest::qWait(300);
    QCOMPARE(m_events, QStringList{"disabled"});
    TelnetInteractiveFace::Get()->slot_connected(true);
    QTest::qWait(300);
    QCOMPARE(m_events, QStringList{"disabled"}); // whose camera it is has not been read yet
    face->shellState = ShellState::Up;
    finish();
    QCOMPARE(worked, QStringList{"0"});
    QCOMPARE(told(), QStringList{"results"});
}

void tst_RunnerSteps::waitsForAShellWhoseLossIsNotNoticedYet()
{
    Face::Get()->shellState = ShellState::Up;
    post({{componentId::camera, {0}}});
    QTRY_COMPARE(told(), QStringList{"waiting for the camera's shell"});
    QVERIFY(worked.isEmpty());
    TelnetInteractiveFace::Get()->slot_connected(true);
    finish();
    QCOMPARE(worked, QStringList{"0"});
    QCOMPARE(told(), QStringList{"results"});
}

void tst_RunnerSteps::doesNotWaitForAShellThatWasNeverThere()
{
    QStringList notices;
    connect(
        &Face::Get()->notices, &Notices::told, this, [&](const Notice &notice) { notices.append(notice.text); },
        Qt::DirectConnection);
    post({{componentId::camera, {0}}});
    finish();
    disconnect(&Face::Get()->notices, nullptr, this, nullptr);
    QCOMPARE(notices.filter(QStringLiteral("waiting")), QStringList());
}

void tst_RunnerSteps::patienceWithTheShellEnds()
{
    Face::Get()->shellState = ShellState::Regaining;
    QElapsedTimer clock;
    qint64 begun = 0;
    work = [&](const QList<int> &) {
        begun = clock.elapsed();
        return 0;
    };
    clock.start();
    post({{componentId::camera, {0}}});
    finish();
    QVERIFY2(begun >= 15000 && begun < 19000, qPrintable(QString::number(begun)));
    QCOMPARE(told(), QStringList{"results"});

    // Until the shell is back, nobody waits for it again.
    clock.start();
    post({{componentId::camera, {0}}});
    QTRY_COMPARE_WITH_TIMEOUT(m_runner->finishedRuns(), 2, 60000);
    QVERIFY2(begun < 5000, qPrintable(QString::number(begun)));
}

void tst_RunnerSteps::recordIsHandedOutOnceBeforeTheRunCounts()
{
    QList<RunRecord> records;
    QStringList states;
    const QObject here; // ends the connections before what they capture
    connect(
        m_runner.get(), &KestDetectorRt::signal_runRecorded, &here,
        [this, records = &records, states = &states](const RunRecord &record) {
            records->append(record);
            states->append(QStringLiteral("%1 runs, %2, %3")
                               .arg(QString::number(m_runner->finishedRuns()),
                                    QString::fromUtf8(savedLog()).simplified(), m_events.constLast()));
        },
        Qt::DirectConnection);
    work = [](const QList<int> &items) { return items.constFirst(); };
    post({{componentId::camera, {0}}, {componentId::pcba, {2}}, {componentId::log, {1}}});
    finish();
    post({{componentId::battery, {1}}});
    QTRY_COMPARE(m_runner->finishedRuns(), 2);

    QCOMPARE(states, QStringList({"0 runs, [Camera]: said 0 [PCBA]: said 8 [Log]: said 9, enabled",
                                  "1 runs, [Battery]: said 2, enabled"}));
    QVERIFY(records.at(0).id != records.at(1).id);
    QCOMPARE(records.at(0).camera.mac, mac);
    QCOMPARE(records.at(0).outcome, Outcome::Passed);
    QCOMPARE(records.at(0).plan.size(), 3);
    QStringList components;
    for (const ComponentRecord &component : records.at(0).components) {
        components.append(component.key + QLatin1Char(' ') + nameOf(component.verdict));
    }
    QCOMPARE(components, QStringList({"camera passed", "pcba warning", "log failed"}));
    QVERIFY2(records.at(0).duration < std::chrono::seconds(10), "the run's own, not the program's");
    QVERIFY2(records.at(0).duration >= 3 * KestDetectorRt::taskPause, "the pauses belong to the run");
    QVERIFY2(records.at(0).components.at(0).duration < KestDetectorRt::taskPause, "and to no component");
    QCOMPARE(records.at(1).outcome, Outcome::Failed);
    QCOMPARE(records.at(1).reason, QStringLiteral("battery"));
}

void tst_RunnerSteps::recordOfAStoppedRun()
{
    QList<RunRecord> records;
    const QObject here; // ends the connections before what they capture
    connect(
        m_runner.get(), &KestDetectorRt::signal_runRecorded, &here,
        [records = &records](const RunRecord &record) { records->append(record); }, Qt::DirectConnection);
    work = [](const QList<int> &) {
        Face::Get()->requestStop();
        return 0;
    };
    post({{componentId::camera, {0}}, {componentId::battery, {0}}});
    finish();
    QCOMPARE(records.size(), 1);
    QCOMPARE(records.at(0).outcome, Outcome::Stopped);
    QCOMPARE(records.at(0).reason, QStringLiteral("the program was closed"));
    QCOMPARE(records.at(0).plan.size(), 2);
    QCOMPARE(records.at(0).components.size(), 1);
}

void tst_RunnerSteps::filesAreReadOnlyForARecord()
{
    // Whoever opens it to read waits for a writer.
    const QString pipe = m_folder->filePath(QStringLiteral("log.tar.gz"));
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    work = [&pipe](const QList<int> &) {
        CheckItemLog item;
        item.number = 0;
        item.files = QStringList{pipe};
        emit Face::Get()->signal_showCheckLog({componentId::log, {item}});
        return 0;
    };
    post({{componentId::log, {0}}});
    finish();

    QList<RunRecord> records;
    const QObject here; // ends the connections before what they capture
    connect(
        m_runner.get(), &KestDetectorRt::signal_runRecorded, &here,
        [records = &records](const RunRecord &record) { records->append(record); }, Qt::DirectConnection);
    post({{componentId::log, {0}}});
    QTRY_VERIFY(m_events.count(QStringLiteral("enabled")) == 2); // nobody waits for the file
    QFile writer(pipe);
    QVERIFY(writer.open(QIODevice::WriteOnly));
    writer.write("abc");
    writer.close();
    QTRY_COMPARE(m_runner->finishedRuns(), 2);
    QCOMPARE(records.at(0).components.at(0).items.at(0).files.size(), 1);
    QCOMPARE(records.at(0).components.at(0).items.at(0).files.at(0).sha256,
             QStringLiteral("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

QTEST_GUILESS_MAIN(tst_RunnerSteps)
#include "tst_RunnerSteps.moc"
