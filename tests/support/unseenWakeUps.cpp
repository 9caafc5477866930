// Preloaded into what a test under the thread sanitizer starts: hides from the sanitizer the eight bytes (eventfd(2))
// by which one thread wakes the event loop of another. It takes them for a lock between the two. A loop that happens to
// be awake is handed its events without them, though, and what passes nineteen times would be reported the twentieth
// time. With them hidden, it is reported every time.

#include <cstdint>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
constexpr std::size_t wakeUpSize = sizeof(std::uint64_t);

/// The function of this name that would have been called without this file.
template <class Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}
} // namespace

extern "C" {
ssize_t read(int descriptor, void *bytes, std::size_t size)
{
    // GLib reads into a buffer of two.
    if (size == wakeUpSize || size == 2 * wakeUpSize) {
        return syscall(SYS_read, descriptor, bytes, size);
    }
    static auto *const instrumented = next<ssize_t(int, void *, std::size_t)>("read");
    return instrumented(descriptor, bytes, size);
}

ssize_t write(int descriptor, const void *bytes, std::size_t size)
{
    if (size == wakeUpSize) {
        return syscall(SYS_write, descriptor, bytes, size);
    }
    static auto *const instrumented = next<ssize_t(int, const void *, std::size_t)>("write");
    return instrumented(descriptor, bytes, size);
}
}
