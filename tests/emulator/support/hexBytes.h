#pragma once

#include <QByteArray>

/// The bytes written as pairs of hexadecimal digits.
inline QByteArray hexBytes(const char *text)
{
    return QByteArray::fromHex(text);
}
