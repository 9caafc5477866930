#include "peers/RawShell.h"

#include "peers/camera.h"

namespace {
constexpr std::string_view prompt = "~ # ";
} // namespace

RawShell::RawShell() : m_socket(camera::address, camera::shellPort)
{
    std::string text;
    m_socket.readUntil("login: ", &text);
    m_socket.write(std::string(camera::user) + '\n');
    m_socket.readUntil("assword: ", &text);
    m_socket.write(std::string(camera::password) + '\n');
    m_socket.readUntil(prompt, &text);
}

std::string RawShell::run(std::string_view command) const
{
    std::string reply;
    m_socket.write(command);
    m_socket.readUntil(prompt, &reply);
    return reply;
}
