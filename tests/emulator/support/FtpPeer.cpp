#include "FtpPeer.h"

#include <QHostAddress>
#include <QList>

bool FtpPeer::connectTo(const QString &address, quint16 port)
{
    m_control.connectToHost(QHostAddress(address), port);
    return m_control.waitForConnected(m_limit);
}

int FtpPeer::ask(const QByteArray &command)
{
    if (!command.isEmpty()) {
        m_control.write(command + "\r\n");
    }
    while (m_control.canReadLine() || m_control.waitForReadyRead(m_limit)) {
        if (m_control.canReadLine()) {
            m_reply = m_control.readLine().trimmed();
            if (m_reply.size() > 3 && m_reply.at(3) == ' ') {
                return m_reply.left(3).toInt();
            }
        }
    }
    return 0;
}

FtpPeer::Download FtpPeer::fetch(const QByteArray &path)
{
    struct Step
    {
        QByteArray command;
        int code;
    };
    const QList<Step> steps{{"", 220}, {"USER camera", 331}, {"PASS camera", 230}, {"TYPE I", 200}, {"PASV", 227}};
    for (const Step &step : steps) {
        const int code = ask(step.command);
        if (code != step.code) {
            return {code, {}};
        }
    }
    // 227 text (127,0,0,10,port high,port low)
    const auto begin = static_cast<int>(m_reply.indexOf('(')) + 1;
    const QList<QByteArray> numbers = m_reply.mid(begin, m_reply.indexOf(')') - begin).split(',');
    if (numbers.size() != 6) {
        return {};
    }
    QTcpSocket data;
    data.connectToHost(m_control.peerAddress(), static_cast<quint16>(numbers[4].toInt() * 256 + numbers[5].toInt()));
    if (!data.waitForConnected(m_limit)) {
        return {};
    }
    Download download{ask("RETR " + path), {}};
    if (download.code != 125 && download.code != 150) {
        return download;
    }
    do {
        download.content += data.readAll();
    } while (data.waitForReadyRead(m_limit));
    download.content += data.readAll();
    download.code = ask({});
    return download;
}
