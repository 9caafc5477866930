#pragma once

#include <QElapsedTimer>
#include <QThread>

/// Looks every few milliseconds whether `done()`; false when it is still not after `limitMs`.
template <class Done>
bool waitUntil(Done done, int limitMs)
{
    constexpr unsigned long pauseMs = 5;
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > limitMs) {
            return false;
        }
        QThread::msleep(pauseMs);
    }
    return true;
}
