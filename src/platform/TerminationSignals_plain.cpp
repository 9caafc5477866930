#include "platform/TerminationSignals.h"

#include <csignal>
#include <QTimer>

namespace {
constexpr int lookEveryMs = 50;

volatile std::sig_atomic_t toInterrupt = 0;
volatile std::sig_atomic_t toTerminate = 0;

void note(int signal)
{
    (signal == SIGINT ? toInterrupt : toTerminate) = 1;
}

/// Whether it was up; it is down afterwards.
bool takeDown(volatile std::sig_atomic_t &flag)
{
    const bool up = flag != 0;
    flag = 0;
    return up;
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
        if (takeDown(toInterrupt)) {
            emit interrupted();
        }
        if (takeDown(toTerminate)) {
            emit terminated();
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
    toInterrupt = 0;
    toTerminate = 0;
}
