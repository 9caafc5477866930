#pragma once

#include <array>
#include <optional>
#include <QList>
#include <QString>

// The names of components and items that never change and that no language touches. Records, plans and the command line
// call them by these; the numbers are those of the run plan.

struct ComponentKey
{
    int id;          ///< as in `checkLog`
    const char *key; ///< ASCII; also the component's name on the command line
};

/// All components by ascending id.
inline constexpr std::array componentKeys = {
    ComponentKey{0, "camera"}, ComponentKey{1, "gimbal"}, ComponentKey{2, "battery"}, ComponentKey{3, "fan"},
    ComponentKey{4, "button"}, ComponentKey{5, "lens"},   ComponentKey{6, "tfcard"},  ComponentKey{7, "audio"},
    ComponentKey{8, "pcba"},   ComponentKey{9, "log"},
};

/// Item numbers, component by component: used in the run plan and in the item tables of the checks. They are fixed from
/// outside, gaps and order included.
namespace itemId {
namespace camera {
inline constexpr int video = 0;
inline constexpr int factoryCheck = 1;
} // namespace camera

namespace gimbal {
inline constexpr int mainLink = 0;
inline constexpr int rollLink = 1;
inline constexpr int pitchLink = 2;
inline constexpr int yawLink = 3;
inline constexpr int motion = 4;
} // namespace gimbal

namespace battery {
inline constexpr int link = 0;
inline constexpr int status = 1;
inline constexpr int info = 2;
inline constexpr int charge = 3;
} // namespace battery

namespace fan {
inline constexpr int open = 0;
} // namespace fan

namespace keyBoard {
inline constexpr int clicked = 0;
} // namespace keyBoard

namespace lens {
inline constexpr int link = 0;
inline constexpr int status = 1;
} // namespace lens

namespace tfCard {
inline constexpr int usage = 0;
inline constexpr int speed = 1;
} // namespace tfCard

namespace voice {
inline constexpr int signal = 0;
} // namespace voice

namespace pcba {
inline constexpr int lensDriver = 0;
inline constexpr int sensor = 1;
inline constexpr int gimbalMain = 2;
inline constexpr int gimbalRoll = 3;
inline constexpr int gimbalPitch = 4;
inline constexpr int gimbalYaw = 5;
inline constexpr int battery = 6;
} // namespace pcba

namespace log {
inline constexpr int camera = 0;
inline constexpr int privateLog = 1;
inline constexpr int dmesg = 2;
inline constexpr int pstreePs = 3;
inline constexpr int ifconfig = 4;
inline constexpr int version = 5;
inline constexpr int netConf = 6;
inline constexpr int iwDevAp0Scan = 7;
inline constexpr int mciInfo = 8;
inline constexpr int sharefs = 9;
} // namespace log
} // namespace itemId

struct ItemKey
{
    int component;
    int number;      ///< of the item within its component
    const char *key; ///< ASCII; begins with the component's key
};

/// All items by ascending component and number.
inline constexpr std::array itemKeys = {
    ItemKey{0, itemId::camera::video, "camera.video"},
    ItemKey{0, itemId::camera::factoryCheck, "camera.factory"},
    ItemKey{1, itemId::gimbal::mainLink, "gimbal.main.link"},
    ItemKey{1, itemId::gimbal::rollLink, "gimbal.roll.link"},
    ItemKey{1, itemId::gimbal::pitchLink, "gimbal.pitch.link"},
    ItemKey{1, itemId::gimbal::yawLink, "gimbal.yaw.link"},
    ItemKey{1, itemId::gimbal::motion, "gimbal.motion"},
    ItemKey{2, itemId::battery::link, "battery.link"},
    ItemKey{2, itemId::battery::status, "battery.status"},
    ItemKey{2, itemId::battery::info, "battery.info"},
    ItemKey{2, itemId::battery::charge, "battery.charging"},
    ItemKey{3, itemId::fan::open, "fan.run"},
    ItemKey{4, itemId::keyBoard::clicked, "button.press"},
    ItemKey{5, itemId::lens::link, "lens.link"},
    ItemKey{5, itemId::lens::status, "lens.status"},
    ItemKey{6, itemId::tfCard::usage, "tfcard.use"},
    ItemKey{6, itemId::tfCard::speed, "tfcard.speed"},
    ItemKey{7, itemId::voice::signal, "audio.signal"},
    ItemKey{8, itemId::pcba::lensDriver, "pcba.lensDriver"},
    ItemKey{8, itemId::pcba::sensor, "pcba.sensor"},
    ItemKey{8, itemId::pcba::gimbalMain, "pcba.gimbalMain"},
    ItemKey{8, itemId::pcba::gimbalRoll, "pcba.gimbalRoll"},
    ItemKey{8, itemId::pcba::gimbalPitch, "pcba.gimbalPitch"},
    ItemKey{8, itemId::pcba::gimbalYaw, "pcba.gimbalYaw"},
    ItemKey{8, itemId::pcba::battery, "pcba.battery"},
    ItemKey{9, itemId::log::camera, "log.log"},
    ItemKey{9, itemId::log::privateLog, "log.private"},
    ItemKey{9, itemId::log::dmesg, "log.dmesg"},
    ItemKey{9, itemId::log::pstreePs, "log.pstree"},
    ItemKey{9, itemId::log::ifconfig, "log.ifconfig"},
    ItemKey{9, itemId::log::version, "log.version"},
    ItemKey{9, itemId::log::netConf, "log.netconf"},
    ItemKey{9, itemId::log::iwDevAp0Scan, "log.scan"},
    ItemKey{9, itemId::log::mciInfo, "log.card"},
    ItemKey{9, itemId::log::sharefs, "log.sharefs"},
};

/// The component's key; empty for an id that there is not.
QString componentKey(int id);
std::optional<int> componentOfKey(const QString &key);
/// The item's key; empty for an item that there is not.
QString itemKey(int component, int number);
/// The numbers of all items of a component, ascending; empty for an id that there is not.
QList<int> itemNumbers(int component);
