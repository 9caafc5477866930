#include "detector/checks/judgeAnswer.h"

#include "camera/client/Camera.h"

#include <QObject>

void judgeAnswer(CheckItemLog &item, int result, bool good, const AnswerTexts &texts, int verdictIfNotGood)
{
    const bool answered = result == requestResult::success;
    item.result = answered && good ? verdict::ok : verdictIfNotGood;
    const char *answer = good ? texts.good : texts.bad;
    item.message = QObject::tr(answered ? answer : texts.queryFailed);
}
