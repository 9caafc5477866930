#pragma once

#include "detector/store/checkLog.h"
#include "detector/store/ComponentTask.h"
#include "detector/store/RunLabels.h"

#include <functional>
#include <mutex>
#include <optional>
#include <QDateTime>
#include <QList>
#include <QString>
#include <thread>

/// Whose run it is: fixed at its begin.
struct RunIdentity
{
    QString macAddress; ///< of the camera; empty: unknown
    QDateTime begin;    ///< local time
    RunLabels labels;   ///< as they were posted
};

/// A file that the run should have left and did not.
struct UnsavedFile
{
    QString path;
    QString reason; ///< the system's own words: "No space left on device"
};

/// What a run has left when it ends.
struct RunEnd
{
    enum class Camera {
        Kept,    ///< nothing else was noticed than one camera on one link
        Lost,    ///< the link was dropped at least once
        Changed, ///< a camera with another MAC address was there
    };

    RunIdentity identity;
    QString cameraMac;    ///< of the run's own camera: known at its begin, or the first one that it has heard of
    QList<checkLog> logs; ///< in the order in which the components ran
    Camera camera = Camera::Kept;
    QList<UnsavedFile> unsaved;
    bool stopped = false; ///< the operator has stopped it: what it has found is no judgement
};

/// How a run changes hands: the window posts a plan, the runner takes it, the component routines append their records,
/// and the runner finishes it. Meanwhile the supervisor notes what becomes of the camera, and the operator may stop it.
/// Every call is from any thread; one mutex guards everything.
class RunExchange
{
public:
    RunExchange() = default;
    RunExchange(const RunExchange &) = delete;
    RunExchange &operator=(const RunExchange &) = delete;

    /// Requests a run and drops the records of the one before; false, and nothing else, while a run is under way. A
    /// plan that nobody has taken yet is replaced.
    bool post(const QList<ComponentTask> &plan, const RunLabels &labels = {});
    /// The posted plan, if there is one: the run is under way from here until `finish`. `macAddress` is the camera's of
    /// this moment. The calling thread works for the run from here on.
    std::optional<QList<ComponentTask>> take(const QString &macAddress);
    void append(const checkLog &log);
    void noteUnsaved(const UnsavedFile &file);
    /// True once in each run: whoever gets it makes the run's folder ready.
    bool claimFolder();
    /// The run is over, and the next may be posted. Hands out what is left of it.
    RunEnd finish();

    /// The operator stops the run that is posted or under way: nothing of it is begun any more, and whatever its thread
    /// waits for gives up once it is woken. False: there is none.
    bool stop();
    bool isStopped() const; ///< from `stop` to `finish`
    /// Tells from then on, on any thread, whether the run that the calling thread works for has been stopped. Never, on
    /// a thread that works for none. It must not outlive this object.
    std::function<bool()> stopSign() const;

    /// The link to the camera is dropped: the run under way, if any, cannot vouch for its camera any more.
    void noteLinkLost();
    /// A camera tells its MAC address. One that is empty says nothing; the first one that a run hears of is its own.
    void noteCamera(const QString &macAddress);

    bool isActive() const;                 ///< from `take` to `finish`
    int runRequest() const;                ///< 1 from `post` to `finish`, 0 when idle
    QList<ComponentTask> taskList() const; ///< the plan posted last
    QList<checkLog> checkLogList() const;  ///< the records of the run posted last
    RunIdentity identity() const;          ///< of the run under way, or of the last one

private:
    mutable std::mutex m_mutex;
    bool m_requested = false;
    bool m_active = false;
    std::thread::id m_runner; ///< the thread that took the run
    QList<ComponentTask> m_plan;
    RunLabels m_labels; ///< of the plan posted last
    RunEnd m_run;
    bool m_folderClaimed = false;
};
