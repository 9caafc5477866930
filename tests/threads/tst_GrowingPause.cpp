#include "threads/GrowingPause.h"

#include <QtTest>

class tst_GrowingPause : public QObject
{
    Q_OBJECT

private slots:
    void pausesGrowUpToTenSeconds();
    void resetMakesItDueAtOnce();
};

namespace {
using std::chrono::milliseconds;

GrowingPause::Clock::time_point at(int ms)
{
    return GrowingPause::Clock::time_point(std::chrono::hours(1)) + milliseconds(ms);
}
} // namespace

void tst_GrowingPause::pausesGrowUpToTenSeconds()
{
    GrowingPause pause;
    QVERIFY(pause.isDue(at(0)));
    int now = 0;
    for (const int expected : {1000, 2000, 4000, 8000, 10000, 10000}) {
        pause.noteFailure(at(now));
        QVERIFY(!pause.isDue(at(now + expected - 1)));
        QVERIFY(pause.isDue(at(now + expected)));
        now += expected;
    }
}

void tst_GrowingPause::resetMakesItDueAtOnce()
{
    GrowingPause pause;
    pause.noteFailure(at(0));
    pause.noteFailure(at(1000));
    pause.reset();
    QVERIFY(pause.isDue(at(1000)));
    pause.noteFailure(at(1000));
    QVERIFY(!pause.isDue(at(1999)));
    QVERIFY(pause.isDue(at(2000)));
}

QTEST_APPLESS_MAIN(tst_GrowingPause)
#include "tst_GrowingPause.moc"
