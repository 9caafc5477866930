#pragma once

#include <cstdint>

class QString;

/// An IPv4 address as the system's sockets hold it, in network byte order; all bits are set for what is no address.
std::uint32_t networkAddress(const QString &address);
