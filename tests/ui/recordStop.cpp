#include "recordStop.h"

#include "detector/store/KestDetectorFace.h"
#include "ui/window/stopServices.h"

StopRecord stopRecord;

void stopServices()
{
    ++stopRecord.calls;
    stopRecord.quitFlag = KestDetectorFace::Get()->quitFlag;
}
