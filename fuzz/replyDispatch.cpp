// Datagrams that pass for the camera's: whatever they hold, they end in a completion handler or nowhere.
// The first input byte chooses, bit by bit, what is made of the rest: bit 0, the datagram as it is; otherwise a reply
// with a valid header and checksum to the command that the next two bytes name; with bit 1, of the length that two more
// bytes say, up to the longest datagram; with bit 2, with a count of EEPROM bytes that fits its length.

#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "camera/codec/protocol.h"
#include "frames.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <QCoreApplication>
#include <utility>

namespace {
enum Choice : std::uint8_t {
    asItIs = 1,
    ownLength = 2,
    countFits = 4,
};

/// Takes the input apart from its begin on; what is no longer there counts as 0.
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size) : m_next(data), m_end(data + size) {}

    std::uint8_t byte() { return m_next == m_end ? std::uint8_t{0} : *m_next++; }
    Bytes rest() const { return {m_next, m_end}; }

private:
    const std::uint8_t *m_next;
    const std::uint8_t *m_end;
};

Bytes validReply(std::uint8_t choice, Input in)
{
    constexpr std::size_t countOffset = 13; // behind the result code
    constexpr std::size_t blockOffset = 15;
    Bytes header(frameHeaderSize);
    header[3] = protocol::flag::acknowledgement;
    header[10] = in.byte();
    header[11] = in.byte();
    header[10] = static_cast<std::uint8_t>(header[10] << 4 | header[10] >> 4);
    const bool isLong = (choice & ownLength) != 0;
    const std::size_t said = isLong ? in.byte() | static_cast<std::size_t>(in.byte()) << 8 : 0;
    const Bytes payload = in.rest();
    Bytes frame = header;
    frame.insert(frame.end(), payload.begin(), payload.end());
    frame.resize(std::clamp(isLong ? said : frame.size(), frameHeaderSize, longestDatagram));
    if ((choice & countFits) != 0 && frame.size() >= blockOffset) {
        const std::size_t count = frame.size() - blockOffset;
        frame[countOffset] = static_cast<std::uint8_t>(count & 0xFF);
        frame[countOffset + 1] = static_cast<std::uint8_t>(count >> 8);
    }
    return validFrame(std::move(frame));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_reply_dispatch";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    static const bool quiet = [] {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        return true;
    }();
    if (size < 3 || !quiet) {
        return 0;
    }
    Bytes datagram = (data[0] & asItIs) != 0 ? Bytes(data + 1, data + size) : validReply(data[0], {data + 1, size - 1});
    static Camera camera([](KestDataPacket &) { return 0; });
    static const UDPTransciever transciever(nullptr, {}, [](const Reply &reply) { camera.handleReply(reply); });
    transciever.handleDatagram(datagram.data(), static_cast<int>(datagram.size()));
    return 0;
}
