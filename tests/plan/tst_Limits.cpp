#include "plan/Limits.h"

#include <QTest>

Q_DECLARE_METATYPE(Limit)
Q_DECLARE_METATYPE(Measurement)

namespace {
const QString file = QStringLiteral("option.ini");

Limit range(std::optional<double> least, std::optional<double> most)
{
    return {least, most, {}};
}

Limit texts(const QStringList &oneOf)
{
    return {{}, {}, oneOf};
}
} // namespace

/// Limits of measurements, from the settings to the verdict.
class tst_Limits : public QObject
{
    Q_OBJECT

private slots:
    void readsALine_data();
    void readsALine();
    void refusesALine_data();
    void refusesALine();
    void readsNothingInPart();
    void judges_data();
    void judges();
    void leavesOthersAlone();
};

void tst_Limits::readsALine_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<Limit>("limit");
    const auto row = [](const char *title, const char *key, const char *value, const Limit &limit) {
        QTest::newRow(title) << key << value << limit;
    };
    row("both bounds", "battery.voltage", "3.6..4.35", range(3.6, 4.35));
    row("an upper bound", "battery.temperature", "..45", range({}, 45));
    row("a lower bound", "card.total", "30000..", range(30000, {}));
    row("negative bounds", "battery.current", "-500..-0.5", range(-500, -0.5));
    row("one value", "card.state", "2..2", range(2, 2));
    row("an exponent", "file.size", "..2e8", range({}, 2e8));
    row("blanks", "battery.charge", " 20 .. 80 ", range(20, 80));
    row("a point at the end", "battery.charge", "20...5e2", range(20, 50));
    row("one text", "firmware", "1.2.3", texts({QStringLiteral("1.2.3")}));
    row("some texts", "firmware", "1.2.3| 1.2.4 |rc 5",
        texts({QStringLiteral("1.2.3"), QStringLiteral("1.2.4"), QStringLiteral("rc 5")}));
    row("a text that looks like a range", "camera.statusWord", "1..2", texts({QStringLiteral("1..2")}));
}

void tst_Limits::readsALine()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(Limit, limit);
    const Limits limits = readLimits({{key, value}}, file);
    QCOMPARE(limits.errors, QStringList());
    QCOMPARE(limits.byName.keys(), QStringList{key});
    QVERIFY(limits.byName.value(key) == limit);
}

void tst_Limits::refusesALine_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *title, const char *key, const char *value, const char *reason) {
        QTest::newRow(title) << key << value
                             << QStringLiteral("option.ini: Limits/%1=\"%2\": %3").arg(key, value, reason);
    };
    const char *noRange = "not a range such as 3.6..4.35, ..45 or 30000..";
    row("unknown name", "battery.volts", "3..4", "there is no such measurement");
    row("a name in another case", "Firmware", "1", "there is no such measurement");
    row("no name", "", "1..2", "there is no such measurement");
    row("nothing", "battery.voltage", "", noRange);
    row("a number", "battery.voltage", "3.6", noRange);
    row("one point", "battery.voltage", "3.4.5", noRange);
    row("a dash", "battery.voltage", "3.6-4.35", noRange);
    row("no number", "battery.voltage", "low..high", noRange);
    row("a decimal comma", "battery.voltage", "3,6..4,35", noRange);
    row("with its unit", "battery.voltage", "3.6V..4.35V", noRange);
    row("two ranges", "battery.voltage", "1..2..3", noRange);
    row("not a number", "battery.voltage", "nan..", noRange);
    row("infinite", "battery.voltage", "..inf", noRange);
    row("beyond all numbers", "battery.voltage", "..1e999", noRange);
    row("hexadecimal", "battery.voltage", "0x1..0x2", noRange);
    row("no bound", "battery.voltage", "..", "a range needs a bound");
    row("bounds the wrong way round", "battery.voltage", "4.35..3.6", "the lower bound is above the upper one");
    row("an empty text", "firmware", "", "not a list of texts such as 1.2.3|1.2.4");
    row("an empty text among others", "firmware", "1.2.3||1.2.4", "not a list of texts such as 1.2.3|1.2.4");
}

void tst_Limits::refusesALine()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    const Limits limits = readLimits({{key, value}}, file);
    QTEST(limits.errors.join(QLatin1Char('\n')), "error");
    QVERIFY(limits.byName.isEmpty());
}

void tst_Limits::readsNothingInPart()
{
    const Limits limits = readLimits({{QStringLiteral("battery.voltage"), QStringLiteral("3.6..")},
                                      {QStringLiteral("weather"), QStringLiteral("fine")},
                                      {QStringLiteral("firmware"), QString()}},
                                     file);
    QVERIFY(limits.byName.isEmpty());
    QCOMPARE(limits.errors.size(), 2);
}

void tst_Limits::judges_data()
{
    QTest::addColumn<QString>("limit");
    QTest::addColumn<Measurement>("measurement");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *title, const char *limit, const Measurement &measurement, const char *line) {
        QTest::newRow(title) << limit << measurement << line;
    };
    row("inside", "3.6..4.35", measured(Field::BatteryVoltage, 4), "");
    row("on the lower bound", "3.6..4.35", measured(Field::BatteryVoltage, 3600 / 1000.0), "");
    row("on the upper bound", "3.6..4.35", measured(Field::BatteryVoltage, 4350 / 1000.0), "");
    row("a millivolt below", "3.6..4.35", measured(Field::BatteryVoltage, 3599 / 1000.0),
        "battery.voltage: 3.599 V (3.6..4.35)");
    row("a millivolt above", "3.6..4.35", measured(Field::BatteryVoltage, 4351 / 1000.0),
        "battery.voltage: 4.351 V (3.6..4.35)");
    row("too hot", "..45", measured(Field::BatteryTemperature, 4501 / 100.0), "battery.temperature: 45.01 °C (..45)");
    row("too small", "30000..", measured(Field::CardTotal, 29999.5), "card.total: 29999.5 MiB (30000..)");
    row("a count has no unit", "..500", measured(Field::BatteryCycles, 501), "battery.cycles: 501 (..500)");
    row("a good version", "1.2.3|1.2.4", measured(Field::Firmware, QStringLiteral("1.2.4")), "");
    row("another version", "1.2.3|1.2.4", measured(Field::Firmware, QStringLiteral("1.2.5")),
        "firmware: 1.2.5 (1.2.3|1.2.4)");
    row("a version that is a pattern of the line", "1.2.3", measured(Field::Firmware, QStringLiteral("%1%4")),
        "firmware: %1%4 (1.2.3)");
}

void tst_Limits::judges()
{
    QFETCH(QString, limit);
    QFETCH(Measurement, measurement);
    QFETCH(QString, line);
    const Limits limits = readLimits({{measurement.name, limit}}, file);
    QCOMPARE(limits.errors, QStringList());
    QList<Measurement> measurements = {measurement};
    QCOMPARE(applyLimits(limits.byName, &measurements), line.isEmpty() ? QStringList() : QStringList{line});
    QVERIFY(measurements.constFirst().limit == limits.byName.value(measurement.name));
    QVERIFY(measurements.constFirst().value == measurement.value);
}

void tst_Limits::leavesOthersAlone()
{
    const Limits limits = readLimits({{QStringLiteral("battery.voltage"), QStringLiteral("3.6..4.35")}}, file);
    const QList<Measurement> before = {measured(Field::BatteryCharge, 0), measured(Field::BatteryCurrent, -1000)};
    QList<Measurement> measurements = before;
    QCOMPARE(applyLimits(limits.byName, &measurements), QStringList());
    QVERIFY(measurements == before);
    measurements = {measured(Field::BatteryVoltage, 9), measured(Field::BatteryCharge, 0),
                    measured(Field::BatteryVoltage, 1)};
    QCOMPARE(applyLimits(limits.byName, &measurements),
             QStringList({QStringLiteral("battery.voltage: 9 V (3.6..4.35)"),
                          QStringLiteral("battery.voltage: 1 V (3.6..4.35)")}));
}

QTEST_GUILESS_MAIN(tst_Limits)
#include "tst_Limits.moc"
