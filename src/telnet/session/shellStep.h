#pragma once

/// The numbers that go with the shell's requests: the states of a login, and one number for each command. They choose
/// nothing but how a reply is taken, and a number beyond the last command has its reply ignored.
namespace shellStep {
// A login waits for
inline constexpr int namePrompt = 0;
inline constexpr int passwordPrompt = 1;
inline constexpr int shellPrompt = 2;

// Commands
inline constexpr int systemInfo = 3; ///< WiFi and MAC address
inline constexpr int mount = 5;
inline constexpr int cardInfo = 6;
inline constexpr int packCameraLog = 7;
inline constexpr int removeCameraLog = 8;
inline constexpr int packPrivate = 9;
inline constexpr int removePrivate = 10;
inline constexpr int dmesg = 11;
inline constexpr int pstreePs = 12;
inline constexpr int ifconfig = 13;
inline constexpr int version = 14;
inline constexpr int packNetConf = 15;
inline constexpr int removeNetConf = 16;
inline constexpr int iwDevAp0Scan = 17;
inline constexpr int mciInfo = 18;
inline constexpr int packSharefs = 19;
inline constexpr int removeSharefs = 20;

inline constexpr int firstCommand = systemInfo;
inline constexpr int lastCommand = removeSharefs;
} // namespace shellStep
