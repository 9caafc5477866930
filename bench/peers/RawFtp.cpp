#include "peers/RawFtp.h"

#include "peers/camera.h"
#include "peers/TcpSocket.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace {
constexpr std::size_t bufferSize = 1 << 18;

/// Sends a command and returns the server's answer of one line.
std::string ask(const TcpSocket &control, const std::string &command)
{
    control.write(command + "\r\n");
    std::string answer;
    control.readUntil("\r\n", &answer);
    return answer;
}

/// The port in an answer such as "227 Entering passive mode (127,0,0,10,168,39)."
std::uint16_t passivePort(const std::string &answer)
{
    unsigned high = 0;
    unsigned low = 0;
    const std::size_t numbers = answer.find('(');
    if (numbers == std::string::npos ||
        std::sscanf(answer.c_str() + numbers, "(%*u,%*u,%*u,%*u,%u,%u)", &high, &low) != 2) {
        giveUp("PASV");
    }
    return static_cast<std::uint16_t>(high * 256 + low);
}
} // namespace

std::size_t rawFtpDownload(const std::string &name, const std::string &localFile)
{
    const TcpSocket control(camera::address, camera::ftpPort);
    std::string greeting;
    control.readUntil("\r\n", &greeting);
    ask(control, std::string("USER ") + camera::ftpUser);
    ask(control, std::string("PASS ") + camera::ftpPassword);
    ask(control, "TYPE I");
    const TcpSocket data(camera::address, passivePort(ask(control, "PASV")));
    control.write("RETR " + name + "\r\n");

    const int file = open(localFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    const std::unique_ptr<char[]> buffer(new char[bufferSize]);
    std::size_t total = 0;
    for (std::size_t count = 0; (count = data.read(buffer.get(), bufferSize)) > 0; total += count) {
        if (write(file, buffer.get(), count) != static_cast<ssize_t>(count)) {
            giveUp("write");
        }
    }
    close(file);
    std::string farewell;
    control.readUntil("\r\n", &farewell);
    return total;
}
