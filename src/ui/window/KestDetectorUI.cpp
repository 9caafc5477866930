#include "ui/window/KestDetectorUI.h"

#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/Notices.h"
#include "detector/store/programVersion.h"
#include "detector/store/Safeguards.h"
#include "detector/store/Settings.h"
#include "detector/store/verdict.h"
#include "places/Places.h"
#include "record/itemKeys.h"
#include "ui/widgets/ElidedText.h"
#include "ui/widgets/FolderQuestion.h"
#include "ui/widgets/GroupFrameStyle.h"
#include "ui/widgets/HiddenText.h"
#include "ui/widgets/RingsProgressbar.h"
#include "ui/window/EventLog.h"
#include "ui/window/LabelQuestion.h"
#include "ui/window/NoticeBar.h"
#include "ui/window/stopRun.h"
#include "ui/window/stopServices.h"
#include "ui/window/verdictLook.h"
#include "ui_KestDetectorUI.h"

#include <array>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFont>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QWindow>

namespace {
struct Component
{
    int id;
    QCheckBox *Ui::KestDetectorUI::*box;
    QLabel *Ui::KestDetectorUI::*icon; ///< nullptr: the component has no verdict
    bool placeholder;                  ///< has no test yet: left alone by Select All and never locked by a run
    QList<int> items;                  ///< what a run does, in this order
};

/// In the order in which a run tests them.
const std::array<Component, componentKeys.size()> &components()
{
    using Form = Ui::KestDetectorUI;
    static const std::array table{
        Component{componentId::camera, &Form::cbCamera, &Form::lbCamera, false, {itemId::camera::video}},
        Component{
            componentId::gimbal,
            &Form::cbGimbal,
            &Form::lbGimbal,
            false,
            {itemId::gimbal::mainLink, itemId::gimbal::rollLink, itemId::gimbal::pitchLink, itemId::gimbal::yawLink}},
        // The battery's information is read before its status.
        Component{componentId::battery,
                  &Form::cbBattery,
                  &Form::lbBattery,
                  false,
                  {itemId::battery::link, itemId::battery::info, itemId::battery::status}},
        Component{componentId::tfCard,
                  &Form::cbTFCard,
                  &Form::lbTFCard,
                  false,
                  {itemId::tfCard::usage, itemId::tfCard::speed}},
        Component{componentId::lens, &Form::cbLens, &Form::lbLens, false, {itemId::lens::link}},
        Component{componentId::fan, &Form::cbFan, &Form::lbFan, true, {itemId::fan::open}},
        Component{componentId::keyBoard, &Form::cbKeyBoard, &Form::lbKeyBoard, true, {itemId::keyBoard::clicked}},
        Component{componentId::voice, &Form::cbVoice, &Form::lbVoice, true, {itemId::voice::signal}},
        Component{componentId::pcba,
                  &Form::cbPCBA,
                  &Form::lbPcba,
                  false,
                  {itemId::pcba::lensDriver, itemId::pcba::sensor, itemId::pcba::gimbalMain, itemId::pcba::gimbalRoll,
                   itemId::pcba::gimbalPitch, itemId::pcba::gimbalYaw, itemId::pcba::battery}},
        Component{componentId::log,
                  &Form::cbLoadLog,
                  nullptr,
                  false,
                  {itemId::log::camera, itemId::log::privateLog, itemId::log::dmesg, itemId::log::pstreePs,
                   itemId::log::ifconfig, itemId::log::version, itemId::log::netConf, itemId::log::iwDevAp0Scan,
                   itemId::log::mciInfo, itemId::log::sharefs}},
    };
    return table;
}

// Result icons grow with the window, in pixels.
constexpr int smallestIcon = 40;
constexpr int largestIcon = 72;
constexpr int windowHeightPerIcon = 15;

void setState(QWidget *widget, const QString &name, const QString &state)
{
    widget->setAccessibleName(name);
    widget->setAccessibleDescription(state);
}

void showState(QWidget *widget, const QString &component, const VerdictLook &look)
{
    const QString state = verdictState(look);
    setState(widget, KestDetectorUI::tr("%1: %2").arg(component, state), state);
}

void showOverallState(QWidget *widget, int verdict)
{
    showState(widget, KestDetectorUI::tr("Overall"), lookOf(verdict));
}

void showPersent(RingsProgressbar *ring, int percent)
{
    ring->setPersent(percent);
    setState(ring, ring->text(), QStringLiteral("%1%").arg(percent));
}

/// The form asks for Chinese fonts that only some systems have.
void nameFontSubstitutes()
{
    const QStringList substitutes{QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei"),
                                  QStringLiteral("PingFang SC")};
    for (const QString &family : {QStringLiteral("Microsoft YaHei"), QStringLiteral("等线"), QStringLiteral("黑体")}) {
        QFont::insertSubstitutions(family, substitutes);
    }
}
} // namespace

KestDetectorUI::KestDetectorUI(QWidget *parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::KestDetectorUI>()), m_folderQuestion(new FolderQuestion(this)),
      m_labelQuestion(new LabelQuestion(this))
{
    initUI();
    initVal();
    applySafeguards();
    initConnection();
}

KestDetectorUI::~KestDetectorUI() = default;

void KestDetectorUI::initUI()
{
    Q_INIT_RESOURCE(icon); // the images lie in a static library, which leaves them out unless they are asked for
    nameFontSubstitutes();
    ui->setupUi(this);
    GroupFrameStyle::apply(this);
    setWindowTitle(tr("KestDetector_V%1").arg(QLatin1String(programVersion())));
    ui->barTotal->caption = tr("Total:");
    ui->barCurrent->caption = tr("Current:");

    struct StatusText
    {
        QLabel *KestDetectorUI::*label;
        const char *objectName;
        const char *caption; ///< the narrowest that the label may become
        const char *text;
    };
    constexpr StatusText statusTexts[] = {
        {&KestDetectorUI::m_wifiName, "lbWifiName", QT_TR_NOOP("Wifi:"), QT_TR_NOOP("Wifi: %1 ")},
        {&KestDetectorUI::m_wifiPassword, "lbWifiPassword", QT_TR_NOOP("Password:"), QT_TR_NOOP("Password: %1 ")},
        {&KestDetectorUI::m_macAddress, "lbMacAddress", QT_TR_NOOP("Mac:"), QT_TR_NOOP("Mac: %1 ")},
        {&KestDetectorUI::m_connectState, "lbConnectState", QT_TR_NOOP("Connect State:"),
         QT_TR_NOOP("Connect State: %1 ")},
    };
    for (const StatusText &status : statusTexts) {
        auto *label = new QLabel(tr(status.caption), this);
        label->setObjectName(QLatin1String(status.objectName));
        label->setTextFormat(Qt::PlainText);
        label->setMinimumSize(label->sizeHint());
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        label->setText(tr(status.text).arg(QString()));
        ui->statusBar->addPermanentWidget(label);
        new ElidedText(label, Qt::ElideRight);
        this->*status.label = label;
    }
    new ElidedText(ui->lbCurrComponent, Qt::ElideRight);
    new ElidedText(ui->lbCurrCheckItem, Qt::ElideRight);
    new ElidedText(ui->lbSavePath, Qt::ElideMiddle); // both the drive and the last folder matter

    ui->statusBar->addWidget(new NoticeBar(&KestDetectorFace::Get()->notices, this), 1);
    m_eventLog = new EventLog(ui->twCheckedLog);

    ui->lbSavePath->setText(tr("Path:%1").arg(Places::ofProgram().results()));
    on_tbNotChooseAll_clicked();

    for (const Component &component : components()) {
        showVerdict(component.id, verdict::notTested);
    }
    showOverallState(ui->lbCameraStatus, verdict::notTested);
    showPersent(ui->barTotal, 0);
    showPersent(ui->barCurrent, 0);
    fitInto(screen()->availableSize());
    ui->tbStart->setFocus();
}

void KestDetectorUI::fitInto(const QSize &room)
{
    setMinimumSize(minimumSize().boundedTo(room));
    resize(size().boundedTo(room));
}

void KestDetectorUI::initVal()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->setSettings(readSettings(settingsPath()));
    for (const SettingProblem &problem : face->settings().problems) {
        face->notices.tell(Notices::settings(problem.text()));
    }
}

void KestDetectorUI::applySafeguards()
{
    const Safeguards safeguards = KestDetectorFace::Get()->safeguards();
    m_eventLog->setReadOnly(safeguards.locksEventLog());
    if (safeguards.hidesSecrets()) {
        m_hiddenPassword = new HiddenText(m_wifiPassword, tr("Password: %1 "));
    }
}

void KestDetectorUI::initConnection()
{
    using Face = KestDetectorFace;
    using Window = KestDetectorUI;
    const auto link = [this](auto signal, auto slot) { connect(Face::Get(), signal, this, slot); };
    link(&Face::signal_showBatteryCheckResult, &Window::slot_showBatteryCheckResult);
    link(&Face::signal_showCameraCheckResult, &Window::slot_showCameraCheckResult);
    link(&Face::signal_showFanCheckResult, &Window::slot_showFanCheckResult);
    link(&Face::signal_showGimbalCheckResult, &Window::slot_showGimbalCheckResult);
    link(&Face::signal_showKeyBoardCheckResult, &Window::slot_showKeyBoardCheckResult);
    link(&Face::signal_showLensCheckResult, &Window::slot_showLensCheckResult);
    link(&Face::signal_showPcbaCheckResult, &Window::slot_showPcbaCheckResult);
    link(&Face::signal_showTFCardCheckResult, &Window::slot_showTFCardCheckResult);
    link(&Face::signal_showVoiceCheckResult, &Window::slot_showVoiceCheckResult);
    link(&Face::signal_showCurrentComponent, &Window::slot_showCurrentComponent);
    link(&Face::signal_showCurrentCheckItem, &Window::slot_showCurrentCheckItem);
    link(&Face::signal_showCheckLogList, &Window::slot_showCheckLogList);
    link(&Face::signal_showCheckLog, &Window::slot_showCheckLog);
    link(&Face::signal_showCheckResult, &Window::slot_showCheckResult);
    link(&Face::signal_showTotalPersent, &Window::slot_showTotalPersent);
    link(&Face::signal_showCurrentPersent, &Window::slot_showCurrentPersent);
    link(&Face::signal_setButtonEnable, &Window::slot_setButtonEnable);
    link(&Face::signal_setWifiName, &Window::slot_setWifiName);
    link(&Face::signal_setMacAddress, &Window::slot_setMacAddress);
    link(&Face::signal_setWifiPassWord, &Window::slot_setWifiPassWord);
    link(&Face::signal_setConnectStatus, &Window::slot_setConnectStatus);
    connect(m_folderQuestion, &FolderQuestion::answered, this, &Window::setSavePath);
    connect(m_labelQuestion, &LabelQuestion::answered, this, [this](const RunLabels &labels) {
        KestDetectorFace::Get()->runLabels = labels;
        startRun();
    });
}

void KestDetectorUI::showVerdict(int component, int verdict)
{
    const VerdictLook &look = lookOf(verdict);
    for (const Component &entry : components()) {
        if (entry.id == component && entry.icon != nullptr) {
            QLabel *icon = ui.get()->*entry.icon;
            icon->setStyleSheet(QLatin1String(look.styleSheet));
            showState(icon, getComponent(component), look);
        }
    }
}

void KestDetectorUI::clearResults()
{
    m_eventLog->clear();
    showPersent(ui->barTotal, 0);
    showPersent(ui->barCurrent, 0);
    for (const Component &component : components()) {
        showVerdict(component.id, verdict::notTested);
    }
    ui->lbCameraStatus->setStyleSheet(QStringLiteral("background-color: rgb(220, 220, 220);color: rgb(20, 20, 20);"));
    ui->lbCameraStatus->setText(tr("NA"));
    showOverallState(ui->lbCameraStatus, verdict::notTested);
}

void KestDetectorUI::slot_showBatteryCheckResult(int verdict)
{
    showVerdict(componentId::battery, verdict);
}
void KestDetectorUI::slot_showCameraCheckResult(int verdict)
{
    showVerdict(componentId::camera, verdict);
}
void KestDetectorUI::slot_showFanCheckResult(int verdict)
{
    showVerdict(componentId::fan, verdict);
}
void KestDetectorUI::slot_showGimbalCheckResult(int verdict)
{
    showVerdict(componentId::gimbal, verdict);
}
void KestDetectorUI::slot_showKeyBoardCheckResult(int verdict)
{
    showVerdict(componentId::keyBoard, verdict);
}
void KestDetectorUI::slot_showLensCheckResult(int verdict)
{
    showVerdict(componentId::lens, verdict);
}
void KestDetectorUI::slot_showPcbaCheckResult(int verdict)
{
    showVerdict(componentId::pcba, verdict);
}
void KestDetectorUI::slot_showTFCardCheckResult(int verdict)
{
    showVerdict(componentId::tfCard, verdict);
}
void KestDetectorUI::slot_showVoiceCheckResult(int verdict)
{
    showVerdict(componentId::voice, verdict);
}

void KestDetectorUI::slot_showCurrentComponent(const QString &name)
{
    ui->lbCurrComponent->setText(tr("Current unit:%1").arg(name));
}

void KestDetectorUI::slot_showCurrentCheckItem(const QString &name)
{
    ui->lbCurrCheckItem->setText(tr("Current item:%1").arg(name));
}

void KestDetectorUI::slot_showCheckLogList(const QList<checkLog> & /*logs*/) {}

void KestDetectorUI::slot_showCheckLog(const checkLog &log)
{
    m_eventLog->append(log);
}

void KestDetectorUI::slot_showCheckResult(bool passed)
{
    ui->lbCameraStatus->setText(passed ? tr("OK") : tr("NG"));
    ui->lbCameraStatus->setStyleSheet(
        passed ? QStringLiteral("background-color: rgb(0, 255, 0);color: rgb(0, 0, 255);")
               : QStringLiteral("background-color: rgb(255, 0, 0);color: rgb(255, 255, 255);"));
    showOverallState(ui->lbCameraStatus, passed ? verdict::ok : verdict::failed);
    if (!passed) {
        m_eventLog->showFirstFailure();
    }
}

void KestDetectorUI::slot_showTotalPersent(int percent)
{
    showPersent(ui->barTotal, percent);
}
void KestDetectorUI::slot_showCurrentPersent(int percent)
{
    showPersent(ui->barCurrent, percent);
}

void KestDetectorUI::slot_setButtonEnable(bool enabled)
{
    for (QWidget *button : {ui->tbStart, ui->tbChooseAll, ui->tbNotChooseAll}) {
        button->setEnabled(enabled);
    }
    const bool lockAll = KestDetectorFace::Get()->safeguards().locksEverythingDuringRun();
    for (const Component &component : components()) {
        if (!component.placeholder || lockAll) {
            (ui.get()->*component.box)->setEnabled(enabled);
        }
    }
    if (lockAll) {
        ui->tbSavePath->setEnabled(enabled);
    }
    if (enabled) {
        ui->tbStart->setFocus();
    }
}

void KestDetectorUI::slot_setWifiName(const QString &name)
{
    m_wifiName->setText(tr("Wifi: %1 ").arg(name));
}
void KestDetectorUI::slot_setMacAddress(const QString &mac)
{
    m_macAddress->setText(tr("Mac: %1 ").arg(mac));
    if (mac.isEmpty() || mac == m_cameraShown) {
        return;
    }
    KestDetectorFace *face = KestDetectorFace::Get();
    setCameraHistory({});
    const bool otherCamera = !m_cameraShown.isEmpty();
    m_cameraShown = mac;
    if (otherCamera && !face->run.isActive() && face->safeguards().clearsResultsOfOtherCamera()) {
        clearResults();
        face->notices.withdrawRun();
    }
}

void KestDetectorUI::setCameraHistory(const QString &text)
{
    m_macAddress->setToolTip(text);
}

void KestDetectorUI::slot_setWifiPassWord(const QString &password)
{
    if (m_hiddenPassword != nullptr) {
        m_hiddenPassword->setSecret(password);
        return;
    }
    m_wifiPassword->setText(tr("Password: %1 ").arg(password));
}

void KestDetectorUI::slot_setConnectStatus(bool connected)
{
    m_connectState->setText(tr("Connect State: %1 ").arg(connected ? tr("connected") : tr("Disconnected")));
}

QList<ComponentTask> KestDetectorUI::plan() const
{
    QList<ComponentTask> tasks;
    const PlannedItems &planned = KestDetectorFace::Get()->settings().plannedItems;
    for (const Component &component : components()) {
        if ((ui.get()->*component.box)->isChecked()) {
            tasks.append({component.id, planned.value(component.id, component.items)});
        }
    }
    return tasks;
}

/// Tells what is missing.
bool KestDetectorUI::mayStart() const
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->notices.withdraw(Notice::Kind::NotStarted);
    const QStringList missing = face->safeguards().missingForStart(
        {static_cast<int>(plan().size()), face->connectState, face->macAddress, face->settings().problems});
    if (!missing.isEmpty()) {
        face->notices.tell(Notices::notStarted(missing));
    }
    return missing.isEmpty();
}

void KestDetectorUI::startRun()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    // The camera may have gone while the operator was asked.
    if (mayStart() && face->run.post(plan(), face->runLabels)) {
        clearResults();
    }
    // Otherwise it was pressed before the runner could disable it: what its run has shown so far must stay.
}

void KestDetectorUI::on_tbStart_clicked()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const Questions &questions = face->settings().questions;
    if (!m_asks || questions.asked.isEmpty()) {
        startRun();
    } else if (mayStart() && face->runRequest() == 0) {
        m_labelQuestion->ask(questions, face->runLabels);
    }
}

void KestDetectorUI::on_tbChooseAll_clicked()
{
    for (const Component &component : components()) {
        if (!component.placeholder) {
            (ui.get()->*component.box)->setChecked(true);
        }
    }
}

void KestDetectorUI::on_tbNotChooseAll_clicked()
{
    for (const Component &component : components()) {
        (ui.get()->*component.box)->setChecked(false);
    }
}

void KestDetectorUI::on_tbSavePath_clicked()
{
    m_folderQuestion->ask(QStringLiteral("../"));
}

void KestDetectorUI::setSavePath(const QString &path)
{
    KestDetectorFace::Get()->savePath = path;
    ui->lbSavePath->setText(tr("Path:%1").arg(path));
}

void KestDetectorUI::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isRunning = KestDetectorFace::Get()->runRequest() != 0;
    if (!isRunning && actions().isEmpty()) {
        QMainWindow::contextMenuEvent(event);
        return;
    }
    QMenu *menu = createPopupMenu();
    if (menu == nullptr) {
        menu = new QMenu(this);
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(actions());
    if (isRunning) {
        connect(menu->addAction(tr("Stop the run\tEsc")), &QAction::triggered, this, [] { stopRun(); });
    }
    menu->popup(event->globalPos()); // without an event loop of its own, which would keep a wait for the camera going
}

void KestDetectorUI::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && stopRun()) {
        return;
    }
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto *button = qobject_cast<QToolButton *>(focusWidget());
    if (enter && button != nullptr && !event->isAutoRepeat()) {
        button->click(); // a button takes the space bar alone, and leaves Enter to its window
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void KestDetectorUI::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !m_frameKnown) {
        m_frameKnown = true;
        const QMargins frame = windowHandle()->frameMargins();
        if (frame.top() > frame.bottom()) { // a mere border may hang over the edge, a title bar may not
            fitInto(screen()->availableSize() - QSize(frame.left() + frame.right(), frame.top() + frame.bottom()));
        }
    }
}

void KestDetectorUI::resizeEvent(QResizeEvent *event)
{
    const int side = qBound(smallestIcon, height() / windowHeightPerIcon, largestIcon);
    for (const Component &component : components()) {
        if (component.icon != nullptr) {
            (ui.get()->*component.icon)->setFixedSize(side, side);
        }
    }
    QMainWindow::resizeEvent(event);
}

void KestDetectorUI::closeEvent(QCloseEvent *event)
{
    m_folderQuestion->withdraw(); // the program ends with its last window
    m_labelQuestion->withdraw();
    stopServices();
    KestDetectorFace::Get()->quitFlag = -1;
    QMainWindow::closeEvent(event);
}
