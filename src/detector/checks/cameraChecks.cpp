#include "detector/checks/cameraChecks.h"

#include "camera/client/Camera.h"
#include "camera/codec/PacketCodec.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"

#include <array>
#include <QObject>

namespace {
constexpr std::array itemTable = {
    CheckItem{0, QT_TRANSLATE_NOOP("QObject", "Video"), checkCameraVideo},
    CheckItem{1, QT_TRANSLATE_NOOP("QObject", "Factory Check"), checkCameraEEProm},
};

constexpr StatusBit videoStream = {
    19,
    QT_TRANSLATE_NOOP("QObject", "获取相机视频流状态失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机视频流NG\n"),
    QT_TRANSLATE_NOOP("QObject", "相机视频流OK\n"),
};

// The camera client is fetched anew for each query.

template <bool (Camera::*signatureCheck)(int *)>
bool isSigned(int *status)
{
    return (*Camera::Get().*signatureCheck)(status);
}

template <int (Camera::*reader)(unsigned char *, int *)>
int readData(unsigned char *buffer, int *length)
{
    return (*Camera::Get().*reader)(buffer, length);
}

template <int (Camera::*reader)(unsigned int *)>
int readCrc(unsigned int *crc)
{
    return (*Camera::Get().*reader)(crc);
}

constexpr CalibrationBlock sfrBlock = {
    isSigned<&Camera::signatureCheckSfr>,
    readData<&Camera::eepromReadSfr>,
    readCrc<&Camera::eepromReadSfrCrc>,
    QT_TRANSLATE_NOOP("QObject", "获取相机MTF检测签名失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机MTF检测未签名\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机MTF检测数据失败\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机MTF检测Crc校验值失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机MTF测试Crc校验值有误\n"),
    QT_TRANSLATE_NOOP("QObject", "相机MTF测试成功\n"),
};

constexpr CalibrationBlock maculaBlock = {
    isSigned<&Camera::signatureCheckMacula>,
    readData<&Camera::eepromReadMacula>,
    readCrc<&Camera::eepromReadMaculaCrc>,
    QT_TRANSLATE_NOOP("QObject", "获取相机暗斑检测签名失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机暗斑检测未签名\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机暗斑检测数据失败\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机暗斑检测Crc校验值失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机暗斑检测Crc校验值有误\n"),
    QT_TRANSLATE_NOOP("QObject", "相机暗斑检测成功\n"),
};

constexpr CalibrationBlock awbBlock = {
    isSigned<&Camera::signatureCheckAwb>,
    readData<&Camera::eepromReadAwb>,
    readCrc<&Camera::eepromReadAwbCrc>,
    QT_TRANSLATE_NOOP("QObject", "获取白平衡检测签名失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机白平衡检测未签名\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机白平衡检测数据失败\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机白平衡检测Crc校验值失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机白平衡检测Crc校验值有误\n"),
    QT_TRANSLATE_NOOP("QObject", "相机白平衡检测成功\n"),
};

constexpr std::array factorySteps = {
    checkCameraEEPromSfr,
    checkCameraEEPromMacula,
    checkCameraEEPromAwb,
    checkCameraEEPromFocus,
};
} // namespace

QString checkCamera(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::camera, verdict::failed, itemTable, verdict, items);
}

QString checkCameraVideo(int *verdict, QString &detail)
{
    return checkStatusBit(videoStream, verdict, detail);
}

QString checkCameraEEProm(int *verdict, QString &detail)
{
    detail.clear();
    QString text;
    for (const auto step : factorySteps) {
        text += step(verdict);
        if (*verdict != verdict::ok) {
            break;
        }
    }
    return text;
}

QString checkCameraEEPromSfr(int *verdict)
{
    return checkCalibrationBlock(sfrBlock, verdict);
}

QString checkCameraEEPromMacula(int *verdict)
{
    return checkCalibrationBlock(maculaBlock, verdict);
}

QString checkCameraEEPromAwb(int *verdict)
{
    return checkCalibrationBlock(awbBlock, verdict);
}

QString checkCameraEEPromFocus(int *verdict)
{
    int status = requestResult::success;
    const bool isSigned = Camera::Get()->signatureCheckAwb(&status);
    *verdict = verdict::failed;
    if (status != requestResult::success) {
        return QObject::tr("获取Focus检测签名失败\n");
    }
    if (!isSigned) {
        return QObject::tr("相机Focus检测未签名\n");
    }
    *verdict = verdict::ok;
    return QObject::tr("相机Focus检测成功\n");
}

QString checkCalibrationBlock(const CalibrationBlock &block, int *verdict)
{
    *verdict = verdict::failed;
    int status = requestResult::success;
    const bool isSigned = block.isSigned(&status);
    if (status != requestResult::success) {
        return QObject::tr(block.signatureFailed);
    }
    if (!isSigned) {
        return QObject::tr(block.notSigned);
    }
    int length = 0;
    if (block.readData(nullptr, &length) != requestResult::success) {
        return QObject::tr(block.dataFailed);
    }
    unsigned int storedCrc = 0;
    if (block.readCrc(&storedCrc) != requestResult::success) {
        return QObject::tr(block.crcFailed);
    }
    if (length != 0 || mapi_eeprom_crc32(nullptr, 0) != storedCrc) {
        return QObject::tr(block.crcMismatch);
    }
    *verdict = verdict::ok;
    return QObject::tr(block.passed);
}
