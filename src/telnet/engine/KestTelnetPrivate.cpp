#include "telnet/engine/KestTelnetPrivate.h"

#include "platform/sendUrgent.h"
#include "platform/watchPeer.h"
#include "telnet/engine/KestTelnet.h"
#include "telnet/engine/KestTelnetAuthNull.h"
#include "telnet/engine/KestTelnetCodes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {
constexpr int negotiationSize = 3;                                 // IAC, operation, option
constexpr int subNegotiationFrame = 4;                             // IAC SB before it and IAC SE behind it
constexpr std::array<char, 2> endOfSubNegotiation{'\xFF', '\xF0'}; // IAC SE

/// NAWS is allowed as well, once there is a size to tell.
constexpr std::array allowedOptions{telnetOption::suppressGoAhead, telnetOption::status,
                                    telnetOption::logout,          telnetOption::terminalType,
                                    telnetOption::lineMode,        telnetOption::authentication};

/// The text with which every match of a pattern begins; empty where that is not plain to see.
QString literalStart(const TextPattern &pattern)
{
    const QString text = pattern.pattern();
    if (pattern.patternSyntax() != TextPattern::RegExp || pattern.caseSensitivity() != Qt::CaseSensitive ||
        text.contains(QLatin1Char('|'))) {
        return {};
    }
    const auto isLiteral = [](QChar c) {
        return c.isLetterOrNumber() || c == QLatin1Char(':') || c == QLatin1Char(' ');
    };
    const auto *const end = std::find_if_not(text.begin(), text.end(), isLiteral);
    const auto length = static_cast<int>(end - text.begin());
    // What follows may be a quantifier of the last character.
    return end == text.end() ? text : text.left(std::max(0, length - 1));
}

/// A plain search first: the pattern alone would take 10 ms for a long text without a prompt.
bool matches(const TextPattern &pattern, const QString &text)
{
    return !pattern.isEmpty() && text.contains(literalStart(pattern)) && pattern.indexIn(text) != -1;
}

bool isOperation(uchar code)
{
    return code >= telnetCode::will && code <= telnetCode::dont;
}

/// Whether what was read begins with a command that can be taken, or with what may become one. Lone commands, behind
/// which nothing would be read any more, and IAC IAC, which is how a server sends the byte itself, are left out.
bool beginsWithCommand(const QByteArray &bytes)
{
    if (!bytes.startsWith(static_cast<char>(telnetCode::iac))) {
        return false;
    }
    const uchar code = bytes.size() < 2 ? telnetCode::dm : static_cast<uchar>(bytes.at(1));
    return isOperation(code) || code == telnetCode::sb || code == telnetCode::dm;
}

/// The second byte of a sub-negotiation, whose first byte is the option; -1 if there is none.
int subOptionCode(const QByteArray &negotiation)
{
    return negotiation.size() < 2 ? -1 : static_cast<uchar>(negotiation.at(1));
}

uchar highByte(int value)
{
    return static_cast<uchar>((value >> 8) & 0xFF);
}

uchar lowByte(int value)
{
    return static_cast<uchar>(value & 0xFF);
}
} // namespace

KestTelnetPrivate::KestTelnetPrivate(KestTelnet *owner)
    : QObject(owner), q(owner), loginPattern(QStringLiteral("ogin:\\s*$")),
      passwordPattern(QStringLiteral("assword:\\s*$")), gatherer([this](const QByteArray &piece) { consume(piece); })
{
    replaceSocket(new QTcpSocket(this));
}

KestTelnetPrivate::~KestTelnetPrivate()
{
    // The socket, a child, would report its end to an object that is half gone.
    if (socket) {
        socket->disconnect(this);
    }
}

void KestTelnetPrivate::replaceSocket(QTcpSocket *newSocket)
{
    if (newSocket == socket) {
        return;
    }
    exceptionNotifier.reset();
    isConnected = false;
    if (socket) {
        socket->disconnect(this);
        socket->deleteLater(); // one of its signals may have led here
    }
    socket = newSocket;
    if (!newSocket) {
        return;
    }
    newSocket->setParent(this);
    connect(newSocket, &QTcpSocket::connected, this, &KestTelnetPrivate::socketConnected);
    connect(newSocket, &QTcpSocket::disconnected, this, &KestTelnetPrivate::socketConnectionClosed);
    connect(newSocket, &QTcpSocket::readyRead, this, &KestTelnetPrivate::socketReadyRead);
    connect(newSocket, &QTcpSocket::errorOccurred, this, &KestTelnetPrivate::socketError);
    if (newSocket->state() == QAbstractSocket::ConnectedState) {
        socketConnected();
    }
}

void KestTelnetPrivate::connectToHost(const QString &host, quint16 port)
{
    if (isConnected || !socket) {
        return;
    }
    // An earlier attempt may still be under way: a camera that has left the air does not refuse, it stays silent, and
    // the socket would turn the new attempt down for minutes.
    socket->abort();
    socket->connectToHost(host, port, QIODevice::ReadWrite, QAbstractSocket::AnyIPProtocol);
}

void KestTelnetPrivate::close()
{
    if (!isConnected) {
        return;
    }
    exceptionNotifier.reset();
    isConnected = false;
    gatherer.clear();
    if (socket) {
        socket->flush();
        socket->close();
        if (socket && socket->state() != QAbstractSocket::UnconnectedState) {
            // The peer does not read. Waiting for it would block the next connection.
            socket->abort();
        }
    }
    emit q->loggedOut();
}

void KestTelnetPrivate::socketConnected()
{
    isConnected = true;
    ++m_session;
    pendingInput.clear();
    gatherer.clear();
    m_decoder = LocaleDecoder();
    watchPeer(socket);
    exceptionNotifier.reset();
    const qintptr descriptor = socket->socketDescriptor();
    if (descriptor >= 0) {
        exceptionNotifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Exception);
        connect(exceptionNotifier.get(), &QSocketNotifier::activated, this,
                [this](QSocketDescriptor activated) { socketException(activated); });
    }

    sendCommand({telnetCode::iac, telnetCode::will, telnetOption::authentication});
    sendCommand({telnetCode::iac, telnetCode::doIt, telnetOption::suppressGoAhead});
    sendCommand({telnetCode::iac, telnetCode::will, telnetOption::lineMode});
    sendCommand({telnetCode::iac, telnetCode::doIt, telnetOption::status});
    if (hasValidWindowSize()) {
        sendCommand({telnetCode::iac, telnetCode::will, telnetOption::naws});
    }
}

void KestTelnetPrivate::socketConnectionClosed()
{
    // `close` has already told.
    if (!isConnected) {
        return;
    }
    gatherer.flush();
    exceptionNotifier.reset();
    isConnected = false;
    emit q->loggedOut();
}

void KestTelnetPrivate::socketReadyRead()
{
    // A handler of `message` may run the event loop, in which more arrives without another `readyRead`.
    while (socket && socket->bytesAvailable() > 0) {
        const QByteArray bytes = socket->readAll();
        if (!beginsWithCommand(bytes)) {
            gatherer.add(bytes);
            continue;
        }
        // Gathered behind text, the command would be taken for a part of it.
        const quint64 session = m_session;
        gatherer.handOn();
        if (session == m_session) {
            consume(bytes);
        }
    }
}

void KestTelnetPrivate::socketError(QAbstractSocket::SocketError error)
{
    emit q->connectionError(error);
}

void KestTelnetPrivate::socketException(int descriptor)
{
    // Urgent data arrives within the ordinary stream, as Qt sets up its sockets; reading it there ends the exception.
    Q_UNUSED(descriptor)
}

void KestTelnetPrivate::sendCommand(std::initializer_list<uchar> codes)
{
    QByteArray command;
    for (const uchar code : codes) {
        command.append(static_cast<char>(code));
    }
    sendCommand(command);
}

void KestTelnetPrivate::sendData(const QString &data)
{
    write(data.toLocal8Bit());
}

void KestTelnetPrivate::write(const QByteArray &bytes)
{
    if (isConnected && socket) {
        socket->write(bytes);
    }
}

void KestTelnetPrivate::sendCommand(const QByteArray &command)
{
    if (!isConnected) {
        return;
    }
    if (command.size() == negotiationSize) {
        const QPair<uchar, uchar> sent(static_cast<uchar>(command.at(1)), static_cast<uchar>(command.at(2)));
        if (pendingSent.removeOne(sent)) {
            return;
        }
        pendingSent.append(sent);
    }
    write(command);
}

void KestTelnetPrivate::sendSync()
{
    if (!isConnected || !socket) {
        return;
    }
    socket->flush();
    sendUrgent(socket, telnetCode::dm);
}

bool KestTelnetPrivate::hasValidWindowSize() const
{
    return optionModes.value(telnetOption::naws) && windowDims.width() >= 0 && windowDims.height() >= 0;
}

void KestTelnetPrivate::sendWindowSize()
{
    if (!hasValidWindowSize()) {
        return;
    }
    const int width = windowDims.width();
    const int height = windowDims.height();
    sendCommand({telnetCode::iac, telnetCode::sb, telnetOption::naws, highByte(width), lowByte(width), highByte(height),
                 lowByte(height), telnetCode::iac, telnetCode::se});
}

void KestTelnetPrivate::consume(const QByteArray &received)
{
    if (received.isEmpty()) {
        return;
    }
    // Joining what is held back with every read would copy it over and over while it grows.
    const bool worthParsing = canContinue(received);
    pendingInput.append(received);
    if (m_consuming || !worthParsing) {
        return;
    }
    m_consuming = true;
    bool more = true;
    while (more) {
        const QByteArray input = pendingInput.size() == 1 ? pendingInput.first() : pendingInput.join();
        pendingInput.clear();
        const int consumed = parseInput(input);
        // A handler of `message` may have let further input in.
        more = !pendingInput.isEmpty();
        if (consumed < input.size()) {
            pendingInput.prepend(input.mid(consumed));
        }
    }
    m_consuming = false;
}

/// Whether the input that is held back can be parsed further once `received` is appended.
bool KestTelnetPrivate::canContinue(const QByteArray &received) const
{
    if (pendingInput.isEmpty() || pendingInput.first().size() < negotiationSize) {
        return true;
    }
    const QByteArray &heldBack = pendingInput.first();
    if (static_cast<uchar>(heldBack.at(1)) != telnetCode::sb) {
        return false;
    }
    const auto [first, last] = endOfSubNegotiation;
    return (received.at(0) == last && pendingInput.last().endsWith(first)) ||
           received.contains(QByteArray::fromRawData(endOfSubNegotiation.data(), endOfSubNegotiation.size()));
}

/// Returns how many bytes were consumed; the rest is an incomplete command, or one that nothing can follow.
int KestTelnetPrivate::parseInput(const QByteArray &input)
{
    const quint64 session = m_session;
    int position = 0;
    while (position < input.size()) {
        const Input rest{input.constData() + position, static_cast<int>(input.size()) - position};
        int consumed = 1;
        if (rest.at(0) == telnetCode::iac) {
            consumed = parseIAC(rest);
        } else if (rest.at(0) != telnetCode::dm) {
            consumed = parsePlaintext(rest);
        }
        if (session != m_session) {
            return static_cast<int>(input.size()); // a handler has connected anew: this is input of the past
        }
        if (consumed == 0) {
            break;
        }
        position += consumed;
    }
    return position;
}

int KestTelnetPrivate::parseIAC(Input input)
{
    if (input.size >= 2 && input.at(1) == telnetCode::dm) {
        return 2;
    }
    if (input.size < negotiationSize) {
        return 0;
    }
    if (isOperation(input.at(1))) {
        parseNegotiation(input.at(1), input.at(2));
        return negotiationSize;
    }
    return input.at(1) == telnetCode::sb ? parseSubNegotiation(input) : 0;
}

void KestTelnetPrivate::parseNegotiation(uchar operation, uchar option)
{
    if (operation == telnetCode::wont && option == telnetOption::logout) {
        close();
        return;
    }
    if (operation == telnetCode::dont && option == telnetOption::authentication) {
        if (!looksForLogin()) {
            emit q->loggedIn();
        }
        authSettled = true;
    }

    const bool aboutOurSide = operation == telnetCode::doIt || operation == telnetCode::dont;
    const bool enable = operation == telnetCode::doIt || operation == telnetCode::will;
    if (aboutOurSide && optionModes.value(option) == enable) {
        return; // nothing changes; an answer could start an endless exchange
    }
    const bool accept = enable && isAllowed(option);
    uchar answer = accept ? telnetCode::doIt : telnetCode::dont;
    if (aboutOurSide) {
        answer = accept ? telnetCode::will : telnetCode::wont;
    }
    sendCommand({telnetCode::iac, answer, option});
    if (aboutOurSide) {
        optionModes[option] = enable;
        if (option == telnetOption::naws) {
            sendWindowSize();
        }
    }
}

bool KestTelnetPrivate::isAllowed(uchar option) const
{
    return option == telnetOption::naws
               ? hasValidWindowSize()
               : std::find(allowedOptions.begin(), allowedOptions.end(), option) != allowedOptions.end();
}

int KestTelnetPrivate::parseSubNegotiation(Input input)
{
    const char *const inputEnd = input.data + input.size;
    // The option byte, which may have the value of IAC, does not belong to the end mark.
    const char *const searchStart = std::min(input.data + 3, inputEnd);
    const char *const end = std::search(searchStart, inputEnd, endOfSubNegotiation.begin(), endOfSubNegotiation.end());
    if (end == inputEnd) {
        return 0;
    }
    const QByteArray negotiation(input.data + 2, static_cast<int>(end - input.data) - 2);
    const auto option = static_cast<uchar>(negotiation.at(0));
    switch (option) {
    case telnetOption::terminalType:
        answerTerminalType(negotiation);
        break;
    case telnetOption::authentication:
        answerAuthentication(negotiation);
        break;
    case telnetOption::naws:
        break;
    default:
        qWarning("KestTelnetPrivate::parseIAC: unknown suboption %d", option);
    }
    return static_cast<int>(negotiation.size() + subNegotiationFrame);
}

void KestTelnetPrivate::answerTerminalType(const QByteArray &negotiation)
{
    if (subOptionCode(negotiation) != telnetSubOption::send) {
        return;
    }
    // IAC SB TERMINAL-TYPE IS, the name (RFC 1091), IAC SE
    sendCommand(QByteArrayLiteral("\xFF\xFA\x18\x00UNKNOWN\xFF\xF0"));
}

void KestTelnetPrivate::answerAuthentication(const QByteArray &negotiation)
{
    if (activeAuth == nullptr && subOptionCode(negotiation) == telnetSubOption::send) {
        // Offered are pairs of a type and a modifier.
        for (int i = 2; i < negotiation.size() && activeAuth == nullptr; i += 2) {
            activeAuth = authMethods.value(static_cast<uchar>(negotiation.at(i)), nullptr);
        }
        if (activeAuth != nullptr) {
            emit q->loginRequired();
        } else {
            m_nullAuth = std::make_unique<KestTelnetAuthNull>();
            activeAuth = m_nullAuth.get();
            authSettled = true;
            if (!looksForLogin()) {
                promptDone = true;
            }
        }
    }
    if (activeAuth == nullptr) {
        return;
    }
    const QByteArray reply = activeAuth->authStep(negotiation);
    if (!reply.isEmpty()) {
        sendCommand(reply);
    }
    if (activeAuth->authState == KestTelnetAuth::Success) {
        if (!looksForLogin()) {
            emit q->loggedIn();
        }
        if (!authSettled) {
            promptDone = true;
        }
    } else if (activeAuth->authState == KestTelnetAuth::Failure) {
        emit q->loginFailed();
    }
}

int KestTelnetPrivate::parsePlaintext(Input input)
{
    const void *const nul = std::memchr(input.data, '\0', static_cast<std::size_t>(input.size));
    if (nul == nullptr) {
        handleText(m_decoder.decode(input.data, input.size, false));
        return input.size;
    }
    const int length = static_cast<int>(static_cast<const char *>(nul) - input.data);
    handleText(m_decoder.decode(input.data, length, true));
    return length + 1;
}

void KestTelnetPrivate::handleText(QString text)
{
    if (!promptDone && authSettled) {
        if (matches(promptPattern, text)) {
            emit q->loggedIn();
            promptDone = true;
        } else {
            if (matches(loginPattern, text)) {
                if (loginSent || firstPrompt) {
                    askOwner(&text);
                }
                if (!loginSent) {
                    sendData(loginName);
                    loginSent = true;
                }
            }
            if (matches(passwordPattern, text)) {
                if (passwordSent || firstPrompt) {
                    askOwner(&text);
                }
                if (!passwordSent) {
                    sendData(loginPassword);
                    passwordSent = true;
                    loginPassword.fill(QLatin1Char(' ')); // not to be found in memory later on
                    loginPassword.clear();
                }
            }
        }
    }
    if (!text.isEmpty()) {
        emit q->message(text);
    }
}

void KestTelnetPrivate::askOwner(QString *text)
{
    emit q->message(*text);
    text->clear();
    emit q->loginRequired();
    firstPrompt = false;
}
