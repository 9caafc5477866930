#include "historyui/plots/Chart.h"

#include "historyui/reader/runWords.h"
#include "plots/plotNumbers.h"

#include <algorithm>
#include <cmath>
#include <QDate>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>
#include <qwt_column_symbol.h>
#include <qwt_date_scale_engine.h>
#include <qwt_legend.h>
#include <qwt_picker_machine.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_picker.h>
#include <qwt_plot_renderer.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

namespace {
/// Names come from outside: nothing in them is markup.
QwtText plain(const QString &text)
{
    return QwtText(text, QwtText::PlainText);
}

/// A title, which would otherwise be larger than what it explains.
QwtText scaleTitle(const QString &text, const QFont &font)
{
    QwtText title = plain(text);
    title.setFont(font);
    return title;
}

class AcrossLabels final : public QwtScaleDraw
{
public:
    explicit AcrossLabels(const PlotContent &content) : m_scale(content.scale), m_names(content.names)
    {
        if (m_scale == PlotContent::Scale::Names) {
            constexpr double slope = -35;
            setLabelRotation(slope);
            setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        }
    }

    QwtText label(double value) const override
    {
        switch (m_scale) {
        case PlotContent::Scale::Names: {
            const int place = qRound(value);
            const bool isPlace = std::abs(value - place) < 1e-6;
            return plain(isPlace ? m_names.value(place) : QString());
        }
        case PlotContent::Scale::Days:
            return plain(QDate::fromJulianDay(qRound64(value)).toString(QStringLiteral("MM-dd\nyyyy")));
        case PlotContent::Scale::Moments:
            return plain(clockTime(value).toString(QStringLiteral("MM-dd HH:mm\nyyyy")));
        case PlotContent::Scale::Numbers:
            break;
        }
        return plain(shortNumber(value));
    }

private:
    const PlotContent::Scale m_scale;
    const QStringList m_names;
};

class UpLabels final : public QwtScaleDraw
{
public:
    explicit UpLabels(bool isShare) : m_isShare(isShare) {}

    QwtText label(double value) const override
    {
        constexpr double hundred = 100;
        return m_isShare ? plain(QStringLiteral("%1 %").arg(qRound(value * hundred * 10) / 10.0))
                         : QwtScaleDraw::label(value);
    }

private:
    const bool m_isShare;
};

/// How many labels stand beside each other in so many pixels.
int labelsInto(int width)
{
    constexpr int label = 110;
    return std::max(2, width / label);
}

/// Marks at whole places only, at most `most`.
QwtScaleDiv wholePlaces(double from, double to, int most)
{
    const double step = std::max(1.0, std::ceil((to - from) / most));
    const double first = std::ceil(from);
    const int last = static_cast<int>(std::floor((to - first) / step));
    QList<double> ticks;
    for (int i = 0; i <= last; ++i) {
        ticks.append(first + i * step);
    }
    return QwtScaleDiv(from, to, {}, {}, ticks);
}
} // namespace

struct Chart::Drawing
{
    QwtPlot plot;
    QwtPlotCanvas *canvas = nullptr; ///< the plot's
};

Chart::Chart(QWidget *parent) : QWidget(parent), m_drawing(std::make_unique<Drawing>())
{
    setFocusPolicy(Qt::StrongFocus);
    QwtPlot &plot = m_drawing->plot;
    plot.setParent(this);
    plot.setFocusPolicy(Qt::NoFocus);
    plot.setAutoReplot(false);
    plot.setCanvasBackground(Qt::white);
    constexpr QSize smallest(200, 130);
    plot.setMinimumSize(smallest);
    auto *canvas = qobject_cast<QwtPlotCanvas *>(plot.canvas());
    canvas->setFrameStyle(QFrame::NoFrame);
    canvas->setFocusPolicy(Qt::NoFocus);
    canvas->setMouseTracking(true);
    canvas->installEventFilter(this);
    m_drawing->canvas = canvas;
    auto *legend = new QwtLegend;
    plot.insertLegend(legend, QwtPlot::TopLegend);

    auto *picker = new QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::RectRubberBand, QwtPicker::AlwaysOff,
                                     plot.canvas());
    picker->setStateMachine(new QwtPickerDragRectMachine);
    connect(picker, qOverload<const QRectF &>(&QwtPlotPicker::selected), this, [this](const QRectF &rect) {
        constexpr double leastShare = 0.01; // a click is no rectangle
        const QPair<double, double> now = range();
        if (rect.width() > (now.second - now.first) * leastShare) {
            setRange(rect.left(), rect.right());
        }
    });

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&plot);
    setRange(m_whole.first, m_whole.second);
}

Chart::~Chart()
{
    m_drawing->plot.setParent(nullptr); // it is a member, which its parent must not delete
}

bool Chart::canDraw()
{
    return true;
}

void Chart::show(const PlotContent &content)
{
    const bool isSame = content.title == m_content.title && content.scale == m_content.scale;
    const QPair<double, double> before = range();
    const bool wasWhole = before == m_whole;
    m_content = content;
    m_whole = content.across();
    setAccessibleName(content.title);

    QwtPlot &plot = m_drawing->plot;
    plot.detachItems(QwtPlotItem::Rtti_PlotItem, true);
    // Where it is seen, what stands around it tells what it is.
    plot.setTitle(content.isEmpty() ? scaleTitle(tr("No data"), font()) : QwtText());
    plot.enableAxis(QwtPlot::xBottom, !content.isEmpty()); // where there is nothing is at no time
    plot.setAxisTitle(QwtPlot::xBottom, scaleTitle(content.acrossTitle, font()));
    plot.setAxisTitle(QwtPlot::yLeft, scaleTitle(content.upTitle, font()));
    plot.enableAxis(QwtPlot::yRight, !content.behindTitle.isEmpty());
    plot.setAxisTitle(QwtPlot::yRight, scaleTitle(content.behindTitle, font()));
    const bool isTime = content.scale == PlotContent::Scale::Moments;
    plot.setAxisScaleEngine(QwtPlot::xBottom, isTime ? new QwtDateScaleEngine(Qt::UTC) : new QwtLinearScaleEngine);
    plot.setAxisScaleDraw(QwtPlot::xBottom, new AcrossLabels(content));
    plot.setAxisScaleDraw(QwtPlot::yLeft, new UpLabels(content.isShare));

    auto *grid = new QwtPlotGrid;
    grid->enableX(false);
    grid->setMajorPen(QPen(QColor(gridColour)));
    grid->attach(&plot);

    // One thing alone needs no key.
    const bool hasKey = content.bars.size() + content.lines.size() > 1;
    double highest = 0;
    double highestBehind = 0;
    for (const PlotBars &bars : content.bars) {
        auto *histogram = new QwtPlotHistogram(plain(bars.name));
        QVector<QwtIntervalSample> samples;
        for (const PlotBar &bar : bars.bars) {
            samples.append(QwtIntervalSample(bar.up, bar.from, bar.to));
            double &top = bars.isBehind ? highestBehind : highest;
            top = std::max(top, bar.up);
        }
        const QColor colour = bars.isBehind ? QColor(paleColour) : colourOfPlot(bars.colour);
        histogram->setBrush(colour);
        histogram->setPen(QPen(bars.isBehind ? colour : colour.darker(), 0));
        histogram->setStyle(QwtPlotHistogram::Columns);
        histogram->setSamples(samples);
        histogram->setYAxis(bars.isBehind ? QwtPlot::yRight : QwtPlot::yLeft);
        histogram->setZ(bars.isBehind ? 5 : 20); // below and above the grid
        histogram->setItemAttribute(QwtPlotItem::Legend, hasKey);
        histogram->attach(&plot);
    }
    for (const PlotLine &line : content.lines) {
        auto *curve = new QwtPlotCurve(plain(line.name));
        QVector<QPointF> points;
        for (const PlotPoint &point : line.points) {
            points.append({point.across, point.up});
            highest = std::max(highest, point.up);
        }
        const QColor colour = colourOfPlot(line.colour);
        const bool isPoints = line.style == PlotLine::Style::Points;
        constexpr double width = 2;
        constexpr int size = 7;
        curve->setPen(colour, width, line.style == PlotLine::Style::Dashed ? Qt::DashLine : Qt::SolidLine);
        curve->setStyle(isPoints ? QwtPlotCurve::NoCurve : QwtPlotCurve::Lines);
        curve->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, colour, QPen(Qt::white),
                                       isPoints ? QSize(size + 3, size + 3) : QSize(size, size)));
        curve->setLegendAttribute(QwtPlotCurve::LegendShowLine, !isPoints);
        curve->setLegendAttribute(QwtPlotCurve::LegendShowSymbol, isPoints);
        constexpr QSize legendIcon(28, 10); // in which dashes can be told
        curve->setLegendIconSize(legendIcon);
        curve->setRenderHint(QwtPlotItem::RenderAntialiased);
        curve->setSamples(points);
        curve->setZ(30);
        curve->setItemAttribute(QwtPlotItem::Legend, hasKey);
        curve->attach(&plot);
    }
    for (const PlotMark &mark : content.marks) {
        auto *marker = new QwtPlotMarker;
        const QColor colour = mark.isLimit ? QColor(limitColour) : QColor(Qt::black);
        QwtText text = plain(mark.text);
        text.setColor(colour);
        text.setBackgroundBrush(QColor(255, 255, 255, 200));
        marker->setLineStyle(QwtPlotMarker::VLine);
        marker->setLinePen(colour, 1.5, mark.isLimit ? Qt::DashLine : Qt::SolidLine);
        marker->setLabel(text);
        // Towards the middle, where there is room.
        const bool isLeft = mark.across > (m_whole.first + m_whole.second) / 2;
        marker->setLabelAlignment((mark.isLimit ? Qt::AlignTop : Qt::AlignBottom) |
                                  (isLeft ? Qt::AlignLeft : Qt::AlignRight));
        marker->setXValue(mark.across);
        marker->setItemAttribute(QwtPlotItem::Legend, false);
        marker->setZ(40);
        marker->attach(&plot);
    }
    constexpr double room = 1.1;   // above the highest
    constexpr double behind = 2.5; // so that they do not hide the lines
    const double top = content.isShare ? 1.0 : std::max(highest * room, 1e-9);
    constexpr double few = 8; // counts, up to which each has a mark of its own
    plot.setAxisMaxMinor(QwtPlot::yLeft, content.isCount ? 0 : 4);
    const double step = content.isCount && highest < few ? 1 : 0;
    plot.setAxisScale(QwtPlot::yLeft, content.upFrom, content.isEmpty() ? 1 : top, step);
    plot.setAxisScale(QwtPlot::yRight, 0, std::max(highestBehind * behind, 1.0));
    plot.updateLegend();
    const bool keeps = isSame && !wasWhole && before.first < m_whole.second && before.second > m_whole.first;
    setRange(keeps ? before.first : m_whole.first, keeps ? before.second : m_whole.second);
}

QPair<double, double> Chart::range() const
{
    const QwtInterval interval = m_drawing->plot.axisInterval(QwtPlot::xBottom);
    return {interval.minValue(), interval.maxValue()};
}

void Chart::setRange(double from, double to)
{
    // Not beyond the whole, and never so near that numbers cannot tell the ends apart.
    const double whole = m_whole.second - m_whole.first;
    constexpr double nearest = 1e-4;
    const double width = std::clamp(to - from, whole * nearest, whole);
    const double begin = std::clamp((from + to) / 2 - width / 2, m_whole.first, m_whole.second - width);
    QwtPlot &plot = m_drawing->plot;
    if (m_content.scale == PlotContent::Scale::Names || m_content.scale == PlotContent::Scale::Days) {
        const int most = m_content.scale == PlotContent::Scale::Names ? 20 : labelsInto(plot.width());
        plot.setAxisScaleDiv(QwtPlot::xBottom, wholePlaces(begin, begin + width, most));
    } else {
        plot.setAxisMaxMajor(QwtPlot::xBottom, labelsInto(plot.width()));
        plot.setAxisScale(QwtPlot::xBottom, begin, begin + width);
    }
    plot.replot();
}

QString Chart::hintAt(const QPoint &point) const
{
    const QwtPlot &plot = m_drawing->plot;
    const QPoint at = m_drawing->canvas->mapFrom(this, point);
    const QwtScaleMap across = plot.canvasMap(QwtPlot::xBottom);
    const QwtScaleMap up = plot.canvasMap(QwtPlot::yLeft);
    constexpr double reach = 12; // pixels
    double nearest = reach * reach;
    QString hint;
    for (const PlotLine &line : m_content.lines) {
        for (const PlotPoint &entry : line.points) {
            const double dx = across.transform(entry.across) - at.x();
            const double dy = up.transform(entry.up) - at.y();
            if (dx * dx + dy * dy < nearest) {
                nearest = dx * dx + dy * dy;
                hint = entry.hint;
            }
        }
    }
    if (!hint.isEmpty() || !m_drawing->canvas->rect().contains(at)) {
        return hint;
    }
    const double value = across.invTransform(at.x());
    for (const PlotBars &bars : m_content.bars) {
        for (const PlotBar &bar : bars.bars) {
            if (value >= bar.from && value < bar.to) {
                return bar.hint;
            }
        }
    }
    return {};
}

QImage Chart::picture(const QSize &size) const
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QFont titleFont = font();
    titleFont.setBold(true);
    QwtPlot &plot = m_drawing->plot;
    const QwtText before = plot.title();
    plot.setTitle(scaleTitle(m_content.title, titleFont));
    QwtPlotRenderer renderer;
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardBackground);
    constexpr int margin = 8;
    renderer.render(&plot, &painter, QRectF(image.rect()).adjusted(margin, margin, -margin, -margin));
    plot.setTitle(before);
    return image;
}

void Chart::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const QPair<double, double> now = range();
    setRange(now.first, now.second);
}

bool Chart::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), plainToolTip(hintAt(mapFromGlobal(help->globalPos()))).toString(), this);
        return true;
    }
    if (event->type() == QEvent::MouseMove) {
        const auto *move = static_cast<QMouseEvent *>(event);
        if (move->buttons() == Qt::NoButton) {
            QToolTip::showText(move->globalPos(), plainToolTip(hintAt(mapFromGlobal(move->globalPos()))).toString(),
                               this);
        }
    }
    if (event->type() == QEvent::MouseButtonPress) {
        setFocus(Qt::MouseFocusReason);
    }
    if (event->type() == QEvent::Wheel) {
        const auto *wheel = static_cast<QWheelEvent *>(event);
        constexpr double perNotch = 1.25;
        constexpr double notch = 120;
        zoom(std::pow(perNotch, wheel->angleDelta().y() / notch));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
