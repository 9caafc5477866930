#include "emulator/cage/processes.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <dirent.h>
#include <fstream>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace emulator {

namespace {
/// Parents by process, from /proc/PID/stat (proc(5)): the name, which may hold anything, ends at the last ")".
std::map<pid_t, pid_t> parents()
{
    std::map<pid_t, pid_t> result;
    DIR *const directory = opendir("/proc");
    if (directory == nullptr) {
        return result;
    }
    while (const dirent *const entry = readdir(directory)) { // NOLINT(concurrency-mt-unsafe): a stream of its own
        const auto pid = static_cast<pid_t>(std::strtol(entry->d_name, nullptr, 10));
        if (pid <= 0) {
            continue;
        }
        std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
        std::string stat;
        std::getline(file, stat, '\0');
        const std::size_t nameEnd = stat.rfind(')');
        constexpr std::size_t fromNameToParent = 4; // ") S "
        if (nameEnd != std::string::npos && nameEnd + fromNameToParent < stat.size()) {
            result[pid] = static_cast<pid_t>(std::strtol(stat.c_str() + nameEnd + fromNameToParent, nullptr, 10));
        }
    }
    closedir(directory);
    return result;
}

std::vector<pid_t> descendants()
{
    const std::map<pid_t, pid_t> parentOf = parents();
    std::vector<pid_t> result;
    for (const auto &[pid, firstParent] : parentOf) {
        pid_t ancestor = firstParent;
        while (ancestor > 0 && ancestor != getpid()) {
            const auto next = parentOf.find(ancestor);
            ancestor = next == parentOf.end() ? 0 : next->second;
        }
        if (ancestor == getpid()) {
            result.push_back(pid);
        }
    }
    return result;
}
} // namespace

bool killDescendants()
{
    constexpr int rounds = 500;
    constexpr timespec pause{0, 10'000'000};
    for (int round = 0; round < rounds; ++round) {
        for (const pid_t pid : descendants()) {
            kill(pid, SIGKILL);
        }
        pid_t reaped = 0;
        do {
            reaped = waitpid(-1, nullptr, WNOHANG);
        } while (reaped > 0);
        if (reaped < 0 && errno == ECHILD) {
            return true;
        }
        nanosleep(&pause, nullptr);
    }
    return false;
}

} // namespace emulator
