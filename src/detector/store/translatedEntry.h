#pragma once

#include <array>
#include <cstddef>
#include <QObject>
#include <QString>

/// The entry at `index` of a table of texts for translation (context "QObject"), translated; empty outside of the table
/// and for an empty entry.
template <std::size_t Size>
QString translatedEntry(const std::array<const char *, Size> &table, int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= Size) {
        return {};
    }
    const char *text = table[static_cast<std::size_t>(index)];
    return *text == '\0' ? QString() : QObject::tr(text);
}
