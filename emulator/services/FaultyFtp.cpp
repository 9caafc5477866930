#include "emulator/services/FaultyFtp.h"

#include <array>
#include <QTcpSocket>

namespace emulator {

namespace {
struct FixedAnswer
{
    const char *command;
    const char *answer;
};

constexpr std::array<FixedAnswer, 8> fixedAnswers{{
    {"USER", "331 password, please"},
    {"PASS", "230 logged in"},
    {"HELP", "214 SIZE"}, // what clients look for in it
    {"TYPE", "200 done"},
    {"CWD", "250 done"},
    {"PWD", "257 \"/\""},
    {"SIZE", "213 8192"},
    {"ABOR", "226 done"},
}};

/// One control connection and its data connection; belongs to the control connection.
class FaultySession : public QObject
{
public:
    FaultySession(QTcpSocket *control, FtpFault fault) : QObject(control), m_control(control), m_fault(fault)
    {
        connect(control, &QTcpSocket::readyRead, this, &FaultySession::readCommands);
        say("220 ready");
    }

private:
    void say(const QByteArray &line) { m_control->write(line + "\r\n"); }

    void readCommands()
    {
        while (m_control->canReadLine()) {
            obey(m_control->readLine().trimmed());
        }
    }

    void obey(const QByteArray &line)
    {
        const QByteArray command = line.split(' ').constFirst().toUpper();
        for (const FixedAnswer &row : fixedAnswers) {
            if (command == row.command) {
                say(row.answer);
                return;
            }
        }
        if (command == "PASV" || command == "EPSV") {
            openDataPort(command == "EPSV");
        } else if (command == "RETR") {
            sendHalf();
        } else if (command == "QUIT") {
            say("221 bye");
            m_control->disconnectFromHost();
        } else {
            say("502 not here");
        }
    }

    void openDataPort(bool extended)
    {
        m_data.close();
        if (!m_data.listen(m_control->localAddress())) {
            say("425 no data port");
            return;
        }
        const QByteArray port = QByteArray::number(m_data.serverPort());
        if (extended) {
            say("229 here (|||" + port + "|)");
            return;
        }
        QByteArray address = m_control->localAddress().toString().toLatin1();
        address.replace('.', ',');
        say("227 here (" + address + ',' + QByteArray::number(m_data.serverPort() >> 8) + ',' +
            QByteArray::number(m_data.serverPort() & 0xFF) + ')');
    }

    void sendHalf()
    {
        say("150 here it comes");
        QTcpSocket *const waiting = m_data.nextPendingConnection();
        if (waiting != nullptr) {
            sendHalfOver(waiting);
            return;
        }
        connect(&m_data, &QTcpServer::newConnection, this, [this] { sendHalfOver(m_data.nextPendingConnection()); });
    }

    void sendHalfOver(QTcpSocket *data)
    {
        data->write(QByteArray(FaultyFtp::sentBytes, 'h'));
        if (m_fault == FtpFault::close) {
            connect(data, &QTcpSocket::disconnected, m_control,
                    [control = m_control] { control->disconnectFromHost(); });
            data->disconnectFromHost();
        }
    }

    QTcpSocket *m_control;
    FtpFault m_fault;
    QTcpServer m_data;
};
} // namespace

FaultyFtp::FaultyFtp(FtpFault fault) : m_fault(fault)
{
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *const control = m_server.nextPendingConnection()) {
            connect(control, &QTcpSocket::disconnected, control, &QObject::deleteLater);
            if (m_fault != FtpFault::sendNothing) {
                new FaultySession(control, m_fault); // its parent is the connection
            }
        }
    });
}

FaultyFtp::~FaultyFtp() = default;

QString FaultyFtp::start(const QHostAddress &address, quint16 port)
{
    return m_server.listen(address, port) ? QString() : m_server.errorString();
}

} // namespace emulator
