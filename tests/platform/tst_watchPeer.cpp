#include "platform/watchPeer.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

class tst_watchPeer : public QObject
{
    Q_OBJECT

private slots:
    void connected();
    void notConnected();
};

void tst_watchPeer::connected()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, server.serverPort());
    QVERIFY(socket.waitForConnected());
    QCOMPARE(socket.socketOption(QAbstractSocket::KeepAliveOption).toInt(), 0);
    QVERIFY(watchPeer(&socket));
    QVERIFY(socket.socketOption(QAbstractSocket::KeepAliveOption).toInt() != 0);
}

void tst_watchPeer::notConnected()
{
    QTcpSocket socket;
    QVERIFY(!watchPeer(&socket));
}

QTEST_GUILESS_MAIN(tst_watchPeer)
#include "tst_watchPeer.moc"
