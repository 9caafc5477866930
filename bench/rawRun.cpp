// The camera's own part of a full run: the requests, shell commands and downloads that the station makes of a healthy
// camera, one after the other over plain sockets. Prints the time of each kind in nanoseconds.
//
//   rawRun FOLDER    FOLDER takes the downloaded files.

#include "peers/camera.h"
#include "peers/RawCommands.h"
#include "peers/RawFtp.h"
#include "peers/RawShell.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {
using Clock = std::chrono::steady_clock;

struct Request
{
    std::uint8_t receiver;
    std::uint8_t commandSet;
    std::uint16_t commandId;
    int count; ///< in one run
};

constexpr std::array requests = {
    Request{1, 1, 0x1C1, 4}, Request{2, 2, 0x40, 3}, Request{4, 4, 0x40, 1}, Request{4, 4, 0x1A, 1},
    Request{1, 1, 0xF1, 1},  Request{1, 1, 0xF0, 1}, Request{2, 2, 0x43, 4}, Request{4, 4, 0x61, 1},
};
constexpr std::uint8_t cameraDevice = 1;
constexpr std::uint8_t factorySet = 6;
constexpr std::uint16_t readEeprom = 0x21;

struct Archive
{
    const char *name;
    const char *source;
};

constexpr std::array archives = {
    Archive{"log.tar.gz", "/data/log"},
    Archive{"private.tar.gz", "/data/private"},
    Archive{"netconf.tar.gz", "/data/netconf"},
    Archive{"sharefs.tar.gz", "/data/sharefs"},
};

constexpr std::array commands = {
    "mount\n",       "cat /proc/mci/mci_info\n", "dmesg\n",           "pstree && ps\n",
    "ifconfig -a\n", "cat /etc/kest_version\n",  "iw dev ap0 scan\n", "cat /proc/mci/mci_info\n",
};

template <class Work>
long long timed(Work work)
{
    const auto begin = Clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - begin).count();
}

void makeRequests()
{
    RawCommands camera;
    for (const Request &request : requests) {
        const auto frame = requestFrame(request.receiver, request.commandSet, request.commandId);
        for (int i = 0; i < request.count; ++i) {
            camera.exchange(frame);
        }
    }
    camera.exchange(requestFrame(cameraDevice, factorySet, readEeprom, {0xE2, 0x1F, 2, 0}));
}
} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: rawRun FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    const std::string folder = argv[1];
    const RawShell shell;
    const long long requestTime = timed(makeRequests);
    const long long commandTime = timed([&] {
        for (const char *command : commands) {
            shell.run(command);
        }
    });
    long long packTime = 0;
    long long transferTime = 0;
    for (const Archive &archive : archives) {
        const std::string file = std::string(camera::archiveFolder) + '/' + archive.name;
        packTime += timed([&] { shell.run("tar -zcvf " + file + ' ' + archive.source + '\n'); });
        transferTime += timed([&] { rawFtpDownload(archive.name, folder + '/' + archive.name); });
        packTime += timed([&] { shell.run("rm -rf " + file + '\n'); });
    }
    std::printf("requests %lld\ncommands %lld\narchives %lld\ntransfers %lld\n", requestTime, commandTime, packTime,
                transferTime);
    return EXIT_SUCCESS;
}
