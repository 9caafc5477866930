#pragma once

#include <QString>

/// How the window shows a verdict: any code other than ok, failed and warning as not tested.
struct VerdictLook
{
    int verdict;
    const char *styleSheet; ///< of a component's icon
    const char *picture;    ///< the icon's picture
    const char *state;      ///< for screen readers, for translation in the window's context
};

const VerdictLook &lookOf(int verdict);
/// The look's state, translated.
QString verdictState(const VerdictLook &look);
