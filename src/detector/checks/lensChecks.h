#pragma once

#include <QList>
#include <QString>

// Lens module. Runner thread only; verdicts are those of verdict.h.

/// Component routine: 0 Lens connection, 1 Lens Status (only named).
QString checkLens(int *verdict, const QList<int> &items);
/// The items that it knows.
QList<int> lensItems();

QString checkLensNetWork(int *verdict, QString &detail);
/// Passes always: there is no status test yet.
QString checkLensStatus(int *verdict);
