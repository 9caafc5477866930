#pragma once

#include <algorithm>
#include <chrono>

/// When to try again what may fail for long: at once, then 1, 2, 4 and 8 s after each failure, and from then on 10 s
/// after it.
class GrowingPause
{
public:
    using Clock = std::chrono::steady_clock;

    bool isDue(Clock::time_point now = Clock::now()) const { return now >= m_next; }
    void noteFailure(Clock::time_point now = Clock::now())
    {
        m_next = now + m_pause;
        m_pause = std::min(2 * m_pause, longest);
    }
    /// From now on it is a first try.
    void reset() { *this = GrowingPause(); }

private:
    static constexpr std::chrono::seconds first{1};
    static constexpr std::chrono::seconds longest{10};

    Clock::time_point m_next; ///< long past
    std::chrono::seconds m_pause = first;
};
