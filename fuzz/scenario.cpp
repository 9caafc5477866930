// A scenario file of the emulated camera: read, or refused with a reason.

#include "emulator/scenario/ScenarioReader.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    emulator::parseScenario(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
