#pragma once

#include "app/station/CommandLine.h"
#include "app/station/HandsFree.h"
#include "app/station/RecordOutput.h"
#include "detector/store/checkLog.h"
#include "detector/store/Notices.h"
#include "record/RunRecord.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

class KestDetectorUI;
struct RunOutcome;

/// Drives the window as an operator would: waits for the camera and its MAC address, ticks the boxes, presses Start,
/// waits for the end, prints the verdicts and the log to standard output, and closes the window. What the operator is
/// told in plain words goes to standard error. With --each it does so for each camera that connects. The runs' records
/// go where the command line says. Lives on the GUI thread; to be made after the window and before the services, so
/// that it misses no signal.
class UnattendedRun : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(UnattendedRun)

public:
    enum ExitCode {
        Passed = 0, ///< something was tested, every request was answered, everything was saved
        Failed = 1,
        NotSound = 2, ///< the command line or option.ini is malformed, or there is a station already
        NoCamera = 3, ///< not in time, or lost or changed during a run
        Stopped = 4,  ///< a run was stopped, or the window was closed before the last run had ended
        NotSaved = 5, ///< the verdict stands, but something could not be saved
    };

    UnattendedRun(KestDetectorUI *window, const CommandLine &line);

    /// To be called when the window is closed and the runner has ended: takes what a run that was cut short has left.
    void finish();
    /// The process's exit code, once that is done.
    int exitCode() const;

    /// The operator wants an end: stops the run under way, and closes the window when there is none, or when that has
    /// been wanted before.
    void interrupt();

    /// What one run alone gives as exit code.
    static ExitCode exitCodeOf(const RunOutcome &outcome);

private:
    void tellRecords();
    void startWhenReady();
    void prepare();
    void startRun();
    void print(const Notice &notice);
    void noteVerdict(int component, int verdict);
    void runEnded(bool passed);
    void report();
    void finishLastRun();
    ExitCode idleCode() const;
    void leave(ExitCode exitCode);

    KestDetectorUI *m_window;
    const CommandLine m_line;
    RecordOutput m_output;
    QList<RunRecord> m_untold; ///< told with the verdict: whoever reads a record may count on the run being over
    HandsFree m_handsFree;     ///< with --each
    QTimer m_connectTimer;
    QTimer m_savedTimer; ///< waits for the detection log, which is written after the run's last signal
    bool m_connected = false;
    QString m_mac;
    bool m_started = false;
    bool m_startDue = false; ///< the button was not enabled yet
    bool m_underWay = false; ///< a run, from its start until it has told its end
    bool m_interrupted = false;
    int m_runs = 0;
    bool m_runPassed = false;
    QString m_verdicts; ///< the lines to print of the run under way
    QString m_log;
    ExitCode m_worst = Passed; ///< of the runs that have ended
    ExitCode m_exitCode = Stopped;
};
