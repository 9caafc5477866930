#pragma once

#include <QObject>
#include <QSocketNotifier>

/// Turns SIGINT and SIGTERM into a Qt signal on the thread that made the object, so that the window is closed as by
/// hand and the run's log is still written. One object in a process.
class TerminationSignals : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TerminationSignals)

public:
    TerminationSignals();
    ~TerminationSignals() override;

signals:
    void received();

private:
    int m_pipe[2] = {-1, -1};
    QSocketNotifier *m_notifier = nullptr;
};
