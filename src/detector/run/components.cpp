#include "detector/run/components.h"

#include "detector/checks/batteryChecks.h"
#include "detector/checks/cameraChecks.h"
#include "detector/checks/gimbalChecks.h"
#include "detector/checks/lensChecks.h"
#include "detector/checks/logCollection.h"
#include "detector/checks/pcbaChecks.h"
#include "detector/checks/placeholderChecks.h"
#include "detector/checks/tfCardChecks.h"
#include "detector/store/componentId.h"

const std::vector<RunComponent> &runComponents()
{
    using Face = KestDetectorFace;
    static const std::vector<RunComponent> table{
        {componentId::camera, checkCamera, &Face::signal_showCameraCheckResult},
        {componentId::gimbal, checkGimbal, &Face::signal_showGimbalCheckResult},
        {componentId::battery, checkBattery, &Face::signal_showBatteryCheckResult},
        {componentId::fan, checkFan, &Face::signal_showFanCheckResult},
        {componentId::keyBoard, checkKeyBoard, &Face::signal_showKeyBoardCheckResult},
        {componentId::lens, checkLens, &Face::signal_showLensCheckResult},
        {componentId::tfCard, checkTFCard, &Face::signal_showTFCardCheckResult},
        {componentId::voice, checkVoice, &Face::signal_showVoiceCheckResult},
        {componentId::pcba, checkPcba, &Face::signal_showPcbaCheckResult},
        {componentId::log, downLoadLogs, nullptr},
    };
    return table;
}
