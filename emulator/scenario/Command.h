#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <QString>

namespace emulator {

/// The commands that the camera answers, in the order of `commandTable`.
enum class Command : std::uint8_t {
    registerPC,
    Ping,
    getCameraState,
    getTFCardStatus,
    getTFCardUsedStatus,
    getBatteryInfo,
    getBatteryStatus,
    getBatteryEscFactoryCheck,
    getGimbalDeviceInfo,
    fetchGimbalState,
    getGimbalESCDevicesCheck,
    setGimbalAnguVeloPosi,
    setGimbalFactoryCheck,
    ReadEEPROM,
};

struct CommandRow
{
    Command command;
    const char *name; ///< as in scenario files and log lines
    std::uint8_t set;
    std::uint16_t id;
    int requestSize; ///< bytes of request payload
};

inline constexpr std::array<CommandRow, 14> commandTable{{
    {Command::registerPC, "registerPC", 0, 0x20, 6},
    {Command::Ping, "Ping", 6, 0x22, 0},
    {Command::getCameraState, "getCameraState", 1, 0x1C1, 0},
    {Command::getTFCardStatus, "getTFCardStatus", 1, 0xF1, 0},
    {Command::getTFCardUsedStatus, "getTFCardUsedStatus", 1, 0xF0, 0},
    {Command::getBatteryInfo, "getBatteryInfo", 4, 0x40, 0},
    {Command::getBatteryStatus, "getBatteryStatus", 4, 0x1A, 0},
    {Command::getBatteryEscFactoryCheck, "getBatteryEscFactoryCheck", 4, 0x61, 0},
    {Command::getGimbalDeviceInfo, "getGimbalDeviceInfo", 2, 0x40, 0},
    {Command::fetchGimbalState, "fetchGimbalState", 2, 0x01, 0},
    {Command::getGimbalESCDevicesCheck, "getGimbalESCDevicesCheck", 2, 0x43, 0},
    {Command::setGimbalAnguVeloPosi, "setGimbalAnguVeloPosi", 2, 0x06, 12},
    {Command::setGimbalFactoryCheck, "setGimbalFactoryCheck", 2, 0x29, 1},
    {Command::ReadEEPROM, "ReadEEPROM", 6, 0x21, 4},
}};

constexpr std::size_t commandIndex(Command command)
{
    return static_cast<std::size_t>(command);
}

constexpr const CommandRow &rowOf(Command command)
{
    return commandTable[commandIndex(command)];
}

constexpr bool commandTableIsInOrder()
{
    for (std::size_t i = 0; i < commandTable.size(); ++i) {
        if (commandIndex(commandTable[i].command) != i) {
            return false;
        }
    }
    return true;
}
static_assert(commandTableIsInOrder(), "the rows stand in the order of the enumeration, none left out");

inline std::optional<Command> commandNamed(const QString &name)
{
    for (const CommandRow &row : commandTable) {
        if (name == QLatin1String(row.name)) {
            return row.command;
        }
    }
    return std::nullopt;
}

} // namespace emulator
