#include "ui/widgets/RingsProgressbar.h"

#include <limits>
#include <QPainter>
#include <QPaintEvent>
#include <utility>

namespace {
constexpr int ringWidth = 20;  // pixels
constexpr int sixteenths = 16; // QPainter counts angles in sixteenths of a degree
constexpr int twelveOClock = 90 * sixteenths;
constexpr int smallestSide = 200; // below that "Current:100%" no longer fits into the middle
} // namespace

RingsProgressbar::RingsProgressbar(QWidget *parent, QString captionText)
    : QWidget(parent), caption(std::move(captionText))
{
}

void RingsProgressbar::setPersent(int value)
{
    if (value == percent) {
        return;
    }
    percent = value;
    update();
}

QString RingsProgressbar::text() const
{
    return QStringLiteral("%1%2%").arg(caption, QString::number(percent));
}

QSize RingsProgressbar::sizeHint() const
{
    return minimumSizeHint();
}

QSize RingsProgressbar::minimumSizeHint() const
{
    return {smallestSide, smallestSide};
}

void RingsProgressbar::paintEvent(QPaintEvent * /*event*/)
{
    // A full turn is all that shows; beyond it only the sixteenths of a degree could overflow.
    constexpr qint64 widest = std::numeric_limits<int>::max() / (2 * sixteenths);
    angle = static_cast<int>(qBound(-widest, qint64{percent} * 360 / 100, widest));
    const qreal side = qMin(width(), height());
    const QRectF outer(0, 0, side, side);
    const QRectF inner = outer.adjusted(ringWidth, ringWidth, -ringWidth, -ringWidth);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(210, 247, 255));
    painter.drawEllipse(outer);
    painter.setBrush(QColor(0, 170, 255));
    painter.drawPie(outer, twelveOClock - angle * sixteenths, angle * sixteenths);
    painter.setBrush(palette().brush(QPalette::Window));
    painter.drawEllipse(inner);

    painter.setFont(QFont(QStringLiteral("Microsoft YaHei"), 15, QFont::Bold));
    painter.setPen(QColor(0x55, 0x55, 0x55));
    painter.drawText(inner, Qt::AlignCenter, text());
}
