#include "platform/networkAddress.h"

#include <QtTest>

class tst_networkAddress : public QObject
{
    Q_OBJECT

private slots:
    void bytes_data();
    void bytes();
};

void tst_networkAddress::bytes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("memory");
    QTest::newRow("of a WiFi camera's network") << QStringLiteral("192.168.88.2") << QByteArray::fromHex("c0a85802");
    QTest::newRow("loopback") << QStringLiteral("127.0.0.10") << QByteArray::fromHex("7f00000a");
    QTest::newRow("all zero") << QStringLiteral("0.0.0.0") << QByteArray::fromHex("00000000");
    QTest::newRow("empty") << QString() << QByteArray::fromHex("ffffffff");
    QTest::newRow("name") << QStringLiteral("camera") << QByteArray::fromHex("ffffffff");
    QTest::newRow("number too large") << QStringLiteral("192.168.88.256") << QByteArray::fromHex("ffffffff");
    QTest::newRow("IPv6") << QStringLiteral("::1") << QByteArray::fromHex("ffffffff");
}

void tst_networkAddress::bytes()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, memory);
    const std::uint32_t number = networkAddress(text);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(&number), sizeof number), memory);
}

QTEST_APPLESS_MAIN(tst_networkAddress)
#include "tst_networkAddress.moc"
