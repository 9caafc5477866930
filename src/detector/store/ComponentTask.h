#pragma once

#include <QList>

/// One entry of a run plan.
struct ComponentTask
{
    int component = 0; ///< a `componentId`
    QList<int> items;  ///< the component's item indices in the order in which they are to run
};
