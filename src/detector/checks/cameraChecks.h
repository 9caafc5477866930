#pragma once

#include "record/Measurement.h"

#include <array>
#include <QList>
#include <QString>

struct CheckItemLog;

// Camera module: the video stream and the factory calibration in the sensor's EEPROM. Runner thread only; verdicts are
// those of verdict.h.

/// Component routine: 0 Video, 1 Factory Check.
QString checkCamera(int *verdict, const QList<int> &items);
/// The items that it knows.
QList<int> cameraItems();

QString checkCameraVideo(int *verdict, QString &detail);

/// MTF, dark spot, white balance and focus, in this order; the first failure ends the item. The text is that of all
/// steps that ran.
QString checkCameraEEProm(int *verdict, QString &detail);

QString checkCameraEEPromSfr(int *verdict);
QString checkCameraEEPromMacula(int *verdict);
QString checkCameraEEPromAwb(int *verdict);
/// Judged by the signature of the white balance, not by the one that the focus block has of its own.
QString checkCameraEEPromFocus(int *verdict);

/// One calibration block of the EEPROM: how to ask for it, and its texts for translation in the context "QObject".
struct CalibrationBlock
{
    bool (*isSigned)(int *status);
    int (*readData)(unsigned char *buffer, int *length);
    int (*readCrc)(unsigned int *crc);
    Field signedField;
    Field lengthField;
    Field crcField;
    const char *signatureFailed;
    const char *notSigned;
    const char *dataFailed;
    const char *crcFailed;
    const char *crcMismatch;
    const char *passed;
};

using CalibrationBlocks = std::array<CalibrationBlock, 3>;

/// The camera's: MTF, dark spot and white balance.
const CalibrationBlocks &calibrationBlocks();

/// The factory check of the blocks given, into a fresh record. Its last step, focus, asks the camera in any case.
void checkFactory(const CalibrationBlocks &blocks, CheckItemLog &item);

/// Signature, data and stored checksum of one block, into a fresh record; the first failure decides.
/// The data reader hands out the block's length but not its bytes, so there is nothing to compute a checksum over: a
/// block of length 0 has the checksum 0, and any longer block counts as a mismatch.
void checkCalibrationBlock(const CalibrationBlock &block, CheckItemLog &item);
