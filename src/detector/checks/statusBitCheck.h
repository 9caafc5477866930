#pragma once

#include "detector/checks/judgeAnswer.h"

/// A link or stream that the camera watches itself and reports in one bit of its status word. Bad: the bit is examined
/// and differs from what is expected.
struct StatusBit
{
    int position; ///< bit of the status word, 0 to 63
    AnswerTexts texts;
};

/// Asks the camera for its status word and judges one bit of it; fails unless the answer is good.
void checkStatusBit(const StatusBit &bit, CheckItemLog &item);

/// The same as a row of an item table names it.
template <const StatusBit &bit>
void checkStatusBit(CheckItemLog &item)
{
    checkStatusBit(bit, item);
}
