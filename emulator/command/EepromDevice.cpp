#include "emulator/command/EepromDevice.h"

#include "emulator/command/Frame.h"
#include "emulator/command/ReplyWriter.h"

#include <array>
#include <boost/crc.hpp>

namespace emulator {

namespace {
struct CalibrationBlock
{
    int address;
    int length;
    int checksumAddress;
};

constexpr std::array<CalibrationBlock, 3> calibrationBlocks{{
    {5824, 720, 6544}, // sharpness
    {6848, 606, 7454}, // dark spots
    {7872, 124, 7996}, // white balance
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

/// The common CRC-32 as the factory computes it: the register starts from the number of bytes, and nothing is XORed at
/// the end.
std::uint32_t blockChecksum(const QByteArray &data)
{
    constexpr int bits = 32;
    const auto length = static_cast<std::uint32_t>(data.size());
    // Boost takes the first value the other way round than the reflected register holds it.
    std::uint32_t start = 0;
    for (int bit = 0; bit < bits; ++bit) {
        start |= (length >> bit & 1U) << (bits - 1 - bit);
    }
    boost::crc_optimal<bits, 0x04C11DB7, 0, 0, true, true> crc(start);
    crc.process_bytes(data.constData(), length);
    return crc.checksum();
}
} // namespace

EepromDevice::EepromDevice(const Eeprom &eeprom) : m_content(Eeprom::size, '\xFF')
{
    const auto lay = [this](int address, const QByteArray &bytes) { m_content.replace(address, bytes.size(), bytes); };
    for (const CalibrationBlock &block : calibrationBlocks) {
        const QByteArray data = calibrationData(block);
        lay(block.address, data);
        lay(block.checksumAddress, ReplyWriter().put(blockChecksum(data)).bytes());
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
