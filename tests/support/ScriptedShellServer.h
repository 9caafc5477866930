#pragma once

#include <functional>
#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

/// The camera's end of a shell connection, scripted: listens on 127.0.0.10:23 in this thread's event loop, keeps the
/// text that it has received and says what it is told to say. Telnet negotiation is skipped on receipt; none is sent.
class ScriptedShellServer : public QObject
{
    Q_OBJECT

public:
    ScriptedShellServer();

    bool isListening() const { return m_server.isListening(); }
    int connections() const { return m_connections; }
    bool isConnected() const { return m_socket != nullptr && m_socket->state() == QAbstractSocket::ConnectedState; }
    QByteArray received() const { return m_received; }
    /// Forgets what has been received.
    void clear() { m_received.clear(); }
    /// Sends `text` in one piece of its own.
    void say(const QByteArray &text);
    /// Closes the connection in an orderly way.
    void hangUp();
    /// Ends the connection with a TCP reset.
    void reset();
    /// Plays a whole login: name prompt, echo and password prompt, first shell prompt.
    void autoLogin();

    /// Called when a connection has come.
    std::function<void()> onConnection;
    /// Called with each line received, without its line end.
    std::function<void(const QByteArray &line)> onLine;

private:
    void accept();
    void read();

    QTcpServer m_server;
    QPointer<QTcpSocket> m_socket;
    QByteArray m_received;
    QByteArray m_line;
    int m_connections = 0;
    bool m_autoLogin = false;
};
