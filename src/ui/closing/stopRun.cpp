#include "ui/window/stopRun.h"

#include "camera/client/Camera.h"
#include "detector/store/KestDetectorFace.h"
#include "telnet/session/TelnetInteractiveFace.h"

bool stopRun()
{
    if (!KestDetectorFace::Get()->run.stop()) {
        return false;
    }
    // A download and the shell call that is served now look by themselves: this thread serves them.
    TelnetInteractiveFace::Get()->heedStop();
    Camera::Get()->heedStop();
    return true;
}
