#pragma once

#include "emulator/scenario/Command.h"
#include "emulator/scenario/Fault.h"

#include <array>
#include <cstdint>
#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

namespace emulator {

// Everything that the camera reports, as read from a scenario file. The default values are a healthy camera.
// Units: charge in percent, voltage in mV, current in mA (negative while discharging), temperature in hundredths of a
// degree Celsius, capacity in mAh, TF card sizes in bytes.

struct BatteryInfo
{
    std::uint8_t subId = 0x04;
    std::uint8_t versionInfo = 0x10;
    std::uint32_t softwareVersion = 0x01020304;
    std::uint32_t hardwareVersion = 0x01000002;
    std::uint8_t charge = 87;
    std::uint16_t voltage = 3850;
    std::int16_t current = -250;
    std::uint16_t temperature = 2534;
    std::uint16_t minutesToEmpty = 95;
    std::uint16_t minutesToFull = 0;
    std::uint16_t deviceType = 0x0101;
    std::uint16_t firmwareInfo = 0x0210;
    std::uint16_t hardwareInfo = 0x0103;
    std::uint16_t cycleCount = 12;
    std::uint16_t fullCapacity = 875;
    std::uint16_t manufacturer = 0x4b53;
    std::uint32_t warningBits = 0;
    std::uint8_t charger = 0;
    std::uint8_t microphone = 0;
    std::uint8_t pogoPin = 0;
};

struct BatteryStatus
{
    std::uint8_t charge = 87;
    std::uint16_t voltage = 3850;
    std::int16_t current = -250;
    std::uint16_t temperature = 2534;
    std::uint16_t minutesToEmpty = 95;
    std::uint16_t minutesToFull = 0;
};

struct Battery
{
    BatteryInfo info;
    BatteryStatus status;
    std::uint8_t escCheckResult = 0; ///< result byte of the factory check; 0: passed
};

struct GimbalDeviceInfo
{
    std::array<std::uint8_t, 16> bytes{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    std::array<std::uint32_t, 12> words{0x01020003, 0x01020003, 0x01020003, 0x01020003, 1, 2, 3, 4, 0, 0, 0, 0};
};

struct GimbalState
{
    std::array<std::uint16_t, 7> words{};
    std::array<std::uint8_t, 12> bytes{}; ///< [7]: state of the factory movement
};

/// One stretch of a factory movement: the state that is reported for so many polls, or for so many milliseconds.
/// With neither, for ever.
struct MotionPhase
{
    std::uint8_t state = 0;
    int polls = 0;
    int milliseconds = 0;
};

struct Gimbal
{
    GimbalDeviceInfo deviceInfo;
    GimbalState state;
    std::uint8_t escFlags = 0x0F; ///< factory test passed: bit 0 yaw, bit 1 pitch, bit 2 roll, bit 3 main controller
    /// Factory movements of roll, pitch and yaw (modes 1, 2 and 3).
    std::array<QVector<MotionPhase>, 3> motion{
        QVector<MotionPhase>{{1, 1, 0}, {11, 0, 0}},
        QVector<MotionPhase>{{2, 1, 0}, {12, 0, 0}},
        QVector<MotionPhase>{{3, 1, 0}, {13, 0, 0}},
    };
};

struct TfCard
{
    std::int32_t state = 2; ///< 2: ready
    std::int32_t reason = 0;
    std::uint64_t sectorSize = 32768;
    std::uint64_t total = 31914983424;
    std::uint64_t available = 25769803776;
    std::uint64_t used = 6145179648;
};

struct EepromBlock
{
    int address = 0;
    QByteArray content;
};

struct Eeprom
{
    static constexpr int size = 8192;
    QVector<EepromBlock> blocks; ///< laid over the healthy contents, in this order
};

enum class ShellFault {
    none,
    refuse,              ///< nothing listens
    silent,              ///< accepts and says nothing
    bannerWithoutPrompt, ///< greets, but never asks for a login
    splitPrompt,         ///< the prompt after a command comes in two pieces
    flood,               ///< sends without end from the connect on
};

/// A folder of generated files. The same seed gives the same files.
struct ShellTree
{
    enum class Kind { text, binary };
    QString path;
    int size = 0; ///< bytes, over all files
    std::uint32_t seed = 1;
    Kind kind = Kind::text;
};

struct Shell
{
    QString user = QStringLiteral("root");
    QString password = QStringLiteral("camera");
    QMap<QString, QByteArray> files; ///< by absolute path; replace or join those of the template
    QVector<ShellTree> trees{
        {QStringLiteral("/data/log"), 3 * 1024 * 1024, 1, ShellTree::Kind::text},
        {QStringLiteral("/data/private"), 256 * 1024, 2, ShellTree::Kind::binary},
        {QStringLiteral("/data/sharefs"), 128 * 1024, 3, ShellTree::Kind::binary},
    };
    ShellFault fault = ShellFault::none;
};

enum class FtpFault {
    none,
    refuse,        ///< nothing listens
    wrongPassword, ///< the server knows another password
    stall,         ///< a transfer stops half way and stays open
    close,         ///< a transfer ends half way, and the control connection with it
    sendNothing,   ///< accepts and says nothing
};

struct Ftp
{
    QString user = QStringLiteral("camera");
    QString password = QStringLiteral("camera");
    std::uint16_t port = 2121;
    FtpFault fault = FtpFault::none;
};

/// A radio that loses datagrams on their way to the station. The same seed loses the same ones.
struct ReplyLoss
{
    int percent = 0; ///< of all replies, each on its own
    std::uint32_t seed = 1;
};

struct Scenario
{
    QString description;
    std::uint64_t status = 0x8001B;
    Battery battery;
    Gimbal gimbal;
    TfCard tfCard;
    Eeprom eeprom;
    QString ssid = QStringLiteral("Camera-5F2A");
    QString passphrase = QStringLiteral("12345678");
    QString mac = QStringLiteral("60:60:1f:0a:5f:2a");
    Shell shell;
    Ftp ftp;
    int rebootSeconds = 5;
    ReplyLoss replyLoss;
    std::array<QVector<Fault>, commandTable.size()> faults; ///< by `commandIndex`
};

} // namespace emulator
