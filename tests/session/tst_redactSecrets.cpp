#include "telnet/session/redactSecrets.h"

#include <QElapsedTimer>
#include <QtTest>

/// What the diagnostic log shows of a text with secrets in it.
class tst_redactSecrets : public QObject
{
    Q_OBJECT

private slots:
    void redacts_data();
    void redacts();
    void longTextsTakeLittleTime_data();
    void longTextsTakeLittleTime();
};

void tst_redactSecrets::redacts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("known");
    QTest::addColumn<QString>("redacted");
    const auto row = [](const char *name, const char *text, const QStringList &known, const char *redacted) {
        QTest::newRow(name) << QString::fromUtf8(text) << known << QString::fromUtf8(redacted);
    };
    row("nothing secret", "mount\r\n/dev/mmcblk0p1 on /mnt/sd\r\n~ # ", {"hunter2"},
        "mount\r\n/dev/mmcblk0p1 on /mnt/sd\r\n~ # ");
    row("passphrase of an access point", "ssid=Cam1\r\nwpa_passphrase=12345678\r\nchannel=6\r\n", {},
        "ssid=Cam1\r\nwpa_passphrase=••••••••\r\nchannel=6\r\n");
    row("passphrase with an equals sign", "wpa_passphrase=abc=def\n~ # ", {}, "wpa_passphrase=••••••••\n~ # ");
    row("passphrase at the end of what has come so far", "ssid=Cam1\r\nwpa_passphrase=12", {},
        "ssid=Cam1\r\nwpa_passphrase=••••••••");
    row("its name alone so far", "ssid=Cam1\r\nwpa_passphrase", {}, "ssid=Cam1\r\nwpa_passphrase");
    row("no passphrase", "wpa_passphrase=\r\nssid=Cam1\r\n", {}, "wpa_passphrase=\r\nssid=Cam1\r\n");
    row("other names of secrets", "wpa_psk=00ff\nsae_password=a b\nwep_key0=1\nauth_server_shared_secret=x\npasswd=y",
        {},
        "wpa_psk=••••••••\nsae_password=••••••••\nwep_key0=••••••••\n"
        "auth_server_shared_secret=••••••••\npasswd=••••••••");
    row("a secret's name as a value", "note=the passphrase\nssid=Cam1", {}, "note=the passphrase\nssid=Cam1");
    row("a prompt is no secret", "Password: ", {"hunter2"}, "Password: ");
    row("known secret, echoed", "hunter2\r\n~ # ", {"hunter2"}, "••••••••\r\n~ # ");
    row("known secret, wherever it stands", "a hunter2 b:hunter2\n", {"hunter2"}, "a •••••••• b:••••••••\n");
    row("several known ones", "one two three", {"one", "three"}, "•••••••• two ••••••••");
    row("an empty one is none", "text", {QString()}, "text");
}

void tst_redactSecrets::redacts()
{
    QFETCH(QString, text);
    QFETCH(QStringList, known);
    QFETCH(QString, redacted);
    QCOMPARE(redactSecrets(text, known), redacted);
}

void tst_redactSecrets::longTextsTakeLittleTime_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("redacted");
    QTest::newRow("names without values, in one line") << QStringLiteral("password ") << QStringLiteral("password ");
    QTest::newRow("a secret in each line") << QStringLiteral("psk=x\n") << QString::fromUtf8("psk=••••••••\n");
    QTest::newRow("a known secret in each line") << QStringLiteral("hunter2\n") << QString::fromUtf8("••••••••\n");
}

void tst_redactSecrets::longTextsTakeLittleTime()
{
    QFETCH(QString, part);
    QFETCH(QString, redacted);
    constexpr int parts = 1 << 17;
    const QString text = part.repeated(parts);
    QElapsedTimer clock;
    clock.start();
    const QString result = redactSecrets(text, {QStringLiteral("hunter2")});
    QVERIFY(result == redacted.repeated(parts));
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
}

QTEST_GUILESS_MAIN(tst_redactSecrets)
#include "tst_redactSecrets.moc"
