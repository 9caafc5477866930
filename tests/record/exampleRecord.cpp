#include "exampleRecord.h"

using std::chrono::microseconds;

namespace {
ItemRecord item(const QString &key, int number, const QString &name, const QString &message, int duration)
{
    ItemRecord record;
    record.key = key;
    record.number = number;
    record.name = name;
    record.verdict = Verdict::Passed;
    record.message = message;
    record.duration = microseconds(duration);
    return record;
}

ComponentRecord component(int id, const QString &key, const QString &name, Verdict verdict, int duration)
{
    ComponentRecord record;
    record.id = id;
    record.key = key;
    record.name = name;
    record.verdict = verdict;
    record.duration = microseconds(duration);
    return record;
}
} // namespace

RunRecord exampleRecord()
{
    RunRecord run;
    run.id = QUuid(QStringLiteral("{0b5f6d0e-8f0a-4c57-9c1e-3a2f5d7b9e10}"));
    run.programVersion = QStringLiteral("1.0.3");
    run.station = {QStringLiteral("line-2-left"), QStringLiteral("Hall 3")};
    run.operatorName = QStringLiteral("王芳");
    run.batch = QStringLiteral("2026-47");
    run.serial = QStringLiteral("KC0012345");
    run.camera = {QStringLiteral("60:60:1F:0A:5F:2A"), QStringLiteral("Camera-5F2A"), QStringLiteral("wifi"),
                  QStringLiteral("1.2.3")};
    run.begin = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 0, 250), Qt::OffsetFromUTC, 3600);
    run.end = QDateTime(QDate(2026, 11, 21), QTime(9, 30, 0, 731), Qt::OffsetFromUTC, 3600);
    run.duration = microseconds(481250);
    run.plan = {
        {0, QStringLiteral("camera"), {0}}, {2, QStringLiteral("battery"), {0, 2}}, {9, QStringLiteral("log"), {5}}};
    run.outcome = Outcome::Failed;
    run.reason = QStringLiteral("battery.info");

    ComponentRecord camera = component(0, QStringLiteral("camera"), QStringLiteral("Camera"), Verdict::Passed, 950);
    camera.items.append(
        item(QStringLiteral("camera.video"), 0, QStringLiteral("Video"), QStringLiteral("相机视频流OK\n"), 812));
    camera.items[0].request = RequestEnd{};
    camera.items[0].measurements = {measured(Field::CameraStatusWord, QStringLiteral("0x000000000008001a"))};

    ComponentRecord battery = component(2, QStringLiteral("battery"), QStringLiteral("Battery"), Verdict::Failed, 2600);
    battery.items.append(item(QStringLiteral("battery.link"), 0, QStringLiteral("Battery connection"),
                              QStringLiteral("相机电池通信OK\n"), 790));
    battery.items[0].request = RequestEnd{RequestEnd::Kind::Answered, 0, 2};
    battery.items.append(item(QStringLiteral("battery.info"), 2, QStringLiteral("Battery Info"),
                              QStringLiteral("获取电池信息成功\n"), 1204));
    ItemRecord &info = battery.items[1];
    info.verdict = Verdict::Failed;
    info.detail = QStringLiteral("++++++++++\nvoltage:4.36V\n----------\n\nbattery.voltage: 4.36 V (3.6..4.35)\n");
    info.request = RequestEnd{};
    info.measurements = {measured(Field::BatteryVoltage, 4.36), measured(Field::BatteryCurrent, -250),
                         measured(Field::BatteryTemperature, 25.34),
                         measured(Field::BatterySoftwareVersion, QStringLiteral("1.2.3.4"))};
    info.measurements[0].limit = Limit{3.6, 4.35, {}};
    info.measurements[2].limit = Limit{{}, 45, {}};

    ComponentRecord log = component(9, QStringLiteral("log"), QStringLiteral("Log"), Verdict::Passed, 31000);
    log.items.append(item(QStringLiteral("log.version"), 5, QStringLiteral("kest_version"), {}, 30500));
    log.items[0].measurements = {measured(Field::Firmware, QStringLiteral("1.2.3"))};
    log.items[0].measurements[0].limit = Limit{{}, {}, {QStringLiteral("1.2.3"), QStringLiteral("1.2.4")}};
    log.items[0].files = {{QStringLiteral("kest_verison.txt"), 41,
                           QStringLiteral("c0535e4be2b79ffd93291305436bf889314e4a3faec05ecffcbb7df31ad9e51a")}};

    run.components = {camera, battery, log};
    return run;
}

RunRecord recordWithText(const QString &text)
{
    RunRecord run = exampleRecord();
    for (QString *place : {&run.station.name, &run.station.location, &run.operatorName, &run.batch, &run.serial,
                           &run.camera.mac, &run.camera.wifiName, &run.camera.firmware}) {
        *place = text;
    }
    run.reason = QLatin1Char('!') + text;
    ItemRecord &info = run.components[1].items[1];
    info.name = text;
    info.message = text + QLatin1Char('\n');
    info.detail = text;
    info.measurements[3].value = text;
    info.measurements[3].limit = Limit{{}, {}, {text, QStringLiteral("1.2.3.4")}};
    return run;
}
