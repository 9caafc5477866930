#pragma once

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
