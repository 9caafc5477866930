#include "record/RunRecord.h"

#include <array>
#include <cstddef>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <tuple>

namespace {
bool sameTime(const QDateTime &left, const QDateTime &right)
{
    return left == right && left.offsetFromUtc() == right.offsetFromUtc();
}
} // namespace

Verdict verdictOfCode(int code)
{
    constexpr std::array byCode = {Verdict::Passed, Verdict::Failed, Verdict::Warning};
    return code >= 0 && static_cast<std::size_t>(code) < byCode.size() ? byCode.at(static_cast<std::size_t>(code))
                                                                       : Verdict::NotTested;
}

QString timeText(const QDateTime &time)
{
    // A time of the local kind would be written without its offset.
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

std::optional<CollectedFile> describeFile(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) {
        return {};
    }
    return CollectedFile{QFileInfo(path).fileName(), file.pos(), QString::fromLatin1(hash.result().toHex())};
}

bool operator==(const RequestEnd &left, const RequestEnd &right)
{
    return std::tie(left.kind, left.code, left.attempts) == std::tie(right.kind, right.code, right.attempts);
}

bool operator==(const CollectedFile &left, const CollectedFile &right)
{
    return std::tie(left.name, left.size, left.sha256) == std::tie(right.name, right.size, right.sha256);
}

bool operator==(const ItemRecord &left, const ItemRecord &right)
{
    const auto all = [](const ItemRecord &item) {
        return std::tie(item.key, item.number, item.name, item.verdict, item.message, item.detail, item.duration,
                        item.request, item.measurements, item.files);
    };
    return all(left) == all(right);
}

bool operator==(const ComponentRecord &left, const ComponentRecord &right)
{
    const auto all = [](const ComponentRecord &component) {
        return std::tie(component.id, component.key, component.name, component.verdict, component.duration,
                        component.items);
    };
    return all(left) == all(right);
}

bool operator==(const PlannedComponent &left, const PlannedComponent &right)
{
    return std::tie(left.id, left.key, left.items) == std::tie(right.id, right.key, right.items);
}

bool operator==(const StationRecord &left, const StationRecord &right)
{
    return std::tie(left.name, left.location) == std::tie(right.name, right.location);
}

bool operator==(const CameraRecord &left, const CameraRecord &right)
{
    const auto all = [](const CameraRecord &camera) {
        return std::tie(camera.mac, camera.wifiName, camera.link, camera.firmware);
    };
    return all(left) == all(right);
}

bool operator==(const RunRecord &left, const RunRecord &right)
{
    const auto all = [](const RunRecord &run) {
        return std::tie(run.id, run.programVersion, run.station, run.operatorName, run.batch, run.serial, run.camera,
                        run.duration, run.plan, run.outcome, run.reason, run.components);
    };
    return all(left) == all(right) && sameTime(left.begin, right.begin) && sameTime(left.end, right.end);
}
