#pragma once

#include "detector/store/KestDetectorFace.h"

#include <QList>
#include <QString>
#include <vector>

/// One component as the runner knows it.
struct RunComponent
{
    int id; ///< a `componentId`
    QString (*routine)(int *verdict, const QList<int> &items);
    void (KestDetectorFace::*showResult)(
        int verdict); ///< null: the verdict is not shown, and only a broken limit counts
};

/// Every component that a run can name. A plan's component that is not among them fails the run.
const std::vector<RunComponent> &runComponents();
