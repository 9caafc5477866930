#include "detector/checks/gimbalChecks.h"

#include "camera/client/Camera.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/noteRequest.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/componentId.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <QElapsedTimer>
#include <QObject>

namespace {
constexpr StatusBit mainLink = {
    1,
    {QT_TRANSLATE_NOOP("QObject", "获取云台主控通信状态失败\n"), QT_TRANSLATE_NOOP("QObject", "云台主控通信失败\n"),
     QT_TRANSLATE_NOOP("QObject", "云台主控通信OK\n")},
};

struct AxisLink
{
    std::size_t flagByte; ///< in `GimbalDeviceInfo::bytes`
    Field field;
    AnswerTexts texts;
};

constexpr AxisLink rollLink = {
    4,
    Field::GimbalRollFlag,
    {QT_TRANSLATE_NOOP("QObject", "获取Roll轴通信状态失败\n"), QT_TRANSLATE_NOOP("QObject", "Roll轴通信异常\n"),
     QT_TRANSLATE_NOOP("QObject", "Roll轴通信OK\n")},
};
constexpr AxisLink pitchLink = {
    8,
    Field::GimbalPitchFlag,
    {QT_TRANSLATE_NOOP("QObject", "获取Pitch轴通信状态失败\n"), QT_TRANSLATE_NOOP("QObject", "Pitch轴通信异常\n"),
     QT_TRANSLATE_NOOP("QObject", "Pitch轴通信OK\n")},
};
constexpr AxisLink yawLink = {
    12,
    Field::GimbalYawFlag,
    {QT_TRANSLATE_NOOP("QObject", "获取Yaw轴通信状态失败\n"), QT_TRANSLATE_NOOP("QObject", "Yaw轴通信异常\n"),
     QT_TRANSLATE_NOOP("QObject", "Yaw轴通信OK\n")},
};

template <const AxisLink &axis>
void checkAxisLink(CheckItemLog &item)
{
    GimbalDeviceInfo info;
    const int result = noteRequest(item, Camera::Get()->getGimbalDeviceInfo(&info));
    const std::uint8_t flag = info.bytes.at(axis.flagByte);
    if (result == requestResult::success) {
        item.measurements.append(measured(axis.field, flag));
    }
    judgeAnswer(item, result, flag != 0, axis.texts, verdict::failed);
}

constexpr int axisLimitMs = 21000;
constexpr int pollIntervalMs = 1000;
constexpr int toleratedFaults = 3;
constexpr std::size_t stateByte = 7; ///< in `GimbalState::bytes`

/// A text for translation in the context "QObject".
struct Text
{
    const char *text;
    const char *sense; ///< null unless the same text has another meaning elsewhere
};

struct AxisMotion
{
    unsigned char mode; ///< starts the axis's factory movement
    std::uint8_t faultState;
    std::uint8_t doneState;
    Field time;
    Field state;
    const char *passed;
    const char *timedOut;
    Text failed;
};

constexpr std::array axisMotions = {
    AxisMotion{1,
               6,
               11,
               Field::GimbalRollTime,
               Field::GimbalRollState,
               QT_TRANSLATE_NOOP("QObject", "Roll轴运动检测OK\n"),
               QT_TRANSLATE_NOOP("QObject", "Roll轴运动检测超时\n"),
               {QT_TRANSLATE_NOOP("QObject", "Roll轴运动检测NG\n"), nullptr}},
    AxisMotion{2,
               7,
               12,
               Field::GimbalPitchTime,
               Field::GimbalPitchState,
               QT_TRANSLATE_NOOP("QObject", "Pitch轴运动检测OK\n"),
               QT_TRANSLATE_NOOP("QObject", "Pitch轴运动检测超时\n"),
               {QT_TRANSLATE_NOOP("QObject", "Pitch轴运动检测NG\n"), nullptr}},
    // A failed yaw axis is reported in the words of the pitch axis: that is its text in every log, but in no
    // translation.
    AxisMotion{3, 8, 13, Field::GimbalYawTime, Field::GimbalYawState, QT_TRANSLATE_NOOP("QObject", "Yaw轴运动检测OK\n"),
               QT_TRANSLATE_NOOP("QObject", "Yaw轴运动检测超时\n"),
               QT_TRANSLATE_NOOP3("QObject", "Pitch轴运动检测NG\n", "of the yaw axis")},
};

/// Sightings of each axis's fault state since it last tripped. Only the runner's thread gets here.
std::array<int, axisMotions.size()> faultSightings{};

/// Drives one axis until its outcome; true if the axis passed. Appends the outcome's texts and what was seen to `item`.
bool testAxis(const AxisMotion &axis, int &faults, const MotionClock &clock, CheckItemLog &item)
{
    // Whether the movement has begun shows in the states that follow.
    Camera::Get()->setGimbalFactoryCheck(axis.mode);
    const qint64 start = clock.elapsedMs();
    int pollResult = requestResult::success;
    std::optional<std::uint8_t> state;
    const auto end = [&](bool passed, const QString &texts) {
        item.message += texts;
        noteRequest(item, pollResult); // the polls before are made good by it
        item.measurements.append(measured(axis.time, static_cast<double>(clock.elapsedMs() - start) / 1000));
        if (state) {
            item.measurements.append(measured(axis.state, *state));
        }
        return passed;
    };
    while (!KestDetectorFace::Get()->runIsCutShort()) {
        if (clock.elapsedMs() - start >= axisLimitMs) {
            return end(false, QObject::tr(axis.timedOut) + QObject::tr(axis.failed.text, axis.failed.sense));
        }
        GimbalState reply;
        pollResult = Camera::Get()->fetchGimbalState(&reply);
        if (pollResult == requestResult::success) {
            state = reply.bytes.at(stateByte);
            if (*state == axis.doneState) {
                return end(true, QObject::tr(axis.passed));
            }
            if (*state == axis.faultState && ++faults > toleratedFaults) {
                faults = 0;
                return end(false, QObject::tr(axis.failed.text, axis.failed.sense));
            }
        }
        clock.sleep(pollIntervalMs);
    }
    return false;
}

void checkMotion(CheckItemLog &item)
{
    QElapsedTimer timer;
    timer.start();
    checkGimbalStutter(item, {[&timer] { return timer.elapsed(); }, [](int milliseconds) { mSleep(milliseconds); }});
}

constexpr std::array itemTable = {
    CheckItem{itemId::gimbal::mainLink, QT_TRANSLATE_NOOP("QObject", "Main connection"), checkStatusBit<mainLink>},
    CheckItem{itemId::gimbal::rollLink, QT_TRANSLATE_NOOP("QObject", "ROLL connection"), checkAxisLink<rollLink>},
    CheckItem{itemId::gimbal::pitchLink, QT_TRANSLATE_NOOP("QObject", "PITCH connection"), checkAxisLink<pitchLink>},
    CheckItem{itemId::gimbal::yawLink, QT_TRANSLATE_NOOP("QObject", "YAW connection"), checkAxisLink<yawLink>},
    CheckItem{itemId::gimbal::motion, QT_TRANSLATE_NOOP("QObject", "Cation test"), checkMotion},
};
} // namespace

QString checkGimbal(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::gimbal, verdict::failed, itemTable, verdict, items);
}

QList<int> gimbalItems()
{
    return itemsOf(itemTable);
}

QString checkGimbalMainNet(int *verdict, QString &detail)
{
    return checkItem(checkStatusBit<mainLink>, verdict, detail);
}

QString checkGimbalRollNet(int *verdict, QString &detail)
{
    return checkItem(checkAxisLink<rollLink>, verdict, detail);
}

QString checkGimbalPitchNet(int *verdict, QString &detail)
{
    return checkItem(checkAxisLink<pitchLink>, verdict, detail);
}

QString checkGimbalYawchNet(int *verdict, QString &detail)
{
    return checkItem(checkAxisLink<yawLink>, verdict, detail);
}

QString checkGimbalStutter(int *verdict, QString &detail)
{
    return checkItem(checkMotion, verdict, detail);
}

void checkGimbalStutter(CheckItemLog &item, const MotionClock &clock)
{
    std::size_t passed = 0;
    for (std::size_t i = 0; i < axisMotions.size() && !KestDetectorFace::Get()->runIsCutShort(); ++i) {
        passed += testAxis(axisMotions.at(i), faultSightings.at(i), clock, item) ? 1U : 0U;
    }
    item.result = passed == axisMotions.size() ? verdict::ok : verdict::failed;
}
