#pragma once

#include "app/station/CommandLine.h"
#include "detector/store/checkLog.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

class KestDetectorUI;

/// Drives the window as an operator would: waits for the camera and its MAC address, ticks the boxes, presses Start,
/// waits for the end, prints the verdicts and the log to standard output, and closes the window. Lives on the GUI
/// thread; to be made after the window and before the services, so that it misses no signal.
class UnattendedRun : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(UnattendedRun)

public:
    enum ExitCode {
        Passed = 0,
        Failed = 1, ///< also when the window was closed before the last run had ended
        WrongUsage = 2,
        NoCamera = 3,
    };

    UnattendedRun(KestDetectorUI *window, const CommandLine &line);

    /// The process's exit code, once the window is closed.
    int exitCode() const { return m_exitCode; }

private:
    void startWhenReady();
    void startRun();
    void noteVerdict(int component, int verdict);
    void runEnded(bool passed);
    void report();
    void leave(int exitCode);

    KestDetectorUI *m_window;
    const CommandLine m_line;
    QTimer m_connectTimer;
    QTimer m_savedTimer; ///< waits for the detection log, which is written after the run's last signal
    bool m_connected = false;
    QString m_mac;
    bool m_started = false;
    int m_runs = 0;
    bool m_runPassed = false;
    bool m_allPassed = true;
    QString m_verdicts; ///< the lines to print of the run under way
    QString m_log;
    int m_exitCode = Failed;
};
