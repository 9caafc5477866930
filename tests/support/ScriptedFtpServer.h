#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <optional>
#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <QThread>

/// A small FTP server (RFC 959, passive transfers) on 127.0.0.1, in a thread of its own, that can misbehave.
/// It lets in the user "kest" with the password "s3cret@/:" only.
class ScriptedFtpServer
{
    Q_DISABLE_COPY(ScriptedFtpServer)

public:
    ScriptedFtpServer();
    ~ScriptedFtpServer();

    /// The port it listens on, chosen by the system.
    quint16 port() const { return m_port; }
    void addFile(const QString &path, const QByteArray &content);
    std::optional<QByteArray> file(const QString &path) const;

    /// From now on transfers stop after `bytes` and stand still until `release`. -1: they run through.
    void stallAfter(int bytes) { m_stallAfter = bytes; }
    int stallPoint() const { return m_stallAfter; }
    /// Lets the transfers that stand still run to their end.
    void release();
    /// Closes all connections without a word.
    void cut();
    /// Clients that are connected now.
    int sessionCount() const { return m_sessions; }
    void countSession(int change) { m_sessions += change; }
    /// From now on HELP is an unknown command.
    void refuseHelp() { m_helps = false; }
    bool helps() const { return m_helps; }

private:
    class Listener;
    void inListener(void (Listener::*act)());

    QThread m_thread;
    Listener *m_listener = nullptr; ///< lives in m_thread
    quint16 m_port = 0;
    std::atomic<int> m_stallAfter{-1};
    std::atomic<bool> m_helps{true};
    std::atomic<int> m_sessions{0};
    mutable std::mutex m_mutex; ///< guards m_files
    std::map<QString, QByteArray> m_files;
};
