#include "ftp/FtpReply.h"

#include <algorithm>
#include <QHostAddress>
#include <QUrl>

namespace {
constexpr quint16 defaultPort = 21;
constexpr int longestLine = 4096;
constexpr int codeSize = 3;
// What one event brings is handled within a millisecond. Memory for small pieces stays with the process, which makes a
// small file faster; a large one gains more from fewer events.
constexpr qint64 firstPieces = qint64{64} * 1024;
constexpr qint64 laterPieces = qint64{256} * 1024;
constexpr qint64 smallFile = qint64{1024} * 1024;

/// Kinds of replies, by the code's first digit.
enum ReplyKind { Preliminary = 1, Completed = 2, Intermediate = 3 };

namespace replyCode {
constexpr int notLoggedIn = 530;
constexpr int noSuchFile = 550;
} // namespace replyCode

/// "227 Entering Passive Mode (127,0,0,10,195,80)": the port is in the last two of six numbers; 0 if there are none.
/// Not every server has the parentheses (RFC 1123, section 4.1.2.6).
quint16 passivePort(const QByteArray &text)
{
    QByteArray spaced = text;
    std::replace_if(
        spaced.begin(), spaced.end(), [](char c) { return c != ',' && (c < '0' || c > '9'); }, ' ');
    const QByteArrayList words = spaced.split(' ');
    for (const QByteArray &word : words) {
        const QByteArrayList numbers = word.split(',');
        if (numbers.size() == 6 && !numbers.contains(QByteArray())) {
            const uint high = numbers.at(4).toUInt();
            const uint low = numbers.at(5).toUInt();
            return high > 0xFF || low > 0xFF ? quint16(0) : static_cast<quint16>(high << 8U | low);
        }
    }
    return 0;
}

bool fitsIntoALine(const QString &text)
{
    return !text.contains(QLatin1Char('\r')) && !text.contains(QLatin1Char('\n')) && !text.contains(QChar::Null);
}

bool fitsIntoLines(const QUrl &url)
{
    return fitsIntoALine(url.userName(QUrl::FullyDecoded)) && fitsIntoALine(url.password(QUrl::FullyDecoded)) &&
           fitsIntoALine(url.path(QUrl::FullyDecoded));
}
} // namespace

FtpReply::FtpReply(const QNetworkRequest &request, QObject *parent) : QNetworkReply(parent)
{
    setRequest(request);
    setUrl(request.url());
    setOperation(QNetworkAccessManager::GetOperation);
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    m_data.setReadBufferSize(firstPieces);

    // The server is asked at once, so that it can answer while the caller prepares. What fails at once is told from the
    // event loop: nobody could have connected to the signals yet.
    if (fitsIntoLines(url())) {
        m_control.connectToHost(url().host(), static_cast<quint16>(url().port(defaultPort)));
    }
    QMetaObject::invokeMethod(this, &FtpReply::reportEarlyFailure, Qt::QueuedConnection);
    connect(&m_control, &QTcpSocket::readyRead, this, &FtpReply::readControl);
    connect(&m_control, &QTcpSocket::errorOccurred, this, &FtpReply::controlFailed);
    connect(&m_data, &QTcpSocket::readyRead, this, &QNetworkReply::readyRead);
    connect(&m_data, &QTcpSocket::disconnected, this, [this] {
        m_closed = true;
        endIfComplete();
    });
    connect(&m_data, &QTcpSocket::errorOccurred, this, [this](QAbstractSocket::SocketError error) {
        if (error != QAbstractSocket::RemoteHostClosedError) { // which is how every transfer ends
            fail(RemoteHostClosedError, QStringLiteral("data connection: ") + m_data.errorString());
        }
    });
}

void FtpReply::reportEarlyFailure()
{
    if (!fitsIntoLines(url())) {
        fail(ProtocolInvalidOperationError, QStringLiteral("user, password or path has a line break"));
    } else if (m_control.state() == QAbstractSocket::UnconnectedState) {
        controlFailed(m_control.error());
    }
}

void FtpReply::controlFailed(QAbstractSocket::SocketError error)
{
    if (m_confirmed) {
        return; // the server has said all there is to say; the file's end may still be on its way
    }
    fail(error == QAbstractSocket::ConnectionRefusedError ? ConnectionRefusedError : RemoteHostClosedError,
         QStringLiteral("control connection: ") + m_control.errorString());
}

void FtpReply::abort()
{
    fail(OperationCanceledError, QStringLiteral("canceled"));
}

qint64 FtpReply::bytesAvailable() const
{
    return QNetworkReply::bytesAvailable() + m_data.bytesAvailable();
}

qint64 FtpReply::readData(char *data, qint64 maxSize)
{
    const qint64 size = m_data.read(data, maxSize);
    m_received += std::max(size, qint64{0});
    if (m_received > smallFile) {
        m_data.setReadBufferSize(laterPieces);
    }
    return size <= 0 && m_step == Step::Ended ? -1 : size;
}

void FtpReply::readControl()
{
    while (m_step != Step::Ended && m_control.bytesAvailable() > 0) {
        m_line += m_control.readLine(longestLine);
        if (m_line.size() >= longestLine) {
            fail(ProtocolFailure, QStringLiteral("endless line"));
        } else if (m_line.endsWith('\n')) {
            const QByteArray line = m_line;
            m_line.clear();
            const QByteArray code = line.left(codeSize);
            // "220-" begins a reply of several lines, which the line that begins with "220 " ends.
            if (m_longReply.isEmpty() && line.mid(codeSize, 1) == "-") {
                m_longReply = code;
            } else if (m_longReply.isEmpty() || line.startsWith(m_longReply + ' ')) {
                m_longReply.clear();
                handleReply(code.toInt(), line.mid(codeSize).trimmed());
            }
        }
    }
}

void FtpReply::handleReply(int code, const QByteArray &text)
{
    const int kind = code / 100;
    switch (m_step) {
    case Step::Greeting:
        if (kind == Completed) {
            send(Step::User, "USER", url().userName(QUrl::FullyDecoded));
            return;
        }
        if (kind == Preliminary) {
            return; // ready soon
        }
        break;
    case Step::User:
        if (kind == Intermediate) {
            send(Step::Password, "PASS", url().password(QUrl::FullyDecoded));
            return;
        }
        [[fallthrough]];
    case Step::Password:
        if (kind == Completed) {
            send(Step::Type, "TYPE I");
            return;
        }
        break;
    case Step::Type:
        if (kind == Completed) {
            send(Step::Passive, "PASV");
            return;
        }
        break;
    case Step::Passive:
        if (const quint16 port = passivePort(text); kind == Completed && port != 0) {
            connectData(port);
            return;
        }
        break;
    case Step::Retrieve:
        if (kind == Preliminary) {
            m_step = Step::Transfer;
            return;
        }
        [[fallthrough]];
    case Step::Transfer:
        if (kind == Completed) {
            m_confirmed = true;
            endIfComplete();
            return;
        }
        break;
    case Step::Ended:
        return;
    }
    const NetworkError error = code == replyCode::notLoggedIn  ? AuthenticationRequiredError
                               : code == replyCode::noSuchFile ? ContentNotFoundError
                                                               : ProtocolFailure;
    fail(error, QStringLiteral("%1 %2").arg(QString::number(code), QString::fromUtf8(text)));
}

void FtpReply::send(Step next, const QByteArray &command, const QString &argument)
{
    m_step = next;
    m_control.write(argument.isEmpty() ? command + "\r\n" : command + ' ' + argument.toUtf8() + "\r\n");
    m_control.flush(); // not a turn of the event loop later
}

/// The server's own idea of its address is left aside: behind a router it is wrong, and it must not lead elsewhere.
void FtpReply::connectData(quint16 port)
{
    m_data.connectToHost(m_control.peerAddress(), port);
    send(Step::Retrieve, "RETR", url().path(QUrl::FullyDecoded));
}

void FtpReply::endIfComplete()
{
    if (m_step == Step::Ended || !m_closed || !m_confirmed) {
        return;
    }
    if (m_data.bytesAvailable() > 0) {
        emit readyRead(); // the last chance: what has come in since is not told by the socket any more
    }
    m_control.write("QUIT\r\n");
    m_control.flush();
    end();
}

void FtpReply::fail(NetworkError error, const QString &text)
{
    if (m_step == Step::Ended) {
        return;
    }
    m_step = Step::Ended;
    if (error != OperationCanceledError) {
        takeWhatArrived();
    }
    setError(error, text);
    emit errorOccurred(error);
    end();
}

/// The file's beginning is kept although the rest will not come: a server that dies closes both connections, and which
/// of the two is noticed first is chance.
void FtpReply::takeWhatArrived()
{
    constexpr int mostPieces = 64; // a server that goes on sending must not keep the thread busy
    if (m_data.state() == QAbstractSocket::ConnectingState) {
        m_data.waitForConnected(0);
    }
    for (int i = 0; i < mostPieces && m_data.state() == QAbstractSocket::ConnectedState && m_data.waitForReadyRead(0);
         ++i) {
    }
    if (m_data.bytesAvailable() > 0) {
        emit readyRead();
    }
}

void FtpReply::end()
{
    m_step = Step::Ended;
    for (QTcpSocket *socket : {&m_control, &m_data}) {
        socket->disconnect(this);
        if (socket == &m_control || error() != NoError) {
            socket->abort();
        }
    }
    setFinished(true);
    emit finished();
}
