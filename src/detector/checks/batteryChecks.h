#pragma once

#include <QList>
#include <QString>

// Battery: its link to the camera and two reports of its management chip. The reports are for the operator and the log;
// no value in them is compared with a limit. Runner thread only; verdicts are those of verdict.h.

/// Component routine: 0 Battery connection, 1 Battery status, 2 Battery Info, 3 Charge (only named).
QString checkBattery(int *verdict, const QList<int> &items);
/// The items that it knows.
QList<int> batteryItems();

QString checkBatteryNet(int *verdict, QString &detail);
/// `detail` receives charge, voltage, current, temperature and times.
QString checkBatteryStatus(int *verdict, QString &detail);
/// `detail` receives identity, versions, the values of the status, capacity, warnings and contacts.
QString checkBatteryInfo(int *verdict, QString &detail);
/// Passes always: there is no charge test yet.
QString checkBatteryCharge(int *verdict);
