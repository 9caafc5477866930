#include "history/query/RunFilter.h"

#include <QTest>

/// How a MAC address is understood that somebody types.
class tst_RunFilter : public QObject
{
    Q_OBJECT

private slots:
    void macs_data();
    void macs();
};

void tst_RunFilter::macs_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("mac");
    const auto row = [](const char *title, const char *text, const char *mac) {
        QTest::newRow(title) << QString::fromUtf8(text) << QString::fromUtf8(mac);
    };
    row("as it is stored", "60:60:1F:0A:5F:2A", "60:60:1F:0A:5F:2A");
    row("small letters", "60:60:1f:0a:5f:2a", "60:60:1F:0A:5F:2A");
    row("without colons", "60601F0A5F2A", "60:60:1F:0A:5F:2A");
    row("with hyphens", "60-60-1F-0A-5F-2A", "60:60:1F:0A:5F:2A");
    row("blanks around", " 60601F0A5F2A ", "60:60:1F:0A:5F:2A");
    row("beginning", "60601", "60:60:1");
    row("beginning of whole bytes", "6060", "60:60");
    row("beginning with its colon", "60:60:", "60:60");
    row("one digit", "6", "6");
    row("too long", "60601F0A5F2A0", "60601F0A5F2A0");
    row("no digits", "camera", "CAMERA");
    row("empty", "", "");
}

void tst_RunFilter::macs()
{
    QFETCH(QString, text);
    QFETCH(QString, mac);
    QCOMPARE(macAsStored(text), mac);
}

QTEST_APPLESS_MAIN(tst_RunFilter)
#include "tst_RunFilter.moc"
