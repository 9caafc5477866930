#pragma once

#include <QList>

/// The items that a component's routine knows; empty for an unknown component. A plan that names another one has no
/// effect there.
QList<int> knownItems(int component);
