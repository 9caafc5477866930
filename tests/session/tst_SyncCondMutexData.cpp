#include "telnet/sync/SyncCondMutexData.h"

#include <atomic>
#include <QtTest>
#include <thread>

/// One wait, one completion: none is lost, and none ends another caller's wait.
class tst_SyncCondMutexData : public QObject
{
    Q_OBJECT

private slots:
    void completionAtOnceIsSeen();
    void timeOut();
    void lateCompletionDoesNotEndTheNextWait();
    void spuriousWakeUpDoesNotEndTheWait();
    void abandonEndsPresentAndLaterWaits();
    void callThatNobodyWantsIsNotPosted();
    void workerHearsThatTheCallIsUnwanted();
};

void tst_SyncCondMutexData::completionAtOnceIsSeen()
{
    for (int round = 0; round < 1000; ++round) {
        SyncCondMutexData sync;
        std::unique_lock<std::mutex> lock(sync.mutex);
        std::thread worker([&] { sync.complete(7); });
        const bool answered = sync.waitForCompletion(lock, 20);
        lock.unlock();
        worker.join();
        QVERIFY(answered);
        QCOMPARE(sync.result, 7);
        QVERIFY(sync.done);
    }
}

void tst_SyncCondMutexData::timeOut()
{
    SyncCondMutexData sync;
    std::unique_lock<std::mutex> lock(sync.mutex);
    QVERIFY(!sync.waitForCompletion(lock, 0));
    QVERIFY(!sync.done);
    lock.unlock();
    QVERIFY(!sync.isAbandoned());
}

void tst_SyncCondMutexData::lateCompletionDoesNotEndTheNextWait()
{
    SyncCondMutexData sync;
    std::unique_lock<std::mutex> lock(sync.mutex);
    QVERIFY(!sync.waitForCompletion(lock, 0));
    lock.unlock();
    sync.complete(1); // the answer to the request that was given up
    lock.lock();
    QVERIFY(!sync.waitForCompletion(lock, 0));
    lock.unlock();
    sync.complete(2);
    lock.lock();
    std::thread worker([&] { sync.complete(3); });
    const bool answered = sync.waitForCompletion(lock, 20);
    lock.unlock();
    worker.join();
    QVERIFY(answered);
    QCOMPARE(sync.result, 3);
}

void tst_SyncCondMutexData::spuriousWakeUpDoesNotEndTheWait()
{
    SyncCondMutexData sync;
    std::unique_lock<std::mutex> lock(sync.mutex);
    std::thread waker([&] {
        {
            const std::lock_guard<std::mutex> waiting(sync.mutex);
        }
        sync.cond.notify_all();
    });
    QVERIFY(!sync.waitForCompletion(lock, 1));
    lock.unlock();
    waker.join();
}

void tst_SyncCondMutexData::abandonEndsPresentAndLaterWaits()
{
    SyncCondMutexData sync;
    std::unique_lock<std::mutex> lock(sync.mutex);
    std::thread closer([&] { sync.abandon(); });
    QVERIFY(!sync.waitForCompletion(lock, 5000));
    QVERIFY(!sync.waitForCompletion(lock, 5000));
    lock.unlock();
    closer.join();
    QVERIFY(sync.isAbandoned());
}

void tst_SyncCondMutexData::callThatNobodyWantsIsNotPosted()
{
    SyncCondMutexData sync;
    FairMutex oneCall;
    bool posted = false;
    const int result = sync.call(
        oneCall, 20, [] { return true; }, [&] { posted = true; }, [] {});
    QCOMPARE(result, -1);
    QVERIFY(!posted);
    QVERIFY(oneCall.lockUnless([] { return true; })); // it was given back
    oneCall.unlock();
}

void tst_SyncCondMutexData::workerHearsThatTheCallIsUnwanted()
{
    SyncCondMutexData sync;
    FairMutex oneCall;
    std::atomic<bool> stop{false};
    QVERIFY(!sync.isUnwanted());
    std::thread worker;
    const auto serve = [&] {
        stop = true;
        while (!sync.isUnwanted()) {
            std::this_thread::yield();
        }
        sync.complete(-7);
    };
    const int result = sync.call(
        oneCall, 20, [&] { return stop.load(); }, [&] { worker = std::thread(serve); }, [] {});
    worker.join();
    QCOMPARE(result, -7); // it waited for the worker

    // The next call is wanted again.
    std::thread next;
    bool unwanted = true;
    const auto answer = [&] {
        unwanted = sync.isUnwanted();
        sync.complete(0);
    };
    const int second = sync.call(
        oneCall, 20, [] { return false; }, [&] { next = std::thread(answer); }, [] {});
    next.join();
    QCOMPARE(second, 0);
    QVERIFY(!unwanted);
}

QTEST_GUILESS_MAIN(tst_SyncCondMutexData)
#include "tst_SyncCondMutexData.moc"
