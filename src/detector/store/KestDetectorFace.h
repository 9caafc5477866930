#pragma once

#include "detector/store/checkLog.h"
#include "detector/store/ComponentTask.h"
#include "detector/store/Guarded.h"
#include "detector/store/Notices.h"
#include "detector/store/RunExchange.h"
#include "detector/store/RunLabels.h"
#include "detector/store/Safeguards.h"
#include "detector/store/Settings.h"

#include <atomic>
#include <QList>
#include <QObject>
#include <QString>

/// The camera's shell as the supervisor knows it.
enum class ShellState {
    None,      ///< no link, or no login has succeeded since it came up
    Up,        ///< logged in
    Regaining, ///< was up on this link, and its connection has gone
};

/// The process-wide meeting point of the worker side and the window: the settings, the state of the run and of the
/// link, and the signals that tell the window what to show.
///
/// Signals may be emitted from any thread; the window receives them queued. The fields that more than one thread
/// touches while threads run are atomics or guarded; the settings are written once, before any worker exists.
class KestDetectorFace : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KestDetectorFace)

public:
    /// Creates the instance on first use; it lives until the process ends.
    static KestDetectorFace *Get();

    /// The run on its way from Start to its end; the next three read it.
    RunExchange run;
    int runRequest() const { return run.runRequest(); }
    QList<ComponentTask> taskList() const { return run.taskList(); }
    QList<checkLog> checkLogList() const { return run.checkLogList(); }
    Guarded<QString> savePath;    ///< the operator's folder; at first the application's directory
    Guarded<RunLabels> runLabels; ///< what the next run is posted with

    Notices notices; ///< what the operator is told in plain words

    std::atomic<int> quitFlag{0}; ///< not 0: waiting telnet and FTP calls give up

    // The link, written by the camera supervisor and by the WiFi and MAC readers.
    std::atomic<bool> connectState{false};
    std::atomic<ShellState> shellState{ShellState::None};
    /// Whether `macAddress` has been read over the present shell: false from the loss of a shell until then.
    std::atomic<bool> macAddressIsCurrent{true};
    Guarded<QString> pcAddress;     ///< the PC's own IPv4 address on the camera's network
    Guarded<QString> cameraAddress; ///< the camera's IPv4 address: host of telnet and FTP
    Guarded<QString> linkName;      ///< of `cameraAddress` in the settings: "wifi" or "usb"; empty: no link
    Guarded<QString> wifiName;
    Guarded<QString> wifiPassword;
    Guarded<QString> macAddress; ///< "AA:BB:CC:DD:EE:FF", empty while unknown; names the log folder

    /// What option.ini said at start.
    const Settings &settings() const { return m_settings; }
    Safeguards safeguards() const { return Safeguards(m_settings.safeguards); }
    /// To be called once, before any worker exists: everybody reads the settings without a lock.
    void setSettings(const Settings &settings) { m_settings = settings; }

    /// Whether the program is closing: the routines of a run end early. Set by `requestStop`, from any thread.
    bool stopRequested() const { return m_stopRequested; }
    void requestStop() { m_stopRequested = true; }
    /// For whoever goes on after all, as a test does: a program that closes does not.
    void takeBackStop() { m_stopRequested = false; }
    /// Whether whatever waits is to give up: a stop has been requested, or `quitFlag` is set.
    bool closing() const { return m_stopRequested || quitFlag != 0; }
    /// Whether the run under way is to come to its end before its time: it has been stopped, or the program is closing.
    bool runIsCutShort() const { return m_stopRequested || run.isStopped(); }

signals:
    void signal_showBatteryCheckResult(int verdict);
    void signal_showCameraCheckResult(int verdict);
    void signal_showFanCheckResult(int verdict);
    void signal_showGimbalCheckResult(int verdict);
    void signal_showKeyBoardCheckResult(int verdict);
    void signal_showLensCheckResult(int verdict);
    void signal_showPcbaCheckResult(int verdict);
    void signal_showTFCardCheckResult(int verdict);
    void signal_showVoiceCheckResult(int verdict);
    void signal_showCurrentComponent(QString name);
    void signal_showCurrentCheckItem(QString name);
    void signal_showCheckLogList(QList<checkLog> logs);
    void signal_showCheckLog(checkLog log);
    void signal_showCheckResult(bool passed);
    void signal_showTotalPersent(int percent);   ///< 0 to 100, after each task
    void signal_showCurrentPersent(int percent); ///< 0 to 100, within one component
    void signal_setButtonEnable(bool enabled);
    void signal_setWifiName(QString name);
    void signal_setMacAddress(QString mac);
    void signal_setWifiPassWord(QString password);
    void signal_setConnectStatus(bool connected);

private:
    KestDetectorFace();

    Settings m_settings;
    std::atomic<bool> m_stopRequested{false};
};
