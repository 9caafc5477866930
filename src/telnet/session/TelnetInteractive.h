#pragma once

#include <cstdint>
#include <QAbstractSocket>
#include <QObject>
#include <QString>
#include <QTimer>

class KestTelnet;
struct SyncCondMutexData;

/// Logs in to the camera's shell and runs one command at a time on it: turns the telnet engine's text pieces into
/// command replies. Lives on the GUI thread; its slots serve the requests of `TelnetInteractiveFace` and keep serving
/// the thread's events while they wait.
///
/// All traffic goes to the diagnostic log, without passwords and passphrases where the safeguards hide secrets.
class TelnetInteractive : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TelnetInteractive)

public:
    static constexpr int loginLimitMs = 5000;
    static constexpr int commandLimitMs = 5000;

    /// Created on first use, on the GUI thread; lives until the process ends.
    static TelnetInteractive *Get();
    ~TelnetInteractive() override;

    /// Connects to port 23 of the facade's camera address and logs in, within `loginLimitMs`. False when it did not
    /// come to a shell prompt in that time or the program is closing.
    bool telnetConnectToHost();
    /// Does nothing: the connection is only closed by the next connect.
    bool telnetDisconnectToHost();

public slots:
    void slot_telnetConnectToHost(SyncCondMutexData *sync);
    void slot_telnetDisConnectToHost(SyncCondMutexData *sync);
    /// Sends `cmd` as it is and waits at most `commandLimitMs` for the prompt. `callerStep` is the command's
    /// `shellStep`. A command whose run is stopped meanwhile is given up with its connection.
    void slot_telnet(const QString &cmd, SyncCondMutexData *sync, int callerStep, QString *out);
    void slot_telnetReplyFinished(const QString &text);
    void slot_telnetConnectionError(QAbstractSocket::SocketError error);

signals:
    /// True: a login has succeeded; false: that connection has gone, or is about to be replaced by the next login.
    void signal_connected(bool connected);
    /// The other end has gone, by its own will or not; `signal_connected(false)` has been emitted.
    void signal_connectionLost();

private:
    TelnetInteractive();

    void sendPassword();
    void setConnected(bool connected);
    void noticeLoss();

    std::int32_t cmdResult = 0;
    bool cmdDone = false;
    std::int32_t loginResult = 0;
    bool loginDone = false;
    QString reply;
    KestTelnet *telnet;
    std::int32_t step = 0; ///< of `shellStep`: what the text is taken for

    bool m_connected = false;         ///< a login has succeeded, and its connection is still there
    QTimer m_passwordDelay;           ///< active while the password is still to be sent
    bool m_passwordPromptDue = false; ///< the name has been sent, and no password prompt has come since
};
