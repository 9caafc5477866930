#pragma once

#include <QtGlobal>

/// Byte values of the telnet protocol (RFC 854, and the RFC of each option).
namespace telnetCode {
inline constexpr uchar iac = 255;
inline constexpr uchar dont = 254;
inline constexpr uchar doIt = 253; ///< DO
inline constexpr uchar wont = 252;
inline constexpr uchar will = 251;
inline constexpr uchar sb = 250;
inline constexpr uchar ga = 249;
inline constexpr uchar el = 248;
inline constexpr uchar ec = 247;
inline constexpr uchar ayt = 246;
inline constexpr uchar ao = 245;
inline constexpr uchar ip = 244;
inline constexpr uchar brk = 243;
inline constexpr uchar dm = 242;
inline constexpr uchar se = 240;
inline constexpr uchar abort = 238;
inline constexpr uchar susp = 237;
inline constexpr uchar endOfFile = 236;
} // namespace telnetCode

/// The telnet options that the engine knows.
namespace telnetOption {
inline constexpr uchar suppressGoAhead = 3;
inline constexpr uchar status = 5;
inline constexpr uchar logout = 18;
inline constexpr uchar terminalType = 24;
inline constexpr uchar naws = 31;
inline constexpr uchar lineMode = 34;
inline constexpr uchar authentication = 37;
} // namespace telnetOption

/// Second bytes of a sub-negotiation, and the one authentication type (RFC 2941).
namespace telnetSubOption {
inline constexpr uchar is = 0;
inline constexpr uchar send = 1;
inline constexpr uchar authenticationNull = 0;
} // namespace telnetSubOption
