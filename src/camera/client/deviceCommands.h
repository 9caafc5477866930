#pragma once

#include "camera/client/EEPromBuf.h"
#include "camera/client/records.h"
#include "camera/codec/protocol.h"

#include <chrono>

// The commands that the station sends, one a row. A row is all that `Camera::query` needs; the first fourteen are named
// after the methods of `Camera` that send them.

/// What a command is for, and with it, what may be done when its reply does not come.
enum class CommandKind {
    Link,  ///< makes or keeps the link: whoever sends it has a rhythm of his own
    Query, ///< changes nothing: may be sent again
    Order, ///< does something, perhaps twice if it were sent twice
};

/// All that is known of a command before it is sent.
struct DeviceCommand
{
    /// Has no defaults: a row that leaves something out does not compile.
    constexpr DeviceCommand(CommandKind purpose, protocol::Device to, protocol::Command code,
                            std::chrono::milliseconds limit, int size)
        : kind(purpose), receiver(to), command(code), wait(limit), replySize(size)
    {
    }

    CommandKind kind;
    protocol::Device receiver;
    protocol::Command command;
    std::chrono::milliseconds wait; ///< from the sending of a request until it counts as unanswered
    int replySize;                  ///< bytes of data in a reply, or one of `replyData`
};

/// A command whose reply carries a record, which reads itself from a `WireReader`.
template <class Record>
struct RecordCommand : DeviceCommand
{
    using DeviceCommand::DeviceCommand;
};

namespace replyData {
inline constexpr int none = 0;     ///< the result code is all; data make the reply a wrong one
inline constexpr int ignored = -1; ///< the result code counts, whatever follows it
inline constexpr int counted = -2; ///< the data say themselves how many they are
} // namespace replyData

namespace deviceCommand {
using namespace std::chrono_literals;
using protocol::CommandSet;
using protocol::Device;

inline constexpr DeviceCommand registerPC{
    CommandKind::Link, Device::Camera, {CommandSet::Universal, 0x20}, 1s, replyData::ignored};
inline constexpr DeviceCommand Ping{
    CommandKind::Link, Device::Camera, {CommandSet::Factory, 0x22}, 2s, replyData::none};
inline constexpr RecordCommand<CameraStatus> getCameraState{
    CommandKind::Query, Device::Camera, {CommandSet::Camera, 0x1C1}, 2s, 88};
inline constexpr RecordCommand<TFCardStatus> getTFCardStatus{
    CommandKind::Query, Device::Camera, {CommandSet::Camera, 0xF1}, 2s, 8};
inline constexpr RecordCommand<TFCardUsedStatus> getTFCardUsedStatus{
    CommandKind::Query, Device::Camera, {CommandSet::Camera, 0xF0}, 2s, 32};
inline constexpr RecordCommand<BatteryInfo> getBatteryInfo{
    CommandKind::Query, Device::Battery, {CommandSet::Battery, 0x40}, 2s, 40};
inline constexpr RecordCommand<BatteryStatus> getBatteryStatus{
    CommandKind::Query, Device::Battery, {CommandSet::Battery, 0x1A}, 2s, 11};
inline constexpr DeviceCommand getBatteryEscFactoryCheck{
    CommandKind::Query, Device::Battery, {CommandSet::Battery, 0x61}, 3s, replyData::ignored};
inline constexpr RecordCommand<GimbalDeviceInfo> getGimbalDeviceInfo{
    CommandKind::Query, Device::Gimbal, {CommandSet::Gimbal, 0x40}, 2s, 64};
inline constexpr RecordCommand<GimbalState> fetchGimbalState{
    CommandKind::Query, Device::Gimbal, {CommandSet::Gimbal, 0x01}, 2s, 26};
inline constexpr RecordCommand<GimbalESCDevicesCheck> getGimbalESCDevicesCheck{
    CommandKind::Query, Device::Gimbal, {CommandSet::Gimbal, 0x43}, 2s, 1};
inline constexpr DeviceCommand setGimbalAnguVeloPosi{
    CommandKind::Order, Device::Gimbal, {CommandSet::Gimbal, 0x06}, 3s, replyData::none};
inline constexpr DeviceCommand setGimbalFactoryCheck{
    CommandKind::Order, Device::Gimbal, {CommandSet::Gimbal, 0x29}, 2s, replyData::none};
inline constexpr RecordCommand<EEPromBuf> ReadEEPROM{
    CommandKind::Query, Device::Camera, {CommandSet::Factory, 0x21}, 3s, replyData::counted};
} // namespace deviceCommand
