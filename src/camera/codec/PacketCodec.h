#pragma once

#include "camera/codec/KestDataPacket.h"

#include <cstdint>
#include <string>
#include <vector>

// The camera's frames: encoding, checking, parsing, checksums, and texts for log lines. Free functions over plain data,
// callable from any thread. The frame's layout is in `docs/protocol.md`; its multi-byte header fields are big-endian.

/// CRC-16/USB (polynomial 0x8005 reflected, initial value and final XOR 0xFFFF) of `length` bytes, stored in `*crc`
/// (unless null) and returned. 0x0000 when there is nothing to read: a length below 1, or no `data`.
std::uint16_t getcrc16(const std::uint8_t *data, int length, std::uint16_t *crc);

/// Encodes `packet` into `out`, which has room for 1023 bytes, and stores the frame's length in `*outLength`:
/// `packet.len`, 1023 at most. A larger `len` has no frame (the transport refuses it); the output then stops after 1023
/// bytes and is of no use. A `len` below 12 still writes the 12 header bytes.
void dataPacket2CharArray(const KestDataPacket &packet, std::uint8_t *out, int *outLength);

/// Whether the `length` bytes are one whole, undamaged frame. Zeroes the checksum (bytes 6 and 7) in `buffer` once
/// length, start mark and header length are right. Any version is accepted.
bool packetCheck(std::uint8_t *buffer, int length);

/// Decodes a frame that `packetCheck` has accepted. `head` and payload bytes beyond the frame's own keep their values;
/// `len` is the datagram's `length`, not the header's. Payload that does not fit into `data` is left out.
void parsePacket(const std::uint8_t *buffer, int length, KestDataPacket *packet);

bool needAck(const KestDataPacket &packet);
bool isAck(const KestDataPacket &packet);
bool isRequest(const KestDataPacket &packet);

/// " (Camera) " and the like; " (Unknown Device) " for a code that is no `protocol::Device`.
std::string getDeviceName(std::uint8_t code);
/// " (Universal) " and the like; " (Unknown CommandSet) " for a code that is no `protocol::CommandSet`.
std::string getCmdSetName(std::uint8_t code);
/// The operator's text (UTF-8) for a result code of the camera; empty for the codes that have none, 0 included.
std::string getErrorMsg(int code);

// Checksums of the blocks in the camera's sensor EEPROM. They read nothing through a null pointer.

/// `getcrc16` under the name of the EEPROM's interface.
std::uint16_t mapi_eeprom_crc16(const unsigned char *data, unsigned short length);
/// The reflected CRC-32 of polynomial 0xEDB88320, but the register starts from `length` itself and nothing is XORed at
/// the end: this is how the factory computed the stored words. Length 0 gives 0, a null pointer gives `length`.
std::uint32_t mapi_eeprom_crc32(const unsigned char *data, unsigned int length);

// Texts for log lines; hexadecimal digits are upper-case.

std::string uchar2hexstr(std::uint8_t value);            ///< 10 gives 0x0A
std::string uchar2hexstrwo0x(std::uint8_t value);        ///< 10 gives 0A
std::string uint162hexstr(std::uint16_t value);          ///< 449 gives 0x01C1
std::string printVector(const std::vector<int> &values); ///< [1, 2, 3]
std::string printBool(bool value);                       ///< true or false
