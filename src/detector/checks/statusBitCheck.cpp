#include "detector/checks/statusBitCheck.h"

#include "camera/client/Camera.h"
#include "detector/store/checkHelpers.h"
#include "detector/store/verdict.h"

#include <QObject>

QString checkStatusBit(const StatusBit &bit, int *verdict, QString &detail)
{
    detail.clear();
    CameraStatus status;
    if (Camera::Get()->getCameraState(&status) != requestResult::success) {
        *verdict = verdict::failed;
        return QObject::tr(bit.queryFailed);
    }
    const bool differs = getCameraStatusList(status.iCurStatus).contains(bit.position);
    *verdict = differs ? verdict::failed : verdict::ok;
    return QObject::tr(differs ? bit.notExpected : bit.asExpected);
}
