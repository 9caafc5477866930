// Brings the runs of a station's store to the server. The station starts it as a process of its own:
//     KestForward [--follow] FILE SERVER
// Without --follow it sends what waits and ends: 0 everything was sent, 1 not, 2 wrong arguments. With it, it goes on
// for as long as its standard input is open; each byte there says that there are new runs.
// It has no language: what it leaves in the store is translated by who shows it.

#include "history/address/StoreAddress.h"
#include "history/door/Forwarder.h"
#include "threads/GrowingPause.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <QCoreApplication>
#include <QStringList>
#include <thread>

using namespace std::chrono_literals;

namespace {
enum ExitCode { Sent = 0, NotSent = 1, WrongArguments = 2 };

/// How long runs may wait that another program has brought into the store.
constexpr auto longestSleep = 60s;

/// Wakes the program, and ends it.
class Station
{
public:
    Station()
    {
        std::thread([this] { listen(); }).detach();
    }

    void waitUntil(std::chrono::steady_clock::time_point time)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_cond.wait_until(lock, time, [this] { return m_woken; });
        m_woken = false;
    }

private:
    void listen()
    {
        while (std::getchar() != EOF) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_woken = true;
            m_cond.notify_all();
        }
        // The other thread may be waiting for a server, and nothing is lost wherever it is.
        std::_Exit(Sent);
    }

    std::mutex m_mutex;
    std::condition_variable m_cond;
    bool m_woken = false;
};

[[noreturn]] void follow(Forwarder *forwarder)
{
    Station station;
    GrowingPause pause;
    while (true) {
        const bool sent = forwarder->forward().has_value();
        const auto now = GrowingPause::Clock::now();
        if (sent) {
            pause.reset();
            station.waitUntil(now + longestSleep);
            continue;
        }
        pause.noteFailure(now);
        // Further runs do not make the server come back.
        while (!pause.isDue()) {
            station.waitUntil(GrowingPause::Clock::now() + 1s);
        }
    }
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool toFollow = arguments.removeAll(QStringLiteral("--follow")) > 0;
    QString error = QStringLiteral("usage: KestForward [--follow] FILE SERVER");
    const std::optional<StoreAddress> server =
        arguments.size() == 2 ? StoreAddress::server(arguments.at(1), &error) : std::nullopt;
    if (!server) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
        return WrongArguments;
    }
    Forwarder forwarder(StoreAddress::file(arguments.at(0)), *server);
    if (toFollow) {
        follow(&forwarder);
    }
    if (!forwarder.forward()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(forwarder.error()));
        return NotSent;
    }
    return Sent;
}
