#pragma once

#include <memory>
#include <QObject>

/// Turns SIGINT and SIGTERM into Qt signals on the thread that made the object, so that the window is closed as by hand
/// and the run's log is still written. One object in a process.
class TerminationSignals : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TerminationSignals)

public:
    TerminationSignals();
    ~TerminationSignals() override;

signals:
    void interrupted(); ///< SIGINT: once for each, or once for several that came together
    void terminated();  ///< SIGTERM

private:
    struct Relay;
    std::unique_ptr<Relay> m_relay;
};
