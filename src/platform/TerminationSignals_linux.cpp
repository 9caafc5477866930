#include "platform/TerminationSignals.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <QSocketNotifier>
#include <unistd.h>

namespace {
volatile std::sig_atomic_t writeEnd = -1;

void note(int signal)
{
    const int before = errno;
    const char byte = static_cast<char>(signal);
    if (write(writeEnd, &byte, 1) < 0) {
        // A full pipe: the notification is already under way.
    }
    errno = before;
}
} // namespace

struct TerminationSignals::Relay
{
    int pipe[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> notifier;
};

TerminationSignals::TerminationSignals() : m_relay(std::make_unique<Relay>())
{
    if (pipe2(m_relay->pipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("SIGINT and SIGTERM will end the program at once: no pipe");
        return;
    }
    writeEnd = m_relay->pipe[1];
    m_relay->notifier = std::make_unique<QSocketNotifier>(m_relay->pipe[0], QSocketNotifier::Read);
    connect(m_relay->notifier.get(), &QSocketNotifier::activated, this, [this] {
        bool toInterrupt = false;
        bool toTerminate = false;
        char byte = 0;
        while (read(m_relay->pipe[0], &byte, 1) > 0) {
            (byte == SIGINT ? toInterrupt : toTerminate) = true;
        }
        if (toInterrupt) {
            emit interrupted();
        }
        if (toTerminate) {
            emit terminated();
        }
    });
    std::signal(SIGINT, note);
    std::signal(SIGTERM, note);
}

TerminationSignals::~TerminationSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    writeEnd = -1;
    m_relay->notifier.reset();
    for (const int end : m_relay->pipe) {
        if (end >= 0) {
            close(end);
        }
    }
}
