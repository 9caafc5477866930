#include "emulator/services/FaultyShell.h"

#include "emulator/later.h"

#include <chrono>
#include <memory>
#include <QTcpSocket>

namespace emulator {

namespace {
constexpr std::chrono::milliseconds promptGap(200); // long enough for the halves to arrive one by one

void flood(QTcpSocket *connection)
{
    constexpr int mostWaiting = 64 * 1024;
    const QByteArray text(4096, 'x');
    while (connection->bytesToWrite() < mostWaiting) {
        connection->write(text);
    }
}

/// One login dialogue, then one answer for each line.
class SplitPromptDialogue
{
public:
    explicit SplitPromptDialogue(QTcpSocket *connection) : m_connection(connection)
    {
        connection->write("(none) login: ");
    }

    void take(const QByteArray &bytes)
    {
        m_pending += bytes;
        for (auto end = static_cast<int>(m_pending.indexOf('\n')); end >= 0;
             end = static_cast<int>(m_pending.indexOf('\n'))) {
            const QByteArray line = m_pending.left(end).trimmed();
            m_pending.remove(0, end + 1);
            answer(line);
        }
    }

private:
    void answer(const QByteArray &line)
    {
        ++m_lines;
        if (m_lines == 1) {
            m_connection->write(line + "\r\nPassword: ");
        } else if (m_lines == 2) {
            m_connection->write("\r\n~ # ");
        } else {
            m_connection->write(line + "\r\n~ ");
            later(m_connection, promptGap, [connection = m_connection] { connection->write("# "); });
        }
    }

    QTcpSocket *m_connection;
    QByteArray m_pending;
    int m_lines = 0;
};
} // namespace

FaultyShell::FaultyShell(ShellFault fault) : m_fault(fault)
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *const connection = m_server.nextPendingConnection()) {
            connect(connection, &QTcpSocket::disconnected, connection, &QObject::deleteLater);
            serve(connection);
        }
    });
}

FaultyShell::~FaultyShell() = default;

QString FaultyShell::start(const QHostAddress &address, quint16 port)
{
    return m_server.listen(address, port) ? QString() : m_server.errorString();
}

void FaultyShell::serve(QTcpSocket *connection)
{
    connection->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    switch (m_fault) {
    case ShellFault::none:
    case ShellFault::refuse:
    case ShellFault::silent:
        return;
    case ShellFault::bannerWithoutPrompt:
        connection->write("\r\nWelcome to the camera\r\n\r\n");
        return;
    case ShellFault::splitPrompt: {
        const auto dialogue = std::make_shared<SplitPromptDialogue>(connection);
        connect(connection, &QTcpSocket::readyRead, this,
                [connection, dialogue] { dialogue->take(connection->readAll()); });
        return;
    }
    case ShellFault::flood:
        connect(connection, &QTcpSocket::bytesWritten, this, [connection] { flood(connection); });
        flood(connection);
        return;
    }
}

} // namespace emulator
