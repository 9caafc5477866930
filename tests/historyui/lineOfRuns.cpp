#include "lineOfRuns.h"

#include "history/store/Store.h"

#include <algorithm>

namespace {
constexpr int failingOf = 5;
constexpr int stoppedOf = 50;

ItemRecord item(const QString &key, int number, const QString &message)
{
    ItemRecord record;
    record.key = key;
    record.number = number;
    record.name = key;
    record.verdict = Verdict::Passed;
    record.message = message;
    record.duration = std::chrono::milliseconds(20);
    return record;
}

ComponentRecord component(int id, const QString &key, const QString &name)
{
    ComponentRecord record;
    record.id = id;
    record.key = key;
    record.name = name;
    record.verdict = Verdict::Passed;
    record.duration = std::chrono::milliseconds(40);
    return record;
}
} // namespace

RunRecord runOfLine(int number, int cameras)
{
    const bool fails = number % failingOf == 4;
    const bool isStopped = number % stoppedOf == 1;
    const int camera = number % cameras;
    RunRecord run;
    run.id = QUuid::createUuidV5(QUuid(), QString::number(number));
    run.programVersion = QStringLiteral("1.0.3");
    run.station = {number % 2 == 0 ? QStringLiteral("左线") : QStringLiteral("右线"), QStringLiteral("三号厂房")};
    run.operatorName = QStringLiteral("王芳");
    run.batch = number < 100 ? QStringLiteral("A") : QStringLiteral("B");
    run.serial = QStringLiteral("KC%1").arg(camera, 6, 10, QLatin1Char('0'));
    run.camera = {QStringLiteral("60:60:1F:%1:%2:%3")
                      .arg(camera >> 16, 2, 16, QLatin1Char('0'))
                      .arg((camera >> 8) & 0xFF, 2, 16, QLatin1Char('0'))
                      .arg(camera & 0xFF, 2, 16, QLatin1Char('0'))
                      .toUpper(),
                  QStringLiteral("Camera"), QStringLiteral("wifi"), QStringLiteral("1.2.3")};
    constexpr int secondsApart = 60;
    run.begin = QDateTime(QDate(2026, 11, 2), QTime(8, 0), Qt::UTC).addSecs(qint64{number} * secondsApart);
    run.duration = std::chrono::milliseconds(2000 + number % 7 * 100);
    run.end = run.begin.addMSecs(std::chrono::duration_cast<std::chrono::milliseconds>(run.duration).count());
    run.outcome = isStopped ? Outcome::Stopped : fails ? Outcome::Failed : Outcome::Passed;
    run.reason = isStopped ? QStringLiteral("stopped by the operator")
                 : fails   ? QStringLiteral("battery.info")
                           : QString();

    ComponentRecord first = component(0, QStringLiteral("camera"), QStringLiteral("Camera"));
    first.items.append(item(QStringLiteral("camera.video"), 0, QStringLiteral("相机视频流OK\n")));
    ComponentRecord battery = component(2, QStringLiteral("battery"), QStringLiteral("Battery"));
    battery.items.append(item(QStringLiteral("battery.link"), 0, QStringLiteral("相机电池通信OK\n")));
    battery.items.append(item(QStringLiteral("battery.info"), 2, QStringLiteral("获取电池信息成功\n电池已充满\n")));
    ItemRecord &info = battery.items.last();
    info.measurements = {measured(Field::BatteryTemperature, 25 + number % 5),
                         measured(Field::BatteryVoltage, fails ? 4.4 : (380 + number % 10) / 100.0)};
    info.measurements[1].limit = Limit{3.6, 4.35, {}};
    info.detail = QStringLiteral("电池电压\n");
    if (fails) {
        info.verdict = Verdict::Failed;
        battery.verdict = Verdict::Failed;
    }
    run.components = {first, battery};
    return run;
}

QString storeLine(const QString &path, int from, int to, int cameras)
{
    StoreError error;
    const std::unique_ptr<Store> store = Store::open(StoreAddress::file(path), {}, &error);
    if (!store) {
        return error.text;
    }
    constexpr int atOnce = 1000;
    for (int begin = from; begin < to; begin += atOnce) {
        QVector<RunRows> rows;
        for (int number = begin; number < std::min(begin + atOnce, to); ++number) {
            rows.append(runRows(runOfLine(number, cameras)));
        }
        if (!store->insert(rows, false)) {
            return store->error().text;
        }
    }
    return {};
}
