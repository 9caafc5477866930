#include "detector/store/checkHelpers.h"

#include "detector/store/KestDetectorFace.h"
#include "detector/store/serveEvents.h"
#include "detector/store/translatedEntry.h"
#include "record/itemKeys.h"

#include <array>
#include <QDebug>
#include <QDir>
#include <QElapsedTimer>
#include <QObject>

namespace {
/// How often a wait looks whether it is to end early.
constexpr int stopPollMs = 25;

constexpr std::array componentNames = {
    QT_TRANSLATE_NOOP("QObject", "Camera"),  QT_TRANSLATE_NOOP("QObject", "Gimbal"),
    QT_TRANSLATE_NOOP("QObject", "Battery"), QT_TRANSLATE_NOOP("QObject", "Fan"),
    QT_TRANSLATE_NOOP("QObject", "Button"),  QT_TRANSLATE_NOOP("QObject", "Lens"),
    QT_TRANSLATE_NOOP("QObject", "TF Card"), QT_TRANSLATE_NOOP("QObject", "Audio"),
    QT_TRANSLATE_NOOP("QObject", "PCBA"),    QT_TRANSLATE_NOOP("QObject", "Log"),
};
static_assert(componentNames.size() == componentKeys.size());

constexpr std::array batteryWarnings = {
    QT_TRANSLATE_NOOP("QObject", "电池组电压过低"),
    QT_TRANSLATE_NOOP("QObject", "电池组电压过高"),
    QT_TRANSLATE_NOOP("QObject", "充电过程中电流超过阈值 1"),
    QT_TRANSLATE_NOOP("QObject", "充电过程中电流超过阈值 2"),
    QT_TRANSLATE_NOOP("QObject", "放电过程中电流超过阈值 1"),
    QT_TRANSLATE_NOOP("QObject", "放电过程中电流超过阈值 2"),
    "",
    QT_TRANSLATE_NOOP("QObject", "放电过载"),
    "",
    QT_TRANSLATE_NOOP("QObject", "充电过程中出现短路现象"),
    "",
    QT_TRANSLATE_NOOP("QObject", "放电过程中出现短路现象"),
    QT_TRANSLATE_NOOP("QObject", "充电过程中温度过高"),
    QT_TRANSLATE_NOOP("QObject", "放电过程中温度过高"),
    QT_TRANSLATE_NOOP("QObject", "电池出现补偿型电压过低现象"),
    "",
    QT_TRANSLATE_NOOP("QObject", "FET 温度过高"),
    "",
    QT_TRANSLATE_NOOP("QObject", "预充电过程超时"),
    QT_TRANSLATE_NOOP("QObject", "延时预充电超时"),
    QT_TRANSLATE_NOOP("QObject", "充电过程超时"),
    QT_TRANSLATE_NOOP("QObject", "延时充电超时"),
    QT_TRANSLATE_NOOP("QObject", "电池过充"),
    QT_TRANSLATE_NOOP("QObject", "电池过充电流型警告"),
    QT_TRANSLATE_NOOP("QObject", "电池过充电压型警告"),
    QT_TRANSLATE_NOOP("QObject", "电池过预充电电流型警告"),
    QT_TRANSLATE_NOOP("QObject", "充电过程中温度过低"),
    QT_TRANSLATE_NOOP("QObject", "放电过程中温度过低"),
};
static_assert(batteryWarnings.size() == 28);
} // namespace

QString getComponent(int index)
{
    return translatedEntry(componentNames, index);
}

QList<int> getCameraStatusList(quint64 status)
{
    if (status == 0) {
        return {};
    }
    const Settings &settings = KestDetectorFace::Get()->settings();
    // The mask is the complement of the expected word, so a bit that differs from what is expected comes out as 0.
    quint64 asExpected = status ^ settings.cameraStatusMask;
    QList<int> positions;
    for (int position = 0; position < settings.statusBitList.size(); ++position) {
        if ((asExpected & 1U) == 0 && settings.statusBitList.at(position)) {
            positions.append(position);
        }
        asExpected >>= 1;
    }
    qDebug() << "listStatusExist" << positions.isEmpty() << positions.size();
    return positions;
}

QString getBatteryWar(unsigned int warningBits)
{
    QString text = QStringLiteral("状态良好");
    int setBits = 0;
    for (quint32 rest = warningBits; rest != 0; rest >>= 1) {
        if ((rest & 1U) != 0) {
            text += translatedEntry(batteryWarnings, setBits++);
        }
    }
    return text;
}

int mSleep(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    const KestDetectorFace *face = KestDetectorFace::Get();
    const auto stopped = face->run.stopSign();
    serveEventsUntil(
        milliseconds, [&] { return face->closing() || stopped(); }, stopPollMs);
    return static_cast<int>(clock.elapsed());
}

bool path_create(const QString &path)
{
    return QDir(path).exists() || QDir().mkpath(path);
}
