#pragma once

#include <memory>
#include <QAbstractSocket>
#include <QByteArrayList>
#include <QObject>
#include <QString>
#include <qt/versions.h>

class KestTelnetPrivate;
class QSize;
class QTcpSocket;

/// Client side of a telnet session (RFC 854) on one TCP socket: turns the server's bytes into `message` texts, answers
/// its option negotiation (RFC 855: terminal type RFC 1091, window size RFC 1073, authentication RFC 2941) and sends
/// texts and control functions. Sends while not connected are dropped. Object, socket and all work live on one thread.
///
/// Text is encoded by the locale (`LocaleDecoder`) in both directions. A lone command of the server,
/// such as IAC NOP or IAC IAC, at the start of what is left to read holds back all that follows it until the next
/// connection.
class KestTelnet : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(KestTelnet)

public:
    /// Telnet's control functions. The three that the server should not find behind a queue of input come with a Synch.
    enum Control {
        GoAhead,
        InterruptProcess, ///< with a Synch
        AreYouThere,      ///< with a Synch
        AbortOutput,      ///< with a Synch
        EraseCharacter,
        EraseLine,
        Break,
        EndOfFile,
        Suspend,
        Abort,
    };

    explicit KestTelnet(QObject *parent = nullptr);
    ~KestTelnet() override;

    /// Does nothing while connected; gives up an attempt that is still under way.
    void connectToHost(const QString &host, quint16 port);
    /// What to answer to the next login and password prompts once the server has settled authentication.
    void login(const QString &user, const QString &password);
    /// Asks the server to log out (IAC DO LOGOUT, RFC 727).
    void logout();
    /// Ends the session at once; what could not be written to the network by then is lost.
    void close();

    // An empty pattern is not looked for. The prompt is that of the shell: it ends the search for all three.
    void setLoginPattern(const TextPattern &pattern);
    void setPasswordPattern(const TextPattern &pattern);
    void setPromptPattern(const TextPattern &pattern);

    /// Sends `data` as it is: no line-end translation, no doubling of IAC.
    void sendData(const QString &data);
    void sendControl(Control control);
    /// The Synch alone: a data mark as TCP urgent data.
    void sendSync();

    /// Reads the server's text in large pieces: at once when one of the texts is in it (bytes as on the network), else
    /// within 5 ms, or longer while a long text flows without a pause. A read that begins with a command ends the piece
    /// before it. At first, every read makes a piece.
    void gatherInput(const QByteArrayList &urgentTexts);
    /// Hands on now what has been gathered so far.
    void flushInput();

    // The window size, in characters, is told to a server that has asked for it (NAWS).
    void setWindowSize(int width, int height);
    void setWindowSize(const QSize &size);
    /// (-1, -1) unless the server has asked for it.
    QSize windowSize() const;
    bool isValidWindowSize() const;

    /// Takes over `socket` and deletes the one used so far. A socket that is already connected starts its session now.
    void setSocket(QTcpSocket *socket);
    QTcpSocket *socket() const;

signals:
    void loginRequired();
    void loginFailed();
    void loggedIn();
    /// The session has ended, whichever side has closed it. A peer that vanishes is noticed within about 3 seconds.
    void loggedOut();
    void connectionError(QAbstractSocket::SocketError error);
    void message(const QString &data);

private:
    friend class KestTelnetPrivate;
    const std::unique_ptr<KestTelnetPrivate> d;
};
