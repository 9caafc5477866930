#include "detector/checks/firmwareText.h"

#include <QtTest>

class tst_firmwareText : public QObject
{
    Q_OBJECT

private slots:
    void firmware_data();
    void firmware();
};

void tst_firmwareText::firmware_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("firmware");

    const auto row = [](const char *name, const char *output, const char *expected) {
        QTest::newRow(name) << QStringLiteral("cat /etc/kest_version\r\n") + QString::fromUtf8(output)
                            << QString::fromUtf8(expected);
    };
    row("the version alone", "1.2.3\r\n~ # ", "1.2.3");
    row("among other labels", "product: gimbal camera\r\nfirmware: 01.00.0312\r\nbuild: 2024-03-12\r\n~ # ",
        "01.00.0312");
    row("with an equals sign", "FW_VERSION=1.2.3\r\n~ # ", "1.2.3");
    row("with a label of two words", "Firmware version:1.2.3\r\n~ # ", "1.2.3");
    row("version before firmware", "version: 7\r\nfirmware = 1.2.3\r\n~ # ", "1.2.3");
    row("version alone", "product: camera\r\nversion: 7\r\n~ # ", "7");
    row("no label that is known", "product: camera\r\nbuild: 7\r\n~ # ", "product: camera");
    row("without a line break at its end", "1.2.3~ # ", "1.2.3");
    row("a prompt that asks for the cursor", "1.2.3\r\n~ # \x1b[6n", "1.2.3");
    row("behind empty lines, among blanks", "\r\n\r\n\t 1.2.3 \r\nbuilt: 2026-11-21\r\n~ # ", "1.2.3");
    row("a colon inside the version", "1.2.3 (12:30)\r\n~ # ", "1.2.3 (12:30)");
    row("a label without a value", "firmware:\r\nversion: 7\r\n~ # ", "7");
    row("Chinese", "固件 1.2.3\r\n~ # ", "固件 1.2.3");
    row("an empty file", "~ # ", "");
    row("no such file", "cat: can't open '/etc/kest_version': No such file or directory\r\n~ # ", "");
    row("no such command", "-sh: cat: not found\r\n~ # ", "");
    QTest::newRow("no reply") << QString() << QString();
    QTest::newRow("the echo alone") << QStringLiteral("cat /etc/kest_version") << QString();
}

void tst_firmwareText::firmware()
{
    QFETCH(const QString, reply);
    QTEST(firmwareText(reply), "firmware");
}

QTEST_APPLESS_MAIN(tst_firmwareText)
#include "tst_firmwareText.moc"
