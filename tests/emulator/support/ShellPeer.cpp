#include "ShellPeer.h"

namespace {
constexpr int hangLimit = 20000;
constexpr const char *prompt = "~ # \033[6n";
} // namespace

bool ShellPeer::connectTo(const QString &address, quint16 port)
{
    m_received.clear();
    m_socket.abort();
    m_socket.connectToHost(QHostAddress(address), port);
    return m_socket.waitForConnected(hangLimit);
}

QByteArray ShellPeer::readUntil(const QByteArray &text)
{
    while (!m_received.contains(text)) {
        if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(hangLimit)) {
            return {};
        }
        m_received += m_socket.readAll();
    }
    const auto end = static_cast<int>(m_received.indexOf(text) + text.size());
    QByteArray result = m_received.left(end);
    m_received.remove(0, end);
    return result;
}

bool ShellPeer::logIn(const QByteArray &user, const QByteArray &password)
{
    if (readUntil("(none) login: ").isEmpty()) {
        return false;
    }
    send(user + '\n');
    if (readUntil("Password: ").isEmpty()) {
        return false;
    }
    send(password + '\n');
    return !readUntil(prompt).isEmpty();
}

QByteArray ShellPeer::run(const QByteArray &line)
{
    send(line + '\n');
    return readUntil(prompt);
}

void ShellPeer::send(const QByteArray &bytes)
{
    m_socket.write(bytes);
    m_socket.flush();
}

bool ShellPeer::waitForDisconnected()
{
    while (m_socket.state() != QAbstractSocket::UnconnectedState) {
        if (!m_socket.waitForReadyRead(hangLimit) && m_socket.state() == QAbstractSocket::ConnectedState) {
            return false;
        }
        m_socket.readAll();
    }
    return true;
}
