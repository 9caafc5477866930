#pragma once

#include "detector/run/components.h"
#include "detector/run/RunOutcome.h"
#include "detector/store/checkLog.h"
#include "detector/store/ComponentTask.h"
#include "detector/store/Guarded.h"
#include "detector/store/RunExchange.h"
#include "threads/WorkerThread.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <QList>
#include <QObject>
#include <vector>

class RunRecorder;

/// The runner: one worker thread that executes every detection run, from program start to window close. It looks at
/// the facade's `runRequest` every 50 ms, runs the requested components one after the other, reports through the
/// facade's signals and notices and at the end writes the detection log and hands out the run's record.
/// A run that is stopped leaves out what it has not begun, and has no result: its end is told by the buttons alone.
class KestDetectorRt : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KestDetectorRt)

public:
    static constexpr std::chrono::milliseconds requestPoll{50};
    static constexpr std::chrono::milliseconds taskPause{100};

    /// The process-wide instance; its creation starts the worker thread.
    static std::shared_ptr<KestDetectorRt> Get();
    /// A runner of these components, which starts its worker thread. One at a time takes runs from the facade.
    explicit KestDetectorRt(const std::vector<RunComponent> &components = runComponents());

    /// Stops and joins the worker thread. A run in progress is abandoned at the next task boundary, and its log is
    /// still written. Further calls do nothing.
    void killThread();

    /// Writes "<folder of the day and camera>/DetectorLog.txt": one block for each component. An earlier log of the
    /// same day and camera is replaced; where evidence is kept, not by an empty one. A log that cannot be written is
    /// reported in the debug output, and returned. `doubt`: what is to be said above the blocks, if anything.
    static std::optional<UnsavedFile> saveDetectoryLog(const QList<checkLog> &logs, const QString &doubt = {});
    /// Likewise for a run that was stopped: nothing where it has found nothing, and beside an earlier log instead of in
    /// its place, as "DetectorLog.stopped.txt".
    static std::optional<UnsavedFile> saveStoppedLog(const QList<checkLog> &logs, const QString &doubt = {});

    /// How many runs have ended and have their log written, since program start. From any thread.
    int finishedRuns() const { return m_finishedRuns; }
    /// Of the run that ended last. From any thread.
    RunOutcome lastRun() const { return m_lastRun; }

signals:
    /// Once for each run that was taken, closed or not: when its verdict has been shown and its detection log written,
    /// and before `finishedRuns` counts it. Emitted on the runner's thread, which takes no further run until every
    /// direct receiver has returned. To want records is to be connected before the run ends: as long as nobody is,
    /// none is made and no file is read for it.
    void signal_runRecorded(RunRecord record);
    /// Once for each run that was taken, when `lastRun` is of it. Emitted on the runner's thread.
    void signal_runEnded();

private:
    void func();
    void run(const QList<ComponentTask> &plan);
    void runTask(const ComponentTask &task, RunOutcome *outcome, RunRecorder *recorder) const;
    bool recordIsWanted() const;
    bool stopping() const;
    static void tell(const RunOutcome &outcome);

    const std::vector<RunComponent> m_components;
    std::atomic<int> m_finishedRuns{0};
    Guarded<RunOutcome> m_lastRun;
    WorkerThread workerThread; ///< last: it starts when everything else is in place
};
