#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

/// The component's display name, translated; empty for an id that there is not.
QString getComponent(int index);

/// The positions, in ascending order, of the status bits that are examined (`statusBitList`) and differ from what is
/// expected (`cameraStatusMask`). A status word of 0 has none, whatever is expected.
QList<int> getCameraStatusList(quint64 status);

/// "状态良好" followed by one text for each set bit. The text is chosen by the running number among the set bits, not
/// by the bit's own number.
QString getBatteryWar(unsigned int warningBits);

/// Waits `milliseconds` while it serves the calling thread's events, without using the processor; ends early only
/// when the program closes or the run of the calling thread is stopped. Returns the milliseconds that passed. Callable
/// from any thread.
int mSleep(int milliseconds);

/// Creates a folder with all missing parents; true if it exists afterwards.
bool path_create(const QString &path);
