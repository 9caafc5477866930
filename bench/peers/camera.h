#pragma once

#include <cstdint>

/// Where the emulated camera serves with its default scenario, and who may log in.
namespace camera {
inline constexpr const char *address = "127.0.0.10";
inline constexpr std::uint16_t commandPort = 9999;
inline constexpr std::uint16_t shellPort = 23;
inline constexpr std::uint16_t ftpPort = 2121;
inline constexpr const char *user = "root";
inline constexpr const char *password = "camera";
inline constexpr const char *ftpUser = "camera";
inline constexpr const char *ftpPassword = "camera";
inline constexpr const char *archiveFolder = "/tmp/archive"; ///< of the shell; the FTP server's root
} // namespace camera
