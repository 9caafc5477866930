#include "emulator/command/EepromDevice.h"

#include "emulator/command/Frame.h"
#include "emulator/command/ReplyWriter.h"

#include <array>

namespace emulator {

namespace {
struct CalibrationBlock
{
    int address;
    int length;
    int checksumAddress;
    std::uint32_t checksum;
};

constexpr std::array<CalibrationBlock, 3> calibrationBlocks{{
    {5824, 720, 6544, 0x5F3A9C01}, // sharpness
    {6848, 606, 7454, 0x0D17E462}, // dark spots
    {7872, 124, 7996, 0x8B20C6F3}, // white balance
}};

constexpr std::array<int, 5> signatureAddresses{4203, 6846, 7870, 8126, 8162};

/// Result byte and count go with the bytes.
constexpr int longestRead = Frame::maxPayload - 3;

QByteArray calibrationData(const CalibrationBlock &block)
{
    QByteArray data;
    for (int i = 0; i < block.length; ++i) {
        data.append(static_cast<char>((block.address + i * 7) & 0xFF));
    }
    return data;
}
} // namespace

EepromDevice::EepromDevice(const Eeprom &eeprom) : m_content(Eeprom::size, '\xFF')
{
    const auto lay = [this](int address, const QByteArray &bytes) { m_content.replace(address, bytes.size(), bytes); };
    for (const CalibrationBlock &block : calibrationBlocks) {
        lay(block.address, calibrationData(block));
        lay(block.checksumAddress, ReplyWriter().put(block.checksum).bytes());
    }
    for (const int address : signatureAddresses) {
        lay(address, QByteArrayLiteral("KO"));
    }
    for (const EepromBlock &block : eeprom.blocks) {
        lay(block.address, block.content);
    }
}

std::optional<QByteArray> EepromDevice::read(int address, int length) const
{
    if (length > longestRead || address + length > m_content.size()) {
        return std::nullopt;
    }
    return ReplyWriter().put(static_cast<std::uint16_t>(length)).bytes() + m_content.mid(address, length);
}

} // namespace emulator
