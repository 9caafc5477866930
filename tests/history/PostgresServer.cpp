#include "PostgresServer.h"

#include <csignal>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTcpServer>
#include <QThread>
#include <unistd.h>

namespace {
constexpr int patienceMs = 60000;

/// The folder with the newest server's programs; empty if there is none.
QString programs()
{
    const QDir versions(QStringLiteral("/usr/lib/postgresql"));
    const QStringList found = versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed);
    for (const QString &version : found) {
        QString folder = versions.filePath(version) + QStringLiteral("/bin/");
        if (QFile::exists(folder + QStringLiteral("initdb"))) {
            return folder;
        }
    }
    return {};
}

/// A server refuses to run as root.
QStringList asServer(const QStringList &command)
{
    if (geteuid() != 0) {
        return command;
    }
    return QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=postgres"),
                       QStringLiteral("--regid=postgres"), QStringLiteral("--clear-groups")} +
           command;
}

quint16 freePort()
{
    QTcpServer listener;
    listener.listen(QHostAddress::LocalHost);
    return listener.serverPort();
}
} // namespace

PostgresServer::PostgresServer() : m_folder(QStringLiteral("/tmp/kest-postgres-XXXXXX")) {}

PostgresServer::~PostgresServer()
{
    kill();
}

bool PostgresServer::run(const QString &program, const QStringList &arguments, QString *output)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(m_folder.path());
    process.start(program, arguments);
    const bool done = process.waitForFinished(patienceMs) && process.exitStatus() == QProcess::NormalExit;
    if (output != nullptr) {
        *output = QString::fromUtf8(process.readAll());
    }
    return done && process.exitCode() == 0;
}

bool PostgresServer::giveToServer(const QString &path)
{
    return geteuid() != 0 || run(QStringLiteral("chown"), {QStringLiteral("postgres"), path});
}

QString PostgresServer::start()
{
    const QString folder = programs();
    if (folder.isEmpty()) {
        return QStringLiteral("there is no PostgreSQL server here (Debian's postgresql)");
    }
    if (!giveToServer(m_folder.path())) {
        return QStringLiteral("there is no user postgres here");
    }
    QStringList init = asServer({folder + QStringLiteral("initdb"), QStringLiteral("--no-sync"), QStringLiteral("-A"),
                                 QStringLiteral("trust"), QStringLiteral("-U"), QStringLiteral("line"),
                                 QStringLiteral("-E"), QStringLiteral("UTF8"), QStringLiteral("--locale=C.UTF-8"),
                                 QStringLiteral("-D"), m_folder.filePath(QStringLiteral("data"))});
    const QString program = init.takeFirst();
    QString output;
    if (!run(program, init, &output)) {
        return QStringLiteral("initdb: ") + output;
    }
    m_port = freePort();
    if (!launch()) {
        return QStringLiteral("the PostgreSQL server does not start: ") + QString::fromUtf8(m_server.readAll());
    }
    execute(QStringLiteral("CREATE DATABASE runs"), QStringLiteral("postgres"));
    return {};
}

bool PostgresServer::launch()
{
    QStringList command = asServer(
        {programs() + QStringLiteral("postgres"), QStringLiteral("-D"), m_folder.filePath(QStringLiteral("data")),
         QStringLiteral("-p"), QString::number(m_port), QStringLiteral("-k"), m_folder.path(), QStringLiteral("-h"),
         QStringLiteral("127.0.0.1"), QStringLiteral("-c"), QStringLiteral("max_connections=20")});
    const QString program = command.takeFirst();
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.setWorkingDirectory(m_folder.path());
    m_server.start(program, command);
    constexpr int attempts = 600;
    constexpr unsigned long pauseMs = 50;
    for (int i = 0; i < attempts; ++i) {
        if (m_server.waitForFinished(0) || (m_server.state() == QProcess::NotRunning && i > 0)) {
            return false;
        }
        if (answers()) {
            return true;
        }
        QThread::msleep(pauseMs);
    }
    return false;
}

bool PostgresServer::answers()
{
    return execute(QStringLiteral("SELECT 'up'"), QStringLiteral("postgres")) == QLatin1String("up");
}

void PostgresServer::kill()
{
    if (m_server.state() == QProcess::NotRunning) {
        return;
    }
    // What it has written lies with the kernel, which lives on. Its children notice that it is gone and end themselves.
    m_server.kill();
    m_server.waitForFinished(patienceMs);
}

bool PostgresServer::resume()
{
    // The children of the one that was killed may still hold the data for a moment.
    constexpr int attempts = 40;
    constexpr unsigned long pauseMs = 100;
    for (int i = 0; i < attempts; ++i) {
        if (launch()) {
            return true;
        }
        QThread::msleep(pauseMs);
    }
    return false;
}

QString PostgresServer::url(const QString &database) const
{
    return QStringLiteral("postgresql://line@127.0.0.1:%1/%2").arg(m_port).arg(database);
}

QString PostgresServer::execute(const QString &sql, const QString &database)
{
    QString output;
    run(QStringLiteral("psql"),
        {QStringLiteral("-h"), m_folder.path(), QStringLiteral("-p"), QString::number(m_port), QStringLiteral("-U"),
         QStringLiteral("line"), QStringLiteral("-d"), database, QStringLiteral("-At"), QStringLiteral("-c"), sql},
        &output);
    return output.trimmed();
}

void PostgresServer::empty()
{
    execute(QStringLiteral("DROP SCHEMA public CASCADE; CREATE SCHEMA public"));
}

void PostgresServer::writeRule(const QByteArray &method)
{
    QFile rules(m_folder.filePath(QStringLiteral("data/pg_hba.conf")));
    if (rules.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        rules.write("local all all trust\nhost all all 127.0.0.1/32 " + method + '\n');
    }
    rules.close();
    execute(QStringLiteral("SELECT pg_reload_conf()"));
}

void PostgresServer::wantPassword(const QString &password)
{
    execute(QStringLiteral("ALTER ROLE line PASSWORD '%1'").arg(password));
    writeRule("scram-sha-256");
}

void PostgresServer::letEverybodyIn()
{
    execute(QStringLiteral("ALTER SYSTEM RESET ssl"));
    writeRule("trust");
}

QString PostgresServer::showCertificate(const QString &host)
{
    QString certificate = m_folder.filePath(QStringLiteral("data/server.crt"));
    const QString key = m_folder.filePath(QStringLiteral("data/server.key"));
    QString output;
    const bool made =
        run(QStringLiteral("openssl"),
            {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
             QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
             QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=runs"),
             QStringLiteral("-addext"), QStringLiteral("subjectAltName=") + host, QStringLiteral("-keyout"), key,
             QStringLiteral("-out"), certificate},
            &output) &&
        giveToServer(key) && giveToServer(certificate);
    if (!made) {
        qWarning("no certificate: %s", qUtf8Printable(output));
        return {};
    }
    execute(QStringLiteral("ALTER SYSTEM SET ssl = on"));
    execute(QStringLiteral("SELECT pg_reload_conf()"));
    return certificate;
}
