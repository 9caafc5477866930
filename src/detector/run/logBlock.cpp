#include "detector/run/logBlock.h"

#include "detector/store/checkHelpers.h"

QString logBlock(const checkLog &log)
{
    QString text = QLatin1Char('[') + getComponent(log.component) + QStringLiteral("]:\n");
    for (const CheckItemLog &item : log.itemLogs) {
        text += item.message + item.detail; // they bring their own line breaks
    }
    return text + QLatin1Char('\n');
}
