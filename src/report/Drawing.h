#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVector>
#include <variant>

class QPainter;
class QXmlStreamWriter;

// A picture of lines, boxes and labels, which is written as SVG and painted on paper alike. Plain values, for any
// thread; lengths are in pixels of a page of 96 dpi, y grows downwards.

struct Box
{
    QRectF rect;
    QColor colour;
    QString hint; ///< shown by the browser while the pointer is on it; empty: nothing
};

struct Path
{
    QVector<QPointF> points;
    QColor colour;
    double width = 1;
    bool isDashed = false;
};

struct Label
{
    enum class Anchor { Begin, Middle, End };

    QPointF at; ///< on the base line
    QString text;
    Anchor anchor = Anchor::Begin;
    double size = 11; ///< height of the font
    QColor colour = QColor(0x22, 0x22, 0x22);
};

struct Drawing
{
    QSizeF size;
    QString title; ///< what the picture shows, for those who do not see it
    QVector<std::variant<Box, Path, Label>> shapes;
};

/// The element `svg`, to stand in a page or alone. Texts are data: nothing in them is markup.
void writeSvg(const Drawing &drawing, QXmlStreamWriter *xml);

/// The same at the origin of `painter`, in whose units the lengths are.
void paint(const Drawing &drawing, QPainter *painter);
