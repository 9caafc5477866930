#include "platform/TerminationSignals.h"

#include <csignal>
#include <QTimer>

namespace {
constexpr int lookEveryMs = 50;

volatile std::sig_atomic_t arrived = 0;

void note(int)
{
    arrived = 1;
}
} // namespace

/// A handler of standard C++ may do no more than set a flag, so that somebody has to look at it.
struct TerminationSignals::Relay
{
    QTimer look;
};

TerminationSignals::TerminationSignals() : m_relay(std::make_unique<Relay>())
{
    connect(&m_relay->look, &QTimer::timeout, this, [this] {
        if (arrived != 0) {
            arrived = 0;
            emit received();
        }
    });
    m_relay->look.start(lookEveryMs);
    std::signal(SIGINT, note);
    std::signal(SIGTERM, note);
}

TerminationSignals::~TerminationSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    arrived = 0;
}
