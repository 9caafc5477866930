// A pattern for serial numbers in the first line of the input, a serial number in the rest.

#include "plan/SerialPattern.h"
#include "require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const int end = text.indexOf(QLatin1Char('\n'));
    const SerialPattern pattern(text.left(end));
    const bool matches = pattern.matches(end < 0 ? QString() : text.mid(end + 1));
    require(!matches || pattern.error().isEmpty(), "a wrong pattern matches nothing");
    require(!pattern.matches(QString()), "no serial number is none");
    return 0;
}
