#pragma once

/// What a request to the camera comes to, beside the camera's own codes (1 to 255, texts from `getErrorMsg`).
namespace requestResult {
inline constexpr int success = 0;
inline constexpr int noReply = 118;      ///< no reply within the command's wait time
inline constexpr int wrongSize = -1;     ///< the reply data had the wrong length
inline constexpr int noPcAddress = 9999; ///< supervisor only: no address of the PC lies on the camera's network
} // namespace requestResult
