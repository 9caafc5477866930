#pragma once

#include "detector/run/components.h"
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

/// How a run went, beyond what its components said.
struct RunOutcome
{
    bool passed = true;
    bool complete = true; ///< every task was begun, and none was cut short by the program's closing
    bool tested = false;  ///< a component was run behind which there is something
    int unanswered = 0;   ///< requests of the components with a verdict that got no usable answer
    int resent = 0;       ///< queries that had to be sent again
    RunEnd end;
};

/// The runner: one worker thread that executes every detection run, from program start to window close. It looks at
/// the facade's `runRequest` every 50 ms, runs the requested components one after the other, reports through the
/// facade's signals and notices and at the end writes the detection log.
class KestDetectorRt : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KestDetectorRt)

public:
    static constexpr std::chrono::milliseconds requestPoll{50};
    static constexpr std::chrono::milliseconds taskPause{100};
    static constexpr std::chrono::milliseconds shellPatience{8000}; ///< for a shell that is being regained

    /// The process-wide instance; its creation starts the worker thread.
    static std::shared_ptr<KestDetectorRt> Get();
    /// A runner of these components, which starts its worker thread. One at a time takes runs from the facade.
    explicit KestDetectorRt(const std::vector<RunComponent> &components = runComponents());

    /// Stops and joins the worker thread. A run in progress is abandoned at the next task boundary, and its log is
    /// still written. Further calls do nothing.
    void killThread();

    /// Writes "<folder of the day and camera>/DetectorLog.txt": one block for each component. An earlier log of the
    /// same day and camera is replaced; where evidence is kept, not by an empty one. A log that cannot be written is
    /// reported in the debug output, and returned.
    static std::optional<UnsavedFile> saveDetectoryLog(const QList<checkLog> &logs);

    /// How many runs have ended and have their log written, since program start. From any thread.
    int finishedRuns() const { return m_finishedRuns; }
    /// Of the run that ended last. From any thread.
    RunOutcome lastRun() const { return m_lastRun; }

private:
    void func();
    void run(const QList<ComponentTask> &plan);
    void runTask(const ComponentTask &task, RunOutcome *outcome) const;
    void waitForShell();
    bool stopping() const;
    static void tell(const RunOutcome &outcome);

    const std::vector<RunComponent> m_components;
    std::atomic<int> m_finishedRuns{0};
    Guarded<RunOutcome> m_lastRun;
    WorkerThread workerThread; ///< last: it starts when everything else is in place
};
