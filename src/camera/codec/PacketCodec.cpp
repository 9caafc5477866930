#include "camera/codec/PacketCodec.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {
// Both checksums are reflected CRCs. They are computed 16 bytes at a time ("slicing"): table k holds a byte's effect on
// the register after k further zero bytes, so that the effects of 16 bytes can be looked up independently and XORed.
constexpr std::size_t sliceCount = 16;
constexpr std::size_t wordSize = 8;
constexpr auto wordBytes = std::make_index_sequence<wordSize>();
constexpr std::size_t halfWordSize = 4;
constexpr auto halfWordBytes = std::make_index_sequence<halfWordSize>();

template <class Register>
using CrcTables = std::array<std::array<Register, 256>, sliceCount>;

template <class Register>
constexpr CrcTables<Register> makeCrcTables(Register polynomial)
{
    CrcTables<Register> tables{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        auto value = static_cast<Register>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            value = static_cast<Register>((value >> 1) ^ ((value & 1) != 0 ? polynomial : 0));
        }
        tables[0][byte] = value;
    }
    for (std::size_t slice = 1; slice < sliceCount; ++slice) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const Register shorter = tables[slice - 1][byte];
            tables[slice][byte] = static_cast<Register>((shorter >> 8) ^ tables[0][shorter & 0xFF]);
        }
    }
    return tables;
}

constexpr CrcTables<std::uint16_t> crc16Tables = makeCrcTables<std::uint16_t>(0xA001);
constexpr CrcTables<std::uint32_t> crc32Tables = makeCrcTables<std::uint32_t>(0xEDB88320);
static_assert(crc16Tables[0][1] == 0xC0C1 && crc32Tables[0][1] == 0x77073096, "the published tables");

// Fold expressions rather than loops: compilers turn them into one load and into independent look-ups.

template <std::size_t... index>
std::uint64_t littleEndianWord(const std::uint8_t *bytes, std::index_sequence<index...>)
{
    return ((static_cast<std::uint64_t>(bytes[index]) << (8 * index)) | ...);
}

template <std::size_t... index>
void storeLittleEndianWord(std::uint64_t word, std::uint8_t *bytes, std::index_sequence<index...>)
{
    ((bytes[index] = static_cast<std::uint8_t>(word >> (8 * index))), ...);
}

/// The joint effect of a word's bytes, the last of which is followed by `following` bytes of the same step.
template <std::size_t following, class Register, std::size_t... index>
Register wordEffect(const CrcTables<Register> &tables, std::uint64_t word, std::index_sequence<index...>)
{
    constexpr std::size_t last = following + sizeof...(index) - 1;
    return static_cast<Register>((tables[last - index][(word >> (8 * index)) & 0xFF] ^ ...));
}

template <class Register>
Register updateCrc(const CrcTables<Register> &tables, Register crc, const std::uint8_t *data, std::size_t length)
{
    const std::uint8_t *const end = data + length;
    for (; static_cast<std::size_t>(end - data) >= 2 * wordSize; data += 2 * wordSize) {
        crc = static_cast<Register>(wordEffect<wordSize>(tables, littleEndianWord(data, wordBytes) ^ crc, wordBytes) ^
                                    wordEffect<0>(tables, littleEndianWord(data + wordSize, wordBytes), wordBytes));
    }
    if (static_cast<std::size_t>(end - data) >= wordSize) {
        crc = wordEffect<0>(tables, littleEndianWord(data, wordBytes) ^ crc, wordBytes);
        data += wordSize;
    }
    if (static_cast<std::size_t>(end - data) >= halfWordSize) {
        // Matters for the shortest frames, whose last 4 header bytes would otherwise be looked up one after the other.
        crc = wordEffect<0>(tables, littleEndianWord(data, halfWordBytes) ^ crc, halfWordBytes);
        data += halfWordSize;
    }
    for (; data != end; ++data) {
        crc = static_cast<Register>((crc >> 8) ^ tables[0][(crc ^ *data) & 0xFF]);
    }
    return crc;
}

constexpr std::size_t checksumHigh = 6;
constexpr std::size_t checksumLow = 7;

/// The checksum of a frame of 12 or more bytes, the first 8 of which are `firstWord` rather than what is in memory:
/// their last two are the checksum itself, which counts as zero.
std::uint16_t frameChecksum(std::uint64_t firstWord, const std::uint8_t *frame, int length)
{
    constexpr std::uint64_t withoutChecksum = 0x0000FFFFFFFFFFFF;
    const auto crc = wordEffect<0>(crc16Tables, (firstWord & withoutChecksum) ^ 0xFFFF, wordBytes);
    const std::size_t rest = static_cast<std::size_t>(length) - wordSize;
    return static_cast<std::uint16_t>(~updateCrc(crc16Tables, crc, frame + wordSize, rest));
}

constexpr std::uint8_t highByte(std::uint16_t value)
{
    return static_cast<std::uint8_t>(value >> 8);
}

constexpr std::uint8_t lowByte(std::uint16_t value)
{
    return static_cast<std::uint8_t>(value & 0xFF);
}

/// Two 4-bit fields in one byte; higher bits of either are lost.
constexpr std::uint8_t nibbles(std::uint8_t upper, std::uint8_t lower)
{
    return static_cast<std::uint8_t>((upper << 4) | (lower & 0x0F));
}

constexpr std::uint16_t wide(std::uint8_t high, std::uint8_t low)
{
    return static_cast<std::uint16_t>((high << 8) | low);
}

/// Most requests have no payload: they are spared the call of a function that copies nothing.
void copyPayload(const std::uint8_t *from, int frameLength, std::uint8_t *to)
{
    if (frameLength > protocol::headerSize) {
        std::copy_n(from, std::min(frameLength - protocol::headerSize, protocol::maxPayloadSize), to);
    }
}

struct CodeText
{
    int code;
    const char *text;
};

constexpr std::array deviceNames{
    CodeText{1, " (Camera) "}, CodeText{2, " (Gimbal) "}, CodeText{3, " (SDK) "},        CodeText{4, " (Battery) "},
    CodeText{5, " (App) "},    CodeText{6, " (PC) "},     CodeText{15, " (BroadCast) "},
};

constexpr std::array commandSetNames{
    CodeText{0, " (Universal) "}, CodeText{1, " (Camera) "},   CodeText{2, " (Gimbal) "},  CodeText{3, " (SDK) "},
    CodeText{4, " (Battery) "},   CodeText{5, " (InterAct) "}, CodeText{6, " (Factory) "},
};

constexpr std::array errorTexts{
    CodeText{0x80, "图像自检失败"},           CodeText{0xC0, "镜头驱动板启动失败"},
    CodeText{0xE0, "EEPROM 自检失败"},        CodeText{0xFA, "对焦结果不可用，重装 sensor"},
    CodeText{0xFC, "LCA 正在处理上一条命令"}, CodeText{0xFE, "拍照超时"},
    CodeText{0xFF, "LCA 未初识化完成"},
};

template <std::size_t size>
std::string textOf(const std::array<CodeText, size> &table, int code, const char *otherwise)
{
    const auto found =
        std::find_if(table.begin(), table.end(), [code](const CodeText &entry) { return entry.code == code; });
    return found == table.end() ? otherwise : found->text;
}
} // namespace

std::uint16_t getcrc16(const std::uint8_t *data, int length, std::uint16_t *crc)
{
    std::uint16_t value = 0;
    if (data != nullptr && length > 0) {
        const auto bytes = static_cast<std::size_t>(length);
        value = static_cast<std::uint16_t>(~updateCrc<std::uint16_t>(crc16Tables, 0xFFFF, data, bytes));
    }
    if (crc != nullptr) {
        *crc = value;
    }
    return value;
}

void dataPacket2CharArray(const KestDataPacket &packet, std::uint8_t *out, int *outLength)
{
    const std::array<std::uint8_t, wordSize> start{
        packet.head,
        nibbles(packet.ver, highByte(packet.len)),
        lowByte(packet.len),
        packet.flags,
        highByte(packet.seq),
        lowByte(packet.seq),
        0,
        0,
    };
    const std::uint64_t firstWord = littleEndianWord(start.data(), wordBytes);
    storeLittleEndianWord(firstWord, out, wordBytes);
    const std::array<std::uint8_t, halfWordSize> end{
        packet.reserved,
        nibbles(packet.sender, packet.receiver),
        nibbles(packet.cmdSet, highByte(packet.cmdId)),
        lowByte(packet.cmdId),
    };
    // Stored as a whole, or reading it as a whole for the checksum would wait for the single bytes.
    storeLittleEndianWord(littleEndianWord(end.data(), halfWordBytes), out + wordSize, halfWordBytes);
    copyPayload(packet.data.data(), packet.len, out + protocol::headerSize);

    *outLength = std::min<int>(packet.len, protocol::maxFrameSize);
    const std::uint64_t crc = *outLength < protocol::headerSize ? getcrc16(out, *outLength, nullptr)
                                                                : frameChecksum(firstWord, out, *outLength);
    storeLittleEndianWord(firstWord | (crc >> 8) << (8 * checksumHigh) | (crc & 0xFF) << (8 * checksumLow), out,
                          wordBytes);
}

bool packetCheck(std::uint8_t *buffer, int length)
{
    if (length < protocol::headerSize || buffer[0] != protocol::startMark ||
        wide(buffer[1] & 0x0F, buffer[2]) != length) {
        return false;
    }
    const std::uint16_t stored = wide(buffer[checksumHigh], buffer[checksumLow]);
    const bool intact = frameChecksum(littleEndianWord(buffer, wordBytes), buffer, length) == stored;
    buffer[checksumHigh] = 0;
    buffer[checksumLow] = 0;
    return intact;
}

void parsePacket(const std::uint8_t *buffer, int length, KestDataPacket *packet)
{
    packet->ver = buffer[1] >> 4;
    packet->len = static_cast<std::uint16_t>(length);
    packet->flags = buffer[3];
    packet->seq = wide(buffer[4], buffer[5]);
    packet->reserved = buffer[8];
    packet->sender = buffer[9] >> 4;
    packet->receiver = buffer[9] & 0x0F;
    packet->cmdSet = buffer[10] >> 4;
    packet->cmdId = wide(buffer[10] & 0x0F, buffer[11]);
    copyPayload(buffer + protocol::headerSize, length, packet->data.data());
}

bool needAck(const KestDataPacket &packet)
{
    return (packet.flags & protocol::flag::wantsAck) != 0;
}

bool isAck(const KestDataPacket &packet)
{
    return (packet.flags & protocol::flag::acknowledgement) != 0;
}

bool isRequest(const KestDataPacket &packet)
{
    return !isAck(packet);
}

std::string getDeviceName(std::uint8_t code)
{
    return textOf(deviceNames, code, " (Unknown Device) ");
}

std::string getCmdSetName(std::uint8_t code)
{
    return textOf(commandSetNames, code, " (Unknown CommandSet) ");
}

std::string getErrorMsg(int code)
{
    return textOf(errorTexts, code, "");
}

std::uint16_t mapi_eeprom_crc16(const unsigned char *data, unsigned short length)
{
    return getcrc16(data, length, nullptr);
}

std::uint32_t mapi_eeprom_crc32(const unsigned char *data, unsigned int length)
{
    const std::uint32_t start = length;
    return data == nullptr ? start : updateCrc(crc32Tables, start, data, length);
}

std::string uchar2hexstr(std::uint8_t value)
{
    return "0x" + uchar2hexstrwo0x(value);
}

std::string uchar2hexstrwo0x(std::uint8_t value)
{
    constexpr char digits[] = "0123456789ABCDEF";
    return {digits[value >> 4], digits[value & 0x0F]};
}

std::string uint162hexstr(std::uint16_t value)
{
    return uchar2hexstr(highByte(value)) + uchar2hexstrwo0x(lowByte(value));
}

std::string printVector(const std::vector<int> &values)
{
    std::string text = "[";
    const char *separator = "";
    for (const int value : values) {
        text += separator + std::to_string(value);
        separator = ", ";
    }
    return text + "]";
}

std::string printBool(bool value)
{
    return value ? "true" : "false";
}
