// The record of a run of every item that has a test, built and rendered as JSON, and the same content handed to Qt's
// JSON document as it is.

#include "record/itemKeys.h"
#include "record/recordJson.h"
#include "record/recordJunit.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <QJsonDocument>
#include <QVariant>

namespace {
using std::chrono::microseconds;

/// The battery's report: the longest of all.
QList<Measurement> batteryMeasurements()
{
    return {measured(Field::BatterySubId, 4),
            measured(Field::BatteryVersionInfo, 1),
            measured(Field::BatterySoftwareVersion, QStringLiteral("1.2.3.4")),
            measured(Field::BatteryHardwareVersion, QStringLiteral("1.0.0.2")),
            measured(Field::BatteryCharge, 87),
            measured(Field::BatteryVoltage, 4.012),
            measured(Field::BatteryCurrent, -250),
            measured(Field::BatteryTemperature, 25.34),
            measured(Field::BatteryTimeToEmpty, 125),
            measured(Field::BatteryTimeToFull, 31),
            measured(Field::BatteryDeviceType, 7),
            measured(Field::BatteryFirmwareInfo, 513),
            measured(Field::BatteryHardwareInfo, 2),
            measured(Field::BatteryCycles, 41),
            measured(Field::BatteryCapacity, 1480),
            measured(Field::BatteryManufacturer, 21),
            measured(Field::BatteryWarningBits, 0),
            measured(Field::BatteryCharger, 1),
            measured(Field::BatteryMicrophone, 0),
            measured(Field::BatteryPogoPin, 0)};
}

ItemRecord item(const ItemKey &key)
{
    ItemRecord record;
    record.key = QString::fromLatin1(key.key);
    record.number = key.number;
    record.name = QStringLiteral("Battery connection");
    record.verdict = Verdict::Passed;
    record.message = QStringLiteral("相机电池通信OK\n");
    record.duration = microseconds(812);
    record.request = RequestEnd{};
    if (record.key == QLatin1String("battery.info")) {
        record.detail = QString(400, QLatin1Char('-'));
        record.measurements = batteryMeasurements();
    } else if (record.key.startsWith(QLatin1String("log."))) {
        record.measurements = {measured(Field::FileSize, 123456), measured(Field::FileTime, 0.31)};
        record.files = {{QStringLiteral("dmesg.txt"), 123456, QString(64, QLatin1Char('a'))}};
    } else {
        record.measurements = {measured(Field::CameraStatusWord, QStringLiteral("0x000000000008001a"))};
        record.measurements[0].limit = Limit{{}, {}, {QStringLiteral("0x000000000008001a")}};
    }
    return record;
}

bool hasTest(const ItemKey &key)
{
    constexpr std::array named = {"battery.charging", "fan.run",      "button.press",
                                  "lens.status",      "audio.signal", "pcba.lensDriver"};
    return std::none_of(named.begin(), named.end(),
                        [&key](const char *name) { return QLatin1String(name) == QLatin1String(key.key); });
}

RunRecord build()
{
    RunRecord run;
    run.id = QUuid::createUuid();
    run.programVersion = QStringLiteral("1.0.3");
    run.station = {QStringLiteral("line-2-left"), QStringLiteral("Hall 3")};
    run.camera = {QStringLiteral("60:60:1F:0A:5F:2A"), QStringLiteral("Camera-5F2A"), QStringLiteral("wifi"),
                  QStringLiteral("1.2.3")};
    run.begin = QDateTime::currentDateTime();
    run.end = run.begin.addMSecs(1200);
    run.duration = microseconds(1200345);
    run.outcome = Outcome::Passed;
    for (const ComponentKey &component : componentKeys) {
        ComponentRecord record;
        record.id = component.id;
        record.key = QString::fromLatin1(component.key);
        record.name = QStringLiteral("Battery");
        record.verdict = Verdict::Passed;
        record.duration = microseconds(100900);
        for (const ItemKey &key : itemKeys) {
            if (key.component == component.id && hasTest(key)) {
                record.items.append(item(key));
            }
        }
        run.plan.append({component.id, record.key, itemNumbers(component.id)});
        run.components.append(record);
    }
    return run;
}

void record(benchmark::State &state)
{
    for ([[maybe_unused]] const auto &turn : state) {
        benchmark::DoNotOptimize(toJson(build()));
    }
}

void qtDocument(benchmark::State &state)
{
    const QVariant content = QJsonDocument::fromJson(toJson(build())).toVariant();
    for ([[maybe_unused]] const auto &turn : state) {
        benchmark::DoNotOptimize(QJsonDocument::fromVariant(content).toJson());
    }
}

void junit(benchmark::State &state)
{
    for ([[maybe_unused]] const auto &turn : state) {
        benchmark::DoNotOptimize(toJunit(build()));
    }
}

BENCHMARK(record);
BENCHMARK(qtDocument);
BENCHMARK(junit);
} // namespace
