#include "detector/checks/checkComponent.h"
#include "detector/checks/noteRequest.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/requestTally.h"
#include "support/CheckTest.h"
#include "support/MessageSpy.h"

#include <array>
#include <QFile>
#include <QMetaObject>
#include <QTemporaryDir>
#include <QTest>

namespace {
void passes(CheckItemLog &item)
{
    item.result = 0;
    item.detail = QStringLiteral("report\n");
    item.message = QStringLiteral("OK\n");
}

void fails(CheckItemLog &item)
{
    item.result = 1;
    item.message = QStringLiteral("NG\n");
}

void warns(CheckItemLog &item)
{
    item.result = 2;
    item.message = QStringLiteral("warning\n");
}

/// Tells what it was given.
void leavesVerdictAlone(CheckItemLog &item)
{
    const bool empty = item.message.isEmpty() && item.detail.isEmpty() && item.measurements.isEmpty();
    item.message = QStringLiteral("%1 %2\n").arg(QString::number(item.result), empty ? "empty" : "not empty");
}

/// As an item does whose request is given up.
void failsAsTheProgramCloses(CheckItemLog &item)
{
    KestDetectorFace::Get()->requestStop();
    item.result = 1;
    item.message = QStringLiteral("NG\n");
}

/// Three sendings of one request, and one of another.
void needsThreeSendings(CheckItemLog &item)
{
    noteResentRequest();
    noteResentRequest();
    noteRequest(item, 0);
    noteRequest(item, 0);
    item.result = 0;
}

void closesTheProgram(CheckItemLog &item)
{
    item.result = 0;
    KestDetectorFace::Get()->requestStop();
    item.message = QStringLiteral("OK\n");
}

void reads(CheckItemLog &item)
{
    item.result = 0;
    item.message = QStringLiteral("OK\n");
    item.detail = QStringLiteral("report\n");
    item.measurements = {measured(Field::BatteryVoltage, 4.36), measured(Field::BatteryCharge, 20),
                         measured(Field::Firmware, QStringLiteral("1.2.3"))};
}

constexpr std::array table = {
    CheckItem{0, "good", passes},
    CheckItem{1, "bad", fails},
    CheckItem{2, "dubious", warns},
    CheckItem{3, "only named", nullptr},
    CheckItem{4, "untouched", leavesVerdictAlone},
    CheckItem{5, "reads", reads},
    CheckItem{7, "closing", closesTheProgram},
    CheckItem{8, "given up", failsAsTheProgramCloses},
    CheckItem{9, "lossy", needsThreeSendings},
};

QString fakeComponent(int *verdict, const QList<int> &items)
{
    return checkComponent(2, 1, table, verdict, items);
}
} // namespace

/// The pattern that all component routines share, on a table of its own.
class tst_checkComponent : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { KestDetectorFace::Get()->takeBackStop(); }

    void runsItems_data();
    void runsItems();
    void unknownItemIsTold();
    void recordNamesItsItems();
    void measurementsAreHeldAgainstLimits_data();
    void measurementsAreHeldAgainstLimits();
    void recordIsAppended();
    void recordReachesAnotherThread();
    void laterItemsAreLeftOutWhenTheProgramCloses();
    void itemThatHadNoTimeIsNotRecorded();
    void sendingsAreCounted();
};

void tst_checkComponent::initTestCase()
{
    qRegisterMetaType<checkLog>("checkLog");
    qRegisterMetaType<QList<checkLog>>("QList<checkLog>");
}

void tst_checkComponent::init()
{
    KestDetectorFace::Get()->run.post({}); // drops the records of the test before
}

void tst_checkComponent::runsItems_data()
{
    QTest::addColumn<QList<int>>("items");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("records");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("verdict");
    QTest::newRow("no items") << QList<int>() << QStringList{"progress 0", "log 2"} << QStringList() << "" << 0;
    QTest::newRow("one good item") << QList<int>{0} << QStringList{"progress 0", "item good", "progress 100", "log 2"}
                                   << QStringList{"0|OK\n|report\n"} << "OK\n"
                                   << 0;
    QTest::newRow("three items, in their order")
        << QList<int>{1, 0, 0} << QStringList{"progress 0",  "item bad",  "progress 33",  "item good",
                                              "progress 66", "item good", "progress 100", "log 2"}
        << QStringList{"1|NG\n|", "0|OK\n|report\n", "0|OK\n|report\n"} << "OK\n"
        << 1;
    QTest::newRow("a warning counts against the component")
        << QList<int>{2} << QStringList{"progress 0", "item dubious", "progress 100", "log 2"}
        << QStringList{"2|warning\n|"} << "warning\n"
        << 1;
    QTest::newRow("unknown items only advance the progress")
        << QList<int>{99, 0, -1}
        << QStringList{"progress 0", "progress 33", "item good", "progress 66", "progress 100", "log 2"}
        << QStringList{"0|OK\n|report\n"} << "OK\n"
        << 0;
    QTest::newRow("an item that is only named empties the text")
        << QList<int>{1, 3}
        << QStringList{"progress 0", "item bad", "progress 50", "item only named", "progress 100", "log 2"}
        << QStringList{"1|NG\n|"} << "" << 1;
    QTest::newRow("an item starts as not tested, with an empty report")
        << QList<int>{0, 4}
        << QStringList{"progress 0", "item good", "progress 50", "item untouched", "progress 100", "log 2"}
        << QStringList{"0|OK\n|report\n", "3|3 empty\n|"} << "3 empty\n"
        << 1;
}

void tst_checkComponent::runsItems()
{
    QFETCH(QList<int>, items);
    const FacadeSpy spy;
    const Outcome outcome = runComponent(fakeComponent, items);
    QTEST(spy.events(), "events");
    QCOMPARE(spy.logs().size(), 1);
    QTEST(texts(spy.logs().constFirst()), "records");
    QTEST(outcome.text, "text");
    QTEST(outcome.verdict, "verdict");
}

void tst_checkComponent::unknownItemIsTold()
{
    const MessageSpy spy;
    runComponent(fakeComponent, {99, 0, 3});
    QCOMPARE(spy.containing(QStringLiteral("Unknown item")),
             QStringList{QStringLiteral("Unknown item 99 of the component Battery")});
}

void tst_checkComponent::recordNamesItsItems()
{
    runComponent(fakeComponent, {2, 3, 0});
    const QList<checkLog> logs = KestDetectorFace::Get()->checkLogList();
    const QList<CheckItemLog> items = logs.constFirst().itemLogs;
    QCOMPARE(items.size(), 2); // 3 is only named
    QCOMPARE(items.at(0).number, 2);
    QCOMPARE(items.at(1).number, 0);
    QCOMPARE(items.at(0).name, QStringLiteral("dubious"));
    QCOMPARE(items.at(1).name, QStringLiteral("good"));
}

void tst_checkComponent::measurementsAreHeldAgainstLimits_data()
{
    QTest::addColumn<QByteArray>("limits");
    QTest::addColumn<int>("verdict");
    QTest::addColumn<QString>("detail");
    QTest::newRow("no limits") << QByteArray() << 0 << "report\n";
    QTest::newRow("inside, on the bounds")
        << QByteArray("battery.voltage=3.6..4.36\nbattery.charge=20..\nfirmware=1.2.3\n") << 0 << "report\n";
    QTest::newRow("outside") << QByteArray("battery.voltage=3.6..4.35\n") << 1
                             << "report\nbattery.voltage: 4.36 V (3.6..4.35)\n";
    QTest::newRow("two outside, in the order of reading")
        << QByteArray("firmware=1.2.4|1.2.5\nbattery.charge=21..\n") << 1
        << "report\nbattery.charge: 20 % (21..)\nfirmware: 1.2.3 (1.2.4|1.2.5)\n";
    QTest::newRow("of something that is not read") << QByteArray("battery.current=..0\n") << 0 << "report\n";
}

void tst_checkComponent::measurementsAreHeldAgainstLimits()
{
    QFETCH(QByteArray, limits);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("option.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("[Limits]\n" + limits) > 0);
    file.close();
    KestDetectorFace *face = KestDetectorFace::Get();
    face->setSettings(readSettings(file.fileName()));
    QCOMPARE(face->settings().refusals, QStringList());
    const Outcome outcome = runComponent(fakeComponent, {5});
    face->setSettings({});
    QTEST(outcome.verdict, "verdict");
    const CheckItemLog item = face->checkLogList().constFirst().itemLogs.constFirst();
    QTEST(item.result, "verdict");
    QTEST(item.detail, "detail");
    QCOMPARE(item.message, QStringLiteral("OK\n"));
    QCOMPARE(item.measurements.size(), 3);
    QCOMPARE(item.measurements.at(0).limit.has_value(), limits.contains("voltage"));
}

void tst_checkComponent::recordIsAppended()
{
    runComponent(fakeComponent, {0});
    runComponent(fakeComponent, {1, 2});
    const QList<checkLog> logs = KestDetectorFace::Get()->checkLogList();
    QCOMPARE(logs.size(), 2);
    QCOMPARE(logs.at(0).component, 2);
    QCOMPARE(texts(logs.at(0)), QStringList{"0|OK\n|report\n"});
    QCOMPARE(texts(logs.at(1)), (QStringList{"1|NG\n|", "2|warning\n|"}));
}

/// As the window gets it: queued, so that the record has to be copied.
void tst_checkComponent::recordReachesAnotherThread()
{
    QList<checkLog> received;
    QObject window;
    connect(KestDetectorFace::Get(), &KestDetectorFace::signal_showCheckLog, &window,
            [&received](const checkLog &log) { received.append(log); });
    runComponent(fakeComponent, {0});
    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(texts(received.first()), QStringList{"0|OK\n|report\n"});
}

void tst_checkComponent::laterItemsAreLeftOutWhenTheProgramCloses()
{
    const FacadeSpy spy;
    const Outcome outcome = runComponent(fakeComponent, {0, 7, 0});
    QCOMPARE(spy.events(),
             (QStringList{"progress 0", "item good", "progress 33", "item closing", "progress 66", "log 2"}));
    QCOMPARE(texts(spy.logs().constFirst()), (QStringList{"0|OK\n|report\n", "0|OK\n|"}));
    QCOMPARE(outcome.verdict, 3);
}

void tst_checkComponent::itemThatHadNoTimeIsNotRecorded()
{
    const Outcome outcome = runComponent(fakeComponent, {0, 8});
    QCOMPARE(outcome.verdict, 3);
    QCOMPARE(outcome.text, QStringLiteral("OK\n"));
    const QList<checkLog> logs = KestDetectorFace::Get()->checkLogList();
    QCOMPARE(logs.size(), 1);
    QCOMPARE(logs.constFirst().itemLogs.size(), 1);
    QCOMPARE(logs.constFirst().itemLogs.constFirst().message, QStringLiteral("OK\n"));
}

void tst_checkComponent::sendingsAreCounted()
{
    runComponent(fakeComponent, {0, 9, 9});
    const QList<checkLog> logs = KestDetectorFace::Get()->checkLogList();
    const QList<CheckItemLog> items = logs.constFirst().itemLogs;
    QVERIFY(!items.at(0).request); // asked for nothing
    QCOMPARE(items.at(1).request->attempts, 3);
    QCOMPARE(items.at(2).request->attempts, 3);
}

QTEST_GUILESS_MAIN(tst_checkComponent)
#include "tst_checkComponent.moc"
