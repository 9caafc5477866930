#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "support/fileContent.h"

#include <QtTest>

/// The runner against a camera that never answers: what a run emits, in which order, and what it leaves behind.
/// Signals are noted as text, in the order in which they reach this thread.
class tst_Runner : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void emptyPlan();
    void logDownloadOnly();
    void unknownComponentFailsTheRun();
    void verdictOfTheRun_data();
    void verdictOfTheRun();
    void totalProgressIsTruncated();
    void secondRunHoldsOnlyItsOwnComponents();
    void runIsActiveFromTakingThePlanToItsEnd();
    void killThreadWhileIdle();

private:
    void run(const QList<ComponentTask> &plan);
    QByteArray savedLog() const;

    QTemporaryDir m_folder;
    QStringList m_events;
};

void tst_Runner::initTestCase()
{
    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
    qRegisterMetaType<checkLog>("checkLog");
    KestDetectorFace *face = KestDetectorFace::Get();
    face->savePath = m_folder.path();
    face->macAddress = QStringLiteral("AA:BB:CC:DD:EE:FF");
    face->cameraAddress = QStringLiteral("127.0.0.10"); // nobody listens there

    const auto note = [this](const QString &event) { m_events.append(event); };
    const auto noteVerdict = [&](void (KestDetectorFace::*signal)(int), const char *name) {
        connect(face, signal, this,
                [=](int verdict) { note(QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(verdict)); });
    };
    noteVerdict(&KestDetectorFace::signal_showCameraCheckResult, "camera");
    noteVerdict(&KestDetectorFace::signal_showFanCheckResult, "fan");
    noteVerdict(&KestDetectorFace::signal_showKeyBoardCheckResult, "button");
    noteVerdict(&KestDetectorFace::signal_showVoiceCheckResult, "audio");
    noteVerdict(&KestDetectorFace::signal_showPcbaCheckResult, "pcba");
    noteVerdict(&KestDetectorFace::signal_showBatteryCheckResult, "battery");
    noteVerdict(&KestDetectorFace::signal_showTotalPersent, "total");
    connect(face, &KestDetectorFace::signal_showCurrentComponent, this,
            [=](const QString &name) { note(QStringLiteral("component ") + name); });
    connect(face, &KestDetectorFace::signal_showCheckResult, this,
            [=](bool passed) { note(passed ? QStringLiteral("passed") : QStringLiteral("failed")); });
    connect(face, &KestDetectorFace::signal_setButtonEnable, this,
            [=](bool enabled) { note(enabled ? QStringLiteral("enabled") : QStringLiteral("disabled")); });
    KestDetectorRt::Get();
}

void tst_Runner::init()
{
    m_events.clear();
}

void tst_Runner::run(const QList<ComponentTask> &plan)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const int before = KestDetectorRt::Get()->finishedRuns();
    QVERIFY(face->run.post(plan));
    QTRY_COMPARE_WITH_TIMEOUT(KestDetectorRt::Get()->finishedRuns(), before + 1, 30000);
    QCoreApplication::processEvents();
    QCOMPARE(face->runRequest(), 0);
}

QByteArray tst_Runner::savedLog() const
{
    return fileContent(m_folder.path() + QStringLiteral("/log/") +
                       QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")) +
                       QStringLiteral("_AABBCCDDEEFF/DetectorLog.txt"));
}

void tst_Runner::emptyPlan()
{
    run({});
    QCOMPARE(m_events, QStringList({"disabled", "passed", "enabled"}));
    QCOMPARE(savedLog(), QByteArray());
}

void tst_Runner::logDownloadOnly()
{
    run({{componentId::log, {}}});
    QCOMPARE(m_events, QStringList({"disabled", "component Log", "total 100", "passed", "enabled"}));
    QCOMPARE(savedLog(), QByteArray());
}

void tst_Runner::unknownComponentFailsTheRun()
{
    run({{componentId::fan, {0}}, {12, {0}}});
    QCOMPARE(m_events,
             QStringList({"disabled", "component Fan", "fan 0", "total 50", "total 100", "failed", "enabled"}));
}

void tst_Runner::verdictOfTheRun_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<QString>("verdict");
    QTest::addColumn<QString>("outcome");

    QTest::newRow("a warning leaves the run passed")
        << componentId::pcba << QList<int>{2} << QStringLiteral("pcba 2") << QStringLiteral("passed");
    QTest::newRow("an NG fails the run") << componentId::camera << QList<int>{0} << QStringLiteral("camera 1")
                                         << QStringLiteral("failed");
    QTest::newRow("an OK leaves the run passed")
        << componentId::battery << QList<int>{3} << QStringLiteral("battery 0") << QStringLiteral("passed");
}

void tst_Runner::verdictOfTheRun()
{
    QFETCH(int, component);
    QFETCH(QList<int>, items);
    QFETCH(QString, verdict);
    QFETCH(QString, outcome);
    run({{component, items}});
    QCOMPARE(m_events.size(), 6);
    QCOMPARE(m_events.at(2), verdict);
    QCOMPARE(m_events.at(3), QStringLiteral("total 100"));
    QCOMPARE(m_events.at(4), outcome);
}

void tst_Runner::totalProgressIsTruncated()
{
    run({{componentId::fan, {0}}, {componentId::keyBoard, {0}}, {componentId::voice, {0}}});
    QCOMPARE(m_events, QStringList({"disabled", "component Fan", "fan 0", "total 33", "component Button", "button 0",
                                    "total 66", "component Audio", "audio 0", "total 100", "passed", "enabled"}));
    QCOMPARE(savedLog(), QByteArray()); // these three leave no record
}

void tst_Runner::secondRunHoldsOnlyItsOwnComponents()
{
    run({{componentId::battery, {3}}});
    QCOMPARE(savedLog(), QByteArray("[Battery]:\n\n"));
    run({{componentId::pcba, {0}}});
    QCOMPARE(savedLog(), QByteArray("[PCBA]:\n\n"));
}

void tst_Runner::runIsActiveFromTakingThePlanToItsEnd()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const int before = KestDetectorRt::Get()->finishedRuns();
    QVERIFY(face->run.post({{componentId::fan, {0}}}));
    QTRY_VERIFY(face->run.isActive());
    QCOMPARE(face->runRequest(), 1);
    QTRY_VERIFY(!face->run.isActive());
    QCOMPARE(face->runRequest(), 0);
    QTRY_COMPARE(KestDetectorRt::Get()->finishedRuns(), before + 1);
}

void tst_Runner::killThreadWhileIdle()
{
    QElapsedTimer clock;
    clock.start();
    KestDetectorRt::Get()->killThread();
    QVERIFY(clock.elapsed() < 1000);
    KestDetectorRt::Get()->killThread(); // does nothing
    UDPTransciever::Get()->killThread();
    Camera::Get()->abandonRequests();
    Camera::Get()->killThread();
}

QTEST_GUILESS_MAIN(tst_Runner)
#include "tst_Runner.moc"
