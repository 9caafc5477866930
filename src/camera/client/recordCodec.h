#pragma once

#include "camera/client/records.h"

#include <cstdint>

/// Bytes of a record's reply data on the wire.
template <class Record>
inline constexpr int wireSize = -1;
template <>
inline constexpr int wireSize<CameraStatus> = 88;
template <>
inline constexpr int wireSize<TFCardStatus> = 8;
template <>
inline constexpr int wireSize<TFCardUsedStatus> = 32;
template <>
inline constexpr int wireSize<BatteryInfo> = 40;
template <>
inline constexpr int wireSize<BatteryStatus> = 11;
template <>
inline constexpr int wireSize<GimbalDeviceInfo> = 64;
template <>
inline constexpr int wireSize<GimbalState> = 26;
template <>
inline constexpr int wireSize<GimbalESCDevicesCheck> = 1;

// Decode `wireSize<Record>` bytes of reply data.
void decode(const std::uint8_t *data, CameraStatus *out);
void decode(const std::uint8_t *data, TFCardStatus *out);
void decode(const std::uint8_t *data, TFCardUsedStatus *out);
void decode(const std::uint8_t *data, BatteryInfo *out);
void decode(const std::uint8_t *data, BatteryStatus *out);
void decode(const std::uint8_t *data, GimbalDeviceInfo *out);
void decode(const std::uint8_t *data, GimbalState *out);
void decode(const std::uint8_t *data, GimbalESCDevicesCheck *out);
