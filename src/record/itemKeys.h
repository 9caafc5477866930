#pragma once

#include <array>
#include <optional>
#include <QList>
#include <QString>

// The names of components and items that never change and that no language touches. Records, plans and the command line
// call them by these; the numbers are those of the run plan.

struct ComponentKey
{
    int id;          ///< as in `checkLog`
    const char *key; ///< ASCII; also the component's name on the command line
};

/// All components by ascending id.
inline constexpr std::array componentKeys = {
    ComponentKey{0, "camera"}, ComponentKey{1, "gimbal"}, ComponentKey{2, "battery"}, ComponentKey{3, "fan"},
    ComponentKey{4, "button"}, ComponentKey{5, "lens"},   ComponentKey{6, "tfcard"},  ComponentKey{7, "audio"},
    ComponentKey{8, "pcba"},   ComponentKey{9, "log"},
};

struct ItemKey
{
    int component;
    int number;      ///< of the item within its component
    const char *key; ///< ASCII; begins with the component's key
};

/// All items by ascending component and number.
inline constexpr std::array itemKeys = {
    ItemKey{0, 0, "camera.video"},     ItemKey{0, 1, "camera.factory"},    ItemKey{1, 0, "gimbal.main.link"},
    ItemKey{1, 1, "gimbal.roll.link"}, ItemKey{1, 2, "gimbal.pitch.link"}, ItemKey{1, 3, "gimbal.yaw.link"},
    ItemKey{1, 4, "gimbal.motion"},    ItemKey{2, 0, "battery.link"},      ItemKey{2, 1, "battery.status"},
    ItemKey{2, 2, "battery.info"},     ItemKey{2, 3, "battery.charging"},  ItemKey{3, 0, "fan.run"},
    ItemKey{4, 0, "button.press"},     ItemKey{5, 0, "lens.link"},         ItemKey{5, 1, "lens.status"},
    ItemKey{6, 0, "tfcard.use"},       ItemKey{6, 1, "tfcard.speed"},      ItemKey{7, 0, "audio.signal"},
    ItemKey{8, 0, "pcba.lensDriver"},  ItemKey{8, 1, "pcba.sensor"},       ItemKey{8, 2, "pcba.gimbalMain"},
    ItemKey{8, 3, "pcba.gimbalRoll"},  ItemKey{8, 4, "pcba.gimbalPitch"},  ItemKey{8, 5, "pcba.gimbalYaw"},
    ItemKey{8, 6, "pcba.battery"},     ItemKey{9, 0, "log.log"},           ItemKey{9, 1, "log.private"},
    ItemKey{9, 2, "log.dmesg"},        ItemKey{9, 3, "log.pstree"},        ItemKey{9, 4, "log.ifconfig"},
    ItemKey{9, 5, "log.version"},      ItemKey{9, 6, "log.netconf"},       ItemKey{9, 7, "log.scan"},
    ItemKey{9, 8, "log.card"},         ItemKey{9, 9, "log.sharefs"},
};

/// The component's key; empty for an id that there is not.
QString componentKey(int id);
std::optional<int> componentOfKey(const QString &key);
/// The item's key; empty for an item that there is not.
QString itemKey(int component, int number);
/// The numbers of all items of a component, ascending; empty for an id that there is not.
QList<int> itemNumbers(int component);
