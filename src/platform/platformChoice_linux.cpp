#include "platform/platformChoice.h"

#include <algorithm>
#include <cstring>
#include <QByteArray>
#include <QtGlobal>

namespace {
bool isAnOption(const char *argument)
{
    return std::strncmp(argument, "--", 2) == 0 || std::strcmp(argument, "-h") == 0;
}

void setUnlessSet(const char *variable, const QByteArray &value)
{
    if (!qEnvironmentVariableIsSet(variable)) {
        qputenv(variable, value);
    }
}
} // namespace

void choosePlatform(int argc, char *argv[])
{
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!hasDisplay && std::any_of(argv + 1, argv + argc, isAnOption)) {
        setUnlessSet("QT_QPA_PLATFORM", "offscreen");
    }
    setUnlessSet("QT_XCB_GL_INTEGRATION", "none");
}
