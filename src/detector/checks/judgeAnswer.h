#pragma once

#include "detector/store/CheckItemLog.h"

/// The texts of an item that asks the camera a question with the answers good and bad, for translation in the context
/// "QObject".
struct AnswerTexts
{
    const char *queryFailed; ///< the camera could not be asked
    const char *bad;
    const char *good;
};

/// Writes the item's verdict and text: ok for a good answer, `verdictIfNotGood` otherwise. `result` is the query's
/// `requestResult` or the camera's own code; unless it is success there is no answer, and `good` does not count.
void judgeAnswer(CheckItemLog &item, int result, bool good, const AnswerTexts &texts, int verdictIfNotGood);
