#include "record/itemKeys.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

/// The keys of components and items. Records that lie in archives hold them: none of them may ever change. That there
/// are no others than docs/record.md lists is what tst_recordDocument looks at.
class tst_itemKeys : public QObject
{
    Q_OBJECT

private slots:
    void component_data();
    void component();
    void item_data();
    void item();
    void hasNoOthers();
    void areUniqueAndWellFormed();
};

void tst_itemKeys::component_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("key");
    QTest::newRow("camera") << 0 << "camera";
    QTest::newRow("gimbal") << 1 << "gimbal";
    QTest::newRow("battery") << 2 << "battery";
    QTest::newRow("fan") << 3 << "fan";
    QTest::newRow("keys") << 4 << "button";
    QTest::newRow("lens") << 5 << "lens";
    QTest::newRow("TF card") << 6 << "tfcard";
    QTest::newRow("audio") << 7 << "audio";
    QTest::newRow("main board") << 8 << "pcba";
    QTest::newRow("log") << 9 << "log";
}

void tst_itemKeys::component()
{
    QFETCH(int, id);
    QFETCH(QString, key);
    QCOMPARE(componentKey(id), key);
    QCOMPARE(componentOfKey(key), std::optional<int>(id));
}

void tst_itemKeys::item_data()
{
    QTest::addColumn<int>("component");
    QTest::addColumn<int>("number");
    const auto row = [](const char *key, int component, int number) { QTest::newRow(key) << component << number; };
    row("camera.video", 0, 0);
    row("camera.factory", 0, 1);
    row("gimbal.main.link", 1, 0);
    row("gimbal.roll.link", 1, 1);
    row("gimbal.pitch.link", 1, 2);
    row("gimbal.yaw.link", 1, 3);
    row("gimbal.motion", 1, 4);
    row("battery.link", 2, 0);
    row("battery.status", 2, 1);
    row("battery.info", 2, 2);
    row("battery.charging", 2, 3);
    row("fan.run", 3, 0);
    row("button.press", 4, 0);
    row("lens.link", 5, 0);
    row("lens.status", 5, 1);
    row("tfcard.use", 6, 0);
    row("tfcard.speed", 6, 1);
    row("audio.signal", 7, 0);
    row("pcba.lensDriver", 8, 0);
    row("pcba.sensor", 8, 1);
    row("pcba.gimbalMain", 8, 2);
    row("pcba.gimbalRoll", 8, 3);
    row("pcba.gimbalPitch", 8, 4);
    row("pcba.gimbalYaw", 8, 5);
    row("pcba.battery", 8, 6);
    row("log.log", 9, 0);
    row("log.private", 9, 1);
    row("log.dmesg", 9, 2);
    row("log.pstree", 9, 3);
    row("log.ifconfig", 9, 4);
    row("log.version", 9, 5);
    row("log.netconf", 9, 6);
    row("log.scan", 9, 7);
    row("log.card", 9, 8);
    row("log.sharefs", 9, 9);
}

void tst_itemKeys::item()
{
    QFETCH(int, component);
    QFETCH(int, number);
    QVERIFY(itemNumbers(component).contains(number));
    QCOMPARE(itemKey(component, number), QString::fromLatin1(QTest::currentDataTag()));
}

void tst_itemKeys::hasNoOthers()
{
    QCOMPARE(componentKey(-1), QString());
    QCOMPARE(componentKey(10), QString());
    QVERIFY(!componentOfKey(QStringLiteral("Camera")));
    QVERIFY(!componentOfKey(QString()));
    QCOMPARE(itemKey(0, 99), QString());
    QCOMPARE(itemKey(10, 0), QString());
    QCOMPARE(itemNumbers(10), QList<int>());
}

void tst_itemKeys::areUniqueAndWellFormed()
{
    static const QRegularExpression form(QStringLiteral("^[a-z]+(\\.[a-zA-Z]+)+$"));
    QSet<QString> seen;
    for (const ItemKey &item : itemKeys) {
        const QString key = QString::fromLatin1(item.key);
        QVERIFY2(form.match(key).hasMatch(), item.key);
        QVERIFY2(key.startsWith(componentKey(item.component) + QLatin1Char('.')), item.key);
        QVERIFY2(!seen.contains(key), item.key);
        seen.insert(key);
    }
}

QTEST_GUILESS_MAIN(tst_itemKeys)
#include "tst_itemKeys.moc"
