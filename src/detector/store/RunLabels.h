#pragma once

#include <QString>

/// Who tests which device: what the station itself cannot know. A text that nobody gave is empty.
struct RunLabels
{
    QString operatorName;
    QString batch;
    QString serial; ///< of the device under test
};

inline bool operator==(const RunLabels &left, const RunLabels &right)
{
    return left.operatorName == right.operatorName && left.batch == right.batch && left.serial == right.serial;
}
