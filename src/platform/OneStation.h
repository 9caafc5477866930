#pragma once

#include <memory>

/// Holds, while it lives, the PC's network for one station: a second one would take away half of the first one's
/// replies. Stations in network namespaces of their own do not meet. A station that has died holds nothing.
class OneStation
{
public:
    OneStation();
    OneStation(const OneStation &) = delete;
    OneStation &operator=(const OneStation &) = delete;
    ~OneStation();

    /// False: another process holds the network. Where the system cannot tell, true.
    bool isAlone() const { return m_alone; }

private:
    struct Hold;
    std::unique_ptr<Hold> m_hold;
    bool m_alone = true;
};
