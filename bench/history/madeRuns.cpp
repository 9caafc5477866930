#include "history/madeRuns.h"

#include "record/itemKeys.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace {
using std::chrono::microseconds;

/// A number that looks random and is always the same for the same run and purpose.
std::uint64_t drawn(qint64 run, int purpose)
{
    auto value = static_cast<std::uint64_t>(run) * 0x9E3779B97F4A7C15U +
                 static_cast<std::uint64_t>(purpose) * 0xD1B54A32D192ED03U;
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31U);
}

/// From 0 to 1.
double share(qint64 run, int purpose)
{
    return static_cast<double>(drawn(run, purpose) >> 11U) / 9007199254740992.0;
}

/// Around 0, with a standard deviation of 1.
double bell(qint64 run, int purpose)
{
    double sum = -6;
    for (int i = 0; i < 12; ++i) {
        sum += share(run, purpose * 16 + i + 1000);
    }
    return sum;
}

bool hasTest(const ItemKey &key)
{
    constexpr std::array named = {"battery.charging", "fan.run",      "button.press",
                                  "lens.status",      "audio.signal", "pcba.lensDriver"};
    return std::none_of(named.begin(), named.end(),
                        [&key](const char *name) { return QLatin1String(name) == QLatin1String(key.key); });
}

Measurement limited(Measurement measurement, std::optional<double> least, std::optional<double> most)
{
    measurement.limit = Limit{least, most, {}};
    return measurement;
}

double rounded(double value)
{
    return std::round(value * 1000) / 1000;
}

QList<Measurement> measurementsOf(const QString &key, qint64 number)
{
    if (key == QLatin1String("battery.info") || key == QLatin1String("battery.status")) {
        return {limited(measured(Field::BatteryVoltage, rounded(3.95 + 0.08 * bell(number, 1))), 3.6, 4.35),
                measured(Field::BatteryCurrent, -250 + std::round(20 * bell(number, 2))),
                limited(measured(Field::BatteryTemperature, rounded(27 + 3 * bell(number, 3))), {}, 45),
                measured(Field::BatteryCharge, std::round(60 + 30 * share(number, 4)))};
    }
    if (key == QLatin1String("gimbal.motion")) {
        return {limited(measured(Field::GimbalRollTime, rounded(6 + 0.4 * bell(number, 5))), {}, 9),
                measured(Field::GimbalPitchTime, rounded(7 + 0.5 * bell(number, 6)))};
    }
    if (key == QLatin1String("tfcard.use")) {
        return {limited(measured(Field::CardTotal, 30436.5), 30000, {})};
    }
    if (key.startsWith(QLatin1String("log."))) {
        return {measured(Field::FileSize, 1000 + std::round(9000 * share(number, 7)))};
    }
    return {measured(Field::CameraStatusWord, QStringLiteral("0x000000000008001a"))};
}

/// The item in which the run fails: some fail more often than others.
int failingItem(qint64 number, int items)
{
    const double where = share(number, 8);
    return static_cast<int>(where * where * where * items);
}
} // namespace

RunRecord madeRun(qint64 number, qint64 of)
{
    constexpr qint64 yearMs = 365LL * 24 * 60 * 60 * 1000;
    const QDateTime last(QDate(2026, 11, 20), QTime(23, 0), Qt::OffsetFromUTC, 3600);
    // A camera comes back within days.
    const qint64 spread = std::max<qint64>(of / 50, 1);
    const std::uint64_t camera =
        drawn((number + static_cast<qint64>(drawn(number, 15) % static_cast<std::uint64_t>(spread))) / 10, 9);
    const bool fails = share(number, 10) < 0.05;

    RunRecord run;
    const std::array<std::uint64_t, 2> idParts = {drawn(number, 11), drawn(number, 12)};
    run.id = QUuid::createUuidV5(QUuid(), QByteArray(reinterpret_cast<const char *>(idParts.data()), sizeof(idParts)));
    run.programVersion = QStringLiteral("1.0.3");
    run.station = {QStringLiteral("line-2-%1").arg(drawn(number, 13) % 3), QStringLiteral("Hall 3")};
    run.operatorName = QStringLiteral("王芳");
    run.begin = last.addMSecs((number + 1 - of) * (yearMs / of));
    run.duration = microseconds(1200345 + static_cast<qint64>(drawn(number, 14) % 900000));
    run.end = run.begin.addMSecs(run.duration.count() / 1000);
    run.batch = QStringLiteral("2026-%1").arg(run.begin.date().weekNumber(), 2, 10, QLatin1Char('0'));
    run.serial = QStringLiteral("KC%1").arg(camera % 100000000, 8, 10, QLatin1Char('0'));
    const QByteArray mac =
        QByteArray::number(static_cast<qulonglong>(camera & 0xFFFFFFU), 16).rightJustified(6, '0').toUpper();
    run.camera.mac = QStringLiteral("60:60:1F:%1:%2:%3")
                         .arg(QString::fromLatin1(mac.mid(0, 2)), QString::fromLatin1(mac.mid(2, 2)),
                              QString::fromLatin1(mac.mid(4, 2)));
    run.camera.wifiName = QStringLiteral("Camera-%1").arg(QString::fromLatin1(mac.right(4)));
    run.camera.link = QStringLiteral("wifi");
    run.camera.firmware = run.begin.date() < QDate(2026, 6, 1) ? QStringLiteral("1.2.3") : QStringLiteral("1.2.4");
    run.outcome = fails ? Outcome::Failed : Outcome::Passed;

    const auto tested = static_cast<int>(std::count_if(itemKeys.begin(), itemKeys.end(), hasTest));
    const int failing = fails ? failingItem(number, tested) : -1;
    int place = 0;
    for (const ComponentKey &key : componentKeys) {
        ComponentRecord component;
        component.id = key.id;
        component.key = QString::fromLatin1(key.key);
        component.name = component.key;
        component.verdict = Verdict::Passed;
        component.duration = microseconds(100900);
        for (const ItemKey &itemKey : itemKeys) {
            if (itemKey.component != key.id || !hasTest(itemKey)) {
                continue;
            }
            ItemRecord item;
            item.key = QString::fromLatin1(itemKey.key);
            item.number = itemKey.number;
            item.name = item.key;
            item.verdict = place == failing ? Verdict::Failed : Verdict::Passed;
            item.message = place == failing ? QStringLiteral("相机电池通信NG\n") : QStringLiteral("相机电池通信OK\n");
            item.duration = microseconds(812);
            item.request = RequestEnd{};
            item.measurements = measurementsOf(item.key, number);
            if (place == failing) {
                component.verdict = Verdict::Failed;
                run.reason = item.key;
            }
            component.items.append(item);
            ++place;
        }
        if (!component.items.isEmpty()) {
            run.plan.append({component.id, component.key, itemNumbers(component.id)});
            run.components.append(component);
        }
    }
    return run;
}
