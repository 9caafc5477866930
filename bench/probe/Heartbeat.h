#pragma once

#include <cstdint>
#include <QTimer>

/// Beats in the event loop of its thread, and tells for how long the loop was away at most.
class Heartbeat : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Heartbeat)

public:
    struct Absence
    {
        std::int64_t ns = 0;
        std::int64_t processorNs = 0; ///< of the thread, in it
        std::int64_t atNs = 0;        ///< when it ended, since the first beat
    };

    explicit Heartbeat(QObject *parent = nullptr);

    void begin();
    /// The longest one since then.
    Absence end();

private:
    void beat();

    QTimer m_timer;
    Absence m_longest;
    std::int64_t m_first = 0;
    std::int64_t m_last = 0;
    std::int64_t m_processorAtLast = 0;
};
