#pragma once

#include "detector/store/IpInfo.h"

#include <QList>
#include <QString>

/// Every IPv4 address of every interface of the PC, in the system's order. Each is also written to the debug output.
QList<QString> getIpList();

/// Picks the PC's own addresses whose text contains `first` or `second`; of several, the last one listed wins.
/// An empty argument stands for a link that is not configured and matches no address.
IpInfo getIPInfo(const QString &first, const QString &second);

/// One echo request through the system's ping program; true when its answer contains "TTL" (case-sensitive).
/// Blocks the calling thread for at most about a second.
bool myPing(const QString &address);
