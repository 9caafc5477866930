#pragma once

#include <QString>

// Texts from outside, such as a camera's WiFi name, hold whatever they like. What a format cannot carry becomes U+FFFD.

/// `text` with U+FFFD in the place of half surrogate pairs.
QString wellFormed(const QString &text);

/// `text` as XML 1.0 can carry it: also without the control characters other than tab and line breaks, and without
/// U+FFFE and U+FFFF.
QString xmlText(const QString &text);
