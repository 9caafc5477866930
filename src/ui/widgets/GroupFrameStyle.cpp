#include "ui/widgets/GroupFrameStyle.h"

#include <QApplication>
#include <QGroupBox>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace {
// Fusion's, pixel by pixel but for single steps of a colour.
constexpr QColor line(117, 117, 117, 50);
constexpr QColor corner(39, 39, 39, 13);
constexpr QColor besideCorner(95, 95, 95, 54);
constexpr QColor withinCorner(92, 92, 92, 18); ///< over the shade
constexpr QColor shade(0, 0, 0, 5);
constexpr QColor ground(0, 0, 0, 3);
constexpr int gapAboveFrame = 3;

void drawCorners(QPainter *painter, const QRect &rect, const QColor &color)
{
    painter->setPen(color);
    for (const QPoint &point : {rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight()}) {
        painter->drawPoint(point);
    }
}

/// `outer`: where the line runs.
void drawFrame(QPainter *painter, const QRect &outer)
{
    const QRect inner = outer.adjusted(1, 1, -1, -1);
    painter->fillRect(inner, ground);
    painter->setPen(shade);
    painter->drawRect(inner.adjusted(0, 0, -1, -1));
    painter->setPen(line);
    painter->drawLine(inner.left() + 1, outer.top(), inner.right() - 1, outer.top());
    painter->drawLine(inner.left() + 1, outer.bottom(), inner.right() - 1, outer.bottom());
    painter->drawLine(outer.left(), inner.top() + 1, outer.left(), inner.bottom() - 1);
    painter->drawLine(outer.right(), inner.top() + 1, outer.right(), inner.bottom() - 1);
    drawCorners(painter, outer, corner);
    drawCorners(painter, outer.adjusted(1, 0, -1, 0), besideCorner);
    drawCorners(painter, outer.adjusted(0, 1, 0, -1), besideCorner);
    drawCorners(painter, inner, withinCorner);
}
} // namespace

GroupFrameStyle::GroupFrameStyle(QObject *parent) : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion")))
{
    setParent(parent);
}

void GroupFrameStyle::apply(QWidget *window)
{
    if (!QApplication::style()->inherits("QFusionStyle")) {
        return;
    }
    auto *style = new GroupFrameStyle(window);
    const QList<QGroupBox *> boxes = window->findChildren<QGroupBox *>();
    for (QGroupBox *box : boxes) {
        box->setStyle(style);
    }
}

void GroupFrameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                    const QWidget *widget) const
{
    if (element != PE_FrameGroupBox) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const int title = qMax(pixelMetric(PM_IndicatorHeight, option, widget), option->fontMetrics.height());
    painter->save();
    drawFrame(painter, option->rect.adjusted(1, title + gapAboveFrame + 1, 0, 0));
    painter->restore();
}
