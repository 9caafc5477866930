#include "detector/checks/knownItems.h"

#include "detector/checks/batteryChecks.h"
#include "detector/checks/cameraChecks.h"
#include "detector/checks/gimbalChecks.h"
#include "detector/checks/lensChecks.h"
#include "detector/checks/logCollection.h"
#include "detector/checks/pcbaChecks.h"
#include "detector/checks/placeholderChecks.h"
#include "detector/checks/tfCardChecks.h"
#include "detector/store/componentId.h"

namespace {
struct ComponentItems
{
    int component;
    QList<int> (*items)();
};

constexpr ComponentItems components[] = {
    {componentId::camera, cameraItems},     {componentId::gimbal, gimbalItems}, {componentId::battery, batteryItems},
    {componentId::fan, fanItems},           {componentId::lens, lensItems},     {componentId::tfCard, tfCardItems},
    {componentId::keyBoard, keyBoardItems}, {componentId::voice, voiceItems},   {componentId::pcba, pcbaItems},
    {componentId::log, logItems},
};
} // namespace

QList<int> knownItems(int component)
{
    for (const ComponentItems &entry : components) {
        if (entry.component == component) {
            return entry.items();
        }
    }
    return {};
}
