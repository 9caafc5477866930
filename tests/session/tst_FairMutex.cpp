#include "telnet/sync/FairMutex.h"

#include <atomic>
#include <QtTest>
#include <thread>
#include <vector>

class tst_FairMutex : public QObject
{
    Q_OBJECT

private slots:
    void oneAtATime();
    void whoComesBackAtOnceIsNotNext();
    void whoGivesUpLeavesTheLine();
    void whoHasGivenUpBeforeTakesAFreeMutex();
};

void tst_FairMutex::oneAtATime()
{
    FairMutex mutex;
    int count = 0;
    constexpr int users = 4;
    std::vector<std::thread> threads;
    threads.reserve(users);
    for (int i = 0; i < users; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 1000; ++round) {
                const std::lock_guard<FairMutex> lock(mutex);
                ++count;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(count, 4000);
}

void tst_FairMutex::whoComesBackAtOnceIsNotNext()
{
    FairMutex mutex;
    std::atomic<bool> begun{false};
    std::atomic<bool> served{false};
    mutex.lock();
    std::thread other([&] {
        begun = true;
        const std::lock_guard<FairMutex> lock(mutex);
        served = true;
    });
    QTRY_VERIFY(begun);
    QTest::qSleep(200); // it is in line by now
    mutex.unlock();
    mutex.lock();
    QVERIFY(served);
    mutex.unlock();
    other.join();
}

void tst_FairMutex::whoGivesUpLeavesTheLine()
{
    FairMutex mutex;
    std::atomic<bool> givesUp{false};
    std::atomic<int> asked{0};
    std::atomic<bool> served{false};
    bool taken = true;
    mutex.lock();
    std::thread first([&] {
        taken = mutex.lockUnless([&] {
            ++asked;
            return givesUp.load();
        });
    });
    QTRY_VERIFY(asked > 0);
    std::thread second([&] {
        const std::lock_guard<FairMutex> lock(mutex);
        served = true;
    });
    QTest::qSleep(100); // it is in line by now, behind the first
    givesUp = true;
    mutex.wake();
    first.join(); // hangs here if it stays in the line
    QVERIFY(!taken);
    QVERIFY(!served);
    mutex.unlock();
    second.join(); // hangs here if the line waits for who has left
    QVERIFY(served);
}

void tst_FairMutex::whoHasGivenUpBeforeTakesAFreeMutex()
{
    FairMutex mutex;
    QVERIFY(mutex.lockUnless([] { return true; }));
    QVERIFY(!mutex.lockUnless([] { return true; })); // it is held
    mutex.unlock();
    mutex.lock();
    mutex.unlock();
}

QTEST_APPLESS_MAIN(tst_FairMutex)
#include "tst_FairMutex.moc"
