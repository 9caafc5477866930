#pragma once

#include "telnet/sync/FairMutex.h"
#include "telnet/sync/SyncCondMutexData.h"

#include <atomic>
#include <QObject>
#include <QString>

/// Runs shell commands on the camera for worker threads: each call passes its request to `TelnetInteractive` on the
/// GUI thread and blocks until the answer is there. Calls from several threads are served one at a time.
/// Never to be called from the GUI thread itself, which has to serve the request.
class TelnetInteractiveFace : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TelnetInteractiveFace)

public:
    /// Created on first use, on the GUI thread; lives until the process ends.
    static TelnetInteractiveFace *Get();

    /// Connects to the camera's shell and logs in; an open connection is closed first. 0 logged in, -1 not.
    int telnetConnectToHost();
    /// Always 0: the connection is only closed by the next connect.
    int telnetDisConnectToHost();
    /// Runs `cmd` (which ends in its own "\n"). 0: the prompt came back, and `reply` holds everything up to it, the
    /// echoed command line included. -1: it did not within the worker's limit, and `reply` is empty.
    /// `step` is the command's number in `shellStep`.
    int telnet(const QString &cmd, int step, QString *reply);

    /// Whether the shell is there: true from a successful login until the loss of its connection is noticed, which
    /// takes at most about 3 seconds, or the next login begins. From any thread. A command that is under way when the
    /// connection goes still runs into its time limit.
    bool connected() const { return m_connected; }

    /// The program is closing: every present and later call returns -1 at once. From any thread.
    void giveUp();
    /// The run under way has been stopped: its present call returns -1 at once, and so does each one until the next
    /// run. A command that has been sent is given up together with the shell's connection, so that nothing it still
    /// says is taken for the answer to another one. GUI thread, which serves the call.
    void heedStop();

public slots:
    /// For the worker, or what stands in for it.
    void slot_connected(bool connected) { m_connected = connected; }

signals:
    /// The shell's other end has gone. Emitted on the GUI thread, after `connected()` has become false.
    void signal_connectionLost();
    void signal_telnetConnectToHost(SyncCondMutexData *sync);
    void signal_telnetDisConnectToHost(SyncCondMutexData *sync);
    void signal_telnet(QString cmd, SyncCondMutexData *sync, int step, QString *reply);

private:
    TelnetInteractiveFace();

    /// Posts a request, waits for its answer and lets `collect` take what the worker has written.
    template <class Post, class Collect>
    int call(SyncCondMutexData &sync, Post post, Collect collect);

    SyncCondMutexData m_command;
    SyncCondMutexData m_connect;
    SyncCondMutexData m_disconnect;
    std::atomic<bool> m_connected{false};
    FairMutex m_oneCall; ///< one shell call at a time, whoever makes it: a run and the supervisor take turns
    QString m_reply;     ///< what the worker writes into: it outlives a caller that has given up
};
