#include "platform/OneStation.h"

#include <csignal>
#include <memory>
#include <QTest>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

class tst_OneStation : public QObject
{
    Q_OBJECT

private slots:
    void secondOneIsTold();
    void nextOneIsAloneAgain();
    void deadOneHoldsNothing();
};

void tst_OneStation::secondOneIsTold()
{
    const OneStation first;
    QVERIFY(first.isAlone());
    const OneStation second;
    QVERIFY(!second.isAlone());
    const OneStation third;
    QVERIFY(!third.isAlone());
}

void tst_OneStation::nextOneIsAloneAgain()
{
    {
        const OneStation first;
        QVERIFY(first.isAlone());
    }
    const OneStation next;
    QVERIFY(next.isAlone());
}

void tst_OneStation::deadOneHoldsNothing()
{
    int ready[2];
    QCOMPARE(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const OneStation station;
        const char alone = station.isAlone() ? 1 : 0;
        if (write(ready[1], &alone, 1) == 1) {
            pause();
        }
        _exit(1);
    }
    char alone = 0;
    QCOMPARE(read(ready[0], &alone, 1), ssize_t{1});
    QCOMPARE(alone, char{1});
    QVERIFY(!OneStation().isAlone());
    QCOMPARE(kill(child, SIGKILL), 0);
    QCOMPARE(waitpid(child, nullptr, 0), child);
    QVERIFY(OneStation().isAlone());
    close(ready[0]);
    close(ready[1]);
}

QTEST_GUILESS_MAIN(tst_OneStation)
#include "tst_OneStation.moc"
