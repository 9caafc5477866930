#pragma once

#include "detector/store/checkLog.h"
#include "detector/store/ComponentTask.h"
#include "threads/WorkerThread.h"

#include <atomic>
#include <memory>
#include <QList>
#include <QObject>

/// The runner: one worker thread that executes every detection run, from program start to window close. It looks at
/// the facade's `runRequest` every 50 ms, runs the requested components one after the other, reports through the
/// facade's signals and at the end writes the detection log.
class KestDetectorRt : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KestDetectorRt)

public:
    /// The process-wide instance; its creation starts the worker thread.
    static std::shared_ptr<KestDetectorRt> Get();

    /// Stops and joins the worker thread. A run in progress is abandoned at the next task boundary, and its log is
    /// still written. Further calls do nothing.
    void killThread();

    /// Writes "<folder of the day and camera>/DetectorLog.txt": one block for each component. An earlier log of the
    /// same day and camera is replaced. A log that cannot be written is reported in the debug output.
    static void saveDetectoryLog(const QList<checkLog> &logs);

    /// How many runs have ended and have their log written, since program start. From any thread.
    int finishedRuns() const { return m_finishedRuns; }

private:
    KestDetectorRt();

    void func();
    void run(const QList<ComponentTask> &plan);

    std::atomic<int> m_finishedRuns{0};
    WorkerThread workerThread; ///< last: it starts when everything else is in place
};
