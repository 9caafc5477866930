#include "emulator/cage/SystemCallFilter.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <vector>

namespace emulator {

namespace {
#if defined(__x86_64__)
constexpr std::uint32_t architecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t architecture = AUDIT_ARCH_AARCH64;
#else
#error "add the architecture's audit number (linux/audit.h)"
#endif

constexpr std::array<std::uint32_t, 11> pretended{
    SYS_getuid,    SYS_geteuid,  SYS_getgid,   SYS_getegid,   SYS_setuid,    SYS_setgid,
    SYS_setgroups, SYS_setreuid, SYS_setregid, SYS_setresuid, SYS_setresgid,
};

constexpr std::array<std::uint32_t, 16> forbidden{
    SYS_unshare, SYS_setns,           SYS_mount,       SYS_umount2,
    SYS_chroot,  SYS_pivot_root,      SYS_ptrace,      SYS_process_vm_readv,
    SYS_add_key, SYS_request_key,     SYS_keyctl,      SYS_process_vm_writev,
    SYS_bpf,     SYS_perf_event_open, SYS_sethostname, SYS_socket,
};

/// The second table of calls on x86-64 ("x32") has this bit set in its numbers.
constexpr std::uint32_t secondTableBit = 0x40000000;

constexpr std::uint32_t fail(int error)
{
    return SECCOMP_RET_ERRNO | (static_cast<std::uint32_t>(error) & SECCOMP_RET_DATA);
}

sock_filter load(std::size_t offset)
{
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset));
}

sock_filter answer(std::uint32_t action)
{
    return BPF_STMT(BPF_RET | BPF_K, action);
}

/// The next instruction is only executed when the comparison holds.
sock_filter when(int comparison, std::uint32_t value)
{
    return BPF_JUMP(static_cast<std::uint16_t>(BPF_JMP | comparison | BPF_K), value, 0, 1);
}

std::vector<sock_filter> program()
{
    std::vector<sock_filter> result{
        load(offsetof(seccomp_data, arch)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, architecture, 1, 0),
        answer(fail(EPERM)),
        load(offsetof(seccomp_data, nr)),
        when(BPF_JGE, secondTableBit),
        answer(fail(EPERM)),
    };
    const auto add = [&result](const auto &calls, std::uint32_t action) {
        for (const std::uint32_t call : calls) {
            result.push_back(when(BPF_JEQ, call));
            result.push_back(answer(action));
        }
    };
    add(pretended, fail(0));
    add(forbidden, fail(EPERM));
    result.push_back(answer(SECCOMP_RET_ALLOW));
    return result;
}
} // namespace

bool installSystemCallFilter()
{
    std::vector<sock_filter> instructions = program();
    const sock_fprog filter{static_cast<unsigned short>(instructions.size()), instructions.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

} // namespace emulator
