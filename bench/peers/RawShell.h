#pragma once

#include "peers/TcpSocket.h"

#include <string>
#include <string_view>

/// The camera's shell over a plain socket: leaves the server's option negotiation unanswered.
class RawShell
{
public:
    RawShell();

    /// Runs a command, which ends in its own "\n"; all that comes up to and including the prompt.
    std::string run(std::string_view command) const;

private:
    TcpSocket m_socket;
};
