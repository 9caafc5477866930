#pragma once

#include "detector/run/RunOutcome.h"
#include "detector/store/checkLog.h"
#include "detector/store/ComponentTask.h"
#include "record/RunRecord.h"

#include <chrono>
#include <QList>
#include <QObject>
#include <QStringList>

/// Gathers the record of one run while it goes on. Lives on the runner's thread from the run's begin to its end; what
/// the components find comes from `signal_showCheckLog`, which their routines emit there.
class RunRecorder
{
    Q_DISABLE_COPY(RunRecorder)

public:
    /// The run under way in the facade, which has just been taken.
    explicit RunRecorder(const QList<ComponentTask> &plan);
    ~RunRecorder() = default;

    void beginComponent(int component);
    /// `shownVerdict`: the code with which the component is shown and counted; `counts`: whether it fails the run
    /// unless it passes. One that does not count fails it only where it breaks a limit.
    void endComponent(int shownVerdict, bool counts);
    /// Whether an item of the component that has ended last broke a limit that somebody has set.
    bool breaksLimit() const;
    /// The last component has ended.
    void endRun();

    /// The whole record, once the run has ended. Reads every collected file for its checksum: for when nobody waits.
    RunRecord record(const RunOutcome &outcome) const;

private:
    using Clock = std::chrono::steady_clock;

    QString reasonOf(const RunOutcome &outcome) const;

    const Clock::time_point m_begin = Clock::now();
    Clock::time_point m_componentBegin = m_begin;
    RunRecord m_record;     ///< without what is known only at the end
    checkLog m_component;   ///< of the component under way
    QList<checkLog> m_logs; ///< of the components in the record, in its order
    QStringList m_failed;   ///< keys of the items, or the component, that failed the run
    QObject m_receiver;
};
