#include "ftp/FtpAccessManager.h"

#include <memory>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

/// The FTP dialogue, reply by reply, against a server that says exactly what a row tells it to.
class tst_FtpReply : public QObject
{
    Q_OBJECT

private slots:
    void dialogue_data();
    void dialogue();
    void lineBreakInTheLoginIsRefused();
    void abortTellsOnceAndClosesAll();
    void largeFilesComeInLargerPieces();
    void otherSchemesStayQts();

private:
    std::unique_ptr<QNetworkReply> get(const QTcpServer &server, const QString &password = QStringLiteral("p"));

    FtpAccessManager m_manager{nullptr};
};

namespace {
/// "%PASV%" in a script stands for the port numbers of the data server, "%DATA%" for sending the file and closing the
/// data connection, "%CLOSE%" for closing the control connection.
using Script = QList<QPair<QByteArray, QByteArray>>; ///< command to what follows it

const QByteArray content = QByteArray(300000, 'x') + "end";

class Server : public QTcpServer
{
public:
    explicit Server(Script script, QByteArray file = content) : m_script(std::move(script)), m_file(std::move(file))
    {
        listen(QHostAddress::LocalHost);
        m_dataServer.listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            m_control = nextPendingConnection();
            connect(m_control, &QTcpSocket::readyRead, this, &Server::read);
            play(QByteArray());
        });
    }

    QByteArrayList commands() const { return m_commands; }
    bool controlIsClosed() const
    {
        return m_control != nullptr && m_control->state() == QAbstractSocket::UnconnectedState;
    }

private:
    void read()
    {
        while (m_control->canReadLine()) {
            const QByteArray line = m_control->readLine();
            m_commands.append(line.chopped(2));
            play(line.chopped(2));
        }
    }

    void play(const QByteArray &command)
    {
        for (const auto &entry : std::as_const(m_script)) {
            if (entry.first != command) {
                continue;
            }
            QByteArray said = entry.second;
            const quint16 port = m_dataServer.serverPort();
            said.replace("%PASV%", QByteArray::number(port / 256) + ',' + QByteArray::number(port % 256));
            const QByteArrayList parts = said.split('%');
            for (const QByteArray &part : parts) {
                playPart(part);
            }
        }
    }

    void playPart(const QByteArray &part)
    {
        if (part == "DATA") {
            if (!m_dataServer.hasPendingConnections()) {
                m_dataServer.waitForNewConnection(10000);
            }
            QTcpSocket *data = m_dataServer.nextPendingConnection();
            data->write(m_file);
            data->disconnectFromHost();
        } else if (part == "CLOSE") {
            m_control->disconnectFromHost();
        } else {
            m_control->write(part);
        }
    }

    Script m_script;
    QByteArray m_file;
    QTcpServer m_dataServer;
    QTcpSocket *m_control = nullptr;
    QByteArrayList m_commands;
};

const QPair<QByteArray, QByteArray> greeting{"", "220 ready\r\n"};
const QPair<QByteArray, QByteArray> user{"USER u", "331 password\r\n"};
const QPair<QByteArray, QByteArray> password{"PASS p", "230 in\r\n"};
const QPair<QByteArray, QByteArray> type{"TYPE I", "200 binary\r\n"};
const QPair<QByteArray, QByteArray> passive{"PASV", "227 passive (127,0,0,1,%PASV%)\r\n"};
const QPair<QByteArray, QByteArray> retrieve{"RETR /a b.gz", "150 coming\r\n%DATA%226 done\r\n"};
} // namespace

Q_DECLARE_METATYPE(Script)

std::unique_ptr<QNetworkReply> tst_FtpReply::get(const QTcpServer &server, const QString &password)
{
    QUrl url(QStringLiteral("ftp://127.0.0.1/a b.gz"));
    url.setPort(server.serverPort());
    url.setUserName(QStringLiteral("u"), QUrl::DecodedMode);
    url.setPassword(password, QUrl::DecodedMode);
    return std::unique_ptr<QNetworkReply>(m_manager.get(QNetworkRequest(url)));
}

void tst_FtpReply::dialogue_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<QNetworkReply::NetworkError>("error");

    const auto row = [](const char *name, const Script &script, QNetworkReply::NetworkError error) {
        QTest::newRow(name) << script << error;
    };
    constexpr auto fine = QNetworkReply::NoError;
    row("as usual", {greeting, user, password, type, passive, retrieve}, fine);
    row("greeting in several lines",
        {{"", "220-welcome\r\n 220 not yet\r\n220-nor now\r\n220 ready\r\n"}, user, password, type, passive, retrieve},
        fine);
    row("ready soon", {{"", "120 in a moment\r\n220 ready\r\n"}, user, password, type, passive, retrieve}, fine);
    row("user without password", {greeting, {"USER u", "230 in\r\n"}, type, passive, retrieve}, fine);
    row("server names another address",
        {greeting, user, password, type, {"PASV", "227 ok 10,9,8,7,%PASV%\r\n"}, retrieve}, fine);
    row("no preliminary reply", {greeting, user, password, type, passive, {"RETR /a b.gz", "%DATA%226 done\r\n"}},
        fine);
    row("control connection closed behind the last reply",
        {greeting, user, password, type, passive, {"RETR /a b.gz", "150 x\r\n%DATA%226 done\r\n%CLOSE%"}}, fine);
    row("not ready", {{"", "421 too many users\r\n"}}, QNetworkReply::ProtocolFailure);
    row("wrong login", {greeting, user, {"PASS p", "530 no\r\n"}}, QNetworkReply::AuthenticationRequiredError);
    row("no binary transfers", {greeting, user, password, {"TYPE I", "504 no\r\n"}}, QNetworkReply::ProtocolFailure);
    row("no passive transfers", {greeting, user, password, type, {"PASV", "502 no\r\n"}},
        QNetworkReply::ProtocolFailure);
    row("passive reply without a port", {greeting, user, password, type, {"PASV", "227 ok\r\n"}},
        QNetworkReply::ProtocolFailure);
    row("passive reply with a number too large", {greeting, user, password, type, {"PASV", "227 (1,1,1,1,256,1)\r\n"}},
        QNetworkReply::ProtocolFailure);
    row("no such file", {greeting, user, password, type, passive, {"RETR /a b.gz", "550 no\r\n"}},
        QNetworkReply::ContentNotFoundError);
    row("transfer given up by the server",
        {greeting, user, password, type, passive, {"RETR /a b.gz", "150 x\r\n%DATA%426 aborted\r\n"}},
        QNetworkReply::ProtocolFailure);
    row("control connection closed before the end",
        {greeting, user, password, type, passive, {"RETR /a b.gz", "150 x\r\n%DATA%%CLOSE%"}},
        QNetworkReply::RemoteHostClosedError);
    row("closed at once", {{"", "%CLOSE%"}}, QNetworkReply::RemoteHostClosedError);
    row("endless line", {{"", QByteArray(100000, '2')}}, QNetworkReply::ProtocolFailure);
}

void tst_FtpReply::dialogue()
{
    QFETCH(Script, script);
    QFETCH(QNetworkReply::NetworkError, error);
    const Server server(script);
    const auto reply = get(server);
    QByteArray received;
    connect(reply.get(), &QNetworkReply::readyRead, this, [&] { received += reply->readAll(); });
    QSignalSpy errors(reply.get(), &QNetworkReply::errorOccurred);
    QSignalSpy ends(reply.get(), &QNetworkReply::finished);
    QTRY_COMPARE(ends.count(), 1);
    QCOMPARE(reply->error(), error);
    QCOMPARE(errors.count(), error == QNetworkReply::NoError ? 0 : 1);
    QVERIFY(reply->isFinished());
    if (error == QNetworkReply::NoError) {
        QVERIFY(received == content);
    }
    QTRY_VERIFY(server.controlIsClosed());
    QCOMPARE(ends.count(), 1);
}

void tst_FtpReply::lineBreakInTheLoginIsRefused()
{
    const Server server({greeting, user, password});
    const auto reply = get(server, QStringLiteral("p\r\nDELE /a"));
    QTRY_VERIFY(reply->isFinished());
    QCOMPARE(reply->error(), QNetworkReply::ProtocolInvalidOperationError);
    QCOMPARE(server.commands(), QByteArrayList());
}

void tst_FtpReply::abortTellsOnceAndClosesAll()
{
    const Server server({greeting, user, password, type, passive, {"RETR /a b.gz", "150 x\r\n"}});
    const auto reply = get(server);
    QSignalSpy ends(reply.get(), &QNetworkReply::finished);
    QTRY_VERIFY(server.commands().contains("RETR /a b.gz"));
    reply->abort();
    reply->abort();
    QCOMPARE(ends.count(), 1);
    QCOMPARE(reply->error(), QNetworkReply::OperationCanceledError);
    QTRY_VERIFY(server.controlIsClosed());
}

void tst_FtpReply::largeFilesComeInLargerPieces()
{
    constexpr qint64 small = 65536;
    constexpr qint64 large = 262144;
    constexpr qint64 mebi = 1048576;
    constexpr int fileSize = 8388608;
    const Server server({greeting, user, password, type, passive, retrieve}, QByteArray(fileSize, 'x'));
    const auto reply = get(server);
    // While nobody reads, as much waits as one piece holds.
    QTRY_COMPARE(reply->bytesAvailable(), small);
    qint64 received = 0;
    const auto reading = connect(reply.get(), &QNetworkReply::readyRead, reply.get(),
                                 [&received, &reply] { received += received <= mebi ? reply->readAll().size() : 0; });
    received += reply->readAll().size();
    QTRY_COMPARE(reply->bytesAvailable(), large);
    disconnect(reading);
    received += reply->readAll().size();
    connect(reply.get(), &QNetworkReply::readyRead, reply.get(),
            [&received, &reply] { received += reply->readAll().size(); });
    QTRY_VERIFY(reply->isFinished());
    QCOMPARE(received + reply->readAll().size(), qint64{fileSize});
    QCOMPARE(reply->error(), QNetworkReply::NoError);
}

void tst_FtpReply::otherSchemesStayQts()
{
    const std::unique_ptr<QNetworkReply> reply(m_manager.get(QNetworkRequest(QUrl(QStringLiteral("data:,text")))));
    QTRY_VERIFY(reply->isFinished());
    QCOMPARE(reply->readAll(), QByteArray("text"));
}

QTEST_GUILESS_MAIN(tst_FtpReply)
#include "tst_FtpReply.moc"
