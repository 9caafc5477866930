#include "support/ScriptedShellServer.h"

#include <QHostAddress>
#include <sys/socket.h>

ScriptedShellServer::ScriptedShellServer()
{
    connect(&m_server, &QTcpServer::newConnection, this, &ScriptedShellServer::accept);
    m_server.listen(QHostAddress(QStringLiteral("127.0.0.10")), 23);
}

void ScriptedShellServer::accept()
{
    m_socket = m_server.nextPendingConnection();
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    ++m_connections;
    m_line.clear();
    connect(m_socket, &QTcpSocket::readyRead, this, &ScriptedShellServer::read);
    if (m_autoLogin) {
        say("(none) login: ");
    }
    if (onConnection) {
        onConnection();
    }
}

void ScriptedShellServer::say(const QByteArray &text)
{
    m_socket->write(text);
    m_socket->flush();
}

void ScriptedShellServer::hangUp()
{
    m_socket->disconnectFromHost();
}

void ScriptedShellServer::reset()
{
    const linger atOnce{1, 0};
    setsockopt(static_cast<int>(m_socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    m_socket->abort();
}

void ScriptedShellServer::autoLogin()
{
    m_autoLogin = true;
    onLine = [this](const QByteArray &line) { say(line == "root" ? "root\r\nPassword: " : "\r\n~ # "); };
}

void ScriptedShellServer::read()
{
    constexpr char interpretAsCommand = '\xff';
    const QByteArray bytes = m_socket->readAll();
    for (int at = 0; at < bytes.size(); ++at) {
        if (bytes.at(at) == interpretAsCommand) {
            at += 2;
            continue;
        }
        m_received += bytes.at(at);
        if (bytes.at(at) != '\n') {
            m_line += bytes.at(at);
            continue;
        }
        const QByteArray line = m_line;
        m_line.clear();
        if (onLine) {
            onLine(line);
        }
    }
}
