#pragma once

#include "telnet/engine/InputGatherer.h"
#include "telnet/engine/KestTelnetAuth.h"

#include <initializer_list>
#include <memory>
#include <QAbstractSocket>
#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QSize>
#include <QSocketNotifier>
#include <QString>
#include <qt/versions.h>
#include <QTcpSocket>
#include <QVector>

class KestTelnet;

/// State and protocol of a `KestTelnet`; apart from it only tests look in here.
class KestTelnetPrivate : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KestTelnetPrivate)

public:
    explicit KestTelnetPrivate(KestTelnet *owner);
    ~KestTelnetPrivate() override;

    KestTelnet *const q;
    QMap<uchar, bool> optionModes;            ///< true: enabled on our side
    QVector<QPair<uchar, uchar>> pendingSent; ///< (operation, option) sent by us and still to be answered
    QPointer<QTcpSocket> socket;
    QByteArrayList pendingInput; ///< received and not yet consumed
    std::unique_ptr<QSocketNotifier> exceptionNotifier;
    QSize windowDims;
    bool isConnected = false;
    bool promptDone = false; ///< logged in: prompts are no longer looked for
    bool loginSent = false;
    bool passwordSent = false;
    bool firstPrompt = true;
    QMap<int, KestTelnetAuth *> authMethods; ///< by authentication type; not owned
    KestTelnetAuth *activeAuth = nullptr;
    bool authSettled = false; ///< prompts are looked for only from then on
    TextPattern loginPattern;
    TextPattern passwordPattern;
    TextPattern promptPattern;
    QString loginName;
    QString loginPassword;
    InputGatherer gatherer;

    void connectToHost(const QString &host, quint16 port);
    void close();
    void replaceSocket(QTcpSocket *newSocket);
    /// Takes bytes of the server in pieces of any size. All that `socketReadyRead` does with what it has read.
    void consume(const QByteArray &received);
    /// A command of 3 bytes is a negotiation: it is not sent if it is the answer to our own request.
    void sendCommand(const QByteArray &command);
    void sendCommand(std::initializer_list<uchar> codes);
    void sendData(const QString &data);
    void sendSync();
    bool hasValidWindowSize() const;
    void sendWindowSize();

private:
    Q_SLOT void socketConnected();
    Q_SLOT void socketConnectionClosed();
    Q_SLOT void socketReadyRead();
    Q_SLOT void socketError(QAbstractSocket::SocketError error);
    Q_SLOT void socketException(int descriptor);

    /// Bytes to parse: those of the joined input from the current position on.
    struct Input
    {
        const char *data;
        int size;
        uchar at(int index) const { return static_cast<uchar>(data[index]); }
    };

    void write(const QByteArray &bytes);
    bool canContinue(const QByteArray &received) const;
    int parseInput(const QByteArray &input);
    int parseIAC(Input input);
    void parseNegotiation(uchar operation, uchar option);
    int parseSubNegotiation(Input input);
    int parsePlaintext(Input input);
    bool isAllowed(uchar option) const;
    void answerTerminalType(const QByteArray &negotiation);
    void answerAuthentication(const QByteArray &negotiation);
    void handleText(QString text);
    void askOwner(QString *text);
    bool looksForLogin() const { return !loginPattern.isEmpty() || !passwordPattern.isEmpty(); }

    std::unique_ptr<KestTelnetAuth> m_nullAuth;
    LocaleDecoder m_decoder;
    quint64 m_session = 0;    ///< number of the connection
    bool m_consuming = false; ///< a handler of `message` may let further input in
};
