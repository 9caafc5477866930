#include "ui/window/stopServices.h"

#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "ftp/FtpDownLoadFace.h"
#include "telnet/session/TelnetInteractiveFace.h"

void stopServices()
{
    KestDetectorFace::Get()->requestStop();
    TelnetInteractiveFace::Get()->giveUp();
    FtpDownLoadFace::Get()->giveUp();
    Camera::Get()->abandonRequests();

    UDPTransciever::Get()->killThread();
    Camera::Get()->killThread();
    KestDetectorRt::Get()->killThread();
}
