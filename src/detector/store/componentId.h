#pragma once

/// Component ids: used in the run plan, in `checkLog`, in `getComponent` and in the runner's table.
namespace componentId {
inline constexpr int camera = 0;
inline constexpr int gimbal = 1;
inline constexpr int battery = 2;
inline constexpr int fan = 3;
inline constexpr int keyBoard = 4;
inline constexpr int lens = 5;
inline constexpr int tfCard = 6;
inline constexpr int voice = 7;
inline constexpr int pcba = 8;
inline constexpr int log = 9;
} // namespace componentId
