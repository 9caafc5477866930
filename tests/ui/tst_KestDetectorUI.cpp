#include "recordStop.h"

#include "detector/store/KestDetectorFace.h"
#include "detector/store/serveEvents.h"
#include "ui/widgets/RingsProgressbar.h"
#include "ui/window/KestDetectorUI.h"

#include <memory>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>
#include <thread>

namespace {
using Face = KestDetectorFace;
using VerdictSignal = void (Face::*)(int);
using TextSignal = void (Face::*)(QString);

const QStringList &allBoxes()
{
    static const QStringList names{"cbCamera", "cbGimbal",   "cbBattery", "cbTFCard", "cbLens",
                                   "cbFan",    "cbKeyBoard", "cbVoice",   "cbPCBA",   "cbLoadLog"};
    return names;
}

const QStringList &selectAllBoxes()
{
    static const QStringList names{"cbCamera", "cbGimbal", "cbBattery", "cbTFCard", "cbLens", "cbPCBA", "cbLoadLog"};
    return names;
}

const QStringList &allIcons()
{
    static const QStringList names{"lbCamera", "lbGimbal",   "lbBattery", "lbTFCard", "lbLens",
                                   "lbFan",    "lbKeyBoard", "lbVoice",   "lbPcba"};
    return names;
}

/// A plan as text, for example "0:0 2:0,2,1".
QString planText(const QList<ComponentTask> &plan)
{
    QStringList tasks;
    for (const ComponentTask &task : plan) {
        QStringList items;
        for (const int item : task.items) {
            items.append(QString::number(item));
        }
        tasks.append(QStringLiteral("%1:%2").arg(task.component).arg(items.join(QLatin1Char(','))));
    }
    return tasks.join(QLatin1Char(' '));
}

checkLog record(int component, const QList<CheckItemLog> &items)
{
    checkLog log;
    log.component = component;
    log.itemLogs = items;
    return log;
}

/// A row of the log: for each column the text, the alignment and the flags, or "none".
QString rowText(const QTableWidget *table, int row)
{
    QStringList cells;
    for (int column = 0; column < 3; ++column) {
        const QTableWidgetItem *cell = table->item(row, column);
        cells.append(cell == nullptr ? QStringLiteral("none")
                                     : QStringLiteral("%1 %2 %3")
                                           .arg(cell->text())
                                           .arg(cell->textAlignment())
                                           .arg(static_cast<int>(cell->flags())));
    }
    return cells.join(QLatin1Char('|'));
}

/// A settings file in which nothing is missing or malformed.
const char *const soundSettings = R"([BaseOption]
wifi=127.0.0.10
usb=127.0.0.10
username=root
password=camera
ftpName=camera
ftpPsw=camera
ftpPort=2121
[SystemLogPath]
HostApdUrl=/data/hostapd.conf
MacAddressUrl=/data/mac_addr
TFCardInfoUrl=/proc/mci/mci_info
[ZipLogPath]
ZipLogTargetPath=/tmp/archive
[DownloadLogSrcPath]
LogPath=/data/log
PrivatePath=/data/private
VersionPath=/etc/kest_version
NetconfPath=/data/netconf
MciInfoPath=/proc/mci/mci_info
SharefsPath=/data/sharefs
[CameraStatus]
expectedVal=8001A
statusBits=8001A
)";

/// The directory dialog that locks the window; null while none is open.
QFileDialog *openDialog()
{
    return qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
}

/// Lets `timer` run `act` on the directory dialog once it is open.
template <class Act>
void whenDialogOpens(QTimer &timer, Act act)
{
    QObject::connect(&timer, &QTimer::timeout, &timer, [&timer, act] {
        if (QFileDialog *dialog = openDialog()) {
            timer.stop();
            act(dialog);
        }
    });
    timer.start(5);
}
} // namespace
Q_DECLARE_METATYPE(VerdictSignal)
Q_DECLARE_METATYPE(TextSignal)

/// Notes what the desktop is asked to open.
class OpenedUrls : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> urls;

public slots:
    void open(const QUrl &url) { urls.append(url); }
};

class tst_KestDetectorUI : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void opensWithEveryBoxUnticked();
    void opensWithoutSettingsFile();
    void readsTheSettingsFileBesideTheProgram();
    void componentVerdict_data();
    void componentVerdict();
    void overallVerdict_data();
    void overallVerdict();
    void rings();
    void shownText_data();
    void shownText();
    void connectState();
    void markupReadsToTheLetter();
    void buttonEnable_data();
    void buttonEnable();
    void selectAll_data();
    void selectAll();
    void unselectAll();
    void startPostsThePlan_data();
    void startPostsThePlan();
    void startFollowsThePlanOfTheSettings();
    void startClearsTheLastRun();
    void startWithNoBoxShowsNoResultAndRequestsARun();
    void startDoesNotDisableItself();
    void startDuringARunChangesNothing();
    void disabledStartCannotBeClicked();
    void savePathFromTheDialog();
    void cancelledDialogKeepsPathAndLabel();
    void dialogOpensAboveTheWorkingFolderEachTime();
    void waitsEndWhileTheDialogIsOpen();
    void closingEndsTheProgramWithTheDialogOpen();
    void setSavePathStoresAndShows();
    void recordOfThreeItemsAddsFourRows();
    void recordWithoutItemsAddsItsHeading();
    void recordsFromAnotherThreadArriveInOrder();
    void recordListShowsNothing();
    void reportRowIsTallerThanOneLine();
    void textWithALineBreakAtItsEndTakesOneLine();
    void logFollowsItsNewestRow();
    void logDoesNotFollowRowsWithoutText();
    void logStaysWhereTheOperatorScrolled();
    void firstFailedItemIsInSight_data();
    void firstFailedItemIsInSight();
    void failedAndWarningRowsAreMarked();
    void marksGoWithTheRows();
    void cutOffTextHasAToolTip_data();
    void cutOffTextHasAToolTip();
    void tabLeavesTheEventLog();
    void startHasTheFocusAtFirstAndAfterARun();
    void keysPressTheFocusedButton_data();
    void keysPressTheFocusedButton();
    void wholeRunByKeyboard();
    void noticesStandOnTheLeft();
    void resultsOpenTheirFolder_data();
    void resultsOpenTheirFolder();
    void noticesReadToTheLetter();
    void noticeFromAnotherThread();
    void longNoticesLeaveThePermanentLabelsAlone();
    void safeguardedStartSaysWhatIsMissing_data();
    void safeguardedStartSaysWhatIsMissing();
    void startWithoutSafeguardsAsksForNothing();
    void safeguardsLockEverythingDuringARun_data();
    void safeguardsLockEverythingDuringARun();
    void eventLogCells_data();
    void eventLogCells();
    void otherCameraClearsTheResults_data();
    void otherCameraClearsTheResults();
    void historyOfACameraGoesWithIt();
    void otherCameraDuringARunClearsNothing();
    void passphraseIsShownOnAClick();
    void passphraseWithoutSafeguards();
    void startAsksForTheLabels();
    void serialThatDoesNotMatchStays();
    void scannerThatEndsWithTwoEnters();
    void escapeGivesTheStartUp();
    void startIsRefusedBeforeItAsks();
    void closingTakesTheQuestionAlong();
    void nobodyIsAskedInAnUnattendedRun();
    void escapeStopsARun();
    void menuStopsARun();
    void noMenuWithoutARun();
    void menuShowsWhatOthersHaveAdded();
    void closeStopsTheServicesThenLetsWaitingCallsGiveUp();

private:
    template <class Widget>
    Widget *find(const QString &name) const
    {
        return m_window->findChild<Widget *>(name);
    }
    void click(const QString &button) const { QTest::mouseClick(find<QToolButton>(button), Qt::LeftButton); }
    void clickBox(const QString &name) const
    {
        auto *box = find<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    }
    QStringList tickedBoxes() const;
    QTableWidget *log() const { return find<QTableWidget>(QStringLiteral("twCheckedLog")); }
    void verifyState(const QString &widget, const QString &name, const QString &state) const;
    void verifyNoResult() const;
    /// Makes the window anew, as with `[Station] safeguards=true` or false in an option.ini without problems.
    void openWindow(bool safeguards);
    /// Start asks for these, with operator "Li" and batch "B7" from before.
    static void ask(const QList<Question> &asked, const QString &serialPattern = {});
    QLineEdit *field(const char *name) const { return find<QLineEdit>(QLatin1String(name)); }
    /// Types as a scanner does, into whatever has the focus.
    void scan(const QString &text) const;
    void showResults();

    std::unique_ptr<KestDetectorUI> m_window;
};

void tst_KestDetectorUI::initTestCase()
{
    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
    qRegisterMetaType<checkLog>("checkLog");
}

void tst_KestDetectorUI::init()
{
    Face::Get()->run.finish();
    Face::Get()->run.post({}); // the lists of the test before are gone
    Face::Get()->run.finish();
    Face::Get()->quitFlag = 0;
    Face::Get()->connectState = false;
    Face::Get()->macAddress = QString();
    stopRecord = StopRecord();
    m_window = std::make_unique<KestDetectorUI>();
    Face::Get()->notices.withdrawRun();
    Face::Get()->notices.withdraw(Notice::Kind::Settings); // there is no option.ini
    m_window->resize(1000, 700);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void tst_KestDetectorUI::cleanup()
{
    m_window.reset();
}

QStringList tst_KestDetectorUI::tickedBoxes() const
{
    QStringList ticked;
    for (const QString &name : allBoxes()) {
        if (find<QCheckBox>(name)->isChecked()) {
            ticked.append(name);
        }
    }
    return ticked;
}

void tst_KestDetectorUI::verifyState(const QString &widget, const QString &name, const QString &state) const
{
    QCOMPARE(find<QWidget>(widget)->accessibleName(), name);
    QCOMPARE(find<QWidget>(widget)->accessibleDescription(), state);
}

void tst_KestDetectorUI::verifyNoResult() const
{
    for (const QString &icon : allIcons()) {
        QCOMPARE(find<QLabel>(icon)->styleSheet(), QStringLiteral("border-image: url(:/icon/NA1.jpg);"));
        QCOMPARE(find<QLabel>(icon)->accessibleDescription(), QStringLiteral("not tested"));
    }
    const auto *overall = find<QLabel>(QStringLiteral("lbCameraStatus"));
    QCOMPARE(overall->text(), QStringLiteral("NA"));
    QCOMPARE(overall->styleSheet(), QStringLiteral("background-color: rgb(220, 220, 220);color: rgb(20, 20, 20);"));
    verifyState(QStringLiteral("lbCameraStatus"), QStringLiteral("Overall: not tested"), QStringLiteral("not tested"));
    verifyState(QStringLiteral("barTotal"), QStringLiteral("Total:0%"), QStringLiteral("0%"));
    verifyState(QStringLiteral("barCurrent"), QStringLiteral("Current:0%"), QStringLiteral("0%"));
    QCOMPARE(log()->rowCount(), 0);
}

void tst_KestDetectorUI::openWindow(bool safeguards)
{
    QFile file(settingsPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(soundSettings);
    file.write(safeguards ? "[Station]\nsafeguards=true\n" : "");
    file.close();
    m_window = std::make_unique<KestDetectorUI>();
    QVERIFY(file.remove());
    Face::Get()->notices.withdraw(Notice::Kind::Settings); // of the window before
    m_window->resize(1000, 700);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

/// A passed run of one item.
void tst_KestDetectorUI::showResults()
{
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    emit Face::Get()->signal_showCameraCheckResult(0);
    emit Face::Get()->signal_showCheckResult(true);
}

void tst_KestDetectorUI::opensWithEveryBoxUnticked()
{
    QCOMPARE(tickedBoxes(), QStringList());
    verifyState(QStringLiteral("lbPcba"), QStringLiteral("PCBA: not tested"), QStringLiteral("not tested"));
    verifyState(QStringLiteral("lbCameraStatus"), QStringLiteral("Overall: not tested"), QStringLiteral("not tested"));
    verifyState(QStringLiteral("barTotal"), QStringLiteral("Total:0%"), QStringLiteral("0%"));
    verifyState(QStringLiteral("barCurrent"), QStringLiteral("Current:0%"), QStringLiteral("0%"));
}

void tst_KestDetectorUI::opensWithoutSettingsFile()
{
    QVERIFY(!QFile::exists(QCoreApplication::applicationDirPath() + QStringLiteral("/option.ini")));
    Settings before;
    before.username = QStringLiteral("from before");
    Face::Get()->setSettings(before);
    const KestDetectorUI window;
    QCOMPARE(Face::Get()->settings().username, QString());
    QCOMPARE(Face::Get()->settings().logPath, QString());
    QCOMPARE(Face::Get()->settings().cameraStatusMask, quint64{0xFFFFFFFFFFFFFFFFU});
    QCOMPARE(Face::Get()->settings().statusBitList.count(false), 64);
}

void tst_KestDetectorUI::readsTheSettingsFileBesideTheProgram()
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/option.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[BaseOption]\nusername=operator\n");
    file.close();
    {
        const KestDetectorUI window;
    }
    QVERIFY(file.remove());
    QCOMPARE(Face::Get()->settings().username, QStringLiteral("operator"));
}

void tst_KestDetectorUI::componentVerdict_data()
{
    QTest::addColumn<VerdictSignal>("signal");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("state");

    struct Icon
    {
        VerdictSignal signal;
        const char *label;
        const char *name;
    };
    const Icon icons[] = {
        {&Face::signal_showCameraCheckResult, "lbCamera", "Camera"},
        {&Face::signal_showGimbalCheckResult, "lbGimbal", "Gimbal"},
        {&Face::signal_showBatteryCheckResult, "lbBattery", "Battery"},
        {&Face::signal_showFanCheckResult, "lbFan", "Fan"},
        {&Face::signal_showKeyBoardCheckResult, "lbKeyBoard", "Button"},
        {&Face::signal_showLensCheckResult, "lbLens", "Lens"},
        {&Face::signal_showTFCardCheckResult, "lbTFCard", "TF Card"},
        {&Face::signal_showVoiceCheckResult, "lbVoice", "Audio"},
        {&Face::signal_showPcbaCheckResult, "lbPcba", "PCBA"},
    };
    struct Look
    {
        int verdict;
        const char *style;
        const char *state;
    };
    const Look looks[] = {
        {0, "border-image: url(:/icon/OK.jpg);", "OK"},
        {1, "border-image: url(:/icon/NG.jpg);", "NG"},
        {2, "border-image: url(:/icon/War.png);", "warning"},
        {3, "border-image: url(:/icon/NA1.jpg);", "not tested"},
        {-1, "border-image: url(:/icon/NA1.jpg);", "not tested"},
        {118, "border-image: url(:/icon/NA1.jpg);", "not tested"},
    };
    for (const Icon &icon : icons) {
        for (const Look &look : looks) {
            QTest::addRow("%s, verdict %d", icon.name, look.verdict)
                << icon.signal << QString::fromLatin1(icon.label) << QString::fromLatin1(icon.name) << look.verdict
                << QString::fromLatin1(look.style) << QString::fromLatin1(look.state);
        }
    }
}

void tst_KestDetectorUI::componentVerdict()
{
    QFETCH(const VerdictSignal, signal);
    QFETCH(const QString, icon);
    QFETCH(const QString, name);
    QFETCH(const int, verdict);
    QFETCH(const QString, style);
    QFETCH(const QString, state);
    (Face::Get()->*signal)(verdict == 0 ? 1 : 0); // whatever it showed before is replaced
    (Face::Get()->*signal)(verdict);
    for (const QString &other : allIcons()) {
        const QString expected = other == icon ? style : QStringLiteral("border-image: url(:/icon/NA1.jpg);");
        QCOMPARE(find<QLabel>(other)->styleSheet(), expected);
    }
    verifyState(icon, QStringLiteral("%1: %2").arg(name, state), state);
}

void tst_KestDetectorUI::overallVerdict_data()
{
    QTest::addColumn<bool>("passed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("style");

    QTest::newRow("passed") << true << QStringLiteral("OK")
                            << QStringLiteral("background-color: rgb(0, 255, 0);color: rgb(0, 0, 255);");
    QTest::newRow("failed") << false << QStringLiteral("NG")
                            << QStringLiteral("background-color: rgb(255, 0, 0);color: rgb(255, 255, 255);");
}

void tst_KestDetectorUI::overallVerdict()
{
    QFETCH(const bool, passed);
    QFETCH(const QString, text);
    QFETCH(const QString, style);
    emit Face::Get()->signal_showCheckResult(passed);
    const auto *label = find<QLabel>(QStringLiteral("lbCameraStatus"));
    QCOMPARE(label->text(), text);
    QCOMPARE(label->styleSheet(), style);
    verifyState(QStringLiteral("lbCameraStatus"), QStringLiteral("Overall: ") + text, text);
}

void tst_KestDetectorUI::rings()
{
    emit Face::Get()->signal_showTotalPersent(45);
    emit Face::Get()->signal_showCurrentPersent(66);
    QCOMPARE(find<RingsProgressbar>(QStringLiteral("barTotal"))->text(), QStringLiteral("Total:45%"));
    QCOMPARE(find<RingsProgressbar>(QStringLiteral("barCurrent"))->text(), QStringLiteral("Current:66%"));
    verifyState(QStringLiteral("barTotal"), QStringLiteral("Total:45%"), QStringLiteral("45%"));
    verifyState(QStringLiteral("barCurrent"), QStringLiteral("Current:66%"), QStringLiteral("66%"));
}

void tst_KestDetectorUI::shownText_data()
{
    QTest::addColumn<TextSignal>("signal");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, TextSignal signal, const char *label, const char *text) {
        QTest::newRow(name) << signal << QString::fromLatin1(label) << QString::fromLatin1(text);
    };
    row("current component", &Face::signal_showCurrentComponent, "lbCurrComponent", "Current unit:x %1");
    row("current item", &Face::signal_showCurrentCheckItem, "lbCurrCheckItem", "Current item:x %1");
    row("WiFi name", &Face::signal_setWifiName, "lbWifiName", "Wifi: x %1 ");
    row("WiFi password", &Face::signal_setWifiPassWord, "lbWifiPassword", "Password: x %1 ");
    row("MAC address", &Face::signal_setMacAddress, "lbMacAddress", "Mac: x %1 ");
}

void tst_KestDetectorUI::shownText()
{
    QFETCH(const TextSignal, signal);
    QFETCH(const QString, label);
    QFETCH(const QString, text);
    (Face::Get()->*signal)(QStringLiteral("x %1"));
    QCOMPARE(find<QLabel>(label)->text(), text);
}

void tst_KestDetectorUI::connectState()
{
    const auto *label = find<QLabel>(QStringLiteral("lbConnectState"));
    emit Face::Get()->signal_setConnectStatus(true);
    QCOMPARE(label->text(), QStringLiteral("Connect State: connected "));
    emit Face::Get()->signal_setConnectStatus(false);
    QCOMPARE(label->text(), QStringLiteral("Connect State: Disconnected "));
}

void tst_KestDetectorUI::markupReadsToTheLetter()
{
    auto *label = find<QLabel>(QStringLiteral("lbWifiName"));
    emit Face::Get()->signal_setWifiName(QStringLiteral("<b>x</b>"));
    QCOMPARE(label->text(), QStringLiteral("Wifi: <b>x</b> "));

    // As rich text the tags would vanish and the label need less room than its letters.
    QCOMPARE(label->sizeHint().width(), label->fontMetrics().size(0, QStringLiteral("Wifi: <b>x</b> ")).width());
}

void tst_KestDetectorUI::buttonEnable_data()
{
    QTest::addColumn<bool>("locked"); // whether a run locks it

    for (const char *name : {"tbStart", "tbChooseAll", "tbNotChooseAll", "cbBattery", "cbCamera", "cbGimbal", "cbLens",
                             "cbPCBA", "cbTFCard", "cbLoadLog"}) {
        QTest::newRow(name) << true;
    }
    for (const char *name : {"cbFan", "cbKeyBoard", "cbVoice", "tbSavePath"}) {
        QTest::newRow(name) << false;
    }
}

void tst_KestDetectorUI::buttonEnable()
{
    QFETCH(const bool, locked);
    const auto *control = find<QWidget>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(control->isEnabled());
    emit Face::Get()->signal_setButtonEnable(false);
    QCOMPARE(control->isEnabled(), !locked);
    emit Face::Get()->signal_setButtonEnable(true);
    QVERIFY(control->isEnabled());
}

void tst_KestDetectorUI::selectAll_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");

    QTest::newRow("fan, button and audio stay unticked") << QStringList{} << selectAllBoxes();
    QTest::newRow("fan, button and audio stay ticked") << QStringList{"cbFan", "cbKeyBoard", "cbVoice"} << allBoxes();
    QTest::newRow("ticked boxes stay ticked") << QStringList{"cbLens", "cbLoadLog"} << selectAllBoxes();
}

void tst_KestDetectorUI::selectAll()
{
    QFETCH(const QStringList, before);
    QFETCH(const QStringList, after);
    for (const QString &box : before) {
        clickBox(box);
    }
    QCOMPARE(tickedBoxes().size(), before.size());
    click(QStringLiteral("tbChooseAll"));
    QCOMPARE(tickedBoxes(), after);
}

void tst_KestDetectorUI::unselectAll()
{
    for (const QString &box : allBoxes()) {
        clickBox(box);
    }
    QCOMPARE(tickedBoxes(), allBoxes());
    click(QStringLiteral("tbNotChooseAll"));
    QCOMPARE(tickedBoxes(), QStringList());
}

void tst_KestDetectorUI::startPostsThePlan_data()
{
    QTest::addColumn<QStringList>("boxes"); // in the order of ticking
    QTest::addColumn<QString>("plan");

    QTest::newRow("no box") << QStringList{} << QString();
    QTest::newRow("every box, in the fixed order")
        << QStringList{"cbLoadLog", "cbPCBA",   "cbVoice",   "cbKeyBoard", "cbFan",
                       "cbLens",    "cbTFCard", "cbBattery", "cbGimbal",   "cbCamera"}
        << "0:0 1:0,1,2,3 2:0,2,1 6:0,1 5:0 3:0 4:0 7:0 8:0,1,2,3,4,5,6 9:0,1,2,3,4,5,6,7,8,9";
    QTest::newRow("camera") << QStringList{"cbCamera"} << "0:0";
    QTest::newRow("gimbal") << QStringList{"cbGimbal"} << "1:0,1,2,3";
    QTest::newRow("battery, its information before its status") << QStringList{"cbBattery"} << "2:0,2,1";
    QTest::newRow("TF card") << QStringList{"cbTFCard"} << "6:0,1";
    QTest::newRow("lens") << QStringList{"cbLens"} << "5:0";
    QTest::newRow("fan") << QStringList{"cbFan"} << "3:0";
    QTest::newRow("button") << QStringList{"cbKeyBoard"} << "4:0";
    QTest::newRow("audio") << QStringList{"cbVoice"} << "7:0";
    QTest::newRow("main board") << QStringList{"cbPCBA"} << "8:0,1,2,3,4,5,6";
    QTest::newRow("log download") << QStringList{"cbLoadLog"} << "9:0,1,2,3,4,5,6,7,8,9";
    QTest::newRow("Select All: neither fan nor button nor audio")
        << selectAllBoxes() << "0:0 1:0,1,2,3 2:0,2,1 6:0,1 5:0 8:0,1,2,3,4,5,6 9:0,1,2,3,4,5,6,7,8,9";
}

void tst_KestDetectorUI::startPostsThePlan()
{
    QFETCH(const QStringList, boxes);
    QFETCH(const QString, plan);
    Face::Get()->run.post({{4, {1, 2}}});
    Face::Get()->run.finish();
    if (boxes == selectAllBoxes()) {
        click(QStringLiteral("tbChooseAll"));
    } else {
        for (const QString &box : boxes) {
            clickBox(box);
        }
    }
    click(QStringLiteral("tbStart"));
    QCOMPARE(planText(Face::Get()->taskList()), plan);
    QCOMPARE(Face::Get()->runRequest(), 1);
}

void tst_KestDetectorUI::startFollowsThePlanOfTheSettings()
{
    const Settings before = Face::Get()->settings();
    Settings settings = before;
    settings.plannedItems = {{0, {1, 0}}, {1, {4}}, {9, {5}}};
    Face::Get()->setSettings(settings);
    for (const char *box : {"cbCamera", "cbBattery", "cbLoadLog"}) {
        clickBox(QLatin1String(box));
    }
    click(QStringLiteral("tbStart"));
    Face::Get()->setSettings(before);
    QCOMPARE(planText(Face::Get()->taskList()), QStringLiteral("0:1,0 2:0,2,1 9:5"));
}

void tst_KestDetectorUI::startClearsTheLastRun()
{
    Face::Get()->run.append(record(0, {}));
    for (const VerdictSignal signal :
         {&Face::signal_showCameraCheckResult, &Face::signal_showGimbalCheckResult,
          &Face::signal_showBatteryCheckResult, &Face::signal_showFanCheckResult, &Face::signal_showKeyBoardCheckResult,
          &Face::signal_showLensCheckResult, &Face::signal_showTFCardCheckResult, &Face::signal_showVoiceCheckResult,
          &Face::signal_showPcbaCheckResult, &Face::signal_showTotalPersent, &Face::signal_showCurrentPersent}) {
        (Face::Get()->*signal)(1);
    }
    emit Face::Get()->signal_showCheckResult(false);
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    QCOMPARE(log()->rowCount(), 2);

    click(QStringLiteral("tbStart"));
    verifyNoResult();
    QCOMPARE(Face::Get()->checkLogList().size(), 0);
}

void tst_KestDetectorUI::startWithNoBoxShowsNoResultAndRequestsARun()
{
    emit Face::Get()->signal_showCheckResult(true);
    emit Face::Get()->signal_showCameraCheckResult(0);
    click(QStringLiteral("tbStart"));
    verifyNoResult();
    QCOMPARE(planText(Face::Get()->taskList()), QString());
    QCOMPARE(Face::Get()->runRequest(), 1);
}

void tst_KestDetectorUI::startDoesNotDisableItself()
{
    click(QStringLiteral("tbStart"));
    QVERIFY(find<QToolButton>(QStringLiteral("tbStart"))->isEnabled());
}

void tst_KestDetectorUI::startDuringARunChangesNothing()
{
    clickBox(QStringLiteral("cbCamera"));
    emit Face::Get()->signal_showCameraCheckResult(0);
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    Face::Get()->run.post({{4, {1, 2}}});
    QVERIFY(Face::Get()->run.take(QString()));
    Face::Get()->run.append(record(0, {}));

    click(QStringLiteral("tbStart"));
    QCOMPARE(planText(Face::Get()->taskList()), QStringLiteral("4:1,2"));
    QCOMPARE(Face::Get()->checkLogList().size(), 1);
    Face::Get()->run.finish();
    QCOMPARE(Face::Get()->runRequest(), 0); // and no second run waits
    QCOMPARE(log()->rowCount(), 2);
    QCOMPARE(find<QLabel>(QStringLiteral("lbCamera"))->accessibleDescription(), QStringLiteral("OK"));
}

void tst_KestDetectorUI::disabledStartCannotBeClicked()
{
    emit Face::Get()->signal_setButtonEnable(false);
    click(QStringLiteral("tbStart"));
    QCOMPARE(Face::Get()->runRequest(), 0);
}

void tst_KestDetectorUI::savePathFromTheDialog()
{
    const QTemporaryDir folder;
    const QString path = folder.path();
    bool foldersOnly = false;
    QTimer timer;
    whenDialogOpens(timer, [path, &foldersOnly](QFileDialog *dialog) {
        foldersOnly = dialog->testOption(QFileDialog::ShowDirsOnly);
        dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    click(QStringLiteral("tbSavePath"));
    QTRY_COMPARE(Face::Get()->savePath.get(), path);
    QVERIFY(foldersOnly);
    QCOMPARE(find<QLabel>(QStringLiteral("lbSavePath"))->text(), QStringLiteral("Path:") + path);
}

void tst_KestDetectorUI::cancelledDialogKeepsPathAndLabel()
{
    m_window->setSavePath(QStringLiteral("/kept"));
    bool rejected = false;
    QTimer timer;
    whenDialogOpens(timer, [&rejected](QFileDialog *dialog) {
        rejected = true;
        dialog->reject();
    });
    click(QStringLiteral("tbSavePath"));
    QTRY_VERIFY(rejected);
    QTRY_COMPARE(openDialog(), nullptr);
    QCOMPARE(Face::Get()->savePath.get(), QStringLiteral("/kept"));
    QCOMPARE(find<QLabel>(QStringLiteral("lbSavePath"))->text(), QStringLiteral("Path:/kept"));
}

void tst_KestDetectorUI::dialogOpensAboveTheWorkingFolderEachTime()
{
    const QTemporaryDir folder;
    const QString path = folder.path();
    QStringList startFolders;
    for (int press = 0; press < 2; ++press) {
        Face::Get()->savePath = QString();
        QTimer timer;
        whenDialogOpens(timer, [path, &startFolders](QFileDialog *dialog) {
            startFolders.append(dialog->directory().canonicalPath());
            dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        click(QStringLiteral("tbSavePath"));
        QTRY_COMPARE(Face::Get()->savePath.get(), path);
    }
    const QString above = QDir(QStringLiteral("..")).canonicalPath();
    QCOMPARE(startFolders, (QStringList{above, above}));
}

/// As those for the shell and for downloads, on this very thread.
void tst_KestDetectorUI::waitsEndWhileTheDialogIsOpen()
{
    constexpr int waitMs = 300;
    QTimer rescue; // lets a wait below the dialog fail rather than hang
    rescue.setSingleShot(true);
    connect(&rescue, &QTimer::timeout, this, [] {
        if (QFileDialog *dialog = openDialog()) {
            dialog->reject();
        }
    });
    rescue.start(20 * waitMs);
    QTimer::singleShot(10, m_window.get(), [this] { click(QStringLiteral("tbSavePath")); });
    serveEventsUntil(waitMs, [] { return false; });
    QVERIFY(openDialog() != nullptr);
    openDialog()->reject();
    QTRY_COMPARE(openDialog(), nullptr);
}

void tst_KestDetectorUI::closingEndsTheProgramWithTheDialogOpen()
{
    QTimer timer;
    whenDialogOpens(timer, [this](QFileDialog *) { m_window->close(); });
    QTimer::singleShot(0, m_window.get(), [this] { click(QStringLiteral("tbSavePath")); });
    QTimer::singleShot(10000, m_window.get(), [] { QCoreApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
    QCOMPARE(openDialog(), nullptr);
}

void tst_KestDetectorUI::setSavePathStoresAndShows()
{
    m_window->setSavePath(QStringLiteral("/data/<i>%1</i>/日志"));
    QCOMPARE(Face::Get()->savePath.get(), QStringLiteral("/data/<i>%1</i>/日志"));
    QCOMPARE(find<QLabel>(QStringLiteral("lbSavePath"))->text(), QStringLiteral("Path:/data/<i>%1</i>/日志"));
}

void tst_KestDetectorUI::recordOfThreeItemsAddsFourRows()
{
    emit Face::Get()->signal_showCheckLog(record(9, {}));
    emit Face::Get()->signal_showCheckLog(record(2, {{0, QStringLiteral("相机电池通信OK\n"), QString()},
                                                     {1, QStringLiteral("second\n"), QStringLiteral("a\nb\n")},
                                                     {3, QString(), QStringLiteral("third")}}));
    QCOMPARE(log()->rowCount(), 5);
    // 129: left and vertically centred. 63: the default flags; 61: without the one that lets a cell be edited.
    QCOMPARE(rowText(log(), 0), QStringLiteral("Log 129 61|none|none"));
    QCOMPARE(rowText(log(), 1), QStringLiteral("Battery 129 61|none|none"));
    QCOMPARE(rowText(log(), 2), QStringLiteral("none|相机电池通信OK\n 129 63| 129 63"));
    QCOMPARE(rowText(log(), 3), QStringLiteral("none|second\n 129 63|a\nb\n 129 63"));
    QCOMPARE(rowText(log(), 4), QStringLiteral("none| 129 63|third 129 63"));
}

void tst_KestDetectorUI::recordWithoutItemsAddsItsHeading()
{
    emit Face::Get()->signal_showCheckLog(record(5, {}));
    QCOMPARE(log()->rowCount(), 1);
    QCOMPARE(log()->item(0, 0)->text(), QStringLiteral("Lens"));
    emit Face::Get()->signal_showCheckLog(record(12, {}));
    QCOMPARE(log()->rowCount(), 2);
    QCOMPARE(log()->item(1, 0)->text(), QString());
}

void tst_KestDetectorUI::recordsFromAnotherThreadArriveInOrder()
{
    std::thread worker([] {
        for (int component = 0; component < 10; ++component) {
            emit Face::Get()->signal_showCheckLog(record(component, {{0, QString::number(component), QString()}}));
            emit Face::Get()->signal_showTotalPersent((component + 1) * 10);
        }
    });
    worker.join();
    QCOMPARE(log()->rowCount(), 0); // nothing reaches the widgets on the worker's thread
    QTRY_COMPARE(find<RingsProgressbar>(QStringLiteral("barTotal"))->text(), QStringLiteral("Total:100%"));
    QCOMPARE(log()->rowCount(), 20);
    for (int component = 0; component < 10; ++component) {
        QCOMPARE(log()->item(2 * component + 1, 1)->text(), QString::number(component));
    }
}

void tst_KestDetectorUI::recordListShowsNothing()
{
    emit Face::Get()->signal_showCheckLogList({record(0, {{0, QStringLiteral("a\n"), QString()}})});
    QCOMPARE(log()->rowCount(), 0);
}

void tst_KestDetectorUI::reportRowIsTallerThanOneLine()
{
    emit Face::Get()->signal_showCheckLog(record(
        2, {{0, QStringLiteral("a\n"), QString()}, {0, QStringLiteral("b\n"), QStringLiteral("1\n2\n3\n4\n5\n")}}));
    QCOMPARE(log()->rowHeight(1), log()->verticalHeader()->defaultSectionSize());
    QVERIFY(log()->rowHeight(2) >= 5 * log()->fontMetrics().height());
}

void tst_KestDetectorUI::textWithALineBreakAtItsEndTakesOneLine()
{
    emit Face::Get()->signal_showCheckLog(
        record(2, {{0, QStringLiteral("same\n"), QString()}, {0, QStringLiteral("same"), QString()}}));
    log()->clearSelection();
    const QImage shown = log()->viewport()->grab().toImage();
    const QRect first = log()->visualItemRect(log()->item(1, 1));
    const QRect second = log()->visualItemRect(log()->item(2, 1));
    QCOMPARE(shown.copy(first), shown.copy(second));
}

void tst_KestDetectorUI::logFollowsItsNewestRow()
{
    for (int i = 0; i < 50; ++i) {
        emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QStringLiteral("1\n2\n3\n")}}));
    }
    QCoreApplication::processEvents();
    const QScrollBar *scrollBar = log()->verticalScrollBar();
    QVERIFY(scrollBar->maximum() > 0);
    QCOMPARE(scrollBar->value(), scrollBar->maximum());
}

void tst_KestDetectorUI::logDoesNotFollowRowsWithoutText()
{
    const QList<CheckItemLog> empty{{}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
    for (int i = 0; i < 50; ++i) {
        emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    }
    emit Face::Get()->signal_showCheckLog(record(9, empty));
    QCoreApplication::processEvents();
    const QRect shown = log()->viewport()->rect();
    const QTableWidgetItem *heading = log()->item(log()->rowCount() - 11, 0);
    QCOMPARE(heading->text(), QStringLiteral("Log"));
    QVERIFY(shown.contains(log()->visualItemRect(heading)));
    QVERIFY(!shown.intersects(log()->visualItemRect(log()->item(log()->rowCount() - 1, 1))));

    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    QCoreApplication::processEvents();
    QVERIFY(shown.contains(log()->visualItemRect(log()->item(log()->rowCount() - 1, 1))));
}

void tst_KestDetectorUI::logStaysWhereTheOperatorScrolled()
{
    for (int i = 0; i < 50; ++i) {
        emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    }
    log()->verticalScrollBar()->setValue(3);
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    QCoreApplication::processEvents();
    QCOMPARE(log()->verticalScrollBar()->value(), 3);
}

void tst_KestDetectorUI::firstFailedItemIsInSight_data()
{
    QTest::addColumn<QList<int>>("verdicts"); // of the items; the rest pass
    QTest::addColumn<bool>("passed");
    QTest::addColumn<int>("row"); // in sight at the end; -1: the last one

    QTest::newRow("failed run: its first failed item") << QList<int>{0, 2, 0, 1, 1} << false << 4;
    QTest::newRow("failed run without a failed item: its first warning") << QList<int>{0, 2, 2} << false << 2;
    QTest::newRow("failed run without either") << QList<int>{0, 3, -1} << false << -1;
    QTest::newRow("passed run: the end") << QList<int>{0, 2, 1} << true << -1;
}

void tst_KestDetectorUI::firstFailedItemIsInSight()
{
    QFETCH(QList<int>, verdicts);
    QFETCH(const bool, passed);
    QFETCH(const int, row);
    QList<CheckItemLog> items;
    for (int i = 0; i < 100; ++i) {
        items.append({verdicts.value(i), QStringLiteral("a\n"), QString()});
    }
    emit Face::Get()->signal_showCheckLog(record(0, items));
    emit Face::Get()->signal_showCheckResult(passed);
    QCoreApplication::processEvents();
    const int expected = row < 0 ? log()->rowCount() - 1 : row;
    QVERIFY(log()->viewport()->rect().contains(log()->visualItemRect(log()->item(expected, 1))));
}

void tst_KestDetectorUI::failedAndWarningRowsAreMarked()
{
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()},
                                                     {1, QStringLiteral("b\n"), QString()},
                                                     {2, QStringLiteral("c\n"), QString()},
                                                     {3, QStringLiteral("d\n"), QString()}}));
    QStringList marks;
    for (int row = 0; row < log()->rowCount(); ++row) {
        const QTableWidgetItem *header = log()->verticalHeaderItem(row);
        marks.append(header == nullptr || header->icon().isNull() ? QStringLiteral("none")
                                                                  : header->text() + header->toolTip());
    }
    QCOMPARE(marks, (QStringList{"none", "none", "3NG", "4warning", "none"}));
    const auto picture = [](const QIcon &icon) { return icon.pixmap(32).toImage(); };
    QCOMPARE(picture(log()->verticalHeaderItem(2)->icon()), picture(QIcon(QStringLiteral(":/icon/NG.jpg"))));
    QCOMPARE(picture(log()->verticalHeaderItem(3)->icon()), picture(QIcon(QStringLiteral(":/icon/War.png"))));
}

void tst_KestDetectorUI::marksGoWithTheRows()
{
    emit Face::Get()->signal_showCheckLog(record(0, {{1, QStringLiteral("a\n"), QString()}}));
    click(QStringLiteral("tbStart"));
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    QVERIFY(log()->verticalHeaderItem(1) == nullptr);
}

void tst_KestDetectorUI::cutOffTextHasAToolTip_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");

    const QString longText = QStringLiteral("<b>%1</b> & so on").arg(QString(300, QLatin1Char('W')));
    QTest::newRow("fits") << QStringLiteral("short\n") << QString();
    QTest::newRow("cut off, to the letter")
        << longText + QLatin1Char('\n')
        << QStringLiteral("<p style='white-space:pre'>&lt;b&gt;%1&lt;/b&gt; &amp; so on</p>")
               .arg(QString(300, QLatin1Char('W')));
    QTest::newRow("report that has its room") << QStringLiteral("1\n2\n3\n") << QString();
}

void tst_KestDetectorUI::cutOffTextHasAToolTip()
{
    QFETCH(const QString, text);
    QFETCH(const QString, toolTip);
    emit Face::Get()->signal_showCheckLog(record(0, {{0, text, QString()}}));
    QCoreApplication::processEvents();
    const QPoint place = log()->visualItemRect(log()->item(1, 1)).center();
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, place, log()->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(log()->viewport(), &help);
    if (toolTip.isEmpty()) {
        QVERIFY(!QToolTip::isVisible());
    } else {
        QCOMPARE(QToolTip::text(), toolTip);
    }
    QToolTip::hideText();
}

void tst_KestDetectorUI::tabLeavesTheEventLog()
{
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QString()}}));
    log()->setFocus();
    QVERIFY(log()->hasFocus());
    QTest::keyClick(log(), Qt::Key_Tab);
    QVERIFY(!log()->hasFocus());
}

void tst_KestDetectorUI::startHasTheFocusAtFirstAndAfterARun()
{
    const auto *start = find<QToolButton>(QStringLiteral("tbStart"));
    QCOMPARE(QApplication::focusWidget(), start);
    emit Face::Get()->signal_setButtonEnable(false);
    QVERIFY(!start->hasFocus());
    emit Face::Get()->signal_setButtonEnable(true);
    QCOMPARE(QApplication::focusWidget(), start);
}

void tst_KestDetectorUI::keysPressTheFocusedButton_data()
{
    QTest::addColumn<int>("key");

    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Return);
    QTest::newRow("Enter of the number pad") << static_cast<int>(Qt::Key_Enter);
    QTest::newRow("Space") << static_cast<int>(Qt::Key_Space);
}

void tst_KestDetectorUI::keysPressTheFocusedButton()
{
    QFETCH(const int, key);
    find<QToolButton>(QStringLiteral("tbChooseAll"))->setFocus();
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    QCOMPARE(tickedBoxes(), selectAllBoxes());
    QCOMPARE(Face::Get()->runRequest(), 0);
    find<QToolButton>(QStringLiteral("tbStart"))->setFocus();
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    QCOMPARE(Face::Get()->runRequest(), 1);
}

/// Tab reaches every box and button, and the event log; nothing else than keys is used.
void tst_KestDetectorUI::wholeRunByKeyboard()
{
    QStringList reached;
    const QWidget *first = QApplication::focusWidget();
    do {
        reached.append(QApplication::focusWidget()->objectName());
        if (reached.last() == QLatin1String("cbLens")) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && reached.size() < 100);
    const QStringList wanted =
        allBoxes() + QStringList{"tbStart", "tbSavePath", "tbChooseAll", "tbNotChooseAll", "twCheckedLog"};
    for (const QString &name : wanted) {
        QVERIFY2(reached.contains(name), qPrintable(name));
    }
    QCOMPARE(tickedBoxes(), QStringList{"cbLens"});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(planText(Face::Get()->taskList()), QStringLiteral("5:0"));
}

void tst_KestDetectorUI::noticesStandOnTheLeft()
{
    const auto *text = find<QLabel>(QStringLiteral("lbNotices"));
    const auto *link = find<QToolButton>(QStringLiteral("tbResults"));
    QVERIFY(!text->isVisible());
    QVERIFY(!link->isVisible());
    m_window->resize(1900, 700);
    Face::Get()->notices.tell(Notices::results(QStringLiteral("/data/log")));
    Face::Get()->notices.tell(Notices::nothingTested());
    Face::Get()->notices.tell(Notices::cameraLost());
    QTRY_COMPARE(text->text(), QStringLiteral("nothing was tested   |   the camera was lost during the run"));
    QCOMPARE(link->text(), QStringLiteral("results: /data/log"));
    QVERIFY(text->isVisible() && link->isVisible());
    QVERIFY(text->mapTo(m_window.get(), QPoint()).x() <
            find<QLabel>(QStringLiteral("lbWifiName"))->mapTo(m_window.get(), QPoint()).x());
    Face::Get()->notices.withdrawRun();
    QTRY_VERIFY(!text->isVisible());
    QVERIFY(!link->isVisible());
}

void tst_KestDetectorUI::resultsOpenTheirFolder_data()
{
    QTest::addColumn<bool>("byKeyboard");

    QTest::newRow("click") << false;
    QTest::newRow("keyboard") << true;
}

void tst_KestDetectorUI::resultsOpenTheirFolder()
{
    QFETCH(const bool, byKeyboard);
    OpenedUrls opened;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &opened, "open");
    const QString folder = QStringLiteral("/data/a folder/#1?/<i>");
    Face::Get()->notices.tell(Notices::results(folder));
    auto *link = find<QToolButton>(QStringLiteral("tbResults"));
    QTRY_VERIFY(link->isVisible());
    if (byKeyboard) {
        link->setFocus(Qt::TabFocusReason);
        QTest::keyClick(link, Qt::Key_Return);
    } else {
        QTest::mouseClick(link, Qt::LeftButton);
    }
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(opened.urls.size(), 1);
    QCOMPARE(opened.urls.first().toLocalFile(), folder);
}

void tst_KestDetectorUI::noticesReadToTheLetter()
{
    m_window->resize(1900, 700);
    Face::Get()->notices.tell(Notices::notSaved(QStringLiteral("/x/<b>y</b>"), QStringLiteral("a & b")));
    Face::Get()->notices.tell(Notices::results(QStringLiteral("/x/<i>y</i> & z")));
    const auto *text = find<QLabel>(QStringLiteral("lbNotices"));
    QTRY_COMPARE(text->text(), QStringLiteral("not saved: /x/<b>y</b>: a & b"));
    QCOMPARE(text->textFormat(), Qt::PlainText);
    const auto *link = find<QToolButton>(QStringLiteral("tbResults"));
    QCOMPARE(link->text(), QStringLiteral("results: /x/<i>y</i> && z")); // the letters "& z", not an underlined blank
    QCOMPARE(link->toolTip(), QStringLiteral("<p>results: /x/&lt;i&gt;y&lt;/i&gt; &amp; z</p>"));
}

void tst_KestDetectorUI::noticeFromAnotherThread()
{
    std::thread worker([] { Face::Get()->notices.tell(Notices::waitingForShell()); });
    worker.join();
    const auto *text = find<QLabel>(QStringLiteral("lbNotices"));
    QVERIFY(!text->isVisible()); // nothing reaches the widgets on the worker's thread
    QTRY_COMPARE(text->text(), QStringLiteral("waiting for the camera's shell"));
}

void tst_KestDetectorUI::longNoticesLeaveThePermanentLabelsAlone()
{
    const QStringList labels{"lbWifiName", "lbWifiPassword", "lbMacAddress", "lbConnectState"};
    m_window->resize(800, 600);
    emit Face::Get()->signal_setWifiName(QStringLiteral("KEST-1234"));
    QCoreApplication::processEvents();
    QList<QRect> before;
    for (const QString &name : labels) {
        before.append(find<QLabel>(name)->geometry());
    }
    const QString longText(2000, QLatin1Char('W'));
    Face::Get()->notices.tell(Notices::notSaved(longText, longText));
    Face::Get()->notices.tell(Notices::results(QLatin1Char('/') + longText));
    const auto *link = find<QToolButton>(QStringLiteral("tbResults"));
    QTRY_VERIFY(link->text().contains(QChar(0x2026)));
    QVERIFY(find<QLabel>(QStringLiteral("lbNotices"))->isVisible());
    QCoreApplication::processEvents();
    for (int i = 0; i < labels.size(); ++i) {
        QCOMPARE(find<QLabel>(labels.at(i))->geometry(), before.at(i));
    }
    QCOMPARE(m_window->size(), QSize(800, 600));
    QVERIFY(link->toolTip().contains(longText));
}

void tst_KestDetectorUI::safeguardedStartSaysWhatIsMissing_data()
{
    QTest::addColumn<bool>("tick");
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QString>("mac");
    QTest::addColumn<QString>("notice"); // empty: the run is requested

    const QString mac = QStringLiteral("AA:BB:CC:DD:EE:FF");
    QTest::newRow("all there") << true << true << mac << QString();
    QTest::newRow("no tick") << false << true << mac << "not started: no component is ticked";
    QTest::newRow("no camera") << true << false << mac << "not started: no camera is connected";
    QTest::newRow("unknown camera") << true << true << QString() << "not started: the camera's MAC address is unknown";
    QTest::newRow("neither tick nor camera")
        << false << false << QString() << "not started: no component is ticked; no camera is connected";
}

void tst_KestDetectorUI::safeguardedStartSaysWhatIsMissing()
{
    QFETCH(const bool, tick);
    QFETCH(const bool, connected);
    QFETCH(const QString, mac);
    QFETCH(const QString, notice);
    openWindow(true);
    showResults();
    Face::Get()->connectState = connected;
    Face::Get()->macAddress = mac;
    if (tick) {
        clickBox(QStringLiteral("cbLens"));
    }
    click(QStringLiteral("tbStart"));
    QCOMPARE(Face::Get()->runRequest(), notice.isEmpty() ? 1 : 0);
    QCOMPARE(log()->rowCount(), notice.isEmpty() ? 0 : 2); // what there is stays when there is no run
    QStringList told;
    const QList<Notice> current = Face::Get()->notices.current();
    for (const Notice &one : current) {
        told.append(one.text);
    }
    QCOMPARE(told.join(QLatin1Char('\n')), notice);
    Face::Get()->connectState = true;
    Face::Get()->macAddress = QStringLiteral("AA:BB:CC:DD:EE:FF");
    find<QCheckBox>(QStringLiteral("cbLens"))->setChecked(true);
    click(QStringLiteral("tbStart"));
    QVERIFY(Face::Get()->notices.current().isEmpty()); // nothing is missing any more
}

void tst_KestDetectorUI::startWithoutSafeguardsAsksForNothing()
{
    openWindow(false);
    click(QStringLiteral("tbStart"));
    QCOMPARE(Face::Get()->runRequest(), 1);
    QVERIFY(Face::Get()->notices.current().isEmpty());
}

void tst_KestDetectorUI::safeguardsLockEverythingDuringARun_data()
{
    QTest::addColumn<bool>("safeguards");

    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void tst_KestDetectorUI::safeguardsLockEverythingDuringARun()
{
    QFETCH(const bool, safeguards);
    openWindow(safeguards);
    emit Face::Get()->signal_setButtonEnable(false);
    for (const char *name : {"cbFan", "cbKeyBoard", "cbVoice", "tbSavePath"}) {
        QCOMPARE(find<QWidget>(QString::fromLatin1(name))->isEnabled(), !safeguards);
    }
    emit Face::Get()->signal_setButtonEnable(true);
    for (const char *name : {"cbFan", "cbKeyBoard", "cbVoice", "tbSavePath"}) {
        QVERIFY(find<QWidget>(QString::fromLatin1(name))->isEnabled());
    }
}

void tst_KestDetectorUI::eventLogCells_data()
{
    QTest::addColumn<bool>("safeguards");
    QTest::addColumn<QString>("row");

    // 63: the default flags; 61: without the one that lets a cell be edited.
    QTest::newRow("on: read-only") << true << "none|a\n 129 61|b 129 61";
    QTest::newRow("off: can be edited") << false << "none|a\n 129 63|b 129 63";
}

void tst_KestDetectorUI::eventLogCells()
{
    QFETCH(const bool, safeguards);
    openWindow(safeguards);
    emit Face::Get()->signal_showCheckLog(record(0, {{0, QStringLiteral("a\n"), QStringLiteral("b")}}));
    QTEST(rowText(log(), 1), "row");
}

void tst_KestDetectorUI::otherCameraClearsTheResults_data()
{
    QTest::addColumn<bool>("safeguards");
    QTest::addColumn<QStringList>("macs"); // told before and after the results came
    QTest::addColumn<bool>("cleared");

    const QString one = QStringLiteral("AA:BB:CC:DD:EE:01");
    const QString two = QStringLiteral("AA:BB:CC:DD:EE:02");
    QTest::newRow("another one") << true << QStringList{one, two} << true;
    QTest::newRow("another one after one that could not be told") << true << QStringList{one, QString(), two} << true;
    QTest::newRow("the same again") << true << QStringList{one, QString(), one} << false;
    QTest::newRow("the first one") << true << QStringList{QString(), one} << false;
    QTest::newRow("another one, without safeguards") << false << QStringList{one, two} << false;
}

void tst_KestDetectorUI::otherCameraClearsTheResults()
{
    QFETCH(const bool, safeguards);
    QFETCH(const QStringList, macs);
    QFETCH(const bool, cleared);
    openWindow(safeguards);
    emit Face::Get()->signal_setMacAddress(macs.first());
    showResults();
    Face::Get()->notices.tell(Notices::results(QStringLiteral("/data")));
    const QStringList others = macs.mid(1);
    for (const QString &mac : others) {
        emit Face::Get()->signal_setMacAddress(mac);
    }
    QCOMPARE(Face::Get()->notices.current().isEmpty(), cleared);
    if (cleared) {
        verifyNoResult();
    } else {
        QCOMPARE(find<QLabel>(QStringLiteral("lbCameraStatus"))->text(), QStringLiteral("OK"));
        QCOMPARE(log()->rowCount(), 2);
    }
}

void tst_KestDetectorUI::historyOfACameraGoesWithIt()
{
    openWindow(false);
    const auto *label = find<QLabel>(QStringLiteral("lbMacAddress"));
    emit Face::Get()->signal_setMacAddress(QStringLiteral("AA:BB:CC:DD:EE:01"));
    QCOMPARE(label->toolTip(), QString());
    m_window->setCameraHistory(QStringLiteral("Runs so far: 3"));
    emit Face::Get()->signal_setMacAddress(QStringLiteral("AA:BB:CC:DD:EE:01"));
    QCOMPARE(label->toolTip(), QStringLiteral("Runs so far: 3"));
    emit Face::Get()->signal_setMacAddress(QStringLiteral("AA:BB:CC:DD:EE:02"));
    QCOMPARE(label->toolTip(), QString());
}

void tst_KestDetectorUI::otherCameraDuringARunClearsNothing()
{
    openWindow(true);
    emit Face::Get()->signal_setMacAddress(QStringLiteral("AA:BB:CC:DD:EE:01"));
    QVERIFY(Face::Get()->run.post({}));
    QVERIFY(Face::Get()->run.take(QStringLiteral("AA:BB:CC:DD:EE:01")).has_value());
    showResults();
    emit Face::Get()->signal_setMacAddress(QStringLiteral("AA:BB:CC:DD:EE:02"));
    QCOMPARE(log()->rowCount(), 2);
}

void tst_KestDetectorUI::passphraseIsShownOnAClick()
{
    openWindow(true);
    auto *label = find<QLabel>(QStringLiteral("lbWifiPassword"));
    QCOMPARE(label->text(), QStringLiteral("Password:  "));
    emit Face::Get()->signal_setWifiPassWord(QStringLiteral("s%1cret"));
    const QString dots = QStringLiteral("Password: •••••••• ");
    QCOMPARE(label->text(), dots);
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(label->text(), QStringLiteral("Password: s%1cret "));
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(label->text(), dots);
    label->setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(label, key);
        QCOMPARE(label->text(), QStringLiteral("Password: s%1cret "));
        QTest::keyClick(label, Qt::Key_A);
        QCOMPARE(label->text(), QStringLiteral("Password: s%1cret "));
        QTest::keyClick(label, key);
        QCOMPARE(label->text(), dots);
    }
    emit Face::Get()->signal_setWifiPassWord(QStringLiteral("another one"));
    QCOMPARE(label->text(), dots);
    emit Face::Get()->signal_setWifiPassWord(QString());
    QCOMPARE(label->text(), QStringLiteral("Password:  "));
}

void tst_KestDetectorUI::passphraseWithoutSafeguards()
{
    openWindow(false);
    auto *label = find<QLabel>(QStringLiteral("lbWifiPassword"));
    emit Face::Get()->signal_setWifiPassWord(QStringLiteral("secret"));
    QCOMPARE(label->text(), QStringLiteral("Password: secret "));
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(label->text(), QStringLiteral("Password: secret "));
}

void tst_KestDetectorUI::ask(const QList<Question> &asked, const QString &serialPattern)
{
    Settings settings = Face::Get()->settings();
    settings.questions = {asked, SerialPattern(serialPattern), {}};
    Face::Get()->setSettings(settings);
    Face::Get()->runLabels = {QStringLiteral("Li"), QStringLiteral("B7"), QStringLiteral("of the run before")};
}

void tst_KestDetectorUI::scan(const QString &text) const
{
    QTRY_VERIFY(find<QDialog>(QStringLiteral("labelQuestion"))->focusWidget() != nullptr);
    QWidget *field = find<QDialog>(QStringLiteral("labelQuestion"))->focusWidget();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

void tst_KestDetectorUI::startAsksForTheLabels()
{
    ask({Question::Serial, Question::Operator, Question::Batch});
    click(QStringLiteral("tbStart"));
    QCOMPARE(Face::Get()->runRequest(), 0);
    QCOMPARE(field("leSerial")->text(), QString());
    QCOMPARE(field("leOperator")->text(), QStringLiteral("Li"));
    QCOMPARE(field("leBatch")->text(), QStringLiteral("B7"));
    click(QStringLiteral("tbStart")); // it is open already
    QCOMPARE(m_window->findChildren<QDialog *>(QStringLiteral("labelQuestion")).size(), 1);

    scan(QStringLiteral("SN-1"));
    scan(QString()); // the operator stays
    QCOMPARE(Face::Get()->runRequest(), 0);
    scan(QStringLiteral("B8"));
    QCOMPARE(Face::Get()->runRequest(), 1);
    QVERIFY(Face::Get()->run.take(QString()));
    QCOMPARE(Face::Get()->run.finish().identity.labels,
             (RunLabels{QStringLiteral("Li"), QStringLiteral("B8"), QStringLiteral("SN-1")}));
    QTRY_VERIFY(find<QDialog>(QStringLiteral("labelQuestion")) == nullptr);

    // The next one: the serial number is asked for anew.
    click(QStringLiteral("tbStart"));
    QCOMPARE(field("leSerial")->text(), QString());
    QCOMPARE(field("leBatch")->text(), QStringLiteral("B8"));
    scan(QStringLiteral("SN-2"));
    scan(QString());
    scan(QString());
    QCOMPARE(Face::Get()->run.runRequest(), 1);
    QVERIFY(Face::Get()->run.take(QString()));
    QCOMPARE(Face::Get()->run.finish().identity.labels.serial, QStringLiteral("SN-2"));
}

void tst_KestDetectorUI::serialThatDoesNotMatchStays()
{
    ask({Question::Batch, Question::Serial}, QStringLiteral("SN-\\d"));
    click(QStringLiteral("tbStart"));
    const auto *hint = find<QLabel>(QStringLiteral("lbSerialHint"));
    scan(QStringLiteral("B9"));
    QVERIFY(!hint->isVisible());
    scan(QStringLiteral("SN-X"));
    QCOMPARE(Face::Get()->runRequest(), 0);
    QVERIFY(hint->isVisible());
    QCOMPARE(field("leSerial")->selectedText(), QStringLiteral("SN-X")); // the next scan takes its place
    scan(QStringLiteral("SN-4"));
    QCOMPARE(Face::Get()->runRequest(), 1);
    QVERIFY(Face::Get()->run.take(QString()));
    QCOMPARE(Face::Get()->run.finish().identity.labels,
             (RunLabels{QStringLiteral("Li"), QStringLiteral("B9"), QStringLiteral("SN-4")}));
}

/// An empty serial number is none, with or without a pattern.
void tst_KestDetectorUI::scannerThatEndsWithTwoEnters()
{
    ask({Question::Operator, Question::Serial});
    click(QStringLiteral("tbStart"));
    scan(QStringLiteral("Wang"));
    scan(QString());
    QCOMPARE(Face::Get()->runRequest(), 0);
    scan(QStringLiteral("SN-1"));
    QCOMPARE(Face::Get()->runRequest(), 1);
}

void tst_KestDetectorUI::escapeGivesTheStartUp()
{
    ask({Question::Serial});
    click(QStringLiteral("tbStart"));
    QTest::keyClicks(field("leSerial"), QStringLiteral("SN-1"));
    QTest::keyClick(field("leSerial"), Qt::Key_Escape);
    QTRY_VERIFY(find<QDialog>(QStringLiteral("labelQuestion")) == nullptr);
    QCOMPARE(Face::Get()->runRequest(), 0);
    QCOMPARE(stopRecord.runs, 0);
    click(QStringLiteral("tbStart"));
    QCOMPARE(field("leSerial")->text(), QString());
}

void tst_KestDetectorUI::startIsRefusedBeforeItAsks()
{
    openWindow(true);
    ask({Question::Serial});
    click(QStringLiteral("tbStart"));
    QVERIFY(find<QDialog>(QStringLiteral("labelQuestion")) == nullptr);
    QCOMPARE(Face::Get()->notices.current().size(), 1);

    // A camera that goes while the operator is asked.
    Face::Get()->connectState = true;
    Face::Get()->macAddress = QStringLiteral("AA:BB:CC:DD:EE:FF");
    clickBox(QStringLiteral("cbLens"));
    click(QStringLiteral("tbStart"));
    QCOMPARE(Face::Get()->notices.current().size(), 0);
    Face::Get()->connectState = false;
    scan(QStringLiteral("SN-1"));
    QCOMPARE(Face::Get()->runRequest(), 0);
    QCOMPARE(Face::Get()->notices.current().size(), 1);
}

void tst_KestDetectorUI::closingTakesTheQuestionAlong()
{
    ask({Question::Serial});
    click(QStringLiteral("tbStart"));
    QVERIFY(m_window->close());
    QVERIFY(find<QDialog>(QStringLiteral("labelQuestion")) == nullptr);
}

void tst_KestDetectorUI::nobodyIsAskedInAnUnattendedRun()
{
    ask({Question::Serial});
    m_window->askNothing();
    click(QStringLiteral("tbStart"));
    QVERIFY(find<QDialog>(QStringLiteral("labelQuestion")) == nullptr);
    QCOMPARE(Face::Get()->runRequest(), 1);
}

void tst_KestDetectorUI::escapeStopsARun()
{
    RunExchange &run = Face::Get()->run;
    QTest::keyClick(m_window.get(), Qt::Key_Escape); // there is none
    QCOMPARE(stopRecord.runs, 0);
    QVERIFY(m_window->isVisible());

    click(QStringLiteral("tbStart"));
    QVERIFY(run.take(QString()));
    emit Face::Get()->signal_setButtonEnable(false);
    emit Face::Get()->signal_showCameraCheckResult(0);
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QCOMPARE(stopRecord.runs, 1);
    QVERIFY(run.isStopped());
    QVERIFY(m_window->isVisible());

    // Its end: without a result.
    QVERIFY(run.finish().stopped);
    emit Face::Get()->signal_setButtonEnable(true);
    QCOMPARE(find<QLabel>(QStringLiteral("lbCameraStatus"))->text(), QStringLiteral("NA"));
    verifyState(QStringLiteral("lbCamera"), QStringLiteral("Camera: OK"), QStringLiteral("OK"));
    click(QStringLiteral("tbStart"));
    QCOMPARE(Face::Get()->runRequest(), 1);
    QVERIFY(run.take(QString()));
    QVERIFY(!run.isStopped());
    run.finish();
}

void tst_KestDetectorUI::menuStopsARun()
{
    RunExchange &run = Face::Get()->run;
    click(QStringLiteral("tbStart"));
    QVERIFY(run.take(QString()));
    for (QWidget *place :
         {static_cast<QWidget *>(log()->viewport()), find<QWidget>(QStringLiteral("lbCameraStatus"))}) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), place->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(place, &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->actions().constLast()->text(), QStringLiteral("Stop the run\tEsc"));
        const int before = stopRecord.runs;
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(menu->actions().constLast()).center());
        QCOMPARE(stopRecord.runs, before + 1);
        QVERIFY(run.isStopped());
    }
    run.finish();
}

void tst_KestDetectorUI::noMenuWithoutARun()
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), log()->viewport()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(log()->viewport(), &event);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

void tst_KestDetectorUI::menuShowsWhatOthersHaveAdded()
{
    QAction added(QStringLiteral("History of this camera"));
    m_window->addAction(&added);
    const QSignalSpy triggered(&added, &QAction::triggered);
    for (const bool isRunning : {false, true}) {
        if (isRunning) {
            click(QStringLiteral("tbStart"));
            QVERIFY(Face::Get()->run.take(QString()));
        }
        const int before = triggered.count();
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), log()->viewport()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(log()->viewport(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->actions().size(), isRunning ? 2 : 1);
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(&added).center());
        QCOMPARE(triggered.count(), before + 1);
    }
    Face::Get()->run.finish();
}

void tst_KestDetectorUI::closeStopsTheServicesThenLetsWaitingCallsGiveUp()
{
    QVERIFY(m_window->close());
    QVERIFY(!m_window->isVisible());
    QCOMPARE(stopRecord.calls, 1);
    QCOMPARE(stopRecord.quitFlag, 0);
    QCOMPARE(Face::Get()->quitFlag.load(), -1);
}

QTEST_MAIN(tst_KestDetectorUI)
#include "tst_KestDetectorUI.moc"
