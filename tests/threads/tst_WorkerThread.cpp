#include "threads/WorkerThread.h"

#include <atomic>
#include <memory>
#include <QElapsedTimer>
#include <QTest>
#include <QThread>
#include <thread>

using std::chrono::milliseconds;
using namespace std::chrono_literals;

class tst_WorkerThread : public QObject
{
    Q_OBJECT

private slots:
    void loopRunsOnAnotherThreadUntilStopped();
    void stopEndsAPauseAtOnce();
    void pauseLastsItsTime();
    void stopWakesWhatElseTheLoopWaitsFor();
    void slowLoopIsNamedAndStillJoined();
    void furtherStopsDoNothing();
    void destructionStops();
    void beginAndEndAreTold();
};

void tst_WorkerThread::loopRunsOnAnotherThreadUntilStopped()
{
    std::atomic<int> rounds{0};
    std::atomic<bool> elsewhere{false};
    bool ended = false;
    std::unique_ptr<WorkerThread> worker;
    std::atomic<WorkerThread *> self{nullptr};
    worker = std::make_unique<WorkerThread>("counting", 10s, [&] {
        while (self == nullptr) {
            std::this_thread::yield();
        }
        elsewhere = QThread::currentThread() != qApp->thread();
        while (self.load()->running()) {
            ++rounds;
            self.load()->pause(1ms);
        }
        ended = true;
    });
    self = worker.get();
    QVERIFY(worker->running());
    QTRY_VERIFY(rounds > 3);
    worker->stop();
    QVERIFY(!worker->running());
    QVERIFY(ended);
    QVERIFY(elsewhere);
}

namespace {
/// An owner as it is meant: the worker is its last member.
struct Sleeper
{
    explicit Sleeper(milliseconds pauseTime) : time(pauseTime) {}

    const milliseconds time;
    std::atomic<int> pauses{0};
    std::atomic<bool> ended{false};
    WorkerThread worker{"sleeping", 20s, [this] {
                            while (worker.running()) {
                                ++pauses;
                                worker.pause(time);
                            }
                            ended = true;
                        }};
};
} // namespace

void tst_WorkerThread::stopEndsAPauseAtOnce()
{
    Sleeper sleeper(1h);
    QTRY_COMPARE(sleeper.pauses.load(), 1);
    QElapsedTimer clock;
    clock.start();
    sleeper.worker.stop();
    QVERIFY(clock.elapsed() < 10000);
    QVERIFY(sleeper.ended);
    QCOMPARE(sleeper.pauses.load(), 1);
}

void tst_WorkerThread::pauseLastsItsTime()
{
    QElapsedTimer clock;
    clock.start();
    Sleeper sleeper(50ms);
    QTRY_VERIFY(sleeper.pauses >= 4);
    QVERIFY(clock.elapsed() >= 150);
}

void tst_WorkerThread::stopWakesWhatElseTheLoopWaitsFor()
{
    std::atomic<bool> woken{false};
    WorkerThread worker("waiting", 20s, [&] {
        while (!woken) {
            std::this_thread::sleep_for(1ms);
        }
    });
    worker.stop([&] { woken = true; });
    QVERIFY(woken);
}

void tst_WorkerThread::slowLoopIsNamedAndStillJoined()
{
    std::atomic<bool> release{false};
    std::atomic<bool> ended{false};
    WorkerThread worker("slow", 5ms, [&] {
        while (!release) {
            std::this_thread::sleep_for(1ms);
        }
        std::this_thread::sleep_for(20ms);
        ended = true;
    });
    std::thread releaser([&] {
        std::this_thread::sleep_for(100ms);
        release = true;
    });
    QTest::ignoreMessage(QtWarningMsg, "The slow thread has not ended within 5 ms");
    worker.stop();
    QVERIFY(ended);
    releaser.join();
}

void tst_WorkerThread::furtherStopsDoNothing()
{
    Sleeper sleeper(1h);
    int wakes = 0;
    sleeper.worker.stop([&] { ++wakes; });
    sleeper.worker.stop([&] { ++wakes; });
    QCOMPARE(wakes, 1);
}

void tst_WorkerThread::destructionStops()
{
    auto sleeper = std::make_unique<Sleeper>(1h);
    QTRY_COMPARE(sleeper->pauses.load(), 1);
    sleeper.reset(); // std::terminate() if it does not join
}

void tst_WorkerThread::beginAndEndAreTold()
{
    QTest::ignoreMessage(QtDebugMsg, "The sleeping thread begins");
    QTest::ignoreMessage(QtDebugMsg, "The sleeping thread has ended");
    Sleeper sleeper(1h);
    QTRY_COMPARE(sleeper.pauses.load(), 1);
    sleeper.worker.stop();
}

QTEST_GUILESS_MAIN(tst_WorkerThread)
#include "tst_WorkerThread.moc"
