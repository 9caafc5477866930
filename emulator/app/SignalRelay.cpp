#include "emulator/app/SignalRelay.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace emulator {

namespace {
constexpr std::array<int, 4> relayed{SIGINT, SIGTERM, SIGUSR1, SIGUSR2};

// A pipe, since nothing else of what the relay has to do is allowed in a signal handler (signal-safety(7)).
std::array<int, 2> signalPipe{-1, -1};

int openPipe()
{
    return pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) == 0 ? signalPipe[0] : -1;
}

void noteSignal(int signal)
{
    const auto byte = static_cast<unsigned char>(signal);
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
}

void handleWith(void (*handler)(int))
{
    struct sigaction action
    {
    };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : relayed) {
        sigaction(signal, &action, nullptr);
    }
}
} // namespace

SignalRelay::SignalRelay() : m_notifier(openPipe(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &SignalRelay::relay);
    handleWith(noteSignal);
}

SignalRelay::~SignalRelay()
{
    handleWith(SIG_IGN);
    m_notifier.setEnabled(false);
    close(signalPipe[0]);
    close(signalPipe[1]);
}

void SignalRelay::relay()
{
    unsigned char signal = 0;
    while (read(signalPipe[0], &signal, 1) == 1) {
        if (signal == SIGUSR1) {
            emit rebootRequested();
        } else if (signal == SIGUSR2) {
            emit radioToggled();
        } else {
            emit stopRequested();
        }
    }
}

} // namespace emulator
