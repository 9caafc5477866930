#pragma once

#include "detector/store/checkLog.h"
#include "detector/store/ComponentTask.h"

#include <memory>
#include <QList>
#include <QMainWindow>
#include <QString>

class EventLog;
class FolderQuestion;
class HiddenText;
class LabelQuestion;
class QLabel;
class RingsProgressbar;

namespace Ui {
class KestDetectorUI;
}

/// The program's only window: the operator ticks components, picks a folder and presses Start; the window posts a run
/// plan to `KestDetectorFace` and shows what comes back through the facade's signals. GUI thread only.
///
/// The result icons, the overall label and the rings carry what they show as accessible name ("Camera: NG",
/// "Total:45%") and as accessible description ("NG", "45%"), for screen readers and for UI automation.
class KestDetectorUI : public QMainWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(KestDetectorUI)

public:
    /// Reads the settings into the facade, too: build the window before any thread that reads them.
    explicit KestDetectorUI(QWidget *parent = nullptr);
    ~KestDetectorUI() override;

    /// The folder below which logs are written; also shown.
    void setSavePath(const QString &path);
    /// Keeps the window, and the least size that it may be given, within this room: on a screen that is smaller than
    /// that size the status bar would otherwise lie below the edge. The window does so by itself for the screen on
    /// which it opens.
    void fitInto(const QSize &room);
    /// Nobody is there to be asked: Start asks nothing, whatever the settings say.
    void askNothing() { m_asks = false; }

    /// What the MAC address's tool tip says of the camera, plain text; until another camera comes.
    void setCameraHistory(const QString &text);

public slots:
    // Each serves the facade's signal of the same stem.
    void slot_showBatteryCheckResult(int verdict);
    void slot_showCameraCheckResult(int verdict);
    void slot_showFanCheckResult(int verdict);
    void slot_showGimbalCheckResult(int verdict);
    void slot_showKeyBoardCheckResult(int verdict);
    void slot_showLensCheckResult(int verdict);
    void slot_showPcbaCheckResult(int verdict);
    void slot_showTFCardCheckResult(int verdict);
    void slot_showVoiceCheckResult(int verdict);
    void slot_showCurrentComponent(const QString &name);
    void slot_showCurrentCheckItem(const QString &name);
    /// Does nothing: the records already came one by one.
    void slot_showCheckLogList(const QList<checkLog> &logs);
    /// Appends one heading row with the component's name and one row for each of its items.
    void slot_showCheckLog(const checkLog &log);
    void slot_showCheckResult(bool passed);
    void slot_showTotalPersent(int percent);
    void slot_showCurrentPersent(int percent);
    /// Fan, button and audio stay clickable during a run, and so does the folder button, unless the safeguards lock
    /// them.
    void slot_setButtonEnable(bool enabled);
    void slot_setWifiName(const QString &name);
    void slot_setMacAddress(const QString &mac);
    void slot_setWifiPassWord(const QString &password);
    void slot_setConnectStatus(bool connected);

protected:
    /// Returns once the services have ended.
    void closeEvent(QCloseEvent *event) override;
    /// During a run, its entry stops it.
    void contextMenuEvent(QContextMenuEvent *event) override;
    /// Escape stops a run, and Enter presses the button that has the focus.
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private slots:
    // The form connects these by the buttons' names; the tests click each button, so that a renamed one is noticed.
    void on_tbStart_clicked();        // clazy:exclude=connect-by-name
    void on_tbChooseAll_clicked();    // clazy:exclude=connect-by-name
    void on_tbNotChooseAll_clicked(); // clazy:exclude=connect-by-name
    void on_tbSavePath_clicked();     // clazy:exclude=connect-by-name

private:
    void initUI();
    void initVal();
    void applySafeguards();
    void initConnection();

    QList<ComponentTask> plan() const;
    bool mayStart() const;
    void startRun();
    void showVerdict(int component, int verdict);
    void clearResults();

    std::unique_ptr<Ui::KestDetectorUI> ui;
    FolderQuestion *const m_folderQuestion;
    LabelQuestion *const m_labelQuestion;
    bool m_asks = true;
    EventLog *m_eventLog = nullptr;
    bool m_frameKnown = false; ///< the window manager has put its frame around the window
    QLabel *m_wifiName = nullptr;
    QLabel *m_wifiPassword = nullptr;
    QLabel *m_macAddress = nullptr;
    QLabel *m_connectState = nullptr;
    HiddenText *m_hiddenPassword = nullptr; ///< null: the password is shown as it is
    QString m_cameraShown;                  ///< MAC address of the last camera; empty before the first
};
