#include "platform/TerminationSignals.h"

#include <csignal>
#include <fcntl.h>
#include <memory>
#include <QSignalSpy>
#include <QtTest>
#include <unistd.h>

class tst_TerminationSignals : public QObject
{
    Q_OBJECT

private slots:
    void received_data();
    void received();
    void oneBehindTheOther();
    void systemsOwnAfterwards();
    void leavesNothingOpen();
};

void tst_TerminationSignals::received_data()
{
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<QString>("told");
    QTest::newRow("SIGINT") << QList<int>{SIGINT} << "interrupted";
    QTest::newRow("SIGTERM") << QList<int>{SIGTERM} << "terminated";
    QTest::newRow("both before anybody looks") << QList<int>{SIGTERM, SIGINT} << "interrupted terminated";
    QTest::newRow("twice before anybody looks") << QList<int>{SIGINT, SIGINT} << "interrupted";
}

void tst_TerminationSignals::received()
{
    QFETCH(const QList<int>, numbers);
    QFETCH(const QString, told);
    const TerminationSignals termination;
    QStringList heard;
    connect(&termination, &TerminationSignals::interrupted, this, [&] { heard += QStringLiteral("interrupted"); });
    connect(&termination, &TerminationSignals::terminated, this, [&] { heard += QStringLiteral("terminated"); });
    for (const int number : numbers) {
        QCOMPARE(std::raise(number), 0);
    }
    QCOMPARE(heard, QStringList()); // not out of the handler: only the event loop tells
    QTRY_COMPARE(heard.join(QLatin1Char(' ')), told);
}

void tst_TerminationSignals::oneBehindTheOther()
{
    const TerminationSignals termination;
    const QSignalSpy spy(&termination, &TerminationSignals::terminated);
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

void tst_TerminationSignals::leavesNothingOpen()
{
    // Also where a program was started without standard input, whose number is free then.
    const int input = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    const auto isOpen = [] { return fcntl(STDIN_FILENO, F_GETFD) != -1; };
    auto termination = std::make_unique<TerminationSignals>();
    const bool wasOpen = isOpen();
    termination.reset();
    const bool staysOpen = isOpen();
    if (input >= 0) {
        dup2(input, STDIN_FILENO);
        close(input);
    }
    QVERIFY(!staysOpen);
    if (!wasOpen) {
        QSKIP("nothing is opened here");
    }
}

QTEST_GUILESS_MAIN(tst_TerminationSignals)
#include "tst_TerminationSignals.moc"
