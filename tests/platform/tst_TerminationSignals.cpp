#include "platform/TerminationSignals.h"

#include <csignal>
#include <memory>
#include <QSignalSpy>
#include <QtTest>

class tst_TerminationSignals : public QObject
{
    Q_OBJECT

private slots:
    void received_data();
    void received();
    void oneBehindTheOther();
    void systemsOwnAfterwards();
};

void tst_TerminationSignals::received_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void tst_TerminationSignals::received()
{
    QFETCH(int, number);
    const TerminationSignals termination;
    const QSignalSpy spy(&termination, &TerminationSignals::received);
    QCOMPARE(std::raise(number), 0);
    QCOMPARE(spy.count(), 0); // not out of the handler: only the event loop tells
    QTRY_COMPARE(spy.count(), 1);
}

void tst_TerminationSignals::oneBehindTheOther()
{
    const TerminationSignals termination;
    const QSignalSpy spy(&termination, &TerminationSignals::received);
    for (const int count : {1, 2}) {
        QCOMPARE(std::raise(SIGTERM), 0);
        QTRY_COMPARE(spy.count(), count);
    }
}

void tst_TerminationSignals::systemsOwnAfterwards()
{
    std::make_unique<TerminationSignals>().reset();
    for (const int number : {SIGINT, SIGTERM}) {
        const auto handler = std::signal(number, SIG_IGN);
        std::signal(number, SIG_DFL);
        QVERIFY(handler == SIG_DFL);
    }
}

QTEST_GUILESS_MAIN(tst_TerminationSignals)
#include "tst_TerminationSignals.moc"
