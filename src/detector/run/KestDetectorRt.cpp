#include "detector/run/KestDetectorRt.h"

#include "detector/checks/shellCall.h"
#include "detector/run/logBlock.h"
#include "detector/run/RunRecorder.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/requestTally.h"
#include "detector/store/runFolder.h"
#include "detector/store/Safeguards.h"
#include "detector/store/verdict.h"

#include <algorithm>
#include <QDate>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QMetaMethod>

namespace {
constexpr std::chrono::milliseconds exitLimit(1000);

QString today()
{
    return QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd"));
}

/// What leaves a doubt about whose results a run's are.
std::optional<Notice> doubtAbout(RunEnd::Camera camera)
{
    switch (camera) {
    case RunEnd::Camera::Changed:
        return Notices::cameraChanged();
    case RunEnd::Camera::Lost:
        return Notices::cameraLost();
    case RunEnd::Camera::Kept:
        break;
    }
    return std::nullopt;
}

constexpr auto detectionLog = "DetectorLog.txt";
constexpr auto stoppedLog = "DetectorLog.stopped.txt";

/// The folder of the day and camera, which exists afterwards if it can be created.
struct LogFolder
{
    LogFolder() : path(logFolder(today())), problem(openLogFolder(path)) {}

    QString filePath(const char *name) const { return path + QLatin1Char('/') + QLatin1String(name); }
    bool has(const char *name) const { return QFile::exists(filePath(name)); }
    std::optional<UnsavedFile> write(const char *name, const QList<checkLog> &logs, const QString &doubt) const;

    const QString path;
    const QString problem; ///< why it is not there; empty: it is
};

std::optional<UnsavedFile> LogFolder::write(const char *name, const QList<checkLog> &logs, const QString &doubt) const
{
    QFile file(filePath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        const QString reason = problem.isEmpty() ? file.errorString() : problem;
        qWarning().noquote() << "Detection log not written:" << file.fileName() << reason;
        return UnsavedFile{file.fileName(), reason};
    }
    if (!doubt.isEmpty()) {
        file.write((doubt + QStringLiteral("\n\n")).toUtf8());
    }
    for (const checkLog &log : logs) {
        file.write(logBlock(log).toUtf8());
        file.flush();
    }
    if (!file.flush() || file.error() != QFile::NoError) {
        qWarning().noquote() << "Detection log not complete:" << file.fileName() << file.errorString();
        return UnsavedFile{file.fileName(), file.errorString()};
    }
    return std::nullopt;
}
} // namespace

std::shared_ptr<KestDetectorRt> KestDetectorRt::Get()
{
    static const auto ptr = std::make_shared<KestDetectorRt>();
    return ptr;
}

KestDetectorRt::KestDetectorRt(const std::vector<RunComponent> &components)
    : m_components(components), workerThread("runner", exitLimit, [this] { func(); })
{
    qRegisterMetaType<RunRecord>(); // receivers of the record live on other threads
}

void KestDetectorRt::killThread()
{
    workerThread.stop();
}

/// A program that closes asks for the stop first and joins other threads before this one: a component that began
/// meanwhile could only leave an empty record.
bool KestDetectorRt::stopping() const
{
    return !workerThread.running() || KestDetectorFace::Get()->runIsCutShort();
}

void KestDetectorRt::func()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    while (workerThread.running()) {
        if (!face->stopRequested()) {
            if (const auto plan = face->run.take(face->macAddress)) {
                run(*plan);
            }
        }
        workerThread.pause(requestPoll);
    }
}

void KestDetectorRt::run(const QList<ComponentTask> &plan)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    RunRecorder recorder(plan);
    emit face->signal_setButtonEnable(false);
    face->notices.withdrawRun();
    awaitShell([this] { return stopping(); });

    RunOutcome outcome;
    int done = 0;
    for (const ComponentTask &task : plan) {
        if (stopping()) {
            break;
        }
        runTask(task, &outcome, &recorder);
        workerThread.pause(taskPause);
        ++done;
        emit face->signal_showTotalPersent(static_cast<int>(done * 100 / plan.size()));
    }
    const bool closing = stopping() && !face->run.isStopped();
    outcome.end = face->run.finish();
    recorder.endRun();
    outcome.complete = done == plan.size() && !closing && !outcome.end.stopped;
    outcome.passed = face->safeguards().runPassed(outcome.passed, outcome.tested, outcome.end.camera);
    if (!outcome.end.stopped) {
        emit face->signal_showCheckResult(outcome.passed);
    }
    emit face->signal_setButtonEnable(true);

    const auto doubt = doubtAbout(outcome.end.camera);
    const bool tellsDoubt = doubt && face->safeguards().keepsEvidence();
    const auto save = outcome.end.stopped ? saveStoppedLog : saveDetectoryLog;
    if (const auto unsaved = save(outcome.end.logs, tellsDoubt ? doubt->text : QString())) {
        outcome.end.unsaved.append(*unsaved);
    }
    tell(outcome);
    m_lastRun = outcome;
    if (recordIsWanted()) {
        emit signal_runRecorded(recorder.record(outcome));
    }
    ++m_finishedRuns;
    emit signal_runEnded();
}

bool KestDetectorRt::recordIsWanted() const
{
    static const QMetaMethod recorded = QMetaMethod::fromSignal(&KestDetectorRt::signal_runRecorded);
    return isSignalConnected(recorded);
}

void KestDetectorRt::runTask(const ComponentTask &task, RunOutcome *outcome, RunRecorder *recorder) const
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const auto component = std::find_if(m_components.begin(), m_components.end(),
                                        [&](const RunComponent &entry) { return entry.id == task.component; });
    if (component == m_components.end()) {
        outcome->passed = false;
        return;
    }
    emit face->signal_showCurrentComponent(getComponent(task.component));
    int verdict = verdict::none;
    const RequestTally before = requestTally();
    recorder->beginComponent(task.component);
    component->routine(&verdict, task.items);
    const RequestTally requests = requestTally() - before;
    outcome->tested = outcome->tested || Safeguards::countsAsTested(task.component);
    outcome->resent += requests.resent;
    if (component->showResult == nullptr) {
        recorder->endComponent(verdict, false);
        outcome->passed = outcome->passed && !recorder->breaksLimit();
        return;
    }
    const Safeguards safeguards = face->safeguards();
    const int shown = safeguards.componentVerdict(task.component, verdict, requests.unanswered);
    recorder->endComponent(shown, true);
    outcome->unanswered += requests.unanswered;
    outcome->passed = outcome->passed && !safeguards.failsRun(task.component, shown);
    emit(face->*component->showResult)(shown);
}

void KestDetectorRt::tell(const RunOutcome &outcome)
{
    Notices &notices = KestDetectorFace::Get()->notices;
    if (outcome.end.stopped) {
        notices.tell(Notices::stopped());
    } else if (!outcome.tested) {
        notices.tell(Notices::nothingTested());
    }
    if (const auto doubt = doubtAbout(outcome.end.camera)) {
        notices.tell(*doubt);
    }
    for (const UnsavedFile &file : outcome.end.unsaved) {
        notices.tell(Notices::notSaved(file.path, file.reason));
    }
    if (outcome.resent > 0) {
        notices.tell(Notices::attempts(outcome.resent));
    }
    const QString folder = logFolder(today());
    if (QDir(folder).exists()) {
        notices.tell(Notices::results(folder));
    }
}

std::optional<UnsavedFile> KestDetectorRt::saveDetectoryLog(const QList<checkLog> &logs, const QString &doubt)
{
    if (logs.isEmpty() && KestDetectorFace::Get()->safeguards().keepsEvidence()) {
        return std::nullopt;
    }
    const LogFolder folder;
    return folder.write(detectionLog, logs, doubt);
}

std::optional<UnsavedFile> KestDetectorRt::saveStoppedLog(const QList<checkLog> &logs, const QString &doubt)
{
    if (logs.isEmpty()) {
        return std::nullopt;
    }
    const LogFolder folder;
    return folder.write(folder.has(detectionLog) ? stoppedLog : detectionLog, logs, doubt);
}
