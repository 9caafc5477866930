#include "camera/supervisor/linkChoice.h"
#include "detector/store/IpInfo.h"

#include <QtTest>

/// Which of the PC's addresses and which of the two configured cameras make the link.
class tst_linkChoice : public QObject
{
    Q_OBJECT

private slots:
    void prefix_data();
    void prefix();
    void link_data();
    void link();
};

void tst_linkChoice::prefix_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("prefix");

    QTest::newRow("address") << QStringLiteral("192.168.88.10") << QStringLiteral("192.168.88.");
    QTest::newRow("no dot") << QStringLiteral("camera") << QString();
    QTest::newRow("empty") << QString() << QString();
}

void tst_linkChoice::prefix()
{
    QFETCH(QString, address);
    QTEST(subnetPrefix(address), "prefix");
}

void tst_linkChoice::link_data()
{
    QTest::addColumn<QString>("usb");
    QTest::addColumn<QString>("wifi");
    QTest::addColumn<QString>("pcOnWifi");
    QTest::addColumn<QString>("pcOnUsb");
    QTest::addColumn<QString>("pcAddress");
    QTest::addColumn<QString>("cameraAddress");
    QTest::addColumn<QString>("name");

    const auto row = [](const char *name, const char *usb, const char *wifi, const char *pcOnWifi, const char *pcOnUsb,
                        const char *pcAddress, const char *cameraAddress, const char *linkName) {
        QTest::newRow(name) << QString::fromLatin1(usb) << QString::fromLatin1(wifi) << QString::fromLatin1(pcOnWifi)
                            << QString::fromLatin1(pcOnUsb) << QString::fromLatin1(pcAddress)
                            << QString::fromLatin1(cameraAddress) << QString::fromLatin1(linkName);
    };
    row("WiFi only", "192.168.77.10", "192.168.88.10", "192.168.88.2", "", "192.168.88.2", "192.168.88.10", "wifi");
    row("USB only", "192.168.77.10", "192.168.88.10", "", "192.168.77.3", "192.168.77.3", "192.168.77.10", "usb");
    row("both: the WiFi", "192.168.77.10", "192.168.88.10", "192.168.88.2", "192.168.77.3", "192.168.88.2",
        "192.168.88.10", "wifi");
    row("neither", "192.168.77.10", "192.168.88.10", "", "", "", "", "");
    row("USB not configured", "", "192.168.88.10", "192.168.88.2", "", "192.168.88.2", "192.168.88.10", "wifi");
    row("WiFi not configured", "192.168.77.10", "", "", "192.168.77.3", "192.168.77.3", "192.168.77.10", "usb");
    row("both on one network: the address of the USB", "192.168.88.11", "192.168.88.10", "192.168.88.2", "192.168.88.2",
        "192.168.88.2", "192.168.88.11", "usb");
    // Prefixes are looked for anywhere in the address.
    row("USB prefix inside the WiFi address", "2.168.88.9", "192.168.88.10", "192.168.88.2", "", "192.168.88.2",
        "2.168.88.9", "usb");
}

void tst_linkChoice::link()
{
    QFETCH(QString, usb);
    QFETCH(QString, wifi);
    QFETCH(QString, pcOnWifi);
    QFETCH(QString, pcOnUsb);
    const Link link = chooseLink(usb, wifi, {pcOnWifi, pcOnUsb, {}, {}});
    QTEST(link.pcAddress, "pcAddress");
    QTEST(link.cameraAddress, "cameraAddress");
    QTEST(link.name, "name");
}

QTEST_APPLESS_MAIN(tst_linkChoice)
#include "tst_linkChoice.moc"
