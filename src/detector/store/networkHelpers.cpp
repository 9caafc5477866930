#include "detector/store/networkHelpers.h"

#include <QDebug>
#include <QHostAddress>
#include <QNetworkInterface>
#include <QProcess>
#include <QStringList>

namespace {

constexpr int pingWaitMs = 500;

#ifdef Q_OS_WIN
constexpr auto pingCountOption = "-n";
#else
constexpr auto pingCountOption = "-c";
#endif

} // namespace

QList<QString> getIpList()
{
    QList<QString> addresses;
    const QList<QHostAddress> all = QNetworkInterface::allAddresses();
    for (const QHostAddress &address : all) {
        if (address.protocol() == QAbstractSocket::IPv4Protocol) {
            addresses.append(address.toString());
            qDebug() << addresses.last();
        }
    }
    return addresses;
}

IpInfo getIPInfo(const QString &first, const QString &second)
{
    const auto matches = [](const QString &address, const QString &part) {
        return !part.isEmpty() && address.contains(part);
    };
    IpInfo info;
    const QList<QString> addresses = getIpList();
    for (const QString &address : addresses) {
        if (matches(address, second)) {
            info.first = address;
        }
        if (matches(address, first)) {
            info.second = address;
        }
    }
    return info;
}

bool myPing(const QString &address)
{
    QProcess ping;
    ping.start(QStringLiteral("ping"), {QLatin1String(pingCountOption), QStringLiteral("1"), address},
               QIODevice::ReadWrite);
    ping.waitForReadyRead(pingWaitMs);
    // The destructor of a process that still runs waits for it half a minute: it has to be dead before.
    if (!ping.waitForFinished(pingWaitMs) && ping.state() != QProcess::NotRunning) {
        ping.kill();
        ping.waitForFinished(pingWaitMs);
    }
    const QString response = QString::fromLocal8Bit(ping.readAll());
    qDebug() << "sResponse" << response;
    ping.close();
    return response.contains(QStringLiteral("TTL"));
}
