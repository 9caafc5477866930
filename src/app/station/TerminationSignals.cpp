#include "app/station/TerminationSignals.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
volatile std::sig_atomic_t writeEnd = -1;

void note(int)
{
    const int before = errno;
    const char byte = 0;
    if (write(writeEnd, &byte, 1) < 0) {
        // A full pipe: the notification is already under way.
    }
    errno = before;
}
} // namespace

TerminationSignals::TerminationSignals()
{
    if (pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("SIGINT and SIGTERM will end the program at once: no pipe");
        return;
    }
    writeEnd = m_pipe[1];
    m_notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        while (read(m_pipe[0], &byte, 1) > 0) {
        }
        emit received();
    });
    std::signal(SIGINT, note);
    std::signal(SIGTERM, note);
}

TerminationSignals::~TerminationSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    writeEnd = -1;
    for (const int end : m_pipe) {
        if (end >= 0) {
            close(end);
        }
    }
}
