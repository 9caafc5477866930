// The program's arguments, one in each line of the input.

#include "app/station/CommandLine.h"
#include "require.h"
#include "settingsLines.h"

#include <QCoreApplication>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // The help names the program.
    static int argc = 1;
    static char name[] = "fuzz_command_line";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    const CommandLine line = CommandLine::parse(QStringList(QStringLiteral("KestDetector")) + textLines(data, size));
    require((line.mode == CommandLine::Mode::Wrong) <= !line.message.isEmpty(), "wrong usage is told");
    require((line.mode == CommandLine::Mode::Unattended) <= !line.boxes.isEmpty(), "an unattended run ticks something");
    require(line.repeat >= 1 && line.connectTimeoutSeconds >= 1, "numbers are in their ranges");
    return 0;
}
