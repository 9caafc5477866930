#pragma once

#include <algorithm>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

/// Serves the calling thread's events until `done()` is true or `milliseconds` have passed; returns the last `done()`.
/// The processor idles in between: `done` is asked again after each batch of events, and at the latest after
/// `longestNap` milliseconds where something other than an event of this thread may change it.
/// `done` is asked before the clock, so what has already happened counts even when the time is up.
template <class Done>
bool serveEventsUntil(int milliseconds, Done done, int longestNap = 1000)
{
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop; // also gives a plain thread the dispatcher without which it could serve nothing
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.setSingleShot(true);
    while (!done()) {
        const qint64 left = milliseconds - clock.elapsed();
        if (left <= 0) {
            return false;
        }
        alarm.start(static_cast<int>(std::min<qint64>(left, longestNap)));
        loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}
