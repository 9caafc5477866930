#include "platform/watchPeer.h"

#include <QAbstractSocket>

#include <algorithm>
#include <array>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace {
struct Option
{
    int level;
    int name;
    int value;
};

/// A peer that has been silent for a second is asked, and asked again a second later: one answer that a radio loses is
/// no loss of the connection. What is sent meanwhile has to be acknowledged in the same time.
constexpr std::array options = {
    Option{IPPROTO_TCP, TCP_KEEPIDLE, 1},        // s
    Option{IPPROTO_TCP, TCP_KEEPINTVL, 1},       // s
    Option{IPPROTO_TCP, TCP_KEEPCNT, 2},         //
    Option{IPPROTO_TCP, TCP_USER_TIMEOUT, 2500}, // ms; takes the place of the count above where both hold
    Option{SOL_SOCKET, SO_KEEPALIVE, 1},         //
};
} // namespace

bool watchPeer(QAbstractSocket *socket)
{
    const auto descriptor = static_cast<int>(socket->socketDescriptor());
    return descriptor >= 0 && std::all_of(options.begin(), options.end(), [descriptor](const Option &option) {
               return setsockopt(descriptor, option.level, option.name, &option.value, sizeof option.value) == 0;
           });
}
