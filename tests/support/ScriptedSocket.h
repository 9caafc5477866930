#pragma once

#include <algorithm>
#include <QByteArray>
#include <QTcpSocket>
#include <utility>

/// A connected TCP socket without a network: what the peer says is delivered at once, what is written is kept.
class ScriptedSocket final : public QTcpSocket
{
public:
    ScriptedSocket()
    {
        setSocketState(ConnectedState);
        setOpenMode(ReadWrite | Unbuffered);
    }

    /// The peer says `bytes`; returns when they have been handled.
    void deliver(const QByteArray &bytes)
    {
        m_unread += bytes;
        emit readyRead();
    }

    /// What has been written since the last call.
    QByteArray takeWritten() { return std::exchange(m_written, {}); }

    qint64 bytesAvailable() const override { return isOpen() ? m_unread.size() : 0; }

    void close() override
    {
        if (isOpen()) {
            setOpenMode(NotOpen);
            setSocketState(UnconnectedState);
            emit disconnected();
        }
    }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const QByteArray part = m_unread.left(static_cast<int>(qMin<qint64>(maxSize, m_unread.size())));
        std::copy(part.begin(), part.end(), data);
        m_unread.remove(0, part.size());
        return part.size();
    }

    qint64 writeData(const char *data, qint64 size) override
    {
        m_written.append(data, static_cast<int>(size));
        return size;
    }

private:
    QByteArray m_unread;
    QByteArray m_written;
};
