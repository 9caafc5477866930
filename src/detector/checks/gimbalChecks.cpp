#include "detector/checks/gimbalChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/verdict.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <QElapsedTimer>
#include <QObject>

namespace {
constexpr std::array itemTable = {
    CheckItem{0, QT_TRANSLATE_NOOP("QObject", "Main connection"), checkGimbalMainNet},
    CheckItem{1, QT_TRANSLATE_NOOP("QObject", "ROLL connection"), checkGimbalRollNet},
    CheckItem{2, QT_TRANSLATE_NOOP("QObject", "PITCH connection"), checkGimbalPitchNet},
    CheckItem{3, QT_TRANSLATE_NOOP("QObject", "YAW connection"), checkGimbalYawchNet},
    CheckItem{4, QT_TRANSLATE_NOOP("QObject", "Cation test"), checkGimbalStutter},
};

constexpr StatusBit mainLink = {
    1,
    QT_TRANSLATE_NOOP("QObject", "获取云台主控通信状态失败\n"),
    QT_TRANSLATE_NOOP("QObject", "云台主控通信失败\n"),
    QT_TRANSLATE_NOOP("QObject", "云台主控通信OK\n"),
};

struct AxisLink
{
    std::size_t flagByte; ///< in `GimbalDeviceInfo::bytes`
    const char *queryFailed;
    const char *linked;
    const char *notLinked;
};

constexpr AxisLink rollLink = {
    4,
    QT_TRANSLATE_NOOP("QObject", "获取Roll轴通信状态失败\n"),
    QT_TRANSLATE_NOOP("QObject", "Roll轴通信OK\n"),
    QT_TRANSLATE_NOOP("QObject", "Roll轴通信异常\n"),
};
constexpr AxisLink pitchLink = {
    8,
    QT_TRANSLATE_NOOP("QObject", "获取Pitch轴通信状态失败\n"),
    QT_TRANSLATE_NOOP("QObject", "Pitch轴通信OK\n"),
    QT_TRANSLATE_NOOP("QObject", "Pitch轴通信异常\n"),
};
constexpr AxisLink yawLink = {
    12,
    QT_TRANSLATE_NOOP("QObject", "获取Yaw轴通信状态失败\n"),
    QT_TRANSLATE_NOOP("QObject", "Yaw轴通信OK\n"),
    QT_TRANSLATE_NOOP("QObject", "Yaw轴通信异常\n"),
};

QString checkAxisLink(const AxisLink &axis, int *verdict, QString &detail)
{
    detail.clear();
    GimbalDeviceInfo info;
    if (Camera::Get()->getGimbalDeviceInfo(&info) != requestResult::success) {
        *verdict = verdict::failed;
        return QObject::tr(axis.queryFailed);
    }
    const bool linked = info.bytes.at(axis.flagByte) != 0;
    *verdict = linked ? verdict::ok : verdict::failed;
    return QObject::tr(linked ? axis.linked : axis.notLinked);
}

constexpr int axisLimitMs = 21000;
constexpr int pollIntervalMs = 1000;
constexpr int toleratedFaults = 3;
constexpr std::size_t stateByte = 7; ///< in `GimbalState::bytes`

struct AxisMotion
{
    unsigned char mode; ///< starts the axis's factory movement
    std::uint8_t faultState;
    std::uint8_t doneState;
    const char *passed;
    const char *timedOut;
    const char *failed;
};

constexpr std::array axisMotions = {
    AxisMotion{1, 6, 11, QT_TRANSLATE_NOOP("QObject", "Roll轴运动检测OK\n"),
               QT_TRANSLATE_NOOP("QObject", "Roll轴运动检测超时\n"),
               QT_TRANSLATE_NOOP("QObject", "Roll轴运动检测NG\n")},
    AxisMotion{2, 7, 12, QT_TRANSLATE_NOOP("QObject", "Pitch轴运动检测OK\n"),
               QT_TRANSLATE_NOOP("QObject", "Pitch轴运动检测超时\n"),
               QT_TRANSLATE_NOOP("QObject", "Pitch轴运动检测NG\n")},
    // A failed yaw axis is reported in the words of the pitch axis: that is its text in every log.
    AxisMotion{3, 8, 13, QT_TRANSLATE_NOOP("QObject", "Yaw轴运动检测OK\n"),
               QT_TRANSLATE_NOOP("QObject", "Yaw轴运动检测超时\n"),
               QT_TRANSLATE_NOOP("QObject", "Pitch轴运动检测NG\n")},
};

/// Sightings of each axis's fault state since it last tripped. Only the runner's thread gets here.
std::array<int, axisMotions.size()> faultSightings{};

/// Drives one axis and waits for the outcome; true if the axis passed. Appends the outcome's texts to `text`.
bool testAxis(const AxisMotion &axis, int &faults, const MotionClock &clock, QString &text)
{
    // Whether the movement has begun shows in the states that follow.
    Camera::Get()->setGimbalFactoryCheck(axis.mode);
    const qint64 start = clock.elapsedMs();
    while (!KestDetectorFace::Get()->stopRequested()) {
        if (clock.elapsedMs() - start >= axisLimitMs) {
            text += QObject::tr(axis.timedOut) + QObject::tr(axis.failed);
            return false;
        }
        GimbalState state;
        if (Camera::Get()->fetchGimbalState(&state) == requestResult::success) {
            const std::uint8_t current = state.bytes.at(stateByte);
            if (current == axis.doneState) {
                text += QObject::tr(axis.passed);
                return true;
            }
            if (current == axis.faultState && ++faults > toleratedFaults) {
                faults = 0;
                text += QObject::tr(axis.failed);
                return false;
            }
        }
        clock.sleep(pollIntervalMs);
    }
    return false;
}
} // namespace

QString checkGimbal(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::gimbal, verdict::failed, itemTable, verdict, items);
}

QString checkGimbalMainNet(int *verdict, QString &detail)
{
    return checkStatusBit(mainLink, verdict, detail);
}

QString checkGimbalRollNet(int *verdict, QString &detail)
{
    return checkAxisLink(rollLink, verdict, detail);
}

QString checkGimbalPitchNet(int *verdict, QString &detail)
{
    return checkAxisLink(pitchLink, verdict, detail);
}

QString checkGimbalYawchNet(int *verdict, QString &detail)
{
    return checkAxisLink(yawLink, verdict, detail);
}

QString checkGimbalStutter(int *verdict, QString &detail)
{
    QElapsedTimer timer;
    timer.start();
    return checkGimbalStutter(verdict, detail,
                              {[&timer] { return timer.elapsed(); }, [](int milliseconds) { mSleep(milliseconds); }});
}

QString checkGimbalStutter(int *verdict, QString &detail, const MotionClock &clock)
{
    detail.clear();
    QString text;
    std::size_t passed = 0;
    for (std::size_t i = 0; i < axisMotions.size() && !KestDetectorFace::Get()->stopRequested(); ++i) {
        passed += testAxis(axisMotions.at(i), faultSightings.at(i), clock, text) ? 1U : 0U;
    }
    *verdict = passed == axisMotions.size() ? verdict::ok : verdict::failed;
    return text;
}
