#pragma once

#include <QString>

/// A link or stream that the camera watches itself and reports in one bit of its status word. The texts are for
/// translation in the context "QObject".
struct StatusBit
{
    int position;            ///< bit of the status word, 0 to 63
    const char *queryFailed; ///< verdict 1: the camera could not be asked
    const char *notExpected; ///< verdict 1: the bit is examined and differs from what is expected
    const char *asExpected;  ///< verdict 0
};

/// Asks the camera for its status word and judges one bit of it; returns the verdict's text. `detail` is emptied.
QString checkStatusBit(const StatusBit &bit, int *verdict, QString &detail);
