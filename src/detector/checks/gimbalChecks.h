#pragma once

#include <functional>
#include <QList>
#include <QString>
#include <QtGlobal>

struct CheckItemLog;

// Gimbal: the links to its main controller and to its three motor controllers, and the motion test. Runner thread only;
// verdicts are those of verdict.h.

/// Component routine: 0 Main connection, 1 ROLL connection, 2 PITCH connection, 3 YAW connection, 4 Cation test.
QString checkGimbal(int *verdict, const QList<int> &items);
/// The items that it knows.
QList<int> gimbalItems();

QString checkGimbalMainNet(int *verdict, QString &detail);
QString checkGimbalRollNet(int *verdict, QString &detail);
QString checkGimbalPitchNet(int *verdict, QString &detail);
QString checkGimbalYawchNet(int *verdict, QString &detail);

/// Has the camera move roll, pitch and yaw, one after the other, and watches the reported state: 21 s per axis at most,
/// with a poll each second. A failed axis does not stop the test. Sightings of an axis's fault state are counted over
/// the life of the process: an axis fails at the fourth, be they of several runs.
/// Ends early when the program closes; the axis under test has then failed, and no further one is driven.
QString checkGimbalStutter(int *verdict, QString &detail);

/// The time of the motion test.
struct MotionClock
{
    std::function<qint64()> elapsedMs; ///< monotonic; since any fixed moment
    std::function<void(int milliseconds)> sleep;
};

/// The motion test by another clock than the PC's, into a fresh record. Measures each axis: the time from its order to
/// its outcome, and the last state seen.
void checkGimbalStutter(CheckItemLog &item, const MotionClock &clock);
