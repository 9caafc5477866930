#pragma once

#include "emulator/scenario/Scenario.h"

#include <optional>
#include <QByteArray>

namespace emulator {

/// The sensor's EEPROM, 8 KiB. Serves the data of `ReadEEPROM`.
///
/// A healthy one holds calibration data for sharpness, dark spots and white balance, behind each the checksum word
/// that fits it, and the signature "KO" wherever the factory leaves one.
class EepromDevice
{
public:
    explicit EepromDevice(const Eeprom &eeprom);

    /// The count (2 bytes) and the bytes themselves; empty when the range leaves the EEPROM or would not fit a frame.
    std::optional<QByteArray> read(int address, int length) const;

private:
    QByteArray m_content;
};

} // namespace emulator
