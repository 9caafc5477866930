#include "detector/store/networkHelpers.h"
#include "support/MessageSpy.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHostAddress>
#include <QTemporaryDir>
#include <QTest>

/// Own addresses and the ping helper. The loopback address 127.0.0.1 is the one address that every PC has.
class tst_networkHelpers : public QObject
{
    Q_OBJECT

private slots:
    void ipListHoldsIpv4AddressesOnly();
    void everyAddressIsWrittenToTheDebugOutput();
    void ipInfo_data();
    void ipInfo();
    void ping_data();
    void ping();
    void pingProgramIsMissing();
};

void tst_networkHelpers::ipListHoldsIpv4AddressesOnly()
{
    const QList<QString> addresses = getIpList();
    QVERIFY(addresses.contains(QStringLiteral("127.0.0.1")));
    for (const QString &address : addresses) {
        QCOMPARE(QHostAddress(address).protocol(), QAbstractSocket::IPv4Protocol);
    }
}

void tst_networkHelpers::everyAddressIsWrittenToTheDebugOutput()
{
    const MessageSpy spy;
    const QList<QString> addresses = getIpList();
    QCOMPARE(spy.messages().size(), addresses.size());
    QCOMPARE(spy.containing(QStringLiteral("127.0.0.1")).size(), 1);
}

void tst_networkHelpers::ipInfo_data()
{
    QTest::addColumn<QString>("firstPrefix");
    QTest::addColumn<QString>("secondPrefix");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("no address matches") << "300.300.300."
                                        << "301.301.301."
                                        << ""
                                        << "";
    QTest::newRow("the first argument's network comes second") << "127.0.0."
                                                               << "300.300.300."
                                                               << ""
                                                               << "127.0.0.1";
    QTest::newRow("the second argument's network comes first") << "300.300.300."
                                                               << "127.0.0."
                                                               << "127.0.0.1"
                                                               << "";
    QTest::newRow("one address on both networks") << "127.0.0."
                                                  << "0.0.1"
                                                  << "127.0.0.1"
                                                  << "127.0.0.1";
    QTest::newRow("a link that is not configured") << ""
                                                   << ""
                                                   << ""
                                                   << "";
}

void tst_networkHelpers::ipInfo()
{
    QFETCH(QString, firstPrefix);
    QFETCH(QString, secondPrefix);
    const IpInfo info = getIPInfo(firstPrefix, secondPrefix);
    QTEST(info.first, "first");
    QTEST(info.second, "second");
    QCOMPARE(info.third, QString());
    QCOMPARE(info.fourth, QString());
}

void tst_networkHelpers::ping_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<bool>("answered");
    QTest::newRow("one request to the address") << QByteArray("[ \"$*\" = '-c 1 127.0.0.1' ] && echo TTL=64") << true;
    QTest::newRow("lower case does not count") << QByteArray("echo ttl=64") << false;
    QTest::newRow("no answer") << QByteArray("echo unreachable; exit 1") << false;
    QTest::newRow("answers and hangs") << QByteArray("echo TTL=64; exec sleep 60") << true;
    QTest::newRow("hangs") << QByteArray("exec sleep 60") << false;
}

void tst_networkHelpers::ping()
{
    QFETCH(QByteArray, program);
    QFETCH(bool, answered);
    const QTemporaryDir folder;
    QFile script(folder.filePath(QStringLiteral("ping")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n" + program + '\n');
    script.close();
    QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray earlierPath = qgetenv("PATH");
    qputenv("PATH", folder.path().toLocal8Bit() + ':' + earlierPath);

    QElapsedTimer clock;
    clock.start();
    const MessageSpy spy;
    const bool result = myPing(QStringLiteral("127.0.0.1"));
    qputenv("PATH", earlierPath);
    QCOMPARE(result, answered);
    QCOMPARE(spy.containing(QStringLiteral("sResponse")).size(), 1);
    QVERIFY(clock.elapsed() < 10000);
}

void tst_networkHelpers::pingProgramIsMissing()
{
    const QTemporaryDir empty;
    const QByteArray earlierPath = qgetenv("PATH");
    qputenv("PATH", empty.path().toLocal8Bit());
    const bool result = myPing(QStringLiteral("127.0.0.1"));
    qputenv("PATH", earlierPath);
    QVERIFY(!result);
}

QTEST_GUILESS_MAIN(tst_networkHelpers)
#include "tst_networkHelpers.moc"
