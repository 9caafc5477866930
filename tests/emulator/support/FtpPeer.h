#pragma once

#include <QByteArray>
#include <QString>
#include <QTcpSocket>

/// A PC that fetches files from the emulated camera by FTP (RFC 959), in passive mode.
class FtpPeer
{
public:
    /// How a download ended: the last reply code (0: none came in time), and the bytes that arrived.
    struct Download
    {
        int code = 0;
        QByteArray content;
    };

    /// `limit`: milliseconds without anything arriving after which a step is given up.
    explicit FtpPeer(int limit = 20000) : m_limit(limit) {}

    bool connectTo(const QString &address, quint16 port = 2121);
    Download fetch(const QByteArray &path);

private:
    /// Sends a command (none, when empty) and gives the reply's code; its text is `m_reply`.
    int ask(const QByteArray &command);

    int m_limit;
    QTcpSocket m_control;
    QByteArray m_reply;
};
