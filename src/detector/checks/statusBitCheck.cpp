#include "detector/checks/statusBitCheck.h"

#include "camera/client/Camera.h"
#include "detector/checks/noteRequest.h"
#include "detector/store/checkHelpers.h"

namespace {
QString hexWord(quint64 word)
{
    return QStringLiteral("0x%1").arg(word, 16, 16, QLatin1Char('0'));
}
} // namespace

void checkStatusBit(const StatusBit &bit, CheckItemLog &item)
{
    CameraStatus status;
    const int result = noteRequest(item, Camera::Get()->getCameraState(&status));
    bool asExpected = false;
    if (result == requestResult::success) {
        item.measurements.append(measured(Field::CameraStatusWord, hexWord(status.iCurStatus)));
        asExpected = !getCameraStatusList(status.iCurStatus).contains(bit.position);
    }
    judgeAnswer(item, result, asExpected, bit.texts, verdict::failed);
}
