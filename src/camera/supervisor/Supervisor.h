#pragma once

#include "threads/WorkerThread.h"

#include <QtGlobal>

class LinkCommands;

/// The thread that keeps the camera link up: once a second it registers the PC until the camera answers, then logs in
/// to the shell, reads WiFi and MAC and reports the link; from then on it pings once a second, and drops the link after
/// the third failed ping in a row. What it finds goes to the facade: its fields and its signals.
///
/// Which of the PC's addresses and which camera are used is read from option.ini anew on each attempt to connect.
class Supervisor
{
    Q_DISABLE_COPY(Supervisor)

public:
    /// Starts the thread. `commands` must be ready for calls from it, and outlive it.
    explicit Supervisor(LinkCommands &commands);

    /// Ends and joins the thread: at once when it waits for its next second, else after the request or the shell call
    /// under way. Further calls do nothing.
    void stop();

private:
    void func();
    void connectOnce();
    void pingOnce();

    LinkCommands &m_commands;
    bool m_connected = false; ///< this and the next: supervisor thread only
    int m_failedPings = 0;    ///< in a row

    WorkerThread m_worker; ///< last: it starts when everything else is in place
};
