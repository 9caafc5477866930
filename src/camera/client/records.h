#pragma once

#include <array>
#include <cstdint>

// The camera's reply records, decoded: the fields in the order of the wire, naturally aligned. On the wire they are
// packed and little-endian; `docs/protocol.md` has the byte offsets. Each record reads itself from a `WireReader`: as
// many bytes as the row of its command in `deviceCommands.h` says.

/// Reply of `getCameraState`, 88 bytes on the wire.
struct CameraStatus
{
    std::uint64_t reserved0 = 0;  ///< always 0
    std::uint64_t iCurStatus = 0; ///< the camera's status bits, wire bytes 4 to 11
    std::uint32_t reserved1 = 0;  ///< always 0

    template <class In>
    void read(In &in)
    {
        in.skip(4);
        in.take(iCurStatus);
    }
};
static_assert(sizeof(CameraStatus) == 24);

/// Reply of `getTFCardStatus`, 8 bytes on the wire.
struct TFCardStatus
{
    std::int32_t state = 0;  ///< 2 = ready
    std::int32_t reason = 0; ///< why the card is not ready

    template <class In>
    void read(In &in)
    {
        in.take(state, reason);
    }
};
static_assert(sizeof(TFCardStatus) == 8);

/// Reply of `getTFCardUsedStatus`, 32 bytes on the wire. All in bytes.
struct TFCardUsedStatus
{
    std::uint64_t sectorSize = 0;
    std::uint64_t total = 0;
    std::uint64_t available = 0;
    std::uint64_t used = 0;

    template <class In>
    void read(In &in)
    {
        in.take(sectorSize, total, available, used);
    }
};
static_assert(sizeof(TFCardUsedStatus) == 32);

/// Reply of `getBatteryInfo`, 40 bytes on the wire.
struct BatteryInfo
{
    std::uint8_t subId = 0;
    std::uint8_t versionInfo = 0;
    std::uint32_t softwareVersion = 0; ///< four numbers, the first in the most significant byte
    std::uint32_t hardwareVersion = 0; ///< as softwareVersion
    std::uint8_t charge = 0;           ///< percent
    std::uint16_t voltage = 0;         ///< millivolts
    std::int16_t current = 0;          ///< milliamperes, negative while discharging
    std::uint16_t temperature = 0;     ///< hundredths of a degree Celsius
    std::uint16_t minutesToEmpty = 0;
    std::uint16_t minutesToFull = 0;
    std::uint16_t deviceType = 0;
    std::uint16_t firmwareInfo = 0;
    std::uint16_t hardwareInfo = 0;
    std::uint16_t cycleCount = 0;
    std::uint16_t fullCapacity = 0; ///< milliampere-hours
    std::uint16_t manufacturer = 0;
    std::uint32_t warningBits = 0;
    std::uint8_t charger = 0;    ///< 0 = not plugged in
    std::uint8_t microphone = 0; ///< 0 = not plugged in
    std::uint8_t pogoPin = 0;    ///< 0 = no accessory

    template <class In>
    void read(In &in)
    {
        in.take(subId, versionInfo, softwareVersion, hardwareVersion, charge);
        in.take(voltage, current, temperature, minutesToEmpty, minutesToFull);
        in.take(deviceType, firmwareInfo, hardwareInfo, cycleCount, fullCapacity);
        in.take(manufacturer, warningBits, charger, microphone, pogoPin);
    }
};
static_assert(sizeof(BatteryInfo) == 44);

/// Reply of `getBatteryStatus`, 11 bytes on the wire. Units as in `BatteryInfo`.
struct BatteryStatus
{
    std::uint8_t charge = 0;
    std::uint16_t voltage = 0;
    std::int16_t current = 0;
    std::uint16_t temperature = 0;
    std::uint16_t minutesToEmpty = 0;
    std::uint16_t minutesToFull = 0;

    template <class In>
    void read(In &in)
    {
        in.take(charge, voltage, current, temperature, minutesToEmpty, minutesToFull);
    }
};
static_assert(sizeof(BatteryStatus) == 12);

/// Reply of `getBatteryEscFactoryCheck`: the reply carries no data, and `result` is 0 on success.
struct BatteryCheckResult
{
    std::int32_t result = 0;
};
static_assert(sizeof(BatteryCheckResult) == 4);

/// Reply of `getGimbalDeviceInfo`, 64 bytes on the wire.
struct GimbalDeviceInfo
{
    std::array<std::uint8_t, 16>
        bytes{}; ///< [4], [8] and [12]: link flags of the roll, pitch and yaw axes, 0 = no link
    std::array<std::uint32_t, 12> words{};

    template <class In>
    void read(In &in)
    {
        in.take(bytes, words);
    }
};
static_assert(sizeof(GimbalDeviceInfo) == 64);

/// Reply of `fetchGimbalState`, 26 bytes on the wire.
struct GimbalState
{
    std::array<std::uint16_t, 7> words{};
    std::array<std::uint8_t, 12> bytes{}; ///< [7] (wire byte 21): state of the factory movement

    template <class In>
    void read(In &in)
    {
        in.take(words, bytes);
    }
};
static_assert(sizeof(GimbalState) == 26);

/// Reply of `getGimbalESCDevicesCheck`, 1 byte on the wire.
struct GimbalESCDevicesCheck
{
    std::uint8_t flags = 0; ///< factory test passed: bit 0 yaw, bit 1 pitch, bit 2 roll, bit 3 main controller

    template <class In>
    void read(In &in)
    {
        in.take(flags);
    }
};
static_assert(sizeof(GimbalESCDevicesCheck) == 1);

/// Request of `setGimbalAnguVeloPosi`: six fields in the order of the wire.
struct GimbalAnguVeloPosi
{
    std::array<std::uint16_t, 6> fields{};
};
static_assert(sizeof(GimbalAnguVeloPosi) == 12);
