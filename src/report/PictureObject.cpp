#include "report/PictureObject.h"

#include <algorithm>
#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QPainter>
#include <QTextDocument>
#include <QTextFrame>

PictureObject::~PictureObject() = default;

int PictureObject::add(const Drawing &drawing)
{
    m_drawings.append(drawing);
    return static_cast<int>(m_drawings.size()) - 1;
}

QSizeF PictureObject::intrinsicSize(QTextDocument *document, int, const QTextFormat &format)
{
    constexpr double pixelsPerInch = 96;
    const QPaintDevice *device = document->documentLayout()->paintDevice();
    const QSizeF size = m_drawings.value(format.intProperty(index)).size;
    double scale = device == nullptr ? 1 : device->logicalDpiX() / pixelsPerInch;
    const QTextFrameFormat page = document->rootFrame()->frameFormat();
    const double room = document->pageSize().width() - page.leftMargin() - page.rightMargin();
    if (room > 0 && size.width() > 0) {
        scale = std::min(scale, room / size.width());
    }
    return size * scale;
}

void PictureObject::drawObject(QPainter *painter, const QRectF &rect, QTextDocument *, int, const QTextFormat &format)
{
    const Drawing drawing = m_drawings.value(format.intProperty(index));
    if (drawing.size.isEmpty()) {
        return;
    }
    painter->save();
    painter->translate(rect.topLeft());
    const double scale = rect.width() / drawing.size.width();
    painter->scale(scale, scale);
    paint(drawing, painter);
    painter->restore();
}
