#pragma once

/// Verdict codes of items and components. Any code other than ok, failed and warning is shown as "not tested".
namespace verdict {
inline constexpr int none = -1; ///< no verdict yet, and the verdict of an unknown component
inline constexpr int ok = 0;
inline constexpr int failed = 1; ///< failed, or the device could not be queried
inline constexpr int warning = 2;
inline constexpr int notTested = 3; ///< an item whose routine has not run yet
} // namespace verdict
