#pragma once

#include <QString>
#include <QWidget>

/// The widget of that name; the test ends where there is none.
template <class Widget>
Widget *find(const QWidget &window, const char *name)
{
    auto *widget = window.findChild<Widget *>(QString::fromLatin1(name));
    if (widget == nullptr) {
        qFatal("There is no %s", name);
    }
    return widget;
}
