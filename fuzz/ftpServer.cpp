// A hostile FTP server on both of its connections. An input is a list of acts: a byte that chooses one (see `Act`), and
// for what is said a length byte and as many bytes. In words on the control connection, the byte 1 stands for the port
// of the data connection as PASV names it ("195,80"), so that an input can lead there.

#include "../tests/e2e/isolation.h"
#include "ftp/FtpAccessManager.h"
#include "require.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QNetworkReply>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>
#include <sched.h>
#include <sys/socket.h>
#include <vector>

namespace {
enum class Act { SayControl, SayData, CloseControl, CloseData };
constexpr unsigned actCount = 4;
constexpr char portMark = 1;
constexpr int longestEndMs = 5000;

void ignoreMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

/// One of the server's two ports, with the connections that have come to it.
class Port
{
public:
    Port() { m_server.listen(QHostAddress::LocalHost); }

    quint16 number() const { return m_server.serverPort(); }

    void accept()
    {
        while (QTcpSocket *socket = m_server.nextPendingConnection()) {
            m_sockets.emplace_back(socket);
        }
    }

    /// To the first connection; what is said before it has come is lost.
    void say(const QByteArray &bytes)
    {
        if (!m_sockets.empty() && m_sockets.front()->state() == QAbstractSocket::ConnectedState) {
            m_sockets.front()->write(bytes);
            m_said += bytes.size();
        }
    }

    QByteArray heard()
    {
        if (!m_sockets.empty()) {
            m_heard += m_sockets.front()->readAll();
        }
        return m_heard;
    }

    qint64 said() const { return m_said; }

    void close()
    {
        accept();
        for (const auto &socket : m_sockets) {
            socket->disconnectFromHost();
        }
    }

    /// With a reset, which leaves no address in use behind: there are thousands of connections a minute.
    void forget()
    {
        accept();
        for (const auto &socket : m_sockets) {
            const linger atOnce{1, 0};
            setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
            socket->abort();
        }
        m_sockets.clear();
        m_heard.clear();
        m_said = 0;
    }

private:
    QTcpServer m_server;
    std::vector<std::unique_ptr<QTcpSocket>> m_sockets;
    QByteArray m_heard;
    qint64 m_said = 0;
};

struct Server
{
    Port control;
    Port data;

    /// Lets everything that is on its way arrive.
    void serve()
    {
        constexpr int turns = 4;
        for (int turn = 0; turn < turns; ++turn) {
            QCoreApplication::processEvents();
            control.accept();
            data.accept();
        }
    }
};

Server &server()
{
    static Server instance;
    return instance;
}

void play(Act act, QByteArray words)
{
    switch (act) {
    case Act::SayControl: {
        const int port = server().data.number();
        words.replace(QByteArray(1, portMark), QByteArray::number(port / 256) + ',' + QByteArray::number(port % 256));
        server().control.say(words);
        break;
    }
    case Act::SayData:
        server().data.say(words);
        break;
    case Act::CloseControl:
        server().control.close();
        break;
    case Act::CloseData:
        server().data.close();
        break;
    }
    server().serve();
}

void playAll(const std::uint8_t *input, std::size_t size)
{
    for (std::size_t position = 0; position < size;) {
        const auto act = static_cast<Act>(input[position++] % actCount);
        QByteArray words;
        if ((act == Act::SayControl || act == Act::SayData) && position < size) {
            const std::size_t wanted = input[position++];
            const std::size_t length = std::min(wanted, size - position);
            words = QByteArray(reinterpret_cast<const char *>(input) + position, static_cast<int>(length));
            position += length;
        }
        play(act, words);
    }
}

/// Each command once at most, in this order, whatever the server says.
void checkCommands(const QByteArray &heard)
{
    const std::array<QByteArray, 6> commands = {"USER u\r\n", "PASS p\r\n",  "TYPE I\r\n",
                                                "PASV\r\n",   "RETR /f\r\n", "QUIT\r\n"};
    QByteArray rest = heard;
    for (const QByteArray &command : commands) {
        if (rest.startsWith(command)) {
            rest.remove(0, command.size());
        }
    }
    require(rest.isEmpty(), "the server hears its commands and nothing else");
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qInstallMessageHandler(ignoreMessage);
    // The server may name any port: none of this machine's own is to be found there.
    if (!enterPrivateNetwork() && unshare(CLONE_NEWUSER) == 0) {
        static_cast<void>(enterPrivateNetwork());
    }
    static const QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *input, std::size_t size)
{
    static FtpAccessManager manager(nullptr);
    QUrl url(QStringLiteral("ftp://u:p@127.0.0.1/f"));
    url.setPort(server().control.number());
    const std::unique_ptr<QNetworkReply> reply(manager.get(QNetworkRequest(url)));
    QByteArray received;
    int ends = 0;
    QObject::connect(reply.get(), &QNetworkReply::readyRead, [&] { received += reply->readAll(); });
    QObject::connect(reply.get(), &QNetworkReply::finished, [&] { ++ends; });

    server().serve();
    playAll(input, size);
    checkCommands(server().control.heard());
    QElapsedTimer clock;
    clock.start();
    while (ends == 0 && clock.elapsed() < longestEndMs) {
        server().data.close();
        server().control.close();
        server().serve();
    }
    require(ends == 1, "a download ends once, at the latest when the server has closed both connections");
    require(received.size() <= server().data.said(), "no data but what was sent");
    require(reply->error() != QNetworkReply::NoError || received.size() == server().data.said(),
            "a file that has arrived is complete");
    server().control.forget();
    server().data.forget();
    QCoreApplication::processEvents();
    require(ends == 1, "nothing is told after the end");
    return 0;
}
