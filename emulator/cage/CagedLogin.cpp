#include "emulator/cage/CagedLogin.h"

#include "emulator/cage/processes.h"
#include "emulator/cage/SystemCallFilter.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <linux/capability.h>
#include <poll.h>
#include <sched.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>

namespace emulator {

namespace {
constexpr const char *hostName = "(none)";

struct Limit
{
    __rlimit_resource resource;
    rlim_t value;
};

constexpr std::array<Limit, 3> limits{{
    {RLIMIT_CORE, 0},
    {RLIMIT_FSIZE, rlim_t{256} * 1024 * 1024},
    {RLIMIT_NOFILE, 256},
}};

[[noreturn]] void giveUp(const char *what)
{
    std::fprintf(stderr, "no shell: %s: %s\r\n", what, std::strerror(errno)); // NOLINT(concurrency-mt-unsafe)
    _exit(EXIT_FAILURE);
}

void writeFile(const char *path, const std::string &text)
{
    const int file = open(path, O_WRONLY | O_CLOEXEC);
    if (file >= 0) {
        // A refusal shows in the next step, which needs the mapping.
        [[maybe_unused]] const ssize_t written = write(file, text.data(), text.size());
        close(file);
    }
}

/// An ordinary user gets the right to make the other namespaces from a user namespace, in which he is root.
void becomeRootOfUserNamespace()
{
    const std::string user = "0 " + std::to_string(geteuid()) + " 1";
    const std::string group = "0 " + std::to_string(getegid()) + " 1";
    if (unshare(CLONE_NEWUSER) != 0) {
        giveUp("neither root nor allowed to make a user namespace");
    }
    writeFile("/proc/self/setgroups", "deny");
    writeFile("/proc/self/uid_map", user);
    writeFile("/proc/self/gid_map", group);
}

/// The root file system becomes "/" and nothing else can be reached from it. Without a mount namespace of its own
/// `chroot` has to do, which holds as long as nobody inside has the right to call it again.
void enterRoot(const std::string &root, bool ownMounts)
{
    if (ownMounts && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        mount(root.c_str(), root.c_str(), nullptr, MS_BIND | MS_REC, nullptr) == 0) {
        // Where no device could be made, the file system has a plain file to lay the real one over.
        mount("/dev/null", (root + "/dev/null").c_str(), nullptr, MS_BIND, nullptr);
        // pivot_root(2): the old root ends up on top of the new one, from where it is taken off.
        if (chdir(root.c_str()) == 0 && syscall(SYS_pivot_root, ".", ".") == 0 && umount2(".", MNT_DETACH) == 0 &&
            chdir("/") == 0) {
            return;
        }
    }
    if (chroot(root.c_str()) != 0 || chdir("/") != 0) {
        giveUp("chroot");
    }
}

bool hasHostName(bool ownHostName)
{
    if (ownHostName && sethostname(hostName, std::strlen(hostName)) == 0) {
        return true;
    }
    utsname names{};
    return uname(&names) == 0 && std::strcmp(names.nodename, hostName) == 0;
}

void dropCapabilities()
{
    constexpr int lastCapability = 63;
    for (int capability = 0; capability <= lastCapability; ++capability) {
        prctl(PR_CAPBSET_DROP, capability);
    }
    prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_CLEAR_ALL, 0, 0, 0);
}

/// From here on the process has no rights but those of its user. `otherwiseAlone`: no process outside is visible, so
/// that keeping the caller's user (the only one in a user namespace) gives no hold on his processes.
void becomePowerless(bool otherwiseAlone)
{
    for (const Limit &limit : limits) {
        const rlimit value{limit.value, limit.value};
        setrlimit(limit.resource, &value);
    }
    dropCapabilities();
    constexpr auto id = CagedLogin::userId;
    const bool otherUser = setgroups(0, nullptr) == 0 && setresgid(id, id, id) == 0 && setresuid(id, id, id) == 0;
    if (!otherUser && !otherwiseAlone) {
        giveUp("neither another user nor a process namespace to be had");
    }
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, 2> none{};
    if (syscall(SYS_capset, &header, none.data()) != 0) {
        giveUp("capset");
    }
    if (!installSystemCallFilter()) {
        giveUp("system call filter");
    }
}

[[noreturn]] void startLogin(bool named, bool otherwiseAlone)
{
    setsid();
    ioctl(STDIN_FILENO, TIOCSCTTY, 0);
    becomePowerless(otherwiseAlone);
    if (std::getenv(CagedLogin::probeVariable) != nullptr) { // NOLINT(concurrency-mt-unsafe)
        _exit(access("/bin/login", X_OK) == 0 ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    std::array<char *const, 3> environment{const_cast<char *>("TERM=vt102"), const_cast<char *>("PATH=/bin:/sbin"),
                                           nullptr};
    // login takes the name in its prompt from the system; where that cannot be set, a script asks instead.
    const char *const program = named ? "/bin/login" : "/sbin/ask-login";
    std::array<char *const, 2> arguments{const_cast<char *>(program), nullptr};
    execve(program, arguments.data(), environment.data());
    giveUp(program);
}

/// The cage's first process: sets it up, starts the login and stays until that ends. In a process namespace of its
/// own its end is the end of all others.
[[noreturn]] void runInit(const std::string &root, bool ownProcesses)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const bool ownMounts = unshare(CLONE_NEWNS) == 0;
    const bool ownHostName = unshare(CLONE_NEWUTS) == 0;
    unshare(CLONE_NEWIPC);
    unshare(CLONE_NEWNET);
    enterRoot(root, ownMounts);
    const bool named = hasHostName(ownHostName);
    const pid_t login = fork();
    if (login == 0) {
        startLogin(named, ownProcesses);
    }
    int status = EXIT_FAILURE << 8;
    pid_t ended = 0;
    while ((ended = wait(&status)) != login && (ended > 0 || errno == EINTR)) {
    }
    _exit(WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE);
}

/// Until the cage's first process ends or the terminal's other side is closed.
int waitForEnd(pid_t init, int childSignals)
{
    const bool probe = std::getenv(CagedLogin::probeVariable) != nullptr; // NOLINT(concurrency-mt-unsafe)
    int status = 0;
    while (waitpid(init, &status, WNOHANG) == 0) {
        std::array<pollfd, 2> waited{{{childSignals, POLLIN, 0}, {probe ? -1 : STDIN_FILENO, 0, 0}}};
        poll(waited.data(), waited.size(), -1);
        if ((waited[0].revents & POLLIN) != 0) {
            signalfd_siginfo info{};
            [[maybe_unused]] const ssize_t size = read(childSignals, &info, sizeof info);
        }
        if ((waited[1].revents & (POLLHUP | POLLERR)) != 0) {
            kill(init, SIGKILL);
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}
} // namespace

int CagedLogin::run()
{
    const char *const root = std::getenv(rootVariable); // NOLINT(concurrency-mt-unsafe)
    if (root == nullptr) {
        std::fprintf(stderr, "%s is started by camera-emulator\n", programName);
        return EXIT_FAILURE;
    }
    const std::string rootPath = root;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    syscall(SYS_close_range, STDERR_FILENO + 1, ~0U, 0);
    // The terminal shall belong to the login's session, in which job control works; leaving it sends a SIGHUP.
    signal(SIGHUP, SIG_IGN);
    ioctl(STDIN_FILENO, TIOCNOTTY);

    sigset_t before;
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGCHLD);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const int childSignals = signalfd(-1, &blocked, SFD_CLOEXEC);

    if (geteuid() != 0) {
        becomeRootOfUserNamespace();
    }
    const bool ownProcesses = unshare(CLONE_NEWPID) == 0;
    const pid_t init = fork();
    if (init == 0) {
        signal(SIGHUP, SIG_DFL);
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        runInit(rootPath, ownProcesses);
    }
    if (init < 0) {
        giveUp("fork");
    }
    const int result = waitForEnd(init, childSignals);
    killDescendants();
    return result;
}

} // namespace emulator
