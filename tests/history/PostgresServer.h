#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A PostgreSQL server of our own in a folder of its own, which listens on 127.0.0.1 alone, with a database `runs`. Its
/// superuser is `line`.
class PostgresServer
{
public:
    PostgresServer();
    ~PostgresServer();
    Q_DISABLE_COPY(PostgresServer)

    /// Makes and starts it; why that is impossible here, or an empty text.
    QString start();
    /// Ends it as a power cut would: nothing is written any more.
    void kill();
    /// Starts it again on what it has left.
    bool resume();

    quint16 port() const { return m_port; }
    /// "postgresql://line@127.0.0.1:<port>/<database>"
    QString url(const QString &database = QStringLiteral("runs")) const;
    /// Executes `sql` as the superuser by psql; its output.
    QString execute(const QString &sql, const QString &database = QStringLiteral("runs"));
    /// Takes everything out of `runs`.
    void empty();
    /// From now on the server wants this password of those who come over the network.
    void wantPassword(const QString &password);
    /// As it was at first: it wants none, and does not encrypt.
    void letEverybodyIn();
    /// From now on the server can encrypt, with a certificate that it has issued itself for `host` ("DNS:elsewhere",
    /// "IP:127.0.0.1"). The certificate's path, or an empty text if that is impossible.
    QString showCertificate(const QString &host);

private:
    bool run(const QString &program, const QStringList &arguments, QString *output = nullptr);
    /// Lets the server, which may be another user than the test, read and write `path`.
    bool giveToServer(const QString &path);
    void writeRule(const QByteArray &method);
    bool launch();
    bool answers();

    QTemporaryDir m_folder;
    quint16 m_port = 0;
    QProcess m_server;
};
