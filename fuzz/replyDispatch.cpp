// Datagrams that pass for the camera's: whatever they hold, they end in a completion handler or nowhere.
// The first input byte chooses what is made of the rest: the datagram as it is, or a reply with a valid header and
// checksum to the command that the next two bytes name.

#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "camera/codec/PacketCodec.h"

#include <algorithm>
#include <QCoreApplication>
#include <vector>

namespace {
std::vector<std::uint8_t> validReply(const std::uint8_t *data, std::size_t size)
{
    KestDataPacket packet;
    packet.flags = protocol::flag::acknowledgement;
    packet.cmdSet = data[0];
    packet.cmdId = static_cast<std::uint16_t>(data[0] >> 4 << 8 | data[1]);
    const std::size_t payload = std::min<std::size_t>(size - 2, protocol::maxPayloadSize);
    std::copy_n(data + 2, payload, packet.data.begin());
    packet.len = static_cast<std::uint16_t>(protocol::headerSize + payload);
    std::vector<std::uint8_t> frame(protocol::maxFrameSize);
    int length = 0;
    dataPacket2CharArray(packet, frame.data(), &length);
    frame.resize(static_cast<std::size_t>(length));
    return frame;
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
    const bool raw = (data[0] & 1) != 0;
    std::vector<std::uint8_t> datagram =
        raw ? std::vector<std::uint8_t>(data + 1, data + size) : validReply(data + 1, size - 1);
    UDPTransciever::handleDatagram(datagram.data(), static_cast<int>(datagram.size()));
    return 0;
}
