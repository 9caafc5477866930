#include "support/ScriptedFtpServer.h"

#include <memory>
#include <optional>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <utility>

namespace {
const QByteArray userName = QByteArrayLiteral("kest");
const QByteArray passwordText = QByteArrayLiteral("s3cret@/:");

/// One client's control connection and its current transfer.
class Session : public QObject
{
    Q_DISABLE_COPY(Session)

public:
    Session(ScriptedFtpServer *script, QTcpSocket *control, QObject *parent)
        : QObject(parent), m_script(script), m_control(control)
    {
        m_control->setParent(this);
        connect(m_control, &QTcpSocket::readyRead, this, &Session::readCommands);
        connect(m_control, &QTcpSocket::disconnected, this, &QObject::deleteLater);
        m_script->countSession(1);
        answer("220 ready");
    }
    ~Session() override { m_script->countSession(-1); }

    void release()
    {
        if (m_data != nullptr && !m_rest.isEmpty()) {
            m_data->write(std::exchange(m_rest, {}));
            m_data->disconnectFromHost();
        }
    }

    void cut()
    {
        if (m_data != nullptr) {
            m_data->disconnect(this);
            m_data->abort();
        }
        m_control->abort();
    }

private:
    void answer(const QByteArray &line) { m_control->write(line + "\r\n"); }

    void readCommands()
    {
        while (m_control->canReadLine()) {
            const QByteArray line = m_control->readLine().trimmed();
            const QByteArray command = line.left((line + ' ').indexOf(' '));
            handle(command.toUpper(), line.mid(command.size() + 1));
        }
    }

    void handle(const QByteArray &command, const QByteArray &argument)
    {
        if (command == "USER") {
            m_user = argument;
            answer("331 password, please");
        } else if (command == "PASS") {
            m_loggedIn = m_user == userName && argument == passwordText;
            answer(m_loggedIn ? "230 logged in" : "530 login incorrect");
        } else if (command == "QUIT") {
            answer("221 bye");
            m_control->disconnectFromHost();
        } else if (!m_loggedIn) {
            answer("530 log in first");
        } else if (command == "HELP" && m_script->helps()) {
            answer("214 USER PASS QUIT TYPE PASV RETR SIZE PWD");
        } else if (command == "PWD") {
            answer("257 \"/\"");
        } else if (command == "SIZE") {
            const std::optional<QByteArray> content = m_script->file(QString::fromUtf8(argument));
            answer(content ? "213 " + QByteArray::number(content->size()) : QByteArray("550 no such file"));
        } else if (command == "TYPE") {
            answer(argument == "I" ? "200 binary" : "504 binary only");
        } else if (command == "PASV") {
            listenForData();
        } else if (command == "RETR") {
            retrieve(QString::fromUtf8(argument));
        } else {
            answer("502 not implemented");
        }
    }

    void listenForData()
    {
        m_dataServer = std::make_unique<QTcpServer>();
        m_dataServer->listen(QHostAddress::LocalHost);
        const int port = m_dataServer->serverPort();
        answer("227 entering passive mode (127,0,0,1," + QByteArray::number(port / 256) + ',' +
               QByteArray::number(port % 256) + ')');
    }

    void retrieve(const QString &path)
    {
        const std::optional<QByteArray> content = m_script->file(path);
        if (!content || m_dataServer == nullptr) {
            answer("550 no such file");
            return;
        }
        answer("150 here it comes");
        if (m_dataServer->hasPendingConnections()) {
            send(*content);
            return;
        }
        connect(m_dataServer.get(), &QTcpServer::newConnection, this, [this, content] { send(*content); });
    }

    void send(const QByteArray &content)
    {
        m_data = m_dataServer->nextPendingConnection();
        m_data->setParent(this);
        connect(m_data, &QTcpSocket::disconnected, this, [this] { answer("226 done"); });
        const int stallPoint = m_script->stallPoint();
        if (stallPoint < 0) {
            m_data->write(content);
            m_data->disconnectFromHost();
            return;
        }
        m_data->write(content.left(stallPoint));
        m_rest = content.mid(stallPoint);
    }

    ScriptedFtpServer *m_script;
    QTcpSocket *m_control;
    QByteArray m_user;
    bool m_loggedIn = false;
    std::unique_ptr<QTcpServer> m_dataServer;
    QPointer<QTcpSocket> m_data;
    QByteArray m_rest; ///< of a transfer that stands still
};
} // namespace

/// Lives in the server's thread, like its sessions, which are its children.
class ScriptedFtpServer::Listener : public QTcpServer
{
    Q_DISABLE_COPY(Listener)

public:
    explicit Listener(ScriptedFtpServer *script)
    {
        connect(this, &QTcpServer::newConnection, this, [this, script] {
            while (QTcpSocket *control = nextPendingConnection()) {
                new Session(script, control, this);
            }
        });
    }

    void release() { forEachSession(&Session::release); }
    void cut() { forEachSession(&Session::cut); }

private:
    void forEachSession(void (Session::*act)())
    {
        const QObjectList present = children();
        for (QObject *child : present) {
            if (auto *session = dynamic_cast<Session *>(child)) {
                (session->*act)();
            }
        }
    }
};

ScriptedFtpServer::ScriptedFtpServer()
{
    m_listener = new Listener(this);
    m_listener->listen(QHostAddress::LocalHost);
    m_port = m_listener->serverPort();
    m_listener->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_listener, &QObject::deleteLater);
    m_thread.start();
}

ScriptedFtpServer::~ScriptedFtpServer()
{
    m_thread.quit();
    m_thread.wait();
}

void ScriptedFtpServer::addFile(const QString &path, const QByteArray &content)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_files[path] = content;
}

std::optional<QByteArray> ScriptedFtpServer::file(const QString &path) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_files.find(path);
    return found == m_files.end() ? std::nullopt : std::optional<QByteArray>(found->second);
}

void ScriptedFtpServer::release()
{
    inListener(&Listener::release);
}

void ScriptedFtpServer::cut()
{
    inListener(&Listener::cut);
}

// By its name, not in a lambda: the thread sanitizer does not see how Qt hands a call over to another thread, and would
// take what a lambda holds for a race.
void ScriptedFtpServer::inListener(void (Listener::*act)())
{
    QMetaObject::invokeMethod(m_listener, act, Qt::BlockingQueuedConnection);
}
