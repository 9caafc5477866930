#pragma once

#include <QList>
#include <QString>

// Main board: the flags that tell whether each board passed its own factory test. A flag that is missing or cannot be
// read is a warning, never a failure. Runner thread only; verdicts are those of verdict.h.

/// Component routine: 0 Lens driver (only named), 1 EEPROM, 2 Gimbal Main, 3 Gimbal ROLL, 4 Gimbal PITCH, 5 Gimbal YAW,
/// 6 Battery.
QString checkPcba(int *verdict, const QList<int> &items);
/// The items that it knows.
QList<int> pcbaItems();

/// Passes always, and is not part of the component's run, which only names the item: no flag of the lens driver is
/// known.
QString checkPcbaLenDriver(int *verdict);
QString checkPcbaEEprom(int *verdict, QString &detail);
QString checkPcbaGimbalMain(int *verdict, QString &detail);
QString checkPcbaGimbalRoll(int *verdict, QString &detail);
QString checkPcbaPitch(int *verdict, QString &detail);
QString checkPcbaYawch(int *verdict, QString &detail);
QString checkPcbaBattery(int *verdict, QString &detail);
