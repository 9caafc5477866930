#include "CameraProcess.h"
#include "queries.h"
#include "StationProcess.h"
#include "waiting.h"

#include <csignal>
#include <QElapsedTimer>
#include <QtTest>

/// The station with its window, clicked by a hand inside the program, and what comes from outside meanwhile: signals, a
/// second station, another camera.
class tst_E2eWindow : public QObject
{
    Q_OBJECT

private slots:
    void signalEndsItWithTheFolderDialogOpen_data();
    void signalEndsItWithTheFolderDialogOpen();
    void secondStationSaysSo_data();
    void secondStationSaysSo();
    void wrongSettingsSaySo();
    void anotherCameraIsShownAndFiled_data();
    void anotherCameraIsShownAndFiled();
    void runIsNotTakenForAnotherCameras_data();
    void runIsNotTakenForAnotherCameras();
    void eachCameraIsTestedByItself();
};

namespace {
#ifdef KEST_SANITIZED
constexpr int limitMs = 20000;
#else
constexpr int limitMs = 3000;
#endif

const QByteArray macA = "60:60:1F:0A:5F:2A";
const QByteArray macB = "60:60:1F:0B:5F:2B";
const QString folderA = QStringLiteral("60601F0A5F2A/");
const QString folderB = QStringLiteral("60601F0B5F2B/");

/// A camera whose battery tells it from others. It does not answer `silent`.
QByteArray scenario(const QByteArray &mac, int capacity, const QByteArray &silent = {})
{
    return (silent.isEmpty() ? "{" : faulty({silent}, fault("drop", always)).chopped(1) + ", ") + R"("mac": ")" + mac +
           R"(", "battery": {"info": {"fullCapacity": )" + QByteArray::number(capacity) + "}}}";
}

QByteArray capacityLine(int capacity)
{
    return "满电容量:" + QByteArray::number(capacity) + "mAh\n";
}

bool showsMac(StationProcess &station, const QByteArray &mac)
{
    return station.waitForLabel("lbMacAddress", "Mac: " + mac + ' ');
}

/// The window of a station that has found its camera.
bool openConnected(StationProcess &station, const QByteArray &mac)
{
    station.openWindow();
    return showsMac(station, mac);
}

void addSafeguardsRows()
{
    QTest::addColumn<bool>("safeguards");
    QTest::newRow("nineteen keys") << false;
    QTest::newRow("safeguards") << true;
}

/// A station with its window, and two cameras on one address, of which the second one takes the first one's place.
class Swap
{
public:
    explicit Swap(bool safeguards)
    {
        if (safeguards) {
            station.addSafeguards();
        }
    }

    /// Neither camera answers its `silent` command.
    bool openWithFirst(const QByteArray &silent = {})
    {
        return first.start(scenario(macA, 801, silent)) && openConnected(station, macA);
    }
    bool swap(const QByteArray &silent = {})
    {
        first.signalAll(SIGKILL);
        return second.start(scenario(macB, 902, silent)) && showsMac(station, macB);
    }

    CameraProcess first;
    CameraProcess second;
    StationProcess station;
};

/// Whether the detection log in `folder` tells of the camera with this battery, once the run is over.
bool hasSavedLog(const StationProcess &station, const QString &folder, int capacity)
{
    const QString log = folder + QStringLiteral("DetectorLog.txt");
    return waitUntil([&] { return station.allSaved().value(log).contains(capacityLine(capacity)); }, 60000);
}
} // namespace

void tst_E2eWindow::signalEndsItWithTheFolderDialogOpen_data()
{
    QTest::addColumn<bool>("hasCamera");
    QTest::addColumn<bool>("duringRun");
    QTest::addColumn<int>("number");

    QTest::newRow("SIGTERM without a camera") << false << false << SIGTERM;
    QTest::newRow("SIGTERM") << true << false << SIGTERM;
    QTest::newRow("SIGINT") << true << false << SIGINT;
    QTest::newRow("SIGTERM during a run") << true << true << SIGTERM;
}

void tst_E2eWindow::signalEndsItWithTheFolderDialogOpen()
{
    QFETCH(const bool, hasCamera);
    QFETCH(const bool, duringRun);
    QFETCH(const int, number);
    CameraProcess camera;
    StationProcess station;
    if (hasCamera) {
        QVERIFY(camera.start(faulty(namesOfAllQueries(), fault("drop", always))));
        QVERIFY(openConnected(station, macA));
    } else {
        station.openWindow();
        QVERIFY(station.debugOutput().waitFor("sConnectIp"));
    }
    station.tell("click tbSavePath");
    QVERIFY(station.output().waitFor("dialog QFileDialog"));
    if (duringRun) {
        station.tell("click cbBattery");
        station.tell("click tbStart");
        QVERIFY(camera.waitForRequest("getBatteryInfo"));
    }
    QElapsedTimer clock;
    clock.start();
    station.signal(number);
    QCOMPARE(station.finish(60000), 0);
    QVERIFY2(clock.elapsed() < limitMs, qPrintable(QString::number(clock.elapsed())));
}

void tst_E2eWindow::secondStationSaysSo_data()
{
    QTest::addColumn<bool>("byHand");

    QTest::newRow("its dialog is closed") << true;
    QTest::newRow("SIGTERM") << false;
}

void tst_E2eWindow::secondStationSaysSo()
{
    QFETCH(const bool, byHand);
    CameraProcess camera;
    QVERIFY(camera.start());
    StationProcess first;
    first.start(QStringLiteral("camera"), {QStringLiteral("--repeat"), QStringLiteral("1000000")});
    QVERIFY(first.output().waitFor("Result: OK"));

    StationProcess second;
    second.openWindow();
    QVERIFY(second.output().waitFor("dialog QMessageBox: Another KestDetector is running on this PC."));
    const int results = first.output().count("Result: OK");
    QVERIFY(first.output().waitFor("Result: OK", results + 2));
    QVERIFY(second.isRunning());
    QElapsedTimer clock;
    clock.start();
    if (byHand) {
        second.tell("close");
    } else {
        second.signal(SIGTERM);
    }
    QCOMPARE(second.finish(60000), 2);
    QVERIFY(clock.elapsed() < limitMs);
    QCOMPARE(second.debugOutput().count("sConnectIp"), 0);

    QVERIFY(first.isRunning());
    QCOMPARE(first.output().count("Result: NG"), 0);
    QCOMPARE(camera.requests("registerPC"), 1);
    first.signal(SIGTERM);
    QCOMPARE(first.finish(), 4);
}

void tst_E2eWindow::wrongSettingsSaySo()
{
    StationProcess station;
    station.writeOptionIni(station.optionIni() + "\n[Station]\nask=serial,name\n");
    station.openWindow();
    QVERIFY(
        station.output().waitFor("dialog QMessageBox: " + station.folder().toUtf8() +
                                 "/option.ini: Station/ask=\"serial,name\": \"name\" cannot be asked for; known are "
                                 "serial, operator, batch\n"));
    station.tell("close");
    QCOMPARE(station.finish(60000), 2);
    QCOMPARE(station.debugOutput().count("sConnectIp"), 0);
}

void tst_E2eWindow::anotherCameraIsShownAndFiled_data()
{
    addSafeguardsRows();
}

void tst_E2eWindow::anotherCameraIsShownAndFiled()
{
    QFETCH(const bool, safeguards);
    Swap scene(safeguards);
    StationProcess &station = scene.station;
    QVERIFY(scene.openWithFirst());
    QVERIFY(scene.swap());
    QCOMPARE(scene.second.requests("registerPC"), 0); // the link has not been dropped

    station.tell("click cbBattery");
    station.tell("click cbLoadLog");
    station.tell("click tbStart");
    QVERIFY(hasSavedLog(station, folderB, 902)); // it is written last
    const QMap<QString, QByteArray> files = station.allSaved();
    QCOMPARE(files.size(), 11);
    for (auto file = files.begin(); file != files.end(); ++file) {
        QVERIFY2(file.key().startsWith(folderB), qPrintable(file.key()));
    }
    station.signal(SIGTERM);
    QCOMPARE(station.finish(), 0);
}

void tst_E2eWindow::runIsNotTakenForAnotherCameras_data()
{
    addSafeguardsRows();
}

void tst_E2eWindow::runIsNotTakenForAnotherCameras()
{
    QFETCH(const bool, safeguards);
    Swap scene(safeguards);
    StationProcess &station = scene.station;
    QVERIFY(scene.openWithFirst("getBatteryInfo"));
    for (const char *button : {"cbBattery", "cbPCBA", "cbLoadLog", "tbStart"}) {
        station.tell(QByteArray("click ") + button);
    }
    // The second camera is there before the battery is given up, and known before the boards are.
    QVERIFY(scene.first.waitForRequest("getBatteryInfo"));
    QVERIFY(scene.swap("getGimbalESCDevicesCheck"));
    QVERIFY(station.waitForLabel("lbNotices", "another camera came during the run"));
    QCOMPARE(scene.second.requests("registerPC"), 0); // the link has not been dropped
    station.signal(SIGTERM);
    QCOMPARE(station.finish(), 0);

    // With safeguards the run is the first camera's, and says that it is not to be trusted; without them a file is
    // named after the camera that is there when it is written.
    const QMap<QString, QByteArray> files = station.allSaved();
    const QString log = (safeguards ? folderA : folderB) + QStringLiteral("DetectorLog.txt");
    QVERIFY(files.contains(log));
    QCOMPARE(files.value(log).startsWith("another camera came during the run\n\n[Battery]:\n"), safeguards);
    for (auto file = files.begin(); file != files.end(); ++file) {
        QVERIFY2(file.key() == log || file.key().startsWith(folderB), qPrintable(file.key()));
    }
}

void tst_E2eWindow::eachCameraIsTestedByItself()
{
    Swap scene(false); // a query is sent once, and so tells the runs
    StationProcess &station = scene.station;
    station.writeOptionIni(station.optionIni() + "\n[Station]\nautoStart=true\n");
    station.openWindow();
    station.tell("click cbBattery");
    QVERIFY(scene.first.start(scenario(macA, 801)));
    QVERIFY(hasSavedLog(station, folderA, 801));
    QVERIFY(scene.swap());
    QVERIFY(hasSavedLog(station, folderB, 902));
    // Not once more, however long it stays.
    QVERIFY(scene.second.waitForRequest("Ping", scene.second.requests("Ping") + 3));
    QCOMPARE(scene.first.requests("getBatteryInfo"), 1);
    QCOMPARE(scene.second.requests("getBatteryInfo"), 1);
    QCOMPARE(station.allSaved().size(), 2);
    station.signal(SIGTERM);
    QCOMPARE(station.finish(), 0);
}

QTEST_GUILESS_MAIN(tst_E2eWindow)
#include "tst_E2eWindow.moc"
