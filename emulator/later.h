#pragma once

#include <chrono>
#include <QTimer>

namespace emulator {

/// Calls `action` in the owner's thread after the time, unless the owner has gone by then.
template <class Action>
void later(QObject *owner, std::chrono::milliseconds time, Action action)
{
    auto *const timer = new QTimer(owner);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        action();
        timer->deleteLater();
    });
    timer->start(time);
}

} // namespace emulator
