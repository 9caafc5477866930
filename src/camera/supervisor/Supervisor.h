#pragma once

#include "threads/GrowingPause.h"
#include "threads/WorkerThread.h"

#include <chrono>
#include <QtGlobal>

class LinkCommands;

/// The thread that keeps the camera link up: once a second it registers the PC until the camera answers, then logs in
/// to the shell, reads WiFi and MAC and reports the link; from then on it pings once a second, and drops the link after
/// the third failed ping in a row. What it finds goes to the facade: its fields and its signals.
///
/// A camera that reboots, or is swapped for another, within a few seconds keeps its link but not the shell's
/// connection. While the link is up, a shell that has gone, or was too slow for the first login, is logged in to again,
/// at once and then after growing pauses, and WiFi and MAC are read anew. A run hears of the camera that it finds, and
/// of a link that is lost.
///
/// Which of the PC's addresses and which camera are used is read from option.ini anew on each attempt to connect.
class Supervisor
{
    Q_DISABLE_COPY(Supervisor)

public:
    /// Starts the thread. `commands` must be ready for calls from it, and outlive it. `pause`: between two rounds, each
    /// of which registers or pings once.
    explicit Supervisor(LinkCommands &commands, std::chrono::milliseconds pause = std::chrono::seconds(1));

    /// Ends and joins the thread: at once when it waits for its next second, else after the request or the shell call
    /// under way. Further calls do nothing.
    void stop();

private:
    void func();
    void connectOnce();
    void pingOnce();
    void keepShell();

    LinkCommands &m_commands;
    const std::chrono::milliseconds m_pause;
    bool m_connected = false;    ///< this and the next three: supervisor thread only
    int m_failedPings = 0;       ///< in a row
    bool m_cameraIsRead = false; ///< WiFi and MAC, on the shell's present connection
    GrowingPause m_loginPause;

    WorkerThread m_worker; ///< last: it starts when everything else is in place
};
