#pragma once

#include <QProxyStyle>

/// Draws the frame of a group box as Qt's style Fusion does, but with lines: Fusion reads a PNG for it, and for the
/// first PNG Qt loads every image plug-in on the PC with the libraries behind it (0.4 MiB beside the icons' JPEG). All
/// else is left to the application's style.
class GroupFrameStyle : public QProxyStyle
{
    Q_OBJECT
    Q_DISABLE_COPY(GroupFrameStyle)

public:
    /// Gives the group boxes in `window` a style of their own where the application's is Fusion; others keep theirs.
    static void apply(QWidget *window);

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;

private:
    explicit GroupFrameStyle(QObject *parent);
};
