#pragma once

#include <optional>

namespace emulator {

/// What a command's reply suffers.
enum class FaultKind {
    drop,            ///< no reply
    delay,           ///< the reply leaves `value` milliseconds late
    duplicate,       ///< the reply leaves twice
    corruptChecksum, ///< the reply's checksum is wrong
    wrongLength,     ///< the reply data has `value` bytes more, or fewer when negative
    resultCode,      ///< the reply is the result code `value` alone
    otherPort,       ///< the reply leaves from another UDP port
    asRequest,       ///< the reply's flags say that it is a request
};

/// One entry of a command's fault list. The entries of a list are played one after the other: an entry lets `after`
/// requests pass unharmed, then spoils `times` replies, then the next entry takes over.
struct Fault
{
    FaultKind kind = FaultKind::drop;
    int value = 0;
    int after = 0;
    std::optional<int> times = 1; ///< empty: always
    std::optional<int> address;   ///< only for EEPROM reads: counts and spoils reads at this address alone
};

} // namespace emulator
