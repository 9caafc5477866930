#include "recordStop.h"

#include "detector/store/KestDetectorFace.h"
#include "ui/window/stopRun.h"
#include "ui/window/stopServices.h"

StopRecord stopRecord;

void stopServices()
{
    ++stopRecord.calls;
    stopRecord.quitFlag = KestDetectorFace::Get()->quitFlag;
}

bool stopRun()
{
    const bool found = KestDetectorFace::Get()->run.stop();
    stopRecord.runs += found ? 1 : 0;
    return found;
}
