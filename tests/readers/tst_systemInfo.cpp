#include "detector/readers/systemInfo.h"
#include "detector/store/KestDetectorFace.h"
#include "support/onWorkerThread.h"
#include "support/ScriptedShell.h"

#include <QTest>

/// The readers of the camera's WiFi and MAC address, and the parsers behind them.
class tst_systemInfo : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void wifiInfo_data();
    void wifiInfo();
    void macAddress_data();
    void macAddress();
    void readsWifiOverTheShell();
    void failedWifiCallIsReported();
    void readsMacOverTheShell();
    void fileWithoutMacAddressEmptiesTheFacade();
    void failedMacCallIsReportedAndLeavesTheFacade();

private:
    ScriptedShell m_shell;
};

void tst_systemInfo::init()
{
    m_shell.reset();
    KestDetectorFace *face = KestDetectorFace::Get();
    Settings settings;
    settings.hostApdUrl = QStringLiteral("/etc/hostapd.conf");
    settings.macAddressUrl = QStringLiteral("/sys/class/net/wlan0/address");
    face->setSettings(settings);
    face->macAddress = QStringLiteral("00:00:00:00:00:00");
}

void tst_systemInfo::wifiInfo_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("ssid");
    QTest::addColumn<QString>("password");
    QTest::newRow("echo, both lines, prompt")
        << "cat /etc/hostapd.conf\r\ninterface=wlan0\r\nssid=Cam1\r\nwpa_passphrase=12345678\r\n~ # "
        << "Cam1"
        << "12345678";
    QTest::newRow("passphrase with an equals sign is skipped") << "ssid=Cam1\r\nwpa_passphrase=abc=def\r\n"
                                                               << "Cam1"
                                                               << "";
    QTest::newRow("line without an equals sign is skipped") << "ssid\r\nssid=Cam1\r\n"
                                                            << "Cam1"
                                                            << "";
    QTest::newRow("any key that holds ssid counts, the last before the passphrase wins")
        << "ignore_broadcast_ssid=0\r\nssid=Cam1\r\nwpa_passphrase=12345678\r\nssid=Cam2\r\n"
        << "Cam1"
        << "12345678";
    QTest::newRow("the scan stops once both are met")
        << "wpa_passphrase=12345678\r\nbssid=0\r\nssid=Cam1\r\nwpa_passphrase=87654321"
        << "0"
        << "12345678";
    QTest::newRow("an empty value has been met") << "ssid=\r\nwpa_passphrase=12345678\r\nssid=Cam1\r\n"
                                                 << ""
                                                 << "12345678";
    QTest::newRow("one line is both") << "ssid_wpa_passphrase=x\r\nssid=Cam1\r\n"
                                      << "x"
                                      << "x";
    QTest::newRow("upper case does not count") << "SSID=Cam1\r\nWPA_PASSPHRASE=x\r\n"
                                               << ""
                                               << "";
    QTest::newRow("plain line feeds do not end a line") << "ssid=Cam1\nwpa_passphrase=x\n"
                                                        << ""
                                                        << "";
    QTest::newRow("blanks are kept") << "ssid= Cam 1 \r\n"
                                     << " Cam 1 "
                                     << "";
    QTest::newRow("empty reply") << ""
                                 << ""
                                 << "";
}

void tst_systemInfo::wifiInfo()
{
    QFETCH(QString, reply);
    const WifiInfo info = parseWifiInfo(reply);
    QTEST(info.ssid, "ssid");
    QTEST(info.password, "password");
}

void tst_systemInfo::macAddress_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("mac");
    QTest::newRow("lower case becomes upper case") << "cat address\r\naa:bb:cc:dd:ee:ff\r\n~ # "
                                                   << "AA:BB:CC:DD:EE:FF";
    QTest::newRow("the first of two") << "01:02:03:04:05:06\r\n11:12:13:14:15:16\r\n"
                                      << "01:02:03:04:05:06";
    QTest::newRow("trailing blanks do not match") << "aa:bb:cc:dd:ee:ff  \r\n"
                                                  << "";
    QTest::newRow("trailing line feed does not match") << "aa:bb:cc:dd:ee:ff\n\r\n"
                                                       << "";
    QTest::newRow("a longer one does not match") << "aa:bb:cc:dd:ee:ff:00\r\n"
                                                 << "";
    QTest::newRow("no hexadecimal digit") << "ag:bb:cc:dd:ee:ff\r\n"
                                          << "";
    QTest::newRow("other digits do not match") << "aa:bb:cc:dd:ee:f٣\r\n"
                                               << "";
    QTest::newRow("nothing that names another folder") << "../../../../..//.\r\n"
                                                       << "";
    QTest::newRow("empty reply") << ""
                                 << "";
}

void tst_systemInfo::macAddress()
{
    QFETCH(QString, reply);
    QTEST(parseMacAddress(reply), "mac");
}

void tst_systemInfo::readsWifiOverTheShell()
{
    m_shell.answer(QStringLiteral("cat /etc/hostapd.conf\n"),
                   QStringLiteral("ssid=Cam1\r\nwpa_passphrase=12345678\r\n~ # "));
    int verdict = 5;
    QString ssid = QStringLiteral("earlier");
    QString password = QStringLiteral("earlier");
    const QString text = onWorkerThread([&] { return getSysWifiInfo(&verdict, ssid, password); });
    QCOMPARE(text, QString());
    QCOMPARE(verdict, 0);
    QCOMPARE(ssid, QStringLiteral("Cam1"));
    QCOMPARE(password, QStringLiteral("12345678"));
    QCOMPARE(m_shell.calls(), QStringList{QStringLiteral("shell 3 cat /etc/hostapd.conf")});
}

void tst_systemInfo::failedWifiCallIsReported()
{
    int verdict = 5;
    QString ssid = QStringLiteral("earlier");
    QString password = QStringLiteral("earlier");
    const QString text = onWorkerThread([&] { return getSysWifiInfo(&verdict, ssid, password); });
    QCOMPARE(text, QStringLiteral("获取Wifi信息失败."));
    QCOMPARE(verdict, -1);
    QCOMPARE(ssid, QString());
    QCOMPARE(password, QString());
}

void tst_systemInfo::readsMacOverTheShell()
{
    m_shell.answer(QStringLiteral("cat /sys/class/net/wlan0/address\n"), QStringLiteral("aa:bb:cc:dd:ee:ff\r\n~ # "));
    int verdict = 5;
    QString mac;
    const QString text = onWorkerThread([&] { return getSysMacAddress(&verdict, mac); });
    QCOMPARE(text, QString());
    QCOMPARE(verdict, 0);
    QCOMPARE(mac, QStringLiteral("AA:BB:CC:DD:EE:FF"));
    QCOMPARE(KestDetectorFace::Get()->macAddress.get(), QStringLiteral("AA:BB:CC:DD:EE:FF"));
    QCOMPARE(m_shell.calls(), QStringList{QStringLiteral("shell 3 cat /sys/class/net/wlan0/address")});
}

void tst_systemInfo::fileWithoutMacAddressEmptiesTheFacade()
{
    m_shell.answer(QStringLiteral("cat /sys/class/net/wlan0/address\n"), QStringLiteral("No such file\r\n~ # "));
    int verdict = 5;
    QString mac = QStringLiteral("earlier");
    const QString text = onWorkerThread([&] { return getSysMacAddress(&verdict, mac); });
    QCOMPARE(text, QString());
    QCOMPARE(verdict, 0);
    QCOMPARE(mac, QString());
    QCOMPARE(KestDetectorFace::Get()->macAddress.get(), QString());
}

void tst_systemInfo::failedMacCallIsReportedAndLeavesTheFacade()
{
    int verdict = 5;
    QString mac = QStringLiteral("earlier");
    const QString text = onWorkerThread([&] { return getSysMacAddress(&verdict, mac); });
    QCOMPARE(text, QStringLiteral("获取Mac地址失败."));
    QCOMPARE(verdict, -1);
    QCOMPARE(mac, QString());
    QCOMPARE(KestDetectorFace::Get()->macAddress.get(), QStringLiteral("00:00:00:00:00:00"));
}

QTEST_GUILESS_MAIN(tst_systemInfo)
#include "tst_systemInfo.moc"
