#include "detector/checks/cameraChecks.h"

#include "camera/client/Camera.h"
#include "camera/codec/PacketCodec.h"
#include "detector/checks/checkComponent.h"
#include "detector/checks/noteRequest.h"
#include "detector/checks/statusBitCheck.h"
#include "detector/store/componentId.h"
#include "detector/store/verdict.h"
#include "record/itemKeys.h"

#include <array>
#include <QObject>

namespace {
constexpr StatusBit videoStream = {
    19,
    {QT_TRANSLATE_NOOP("QObject", "获取相机视频流状态失败\n"), QT_TRANSLATE_NOOP("QObject", "相机视频流NG\n"),
     QT_TRANSLATE_NOOP("QObject", "相机视频流OK\n")},
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
    Field::CameraMtfSigned,
    Field::CameraMtfLength,
    Field::CameraMtfCrc,
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
    Field::CameraDarkSpotSigned,
    Field::CameraDarkSpotLength,
    Field::CameraDarkSpotCrc,
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
    Field::CameraWhiteBalanceSigned,
    Field::CameraWhiteBalanceLength,
    Field::CameraWhiteBalanceCrc,
    QT_TRANSLATE_NOOP("QObject", "获取白平衡检测签名失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机白平衡检测未签名\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机白平衡检测数据失败\n"),
    QT_TRANSLATE_NOOP("QObject", "获取相机白平衡检测Crc校验值失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机白平衡检测Crc校验值有误\n"),
    QT_TRANSLATE_NOOP("QObject", "相机白平衡检测成功\n"),
};

template <const CalibrationBlock &block>
void checkBlock(CheckItemLog &item)
{
    checkCalibrationBlock(block, item);
}

constexpr AnswerTexts focusTexts = {
    QT_TRANSLATE_NOOP("QObject", "获取Focus检测签名失败\n"),
    QT_TRANSLATE_NOOP("QObject", "相机Focus检测未签名\n"),
    QT_TRANSLATE_NOOP("QObject", "相机Focus检测成功\n"),
};

void checkFocus(CheckItemLog &item)
{
    int status = requestResult::success;
    const bool isSigned = Camera::Get()->signatureCheckAwb(&status);
    if (noteRequest(item, status) == requestResult::success) {
        item.measurements.append(measured(Field::CameraFocusSigned, isSigned ? 1 : 0));
    }
    judgeAnswer(item, status, isSigned, focusTexts, verdict::failed);
}

constexpr CalibrationBlocks factoryBlocks = {sfrBlock, maculaBlock, awbBlock};

void checkFactory(CheckItemLog &item)
{
    checkFactory(factoryBlocks, item);
}

/// A step by itself: it has no report.
QString checkStep(ItemCheck check, int *verdict)
{
    QString detail;
    return checkItem(check, verdict, detail);
}

constexpr std::array itemTable = {
    CheckItem{itemId::camera::video, QT_TRANSLATE_NOOP("QObject", "Video"), checkStatusBit<videoStream>},
    CheckItem{itemId::camera::factoryCheck, QT_TRANSLATE_NOOP("QObject", "Factory Check"), checkFactory},
};
} // namespace

QString checkCamera(int *verdict, const QList<int> &items)
{
    return checkComponent(componentId::camera, verdict::failed, itemTable, verdict, items);
}

QList<int> cameraItems()
{
    return itemsOf(itemTable);
}

QString checkCameraVideo(int *verdict, QString &detail)
{
    return checkItem(checkStatusBit<videoStream>, verdict, detail);
}

QString checkCameraEEProm(int *verdict, QString &detail)
{
    return checkItem(checkFactory, verdict, detail);
}

QString checkCameraEEPromSfr(int *verdict)
{
    return checkStep(checkBlock<sfrBlock>, verdict);
}

QString checkCameraEEPromMacula(int *verdict)
{
    return checkStep(checkBlock<maculaBlock>, verdict);
}

QString checkCameraEEPromAwb(int *verdict)
{
    return checkStep(checkBlock<awbBlock>, verdict);
}

QString checkCameraEEPromFocus(int *verdict)
{
    return checkStep(checkFocus, verdict);
}

const CalibrationBlocks &calibrationBlocks()
{
    return factoryBlocks;
}

void checkFactory(const CalibrationBlocks &blocks, CheckItemLog &item)
{
    const auto take = [&item](const CheckItemLog &step) {
        item.result = step.result;
        item.message += step.message;
        item.measurements += step.measurements;
        item.request = step.request; // a step that was not answered is the last one
    };
    for (const CalibrationBlock &block : blocks) {
        CheckItemLog step;
        checkCalibrationBlock(block, step);
        take(step);
        if (step.result != verdict::ok) {
            return;
        }
    }
    CheckItemLog focus;
    checkFocus(focus);
    take(focus);
}

void checkCalibrationBlock(const CalibrationBlock &block, CheckItemLog &item)
{
    const auto fail = [&item](const char *text) {
        item.result = verdict::failed;
        item.message = QObject::tr(text);
    };
    int status = requestResult::success;
    const bool isSigned = block.isSigned(&status);
    if (noteRequest(item, status) != requestResult::success) {
        return fail(block.signatureFailed);
    }
    item.measurements.append(measured(block.signedField, isSigned ? 1 : 0));
    if (!isSigned) {
        return fail(block.notSigned);
    }
    int length = 0;
    if (noteRequest(item, block.readData(nullptr, &length)) != requestResult::success) {
        return fail(block.dataFailed);
    }
    item.measurements.append(measured(block.lengthField, length));
    unsigned int storedCrc = 0;
    if (noteRequest(item, block.readCrc(&storedCrc)) != requestResult::success) {
        return fail(block.crcFailed);
    }
    item.measurements.append(measured(block.crcField, storedCrc));
    if (length != 0 || mapi_eeprom_crc32(nullptr, 0) != storedCrc) {
        return fail(block.crcMismatch);
    }
    item.result = verdict::ok;
    item.message = QObject::tr(block.passed);
}
