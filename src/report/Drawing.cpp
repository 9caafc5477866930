#include "report/Drawing.h"

#include "record/plainText.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QStringList>
#include <QXmlStreamWriter>

namespace {
const QLatin1String svgNamespace("http://www.w3.org/2000/svg");
const QLatin1String dashes("5 3");

/// To a hundredth of a pixel, as the shortest text.
QString lengthText(double length)
{
    QString text = QString::number(length, 'f', 2);
    while (text.endsWith(QLatin1Char('0'))) {
        text.chop(1);
    }
    if (text.endsWith(QLatin1Char('.'))) {
        text.chop(1);
    }
    return text;
}

const char *anchorName(Label::Anchor anchor)
{
    switch (anchor) {
    case Label::Anchor::Middle:
        return "middle";
    case Label::Anchor::End:
        return "end";
    case Label::Anchor::Begin:
        break;
    }
    return "start";
}

class SvgWriter
{
public:
    explicit SvgWriter(QXmlStreamWriter *xml) : m_xml(xml) {}

    void operator()(const Box &box) const
    {
        m_xml->writeStartElement(QStringLiteral("rect"));
        attribute("x", box.rect.x());
        attribute("y", box.rect.y());
        attribute("width", box.rect.width());
        attribute("height", box.rect.height());
        attribute("fill", box.colour.name());
        if (!box.hint.isEmpty()) {
            m_xml->writeTextElement(QStringLiteral("title"), xmlText(box.hint));
        }
        m_xml->writeEndElement();
    }

    void operator()(const Path &path) const
    {
        QStringList points;
        for (const QPointF &point : path.points) {
            points.append(lengthText(point.x()) + QLatin1Char(',') + lengthText(point.y()));
        }
        m_xml->writeStartElement(QStringLiteral("polyline"));
        attribute("points", points.join(QLatin1Char(' ')));
        attribute("fill", QStringLiteral("none"));
        attribute("stroke", path.colour.name());
        attribute("stroke-width", path.width);
        if (path.isDashed) {
            attribute("stroke-dasharray", QString(dashes));
        }
        m_xml->writeEndElement();
    }

    void operator()(const Label &label) const
    {
        m_xml->writeStartElement(QStringLiteral("text"));
        attribute("x", label.at.x());
        attribute("y", label.at.y());
        attribute("font-size", label.size);
        attribute("text-anchor", QString::fromLatin1(anchorName(label.anchor)));
        attribute("fill", label.colour.name());
        m_xml->writeCharacters(xmlText(label.text));
        m_xml->writeEndElement();
    }

private:
    void attribute(const char *name, const QString &value) const { m_xml->writeAttribute(QLatin1String(name), value); }
    void attribute(const char *name, double value) const { attribute(name, lengthText(value)); }

    QXmlStreamWriter *m_xml;
};

class Painting
{
public:
    explicit Painting(QPainter *painter) : m_painter(painter) {}

    void operator()(const Box &box) const { m_painter->fillRect(box.rect, box.colour); }

    void operator()(const Path &path) const
    {
        m_painter->setPen(QPen(path.colour, path.width, path.isDashed ? Qt::DashLine : Qt::SolidLine));
        m_painter->drawPolyline(QPolygonF(path.points));
    }

    void operator()(const Label &label) const
    {
        QFont font = m_painter->font();
        font.setPixelSize(qRound(label.size));
        m_painter->setFont(font);
        m_painter->setPen(label.colour);
        const double width = QFontMetricsF(font, m_painter->device()).horizontalAdvance(label.text);
        const double before = label.anchor == Label::Anchor::Begin    ? 0
                              : label.anchor == Label::Anchor::Middle ? width / 2
                                                                      : width;
        m_painter->drawText(label.at - QPointF(before, 0), label.text);
    }

private:
    QPainter *m_painter;
};
} // namespace

void writeSvg(const Drawing &drawing, QXmlStreamWriter *xml)
{
    xml->writeStartElement(QStringLiteral("svg"));
    xml->writeDefaultNamespace(svgNamespace);
    const QString width = lengthText(drawing.size.width());
    const QString height = lengthText(drawing.size.height());
    xml->writeAttribute(QStringLiteral("viewBox"), QStringLiteral("0 0 %1 %2").arg(width, height));
    xml->writeAttribute(QStringLiteral("width"), width);
    xml->writeAttribute(QStringLiteral("height"), height);
    xml->writeAttribute(QStringLiteral("role"), QStringLiteral("img"));
    xml->writeAttribute(QStringLiteral("aria-label"), xmlText(drawing.title));
    xml->writeAttribute(QStringLiteral("font-family"), QStringLiteral("sans-serif"));
    for (const auto &shape : drawing.shapes) {
        std::visit(SvgWriter(xml), shape);
    }
    xml->writeEndElement();
}

void paint(const Drawing &drawing, QPainter *painter)
{
    for (const auto &shape : drawing.shapes) {
        std::visit(Painting(painter), shape);
    }
}
