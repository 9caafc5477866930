#pragma once

#include <chrono>
#include <mutex>
#include <optional>
#include <QString>

/// A warning in the debug output about what others can make happen as often as they like: the first one is told at
/// once, later ones at most once in each `pause`, with the number of those that were not told. From any thread.
class SparingWarning
{
public:
    using Clock = std::chrono::steady_clock;

    explicit SparingWarning(std::chrono::milliseconds pause = std::chrono::seconds(10)) : m_pause(pause) {}

    void tell(const QString &text, Clock::time_point now = Clock::now());

private:
    const std::chrono::milliseconds m_pause;
    std::mutex m_mutex; ///< guards what follows
    std::optional<Clock::time_point> m_last;
    int m_untold = 0;
};
