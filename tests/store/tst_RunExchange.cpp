#include "detector/store/RunExchange.h"

#include <QTest>
#include <thread>

using Camera = RunEnd::Camera;
Q_DECLARE_METATYPE(RunEnd::Camera)

namespace {
const QString cameraA = QStringLiteral("AA:AA:AA:AA:AA:AA");
const QString cameraB = QStringLiteral("BB:BB:BB:BB:BB:BB");

QList<int> components(const QList<ComponentTask> &plan)
{
    QList<int> ids;
    for (const ComponentTask &task : plan) {
        ids.append(task.component);
    }
    return ids;
}

QList<int> components(const QList<checkLog> &logs)
{
    QList<int> ids;
    for (const checkLog &log : logs) {
        ids.append(log.component);
    }
    return ids;
}
} // namespace

class tst_RunExchange : public QObject
{
    Q_OBJECT

private slots:
    void planGoesFromPostToFinish();
    void nothingIsTakenTwice();
    void untakenPlanIsReplaced();
    void startDuringARunChangesNothing();
    void postingDropsTheRecordsOfTheRunBefore();
    void runBelongsToTheCameraAndTimeOfItsBegin();
    void runCarriesTheLabelsThatItWasPostedWith();
    void whatBecameOfTheCamera_data();
    void whatBecameOfTheCamera();
    void whatHappensBetweenRunsConcernsNone();
    void unsavedFilesBelongToOneRun();
    void everyPlanIsTakenOnce();
    void stopBelongsToOneRun();
    void runThatNobodyHasTakenIsStopped();
    void stopSignIsThatOfTheThreadsOwnRun();
};

void tst_RunExchange::planGoesFromPostToFinish()
{
    RunExchange run;
    QCOMPARE(run.runRequest(), 0);
    QVERIFY(!run.isActive());
    QVERIFY(!run.take(cameraA));

    QVERIFY(run.post({{2, {0, 2, 1}}, {9, {4}}}));
    QCOMPARE(run.runRequest(), 1);
    QVERIFY(!run.isActive());
    QCOMPARE(components(run.taskList()), (QList<int>{2, 9}));

    const auto plan = run.take(cameraA);
    QVERIFY(plan);
    QCOMPARE(components(*plan), (QList<int>{2, 9}));
    QCOMPARE(plan->at(0).items, (QList<int>{0, 2, 1}));
    QCOMPARE(run.runRequest(), 1);
    QVERIFY(run.isActive());

    run.append({2, {}});
    run.append({9, {}});
    QCOMPARE(components(run.checkLogList()), (QList<int>{2, 9}));
    QCOMPARE(components(run.finish().logs), (QList<int>{2, 9}));
    QCOMPARE(run.runRequest(), 0);
    QVERIFY(!run.isActive());
    QVERIFY(!run.take(cameraA));
    QCOMPARE(components(run.checkLogList()), (QList<int>{2, 9}));
}

void tst_RunExchange::nothingIsTakenTwice()
{
    RunExchange run;
    run.post({{1, {}}});
    QVERIFY(run.take(cameraA));
    QVERIFY(!run.take(cameraB));
    QCOMPARE(run.identity().macAddress, cameraA);
}

void tst_RunExchange::untakenPlanIsReplaced()
{
    RunExchange run;
    QVERIFY(run.post({{1, {}}}));
    QVERIFY(run.post({{2, {}}}));
    QCOMPARE(components(*run.take(cameraA)), QList<int>{2});
}

void tst_RunExchange::startDuringARunChangesNothing()
{
    RunExchange run;
    run.post({{1, {}}});
    run.take(cameraA);
    run.append({1, {}});
    QVERIFY(!run.post({{2, {}}}));
    QCOMPARE(components(run.taskList()), QList<int>{1});
    QCOMPARE(components(run.finish().logs), QList<int>{1});
    QVERIFY(!run.take(cameraA));
}

void tst_RunExchange::postingDropsTheRecordsOfTheRunBefore()
{
    RunExchange run;
    run.post({{1, {}}});
    run.take(cameraA);
    run.append({1, {}});
    const RunEnd first = run.finish();
    run.post({});
    QVERIFY(run.checkLogList().isEmpty());
    QCOMPARE(components(first.logs), QList<int>{1}); // what was handed out stays
    run.take(cameraA);
    QVERIFY(run.finish().logs.isEmpty());
}

void tst_RunExchange::runBelongsToTheCameraAndTimeOfItsBegin()
{
    RunExchange run;
    run.post({});
    const QDateTime before = QDateTime::currentDateTime();
    run.take(cameraA);
    const QDateTime after = QDateTime::currentDateTime();
    QCOMPARE(run.identity().macAddress, cameraA);
    QTest::qWait(2);
    const RunIdentity identity = run.finish().identity;
    QCOMPARE(identity.macAddress, cameraA);
    QVERIFY(before <= identity.begin && identity.begin <= after);
}

void tst_RunExchange::runCarriesTheLabelsThatItWasPostedWith()
{
    const RunLabels first{QStringLiteral("Li"), QStringLiteral("B7"), QStringLiteral("SN-1")};
    const RunLabels second{QStringLiteral("Li"), QStringLiteral("B7"), QStringLiteral("SN-2")};
    RunExchange run;
    run.post({}, first);
    run.take(cameraA);
    QVERIFY(!run.post({}, second)); // the run under way keeps its own
    QCOMPARE(run.identity().labels, first);
    QCOMPARE(run.finish().identity.labels, first);

    run.post({}, second);
    run.take(cameraA);
    QCOMPARE(run.finish().identity.labels, second);

    run.post({});
    run.take(cameraA);
    QCOMPARE(run.finish().identity.labels, RunLabels());
}

void tst_RunExchange::whatBecameOfTheCamera_data()
{
    QTest::addColumn<QString>("atBegin");
    QTest::addColumn<QStringList>("events"); // "" for a lost link, else the MAC address that is told
    QTest::addColumn<Camera>("camera");

    const QString lost;
    QTest::newRow("nothing happened") << cameraA << QStringList() << Camera::Kept;
    QTest::newRow("the same camera tells its address again") << cameraA << QStringList{cameraA} << Camera::Kept;
    QTest::newRow("link lost") << cameraA << QStringList{lost} << Camera::Lost;
    QTest::newRow("link lost, and the same camera back") << cameraA << QStringList{lost, cameraA} << Camera::Lost;
    QTest::newRow("link lost, and another camera") << cameraA << QStringList{lost, cameraB} << Camera::Changed;
    QTest::newRow("another camera on the same link") << cameraA << QStringList{cameraB} << Camera::Changed;
    QTest::newRow("another camera, and the first one back")
        << cameraA << QStringList{cameraB, cameraA} << Camera::Changed;
    QTest::newRow("another camera, then the link lost") << cameraA << QStringList{cameraB, lost} << Camera::Changed;
    QTest::newRow("unknown at first") << QString() << QStringList{cameraA, cameraA} << Camera::Kept;
    QTest::newRow("unknown at first, then two") << QString() << QStringList{cameraA, cameraB} << Camera::Changed;
}

void tst_RunExchange::whatBecameOfTheCamera()
{
    QFETCH(const QString, atBegin);
    QFETCH(const QStringList, events);
    RunExchange run;
    run.post({});
    run.take(atBegin);
    run.noteCamera(QString()); // an address that could not be read says nothing
    for (const QString &event : events) {
        if (event.isEmpty()) {
            run.noteLinkLost();
        } else {
            run.noteCamera(event);
        }
    }
    const RunEnd end = run.finish();
    QTEST(end.camera, "camera");
    QCOMPARE(end.identity.macAddress, atBegin);
}

void tst_RunExchange::whatHappensBetweenRunsConcernsNone()
{
    RunExchange run;
    run.post({});
    run.take(cameraA);
    run.noteLinkLost();
    run.finish();
    run.noteCamera(cameraB);
    run.post({});
    run.noteLinkLost();
    run.take(cameraB);
    QVERIFY(run.finish().camera == Camera::Kept);
    run.noteLinkLost();
    QVERIFY(run.finish().camera == Camera::Kept);
}

void tst_RunExchange::unsavedFilesBelongToOneRun()
{
    RunExchange run;
    run.post({});
    run.take(cameraA);
    run.noteUnsaved({QStringLiteral("/a/dmesg.txt"), QStringLiteral("Read-only file system")});
    const RunEnd end = run.finish();
    QCOMPARE(end.unsaved.size(), 1);
    QCOMPARE(end.unsaved.constFirst().path, QStringLiteral("/a/dmesg.txt"));
    QCOMPARE(end.unsaved.constFirst().reason, QStringLiteral("Read-only file system"));
    run.post({});
    run.take(cameraA);
    QVERIFY(run.finish().unsaved.isEmpty());
}

void tst_RunExchange::everyPlanIsTakenOnce()
{
    constexpr int plans = 2000;
    RunExchange run;
    QList<int> taken;
    std::thread runner([&] {
        while (taken.size() < plans) {
            if (const auto plan = run.take(cameraA)) {
                run.append({plan->constFirst().component, {}});
                taken.append(components(run.finish().logs));
            }
        }
    });
    for (int i = 0; i < plans; ++i) {
        while (run.runRequest() == 1 || !run.post({{i, {}}})) {
            std::this_thread::yield();
        }
    }
    runner.join();
    QCOMPARE(taken.size(), plans);
    for (int i = 0; i < plans; ++i) {
        QCOMPARE(taken.at(i), i);
    }
}

void tst_RunExchange::stopBelongsToOneRun()
{
    RunExchange run;
    QVERIFY(!run.stop()); // there is none
    QVERIFY(!run.isStopped());
    run.post({});
    run.take(cameraA);
    QVERIFY(!run.isStopped());
    QVERIFY(run.stop());
    QVERIFY(run.stop());
    QVERIFY(run.isStopped());
    QVERIFY(run.finish().stopped);
    QVERIFY(!run.isStopped());
    QVERIFY(!run.stop());

    run.post({});
    run.take(cameraA);
    QVERIFY(!run.isStopped());
    QVERIFY(!run.finish().stopped);
}

void tst_RunExchange::runThatNobodyHasTakenIsStopped()
{
    RunExchange run;
    run.post({});
    QVERIFY(run.stop());
    QVERIFY(run.take(cameraA));
    QVERIFY(run.isStopped());
    QVERIFY(run.finish().stopped);

    run.post({});
    QVERIFY(run.stop());
    run.post({}); // replaces it, and is wanted
    QVERIFY(run.take(cameraA));
    QVERIFY(!run.isStopped());
}

void tst_RunExchange::stopSignIsThatOfTheThreadsOwnRun()
{
    RunExchange run;
    run.post({});
    const auto early = run.stopSign();
    run.take(cameraA);
    const auto own = run.stopSign();
    std::function<bool()> foreign;
    std::thread([&] { foreign = run.stopSign(); }).join();
    QVERIFY(!own());
    run.stop();
    QVERIFY(own());
    QVERIFY(!foreign());
    QVERIFY(!early());
    bool seenElsewhere = false;
    std::thread([&] { seenElsewhere = own(); }).join();
    QVERIFY(seenElsewhere);
    run.finish();
    QVERIFY(!own());
}

QTEST_GUILESS_MAIN(tst_RunExchange)
#include "tst_RunExchange.moc"
