#pragma once

#include <QByteArray>
#include <QNetworkReply>
#include <QTcpSocket>

/// One file from an FTP server (RFC 959, passive mode, over IPv4), as a binary transfer. User, password and
/// port come from the URL, whose path is sent as it is. Lives on one thread and reports like any `QNetworkReply`.
///
/// The transfer has succeeded when the server has said so and has closed the data connection.
class FtpReply final : public QNetworkReply
{
    Q_OBJECT
    Q_DISABLE_COPY(FtpReply)

public:
    FtpReply(const QNetworkRequest &request, QObject *parent);

    void abort() override;
    qint64 bytesAvailable() const override;
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    /// Which command the server's next reply answers.
    enum class Step {
        Greeting,
        User,
        Password,
        Type,
        Passive,
        Retrieve,
        Transfer, ///< the file is on its way; the reply that ends it is still to come
        Ended,
    };

    void reportEarlyFailure();
    void controlFailed(QAbstractSocket::SocketError error);
    void readControl();
    void handleReply(int code, const QByteArray &text);
    void send(Step next, const QByteArray &command, const QString &argument = {});
    void connectData(quint16 port);
    void endIfComplete();
    void fail(NetworkError error, const QString &text);
    void takeWhatArrived();
    void end();

    QTcpSocket m_control;
    QTcpSocket m_data;
    QByteArray m_line;      ///< of the control connection, not yet complete
    QByteArray m_longReply; ///< code of the reply of several lines that is under way
    qint64 m_received = 0;  ///< bytes of the file
    Step m_step = Step::Greeting;
    bool m_confirmed = false; ///< the server has said that the transfer is complete
    bool m_closed = false;    ///< the data connection has been opened and closed
};
