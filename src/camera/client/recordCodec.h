#pragma once

#include "camera/client/records.h"

#include <cstdint>

// Decode a record's reply data, as many bytes as the row of its command in `deviceCommands.h` says.
void decode(const std::uint8_t *data, CameraStatus *out);
void decode(const std::uint8_t *data, TFCardStatus *out);
void decode(const std::uint8_t *data, TFCardUsedStatus *out);
void decode(const std::uint8_t *data, BatteryInfo *out);
void decode(const std::uint8_t *data, BatteryStatus *out);
void decode(const std::uint8_t *data, GimbalDeviceInfo *out);
void decode(const std::uint8_t *data, GimbalState *out);
void decode(const std::uint8_t *data, GimbalESCDevicesCheck *out);
