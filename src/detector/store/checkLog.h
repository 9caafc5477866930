#pragma once

#include "detector/store/CheckItemLog.h"

#include <QList>
#include <QMetaType>

/// One component's record of one run: what the event table and the detection log render.
struct checkLog // NOLINT(readability-identifier-naming): the name is the one registered as a meta type
{
    int component = 0;            ///< a `componentId`
    QList<CheckItemLog> itemLogs; ///< one record for each item that was run, in the order of running
};

Q_DECLARE_METATYPE(checkLog)
