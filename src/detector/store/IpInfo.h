#pragma once

#include <QString>

/// The PC's own addresses on the camera's networks. An address that was not found is empty.
struct IpInfo
{
    QString first;  ///< lies on the network of `getIPInfo`'s second argument
    QString second; ///< lies on the network of `getIPInfo`'s first argument
    QString third;  ///< always empty
    QString fourth; ///< always empty
};
