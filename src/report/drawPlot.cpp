#include "report/drawPlot.h"

#include "history/query/Distribution.h"
#include "plots/plotNumbers.h"
#include "report/ReportTexts.h"

#include <algorithm>
#include <cmath>
#include <QDate>

namespace {
constexpr double pageWidth = 680;
constexpr double smallSize = 10;
constexpr double hair = 1e-9; // what the arithmetic leaves beside a round number

const QColor axisColour(0x88, 0x88, 0x88);

/// Maps a range of values to a range of pixels.
struct Scale
{
    double from;
    double to;
    double begin;
    double end;

    double at(double value) const
    {
        return to > from ? begin + (value - from) / (to - from) * (end - begin) : (begin + end) / 2;
    }
};

Path line(const QPointF &from, const QPointF &to, const QColor &colour, double width = 1, bool isDashed = false)
{
    return {{from, to}, colour, width, isDashed};
}

QColor colourOf(const PlotBars &bars)
{
    return bars.isBehind ? QColor(paleColour) : colourOfPlot(bars.colour);
}

/// The highest of the bars behind, or of all else.
double highestOf(const PlotContent &content, bool isBehind)
{
    double highest = 0;
    for (const PlotBars &bars : content.bars) {
        for (const PlotBar &bar : bars.bars) {
            highest = bars.isBehind == isBehind ? std::max(highest, bar.up) : highest;
        }
    }
    for (const PlotLine &line : content.lines) {
        for (const PlotPoint &point : line.points) {
            highest = isBehind ? highest : std::max(highest, point.up);
        }
    }
    return highest;
}

Drawing noData(const QString &title)
{
    Drawing drawing{{pageWidth, 40}, title, {}};
    drawing.shapes.append(Label{{0, 24}, ReportTexts::tr("No data"), Label::Anchor::Begin, 12, axisColour});
    return drawing;
}

Drawing drawNames(const PlotContent &content)
{
    constexpr double row = 22;
    constexpr double left = 165;
    constexpr double right = 540;
    constexpr double above = 4;
    constexpr double half = 0.5; // a name stands in the middle of its bars
    Drawing drawing{{pageWidth, static_cast<double>(content.names.size()) * row + 2 * above}, content.title, {}};
    const Scale across{0, highestOf(content, false), left, right};
    const Scale down{-half, static_cast<double>(content.names.size()) - half, above,
                     above + static_cast<double>(content.names.size()) * row};
    for (int i = 0; i < content.names.size(); ++i) {
        drawing.shapes.append(Label{{left - 8, down.at(i) + above}, content.names.at(i), Label::Anchor::End});
    }
    for (const PlotBars &bars : content.bars) {
        for (const PlotBar &bar : bars.bars) {
            const double end = across.at(bar.up);
            drawing.shapes.append(
                Box{QRectF(QPointF(left, down.at(bar.from)), QPointF(end, down.at(bar.to))), colourOf(bars), bar.hint});
            drawing.shapes.append(
                Label{{end + 6, down.at((bar.from + bar.to) / 2) + above}, bar.label, Label::Anchor::Begin, smallSize});
        }
    }
    return drawing;
}

/// What stands upright, while it is being drawn.
class Upright
{
public:
    explicit Upright(const PlotContent &content)
        : m_content(content), m_drawing{{pageWidth, height}, content.title, {}}, m_across{content.across().first,
                                                                                          content.across().second, left,
                                                                                          pageWidth - right},
          m_up{content.upFrom, content.isShare ? 1 : std::max(highestOf(content, false), hair) * room, bottom, top},
          m_behind{0, std::max(highestOf(content, true), 1.0) * roomBehind, bottom, top}
    {
    }

    Drawing draw()
    {
        addBars(true);
        addGrid();
        addBars(false);
        for (const PlotLine &one : m_content.lines) {
            addLine(one);
        }
        m_drawing.shapes.append(line({m_across.begin, bottom}, {m_across.end, bottom}, axisColour));
        addAcross();
        addBehind();
        for (const PlotMark &mark : m_content.marks) {
            addMark(mark);
        }
        addKey();
        return m_drawing;
    }

private:
    static constexpr double height = 210;
    static constexpr double top = 26;
    static constexpr double bottom = height - 24;
    static constexpr double left = 46;
    static constexpr double right = 60;
    static constexpr double room = 1.05;      ///< above the highest
    static constexpr double roomBehind = 2.5; ///< so that they do not hide the lines
    static constexpr int labels = 7;
    static constexpr double labelWidth = 70;

    void addBars(bool isBehind)
    {
        const Scale &up = isBehind ? m_behind : m_up;
        for (const PlotBars &bars : m_content.bars) {
            if (bars.isBehind != isBehind) {
                continue;
            }
            for (const PlotBar &bar : bars.bars) {
                // A seam between bars that touch each other.
                const double seam = m_across.at(bar.to) - m_across.at(bar.from) > 3 ? 0.5 : 0;
                const QPointF corner(m_across.at(bar.from) + seam, up.at(bar.up));
                m_drawing.shapes.append(
                    Box{QRectF(corner, QPointF(m_across.at(bar.to) - seam, bottom)), colourOf(bars), bar.hint});
            }
        }
    }

    /// Lines across at round heights, named at their left.
    void addGrid()
    {
        constexpr int most = 5;
        const double least = m_content.isCount ? 1 : 0;
        const double step = std::max(roundStep((m_up.to - m_up.from) / most), least);
        for (double i = std::ceil(m_up.from / step - hair); i * step <= m_up.to + hair; ++i) {
            const double at = m_up.at(i * step);
            const QString text =
                m_content.isShare ? QStringLiteral("%1 %").arg(shortNumber(i * step * 100)) : shortNumber(i * step);
            m_drawing.shapes.append(line({m_across.begin, at}, {m_across.end, at}, QColor(gridColour)));
            m_drawing.shapes.append(Label{{m_across.begin - 4, at + 4}, text, Label::Anchor::End, smallSize});
        }
    }

    void addLine(const PlotLine &one)
    {
        constexpr double half = 3; // of what stands for a single point
        const QColor colour = colourOfPlot(one.colour);
        QVector<QPointF> points;
        for (const PlotPoint &point : one.points) {
            points.append({m_across.at(point.across), m_up.at(point.up)});
        }
        if (one.style == PlotLine::Style::Points || points.size() == 1) {
            for (const QPointF &point : points) {
                m_drawing.shapes.append(
                    Box{QRectF(point - QPointF(half, half), point + QPointF(half, half)), colour, {}});
            }
            return;
        }
        m_drawing.shapes.append(Path{points, colour, 2, one.style == PlotLine::Style::Dashed});
    }

    void addAcross()
    {
        const auto label = [this](double value, const QString &text) {
            const double at = m_across.at(value);
            m_drawing.shapes.append(line({at, bottom}, {at, bottom + 4}, axisColour));
            m_drawing.shapes.append(Label{{at, bottom + 16}, text, Label::Anchor::Middle, smallSize});
        };
        if (m_content.scale == PlotContent::Scale::Numbers) {
            const double step = roundStep((m_across.to - m_across.from) / (labels + 1));
            for (double i = std::ceil(m_across.from / step); i * step <= m_across.to; ++i) {
                label(i * step, shortNumber(i * step));
            }
            return;
        }
        // The days or moments that there is something at.
        QVector<qint64> places;
        for (const PlotBars &bars : m_content.bars) {
            for (const PlotBar &bar : bars.bars) {
                places.append(qRound64((bar.from + bar.to) / 2));
            }
        }
        for (const PlotLine &one : m_content.lines) {
            for (const PlotPoint &point : one.points) {
                places.append(qRound64(point.across));
            }
        }
        std::sort(places.begin(), places.end());
        places.erase(std::unique(places.begin(), places.end()), places.end());
        const int last = static_cast<int>(places.size()) - 1;
        const int count = std::min(last + 1, labels);
        double free = m_across.begin - labelWidth; // from here on there is room
        for (int i = 0; i < count; ++i) {
            const qint64 place = places.at(count == 1 ? 0 : i * last / (count - 1));
            const double at = m_across.at(static_cast<double>(place));
            if (at < free) {
                continue;
            }
            free = at + labelWidth;
            label(static_cast<double>(place),
                  m_content.scale == PlotContent::Scale::Days
                      ? QDate::fromJulianDay(place).toString(Qt::ISODate)
                      : clockTime(static_cast<double>(place)).toString(QStringLiteral("MM-dd HH:mm")));
        }
    }

    /// What the highest behind says.
    void addBehind()
    {
        const PlotBar *highest = nullptr;
        for (const PlotBars &bars : m_content.bars) {
            for (const PlotBar &bar : bars.bars) {
                highest = bars.isBehind && (highest == nullptr || bar.up > highest->up) ? &bar : highest;
            }
        }
        if (highest != nullptr) {
            m_drawing.shapes.append(Label{{m_across.end + 4, m_behind.at(highest->up) + 4},
                                          highest->label,
                                          Label::Anchor::Begin,
                                          smallSize,
                                          axisColour});
        }
    }

    /// Limits tell what they are; all else stands below the plot.
    void addMark(const PlotMark &mark)
    {
        if (mark.across < m_across.from || mark.across > m_across.to) {
            return;
        }
        constexpr double edge = 60; // nearer to it, a text would not have the room
        const double at = m_across.at(mark.across);
        const QColor colour = mark.isLimit ? QColor(limitColour) : QColor(Qt::black);
        m_drawing.shapes.append(line({at, top - 4}, {at, bottom}, colour, 1.5, mark.isLimit));
        if (mark.isLimit) {
            const Label::Anchor anchor = at < m_across.begin + edge ? Label::Anchor::Begin
                                         : at > m_across.end - edge ? Label::Anchor::End
                                                                    : Label::Anchor::Middle;
            m_drawing.shapes.append(Label{{at, top - 9}, mark.text, anchor, smallSize, colour});
        }
    }

    /// One thing alone needs none.
    void addKey()
    {
        if (m_content.bars.size() + m_content.lines.size() < 2) {
            return;
        }
        constexpr double step = 150;
        QPointF at(m_across.begin, 10);
        const auto name = [this, &at](const QString &text) {
            m_drawing.shapes.append(Label{at + QPointF(27, 4), text, Label::Anchor::Begin, smallSize});
            at += QPointF(step, 0);
        };
        for (const PlotLine &one : m_content.lines) {
            m_drawing.shapes.append(
                line(at, at + QPointF(22, 0), colourOfPlot(one.colour), 2, one.style == PlotLine::Style::Dashed));
            name(one.name);
        }
        for (const PlotBars &bars : m_content.bars) {
            m_drawing.shapes.append(Box{{at.x() + 5, at.y() - 5, 12, 10}, colourOf(bars), {}});
            name(bars.name);
        }
    }

    const PlotContent &m_content;
    Drawing m_drawing;
    const Scale m_across;
    const Scale m_up;
    const Scale m_behind;
};
} // namespace

Drawing drawPlot(const PlotContent &content)
{
    if (content.isEmpty()) {
        return noData(content.title);
    }
    return content.scale == PlotContent::Scale::Names ? drawNames(content) : Upright(content).draw();
}
