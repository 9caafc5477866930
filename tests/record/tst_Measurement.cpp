#include "record/Measurement.h"

#include <limits>
#include <QTest>

Q_DECLARE_METATYPE(Limit)
Q_DECLARE_METATYPE(MeasuredValue)

namespace {
Limit range(std::optional<double> least, std::optional<double> most)
{
    return {least, most, {}};
}

Limit texts(const QStringList &oneOf)
{
    return {{}, {}, oneOf};
}
} // namespace

/// Measurements, the names of their fields, and the limits that they are held against.
class tst_Measurement : public QObject
{
    Q_OBJECT

private slots:
    void carriesNameAndUnitOfItsField_data();
    void carriesNameAndUnitOfItsField();
    void carriesAText();
    void findsAFieldByItsName_data();
    void findsAFieldByItsName();
    void comparesAllItsParts();
    void limitAdmits_data();
    void limitAdmits();
};

void tst_Measurement::carriesNameAndUnitOfItsField_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("unit");
    const auto row = [](const char *title, Field field, const char *name, const char *unit) {
        QTest::newRow(title) << static_cast<int>(field) << name << unit;
    };
    row("a flag", Field::CameraMtfSigned, "camera.mtf.signed", "");
    row("voltage", Field::BatteryVoltage, "battery.voltage", "V");
    row("current", Field::BatteryCurrent, "battery.current", "mA");
    row("temperature", Field::BatteryTemperature, "battery.temperature", "°C");
    row("charge", Field::BatteryCharge, "battery.charge", "%");
    row("time", Field::BatteryTimeToFull, "battery.timeToFull", "min");
    row("capacity", Field::BatteryCapacity, "battery.capacity", "mAh");
    row("cycles are a count", Field::BatteryCycles, "battery.cycles", "");
    row("size of the card", Field::CardTotal, "card.total", "MiB");
    row("time of an axis", Field::GimbalYawTime, "gimbal.yaw.time", "s");
    row("the last one", Field::FileTime, "file.time", "s");
}

void tst_Measurement::carriesNameAndUnitOfItsField()
{
    QFETCH(int, field);
    const Measurement measurement = measured(static_cast<Field>(field), 3.85);
    QTEST(measurement.name, "name");
    QTEST(measurement.unit, "unit");
    QCOMPARE(std::get<double>(measurement.value), 3.85);
    QVERIFY(!measurement.limit);
}

void tst_Measurement::carriesAText()
{
    const Measurement measurement = measured(Field::Firmware, QStringLiteral("1.2.3"));
    QCOMPARE(measurement.name, QStringLiteral("firmware"));
    QCOMPARE(std::get<QString>(measurement.value), QStringLiteral("1.2.3"));
}

void tst_Measurement::findsAFieldByItsName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("found");
    QTest::newRow("the first one") << "camera.statusWord" << true;
    QTest::newRow("one in the middle") << "battery.voltage" << true;
    QTest::newRow("the last one") << "file.time" << true;
    QTest::newRow("another case") << "Battery.Voltage" << false;
    QTest::newRow("only its beginning") << "battery" << false;
    QTest::newRow("with a blank") << "battery.voltage " << false;
    QTest::newRow("empty") << "" << false;
}

void tst_Measurement::findsAFieldByItsName()
{
    QFETCH(QString, name);
    QFETCH(bool, found);
    const FieldInfo *info = findField(name);
    QCOMPARE(info != nullptr, found);
    if (info != nullptr) {
        QCOMPARE(QString::fromLatin1(info->name), name);
        QCOMPARE(QString::fromLatin1(fieldInfo(info->field).name), name);
    }
}

void tst_Measurement::comparesAllItsParts()
{
    const Measurement one = measured(Field::BatteryVoltage, 3.85);
    QVERIFY(one == measured(Field::BatteryVoltage, 3.85));
    QVERIFY(one != measured(Field::BatteryVoltage, 3.86));
    QVERIFY(one != measured(Field::BatteryVoltage, QStringLiteral("3.85")));
    QVERIFY(one != measured(Field::BatteryCharge, 3.85));
    Measurement other = one;
    other.unit = QStringLiteral("mV");
    QVERIFY(one != other);
    other = one;
    other.limit = range(3.6, {});
    QVERIFY(one != other);
    Measurement third = one;
    third.limit = range(3.6, 4.35);
    QVERIFY(other != third);
    third.limit = range(3.6, {});
    QVERIFY(other == third);
    third.limit->oneOf.append(QStringLiteral("1"));
    QVERIFY(other != third);
}

void tst_Measurement::limitAdmits_data()
{
    QTest::addColumn<Limit>("limit");
    QTest::addColumn<MeasuredValue>("value");
    QTest::addColumn<bool>("admitted");
    const auto row = [](const char *title, const Limit &limit, const MeasuredValue &value, bool admitted) {
        QTest::newRow(title) << limit << value << admitted;
    };
    const Limit both = range(3.6, 4.35);
    row("inside", both, 4.0, true);
    row("on the lower bound", both, 3.6, true);
    row("on the upper bound", both, 4.35, true);
    row("a millivolt below", both, 3.599, false);
    row("a millivolt above", both, 4.351, false);
    row("on the lower bound, from millivolts", both, 3600 / 1000.0, true);
    row("on the upper bound, from millivolts", both, 4350 / 1000.0, true);
    row("no lower bound", range({}, 45), -40.0, true);
    row("no lower bound, above", range({}, 45), 45.01, false);
    row("no upper bound", range(30000, {}), 1e12, true);
    row("no upper bound, below", range(30000, {}), 29999.9, false);
    row("one value only", range(2, 2), 2.0, true);
    row("negative bounds", range(-500, -100), -250.0, true);
    row("no number at all", both, std::numeric_limits<double>::quiet_NaN(), false);
    row("a text where a number is due", both, QStringLiteral("4.0"), false);
    const Limit versions = texts({QStringLiteral("1.2.3"), QStringLiteral("1.2.4")});
    row("the first text", versions, QStringLiteral("1.2.3"), true);
    row("the last text", versions, QStringLiteral("1.2.4"), true);
    row("another text", versions, QStringLiteral("1.2.5"), false);
    row("more than the text", versions, QStringLiteral("1.2.3 "), false);
    row("an empty text", versions, QString(), false);
    row("a number where a text is due", versions, 1.0, false);
}

void tst_Measurement::limitAdmits()
{
    QFETCH(Limit, limit);
    QFETCH(MeasuredValue, value);
    QTEST(limit.admits(value), "admitted");
}

QTEST_GUILESS_MAIN(tst_Measurement)
#include "tst_Measurement.moc"
