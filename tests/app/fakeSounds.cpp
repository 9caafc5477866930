// Stands in for libcanberra: writes down what it was asked to play.

#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {
std::string said;
int context = 0;
} // namespace

extern "C" {
int ca_context_create(void **created)
{
    *created = &context;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): one thread asks and sets
    return std::getenv("FAKE_SOUNDS_FAIL") == nullptr ? 0 : -1;
}

int ca_context_destroy(void *destroyed)
{
    said += destroyed == &context ? "destroyed\n" : "destroyed another one\n";
    return 0;
}

int ca_context_play(void *, std::uint32_t id, ...)
{
    said += std::to_string(id);
    va_list texts;
    va_start(texts, id);
    for (const char *text = va_arg(texts, const char *); text != nullptr; text = va_arg(texts, const char *)) {
        said += std::string(" ") + text;
    }
    va_end(texts);
    said += '\n';
    return -1; // as without a device
}

/// What has been asked for since the last call.
const char *whatWasAsked()
{
    static std::string handedOut;
    handedOut = said;
    said.clear();
    return handedOut.c_str();
}
}
