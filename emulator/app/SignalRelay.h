#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QtGlobal>

namespace emulator {

/// Turns UNIX signals into Qt's: SIGINT and SIGTERM into `stopRequested`, SIGUSR1 into `rebootRequested`, SIGUSR2 into
/// `radioToggled`. One per process.
class SignalRelay : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SignalRelay)

public:
    SignalRelay();
    ~SignalRelay() override;

signals:
    void stopRequested();
    void rebootRequested();
    void radioToggled();

private:
    void relay();

    QSocketNotifier m_notifier;
};

} // namespace emulator
