#pragma once

#include <array>
#include <cstddef>
#include <optional>

namespace emulator {

/// What a command's reply suffers, in the order of `faultKindTable`. `CommandService` does it.
enum class FaultKind {
    drop,            ///< no reply
    delay,           ///< the reply leaves `value` milliseconds late
    duplicate,       ///< the reply leaves twice
    corruptChecksum, ///< the reply's checksum is wrong
    wrongLength,     ///< the reply data have `value` bytes more, or fewer when negative
    resultCode,      ///< the reply is the result code `value` alone
    otherPort,       ///< the reply leaves from another UDP port
    asRequest,       ///< the reply's flags say that it is a request
};

/// How scenario files and the log speak of a kind of fault, and which value goes with it.
struct FaultKindRow
{
    FaultKind kind;
    const char *name;            ///< in scenario files
    const char *logText;         ///< in log lines, behind "reply"
    const char *valueKey = "";   ///< the value's key in scenario files; empty: this kind takes no value
    int lowest = 0, highest = 0; ///< the value's range
};

inline constexpr std::array faultKindTable{
    FaultKindRow{FaultKind::drop, "drop", "dropped"},
    FaultKindRow{FaultKind::delay, "delay", "delayed", "ms", 0, 3600 * 1000},
    FaultKindRow{FaultKind::duplicate, "duplicate", "sent twice"},
    FaultKindRow{FaultKind::corruptChecksum, "corruptChecksum", "with a wrong checksum"},
    FaultKindRow{FaultKind::wrongLength, "wrongLength", "with a wrong length", "bytes", -1010, 1010},
    FaultKindRow{FaultKind::resultCode, "resultCode", "with a result code", "code", 1, 255},
    FaultKindRow{FaultKind::otherPort, "otherPort", "from another port"},
    FaultKindRow{FaultKind::asRequest, "asRequest", "marked as a request"},
};

constexpr const FaultKindRow &rowOf(FaultKind kind)
{
    return faultKindTable.at(static_cast<std::size_t>(kind));
}

constexpr bool faultKindTableIsInOrder()
{
    for (std::size_t i = 0; i < faultKindTable.size(); ++i) {
        if (rowOf(static_cast<FaultKind>(i)).kind != static_cast<FaultKind>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(faultKindTableIsInOrder());

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
