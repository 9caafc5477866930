#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QString>
#include <QTcpSocket>

/// A PC that is joined to the emulated camera's shell, and speaks no more telnet than it takes to log in.
class ShellPeer
{
public:
    bool connectTo(const QString &address, quint16 port = 23);
    /// What arrives up to and including the text; empty when it does not come.
    QByteArray readUntil(const QByteArray &text);
    /// Up to the first shell prompt.
    bool logIn(const QByteArray &user = "root", const QByteArray &password = "camera");
    /// What the shell says to a line, without the prompt's cursor query; empty when no prompt comes.
    QByteArray run(const QByteArray &line);
    void send(const QByteArray &bytes);
    bool waitForDisconnected();
    QTcpSocket &socket() { return m_socket; }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
};
