#pragma once

#include <QList>
#include <QString>

// Camera module: the video stream and the factory calibration in the sensor's EEPROM. Runner thread only; verdicts are
// those of verdict.h.

/// Component routine: 0 Video, 1 Factory Check.
QString checkCamera(int *verdict, const QList<int> &items);

QString checkCameraVideo(int *verdict, QString &detail);

/// MTF, dark spot, white balance and focus, in this order; the first failure ends the item. The text is that of all
/// steps that ran.
QString checkCameraEEProm(int *verdict, QString &detail);

QString checkCameraEEPromSfr(int *verdict);
QString checkCameraEEPromMacula(int *verdict);
QString checkCameraEEPromAwb(int *verdict);
/// Judged by the white-balance signature: the focus result is signed together with it.
QString checkCameraEEPromFocus(int *verdict);

/// One calibration block of the EEPROM: how to ask for it, and its texts for translation in the context "QObject".
struct CalibrationBlock
{
    bool (*isSigned)(int *status);
    int (*readData)(unsigned char *buffer, int *length);
    int (*readCrc)(unsigned int *crc);
    const char *signatureFailed;
    const char *notSigned;
    const char *dataFailed;
    const char *crcFailed;
    const char *crcMismatch;
    const char *passed;
};

/// Signature, data and stored checksum of one block; the first failure decides.
/// The data reader hands out the block's length but not its bytes, so there is nothing to compute a checksum over: a
/// block of length 0 has the checksum 0, and any longer block counts as a mismatch.
QString checkCalibrationBlock(const CalibrationBlock &block, int *verdict);
